#include "Breakpoints.h"

const Breakpoint* Breakpoints::Find(const ScriptFile& file, long line) const {
    for (const Breakpoint& item : m_Items)
        if (item.line == line && item.file == &file)
            return &item;
    return nullptr;
}

const Breakpoint& Breakpoints::Add(ScriptFile& file, long line) {
    if (const Breakpoint* present = Find(file, line))
        return *present;
    m_Items.push_back({++m_LastNumber, &file, line});
    return m_Items.back();
}

bool Breakpoints::Remove(int number) {
    return std::erase_if(m_Items, [&](const Breakpoint& item) { return item.number == number; }) >
           0;
}

void Breakpoints::OnInserted(const ScriptFile& file, long line) {
    for (Breakpoint& item : m_Items)
        if (item.file == &file && item.line >= line)
            ++item.line;
}

void Breakpoints::OnRemoved(const ScriptFile& file, long line) {
    for (Breakpoint& item : m_Items)
        if (item.file == &file && item.line > line)
            --item.line;
}

std::string Breakpoints::Settle(const ScriptFile& file) {
    std::string told;
    const auto settle = [&](Breakpoint& item) {
        if (item.file != &file)
            return false;
        const long line = file.outline.FindStatement(item.line);
        if (line == item.line)
            return false;
        const std::string name = "Breakpoint " + std::to_string(item.number);
        if (line < 0) {
            told += name + " is gone: no statement follows it.\n";
            return true;
        }
        item.line = line;
        told += name + " moves to " + file.At(line) + ".\n";
        return false;
    };
    std::erase_if(m_Items, settle);
    return told;
}
