#include "runtime/TextSearch.h"

#include <string>

namespace {

// Up to this length a plain search stays linear, with a small factor at worst, and is quicker.
constexpr std::size_t kShort = 16;

} // namespace

TextSearch::TextSearch(std::string_view wanted) : m_Wanted(wanted) {
    if (wanted.size() <= kShort)
        return;
    m_Borders.resize(wanted.size());
    unsigned border = 0;
    for (std::size_t i = 1; i < wanted.size(); ++i) {
        while (border > 0 && wanted[i] != wanted[border])
            border = m_Borders[border - 1];
        if (wanted[i] == wanted[border])
            ++border;
        m_Borders[i] = border;
    }
}

std::size_t TextSearch::First(std::string_view text, std::size_t start) const {
    if (m_Borders.empty())
        return text.find(m_Wanted, start);
    std::size_t matched = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        if (matched == 0) {
            i = text.find(m_Wanted[0], i);
            if (i == npos)
                return npos;
        }
        while (matched > 0 && text[i] != m_Wanted[matched])
            matched = m_Borders[matched - 1];
        if (text[i] == m_Wanted[matched])
            ++matched;
        if (matched == m_Wanted.size())
            return i + 1 - matched;
    }
    return npos;
}

std::size_t FindLast(std::string_view text, std::string_view wanted) {
    if (wanted.size() <= kShort)
        return text.rfind(wanted);
    const std::string backText(text.rbegin(), text.rend());
    const std::string backWanted(wanted.rbegin(), wanted.rend());
    const std::size_t place = TextSearch(backWanted).First(backText, 0);
    return place == TextSearch::npos ? place : text.size() - wanted.size() - place;
}
