#include "Drawing.h"

#include <algorithm>
#include <utility>

namespace {

std::string folded(const std::string& name) {
    std::string key = name;
    for (char& c : key)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return key;
}

} // namespace

Drawing::Step::~Step() {
    m_Drawing.goBack(m_Drawing.m_Open);
    m_Drawing.m_Open = Edit();
}

void Drawing::Step::Commit() { m_Drawing.commit(); }

const Figure* Drawing::Get(int number) const {
    if (number < 0 || number >= static_cast<int>(m_Figures.size()))
        return nullptr;
    const State& state = m_Figures[static_cast<std::size_t>(number)];
    return state ? &*state : nullptr;
}

int Drawing::Find(const std::string& name) const {
    const auto found = m_Names.find(folded(name));
    return found == m_Names.end() ? -1 : found->second;
}

int Drawing::Add(const Figure& figure) {
    m_Figures.emplace_back();
    const int number = static_cast<int>(m_Figures.size()) - 1;
    change(number, figure);
    return number;
}

void Drawing::Change(int number, const Figure& figure) { change(number, figure); }

void Drawing::Remove(int number) { change(number, std::nullopt); }

void Drawing::SetOptions(const PageOptions& options) {
    if (!m_Open.optionsBefore)
        m_Open.optionsBefore = m_Options;
    m_Options = m_Open.optionsAfter = options;
}

bool Drawing::Undo() {
    if (m_Done.empty())
        return false;
    goBack(m_Done.back());
    m_Undone.push_back(std::move(m_Done.back()));
    m_Done.pop_back();
    return true;
}

bool Drawing::Redo() {
    if (m_Undone.empty())
        return false;
    goForward(m_Undone.back());
    m_Done.push_back(std::move(m_Undone.back()));
    m_Undone.pop_back();
    return true;
}

// A step remembers only the first and the last state of a figure, however often it changes.
void Drawing::change(int number, const State& after) {
    const auto [entry, isNew] = m_Open.figures.try_emplace(number);
    if (isNew)
        entry->second.before = m_Figures[static_cast<std::size_t>(number)];
    entry->second.after = after;
    put(number, after);
}

void Drawing::put(int number, const State& state) {
    State& place = m_Figures[static_cast<std::size_t>(number)];
    if (place) {
        const auto named = m_Names.find(folded(place->name));
        if (named != m_Names.end() && named->second == number)
            m_Names.erase(named);
    }
    const auto position = std::lower_bound(m_Order.begin(), m_Order.end(), number);
    if (place && !state)
        m_Order.erase(position);
    else if (!place && state)
        m_Order.insert(position, number);
    if (state)
        m_Names[folded(state->name)] = number;
    place = state;
}

void Drawing::goBack(const Edit& edit) {
    for (const auto& [number, change] : edit.figures)
        put(number, change.before);
    if (edit.optionsBefore)
        m_Options = *edit.optionsBefore;
}

void Drawing::goForward(const Edit& edit) {
    for (const auto& [number, change] : edit.figures)
        put(number, change.after);
    if (edit.optionsBefore)
        m_Options = edit.optionsAfter;
}

void Drawing::commit() {
    Edit edit = std::exchange(m_Open, Edit());
    std::erase_if(edit.figures,
                  [](const auto& entry) { return entry.second.before == entry.second.after; });
    if (edit.optionsBefore == edit.optionsAfter)
        edit.optionsBefore.reset();
    if (edit.figures.empty() && !edit.optionsBefore)
        return;
    m_Done.push_back(std::move(edit));
    m_Undone.clear();
}
