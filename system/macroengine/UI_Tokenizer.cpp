#include "UI_Tokenizer.h"

#include "language/EditorTokenizer.h"

UI_Tokenizer::~UI_Tokenizer() = default;

void UI_Tokenizer::SetInputString(const char* text) {
    m_Start = text;
    m_Cursor = text;
    m_PieceStart = 0;
    m_PieceLength = 0;
}

void UI_Tokenizer::setPiece(const char* begin, std::size_t length) {
    if (!begin) {
        m_PieceStart += m_PieceLength;
        m_PieceLength = 0;
        return;
    }
    m_PieceStart = static_cast<std::size_t>(begin - m_Start);
    m_PieceLength = length;
}

int UI_Tokenizer::GetNextToken(CStringA& piece) {
    const EditorPiece next = NextPlainPiece(m_Cursor);
    if (next.kind == pcEnd)
        m_Cursor = nullptr;
    setPiece(next.text.data(), next.text.size());
    piece = CStringA(next.text);
    return next.kind;
}

int UI_Tokenizer::GetFgColor(int pieceClass) {
    constexpr int colors[] = {0, 127, 32512, 32512, 0, 0x7F0000, 0, 0x7F7F7F, 0x7F7F7F};
    return pieceClass >= pcString && pieceClass <= pcCommentEnd ? colors[pieceClass] : 0;
}
