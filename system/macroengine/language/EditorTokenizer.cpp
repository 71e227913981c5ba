#include "language/EditorTokenizer.h"

#include "language/Tokens.h"

namespace {

constexpr std::string_view kNoLine = "\r\v\f"; // white space that is neither blank nor line end

std::string_view textBetween(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool endsWord(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == 0; }

// A run of one character, blank or tab.
EditorPiece whiteSpace(const char*& cursor) {
    const char* begin = cursor;
    while (*cursor == *begin)
        ++cursor;
    return {*begin == ' ' ? UI_Tokenizer::pcBlanks : UI_Tokenizer::pcTabs,
            textBetween(begin, cursor)};
}

int classOf(int token) {
    switch (token) {
    case tokString:
    case tokUnterminated:
        return UI_Tokenizer::pcString;
    case tokReal:
        return UI_Tokenizer::pcReal;
    case tokInteger:
        return UI_Tokenizer::pcInteger;
    case tokName:
        return UI_Tokenizer::pcName;
    case tokDot:
    case tokLeadingDot:
    case tokMisplacedDot:
        return UI_Tokenizer::pcCharacter;
    default:
        return token < 256 ? UI_Tokenizer::pcCharacter : UI_Tokenizer::pcKeyword;
    }
}

} // namespace

EditorPiece NextPlainPiece(const char*& cursor) {
    if (!cursor)
        return {};
    if (*cursor == ' ' || *cursor == '\t')
        return whiteSpace(cursor);
    const char* begin = cursor;
    while (!endsWord(*cursor))
        ++cursor;
    return {cursor != begin ? UI_Tokenizer::pcName : UI_Tokenizer::pcEnd,
            textBetween(begin, cursor)};
}

void EditorTokenizer::Begin() {
    m_Scanner.Reset();
    m_Comment = 0;
}

EditorPiece EditorTokenizer::Next(const char*& cursor) {
    if (!cursor)
        return {};
    if (m_Comment == UI_Tokenizer::pcCommentEnd) {
        m_Comment = 0;
        return {UI_Tokenizer::pcEnd, textBetween(cursor, cursor)};
    }
    if (m_Comment != 0)
        return nextInComment(cursor);
    return nextToken(cursor);
}

// A carriage return alone is white space and does not end the comment.
EditorPiece EditorTokenizer::nextInComment(const char*& cursor) {
    const char* behind = cursor;
    while (*behind == '\r')
        ++behind;
    if (*behind == 0 || *behind == '\n')
        m_Comment = UI_Tokenizer::pcCommentEnd;
    else
        cursor = behind;
    if (m_Comment == UI_Tokenizer::pcCommentEnd)
        return {UI_Tokenizer::pcCommentEnd, textBetween(cursor, cursor)};
    return NextPlainPiece(cursor);
}

EditorPiece EditorTokenizer::nextToken(const char*& cursor) {
    MacroScanner::State& scan = m_Scanner.GetState();
    for (;;) {
        while (*cursor && kNoLine.find(*cursor) != std::string_view::npos)
            ++cursor;
        if (*cursor == ' ' || *cursor == '\t')
            return whiteSpace(cursor);

        scan.cursor = &cursor;
        const int token = m_Scanner.ScanToken();
        scan.cursor = nullptr;
        m_Scanner.SetLastToken(token);
        const char* begin = scan.tokenStart;
        if (token == tokNewLine && *begin == '\n')
            continue;
        if (token == tokEnd && *begin == 0) {
            cursor = nullptr;
            return {UI_Tokenizer::pcEnd, textBetween(begin, begin)};
        }
        if (token == tokNewLine || token == tokEnd) {
            m_Scanner.ClearCommentText();
            m_Comment = UI_Tokenizer::pcCommentStart;
            cursor = begin + 1;
            return {UI_Tokenizer::pcCommentStart, textBetween(begin, cursor)};
        }
        return {classOf(token), textBetween(begin, cursor), token == tokUnterminated};
    }
}
