#pragma once

#include <string_view>
#include <vector>

/// Finds one text in others, in time linear in what is searched however the bytes repeat. Borrows
/// the text to find.
class TextSearch {
public:
    explicit TextSearch(std::string_view wanted);

    /// The first place at or after `start`, else npos. Empty text is found at a start within the
    /// length.
    std::size_t First(std::string_view text, std::size_t start) const;

    static constexpr std::size_t npos = std::string_view::npos;

private:
    std::string_view m_Wanted;
    // Of each beginning of a long text: how much of its end is a beginning, too.
    std::vector<unsigned> m_Borders;
};

/// The last place of `wanted` in the text, else npos.
std::size_t FindLast(std::string_view text, std::string_view wanted);
