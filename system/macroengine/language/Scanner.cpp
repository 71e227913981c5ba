#include "language/Scanner.h"

#include <UI_MacroProcessor.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "language/Tokens.h"
#include "language/Words.h"

namespace {

enum : std::uint8_t {
    kSpace = 1,
    kAlpha = 2,
    kDigit = 4,
    kHexDigit = 8,
    kOperator = 16,
    kWord = 32
};

constexpr std::array<std::uint8_t, 256> makeClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (int c = 0; c < 128; ++c) {
        bool digit = c >= '0' && c <= '9';
        int lower = c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
        bool alpha = lower >= 'a' && lower <= 'z';
        unsigned bits = 0;
        if (c == ' ' || (c >= '\t' && c <= '\r'))
            bits |= kSpace;
        if (alpha)
            bits |= kAlpha | kWord;
        if (digit)
            bits |= kDigit | kHexDigit | kWord;
        if (lower >= 'a' && lower <= 'f')
            bits |= kHexDigit;
        if (c == '_')
            bits |= kWord;
        for (char o : std::string_view("+-*/<>=&^")) {
            if (c == o)
                bits |= kOperator;
        }
        classes[static_cast<std::size_t>(c)] = static_cast<std::uint8_t>(bits);
    }
    return classes;
}

constexpr std::array<std::uint8_t, 256> kClasses = makeClasses();

bool is(char c, unsigned classes) {
    return (kClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

std::string_view textBetween(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

const char* skip(const char* p, unsigned classes) {
    while (is(*p, classes))
        ++p;
    return p;
}

bool startsRem(const char* p) {
    return SYS_ToLower(p[0]) == 'r' && SYS_ToLower(p[1]) == 'e' && SYS_ToLower(p[2]) == 'm' &&
           is(p[3], kSpace);
}

bool startsHex(const char* p) { return p[0] == '&' && SYS_ToLower(p[1]) == 'h'; }

} // namespace

void MacroScanner::SetText(const char** cursor) {
    m_State.cursor = cursor;
    m_State.bufferStart = *cursor;
    m_State.tokenStart = *cursor;
    m_State.lineOffset = 0;
    m_State.afterDot = false;
    m_State.lastToken = 0;
    m_State.previousToken = 0;
}

void MacroScanner::BeginLine() {
    m_State.bufferStart = *m_State.cursor;
    m_State.tokenStart = *m_State.cursor;
    m_State.lineOffset = 0;
}

void MacroScanner::Reset() {
    m_State = State();
    m_Value = MacroToken();
    m_Dictionary.Clear();
}

int MacroScanner::ScanToken() {
    const char* p = *m_State.cursor;
    const bool afterDot = m_State.afterDot;
    m_State.tokenLine = m_State.currentLine;
    if (s_Trace) [[unlikely]]
        trace();
    m_State.tokenText.Clear();
    int token = scan(p, p, afterDot);
    *m_State.cursor = p;
    if (afterDot)
        m_State.afterDot = false;
    return token;
}

int MacroScanner::scan(const char*& p, const char* start, bool afterDot) {
    while (*p != '\n' && is(*p, kSpace))
        ++p;
    m_State.tokenStart = p;
    if (*p == '\n')
        return newLine(p);
    if (*p == '\'')
        return quoteComment(p);
    if (is(*p, kAlpha)) {
        if (startsRem(p))
            return remComment(p);
        const char* begin = p;
        p = skip(p, kWord);
        int token = word(textBetween(begin, p), afterDot);
        m_State.lineOffset += static_cast<int>(p - start);
        return token;
    }
    if (*p == '"') {
        int token = stringLiteral(p);
        return finish(token, m_Dictionary.FindOrInsert(m_Buffer), p, start);
    }
    if (is(*p, kDigit) || startsHex(p)) {
        int token = number(p);
        return finish(token, m_Dictionary.FindOrInsert(m_Buffer), p, start);
    }
    if (is(*p, kOperator)) {
        ++p;
        int token = word(textBetween(p - 1, p), afterDot);
        m_State.lineOffset += static_cast<int>(p - start);
        return token;
    }
    return punctuation(p, start, p != start);
}

int MacroScanner::finish(int token, const DictionaryEntry& entry, const char* p,
                         const char* start) {
    m_State.tokenText = entry.text;
    m_Value.entry = &entry;
    m_State.lineOffset += static_cast<int>(p - start);
    return token;
}

int MacroScanner::newLine(const char*& p) {
    ++p;
    m_State.lineOffset = 0;
    ++m_State.currentLine;
    return tokNewLine;
}

// The read pointer stays before the NUL that ends a text, so that scanning on is harmless.
int MacroScanner::quoteComment(const char*& p) {
    m_State.commentLeader = '\'';
    ++m_State.currentLine;
    m_State.lineOffset = 0;
    const char* begin = ++p;
    while (*p && *p != '\n')
        ++p;
    bool lineEnds = *p != 0;
    if (lineEnds)
        ++p;
    m_State.commentText.Append(textBetween(begin, p));
    return lineEnds ? tokNewLine : tokEnd;
}

int MacroScanner::remComment(const char*& p) {
    m_State.commentLeader = *p;
    ++m_State.currentLine;
    m_State.lineOffset = 0;
    const char* begin = p + 1;
    while (*p && *p != '\n')
        ++p;
    if (*p) {
        ++p;
        ++m_State.currentLine; // the line end counts once more
    }
    m_State.commentText.Append(textBetween(begin, p));
    return tokNewLine;
}

int MacroScanner::stringLiteral(const char*& p) {
    m_Buffer.clear();
    for (;;) {
        const char* begin = ++p;
        while (*p && *p != '"' && *p != '\n' && *p != '\r')
            ++p;
        m_Buffer.append(textBetween(begin, p));
        if (*p != '"')
            return tokUnterminated;
        if (*++p != '"')
            return tokString;
        m_Buffer.push_back('"');
    }
}

int MacroScanner::number(const char*& p) {
    const bool hexadecimal = *p == '&';
    const char* begin = p;
    p = hexadecimal ? skip(p + 2, kHexDigit) : skip(p, kDigit);
    m_Buffer.assign(textBetween(begin, p));
    if (*p == '&')
        ++p;
    int token = tokInteger;
    if (*p == '.') {
        begin = p;
        p = skip(p + 1, kDigit);
        m_Buffer.append(textBetween(begin, p));
        token = tokReal;
    }
    char letter = SYS_ToLower(*p);
    if ((letter == 'e' || letter == 'd') &&
        (is(p[1], kDigit) || (p[1] == '-' && is(p[2], kDigit)))) {
        begin = p;
        p = skip(p + 2, kDigit);
        m_Buffer.append(textBetween(begin, p));
        token = tokReal;
    }
    if (token == tokReal)
        realValue();
    else
        integerValue(hexadecimal);
    begin = p;
    p = skip(p, kAlpha);
    if (p != begin) {
        applyUnit(textBetween(begin, p), token);
        m_Buffer.append(textBetween(begin, p));
    }
    return token;
}

void MacroScanner::integerValue(bool hexadecimal) {
    constexpr long long largest = std::numeric_limits<long long>::max();
    const char* digits = m_Buffer.data() + (hexadecimal ? 2 : 0);
    const char* end = m_Buffer.data() + m_Buffer.size();
    unsigned long long value = 0;
    auto [stop, error] = std::from_chars(digits, end, value, hexadecimal ? 16 : 10);
    const bool tooLong = error == std::errc::result_out_of_range;
    if (hexadecimal) {
        constexpr std::uint32_t bits = std::numeric_limits<std::uint32_t>::max();
        auto low = tooLong || value > bits ? bits : static_cast<std::uint32_t>(value);
        m_Value.integer = static_cast<std::int32_t>(low);
    } else {
        m_Value.integer = tooLong || value > static_cast<unsigned long long>(largest)
                              ? largest
                              : static_cast<long long>(value);
    }
}

// Without the C library, whose decimal point is the host's.
void MacroScanner::realValue() {
    const bool hexadecimal = m_Buffer[0] == '&';
    std::string text = m_Buffer;
    for (char& c : text)
        if (SYS_ToLower(c) == 'd')
            c = 'e';
    double value = 0;
    auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range)
        SYS_String(text).Value(&value, nullptr); // tells too small from too big
    m_Value.real = hexadecimal ? 0.0 : value;
}

void MacroScanner::applyUnit(std::string_view suffix, int token) {
    const MacroUnit* unit = FindMacroUnit(suffix);
    if (!unit)
        return;
    if (token == tokReal) {
        m_Value.real *= unit->factor;
        return;
    }
    double length = static_cast<double>(m_Value.integer) * unit->factor;
    const bool fits = length > -2147483649.0 && length < 2147483648.0;
    m_Value.integer = fits ? static_cast<long long>(length) : -2147483648LL;
}

int MacroScanner::word(std::string_view text, bool afterDot) {
    DictionaryEntry& entry = m_Dictionary.FindOrInsert(text);
    m_State.tokenText = entry.text;
    m_Value.entry = &entry;
    if (afterDot)
        return tokName;
    if (entry.token == 0) {
        const MacroWord* fixed = FindMacroWord(text);
        if (fixed && fixed->token == tokString)
            entry.constant = &m_Dictionary.FindOrInsert(fixed->text);
        if (fixed)
            entry.integer = fixed->integer;
        entry.token = fixed ? fixed->token : tokName;
    }
    if (entry.token == tokInteger) {
        m_Value.integer = entry.integer;
    } else if (entry.token == tokString) {
        m_Value.entry = entry.constant;
        m_State.tokenText = entry.constant->text;
    }
    return entry.token;
}

int MacroScanner::punctuation(const char*& p, const char* start, bool spaceBefore) {
    const bool firstOnLine = m_State.lineOffset == 0;
    m_State.lineOffset += static_cast<int>(p - start);
    const char character = *p;
    if (character == 0)
        return tokEnd;
    ++p;
    if (character != '.')
        return static_cast<unsigned char>(character);
    m_State.afterDot = true;
    if (!firstOnLine && !spaceBefore && (m_State.lastToken == ')' || m_State.lastToken == tokName))
        return tokDot;
    return is(*p, kSpace) ? tokMisplacedDot : tokLeadingDot;
}

SYS_String MacroScanner::GetFailingLine(bool linesEndTexts) const {
    const char* at = m_State.tokenStart;
    if (!at)
        return SYS_String();
    if (linesEndTexts && *at == 0 && at != m_State.bufferStart && at[-1] == '\n')
        --at; // a line that was read by itself ends with its line end
    const char* begin = at;
    while (begin != m_State.bufferStart && begin[-1] != '\n')
        --begin;
    const char* end = at;
    while (*end && *end != '\n')
        ++end;
    while (end != begin && end[-1] == '\r')
        --end;
    return SYS_String(textBetween(begin, end));
}

void MacroScanner::trace() const {
    SYS_String text;
    text << "Line: " << m_State.tokenLine << " Offset: " << m_State.lineOffset << "\n";
    const auto& output = MacroSupport::GetHostHooks().debugOutput;
    if (output)
        output(text.c_str());
    else
        std::fputs(text.c_str(), stderr);
}
