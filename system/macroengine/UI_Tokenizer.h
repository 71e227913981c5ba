#pragma once

// Cuts text into pieces for an editor that colours it. The plain tokenizer knows words and white
// space only; `UI_Macro` derives from it and knows the macro language.
//
//     editor.SetInputString(text);
//     CStringA piece;
//     for (int kind; (kind = editor.GetNextToken(piece)) != 0 || !editor.IsAtEnd();)
//         Draw(piece, editor.GetFgColor(kind));

#include <SYS_String.h>

#include <cstddef>

using namespace kel_ns;

class KEL_MCR_API UI_Tokenizer {
public:
    /// What a piece is.
    enum PieceClass {
        pcEnd = 0,          ///< the end of the input, or of a comment within it; an empty piece
        pcString = 1,       ///< a string with its quotes, or the name of a predefined one
        pcReal = 2,         ///< a number literal, with its unit
        pcInteger = 3,      ///< the same, or the name of a predefined integer
        pcCharacter = 4,    ///< one character that stands for itself
        pcKeyword = 5,      ///< a word of the language, or an operator
        pcName = 6,         ///< any other word; also the words of a comment
        pcCommentStart = 7, ///< the first character of a comment
        pcCommentEnd = 8,   ///< the end of a comment; an empty piece
        pcTabs = 9,         ///< a run of tabs
        pcBlanks = 10       ///< a run of blanks
    };

    UI_Tokenizer() = default;
    virtual ~UI_Tokenizer();

    /// Begins a text; null is an empty one. Owner: the caller keeps the text, unmoved, up to the
    /// next call or the end. A NUL ends it. Raises: never.
    virtual void SetInputString(const char* text);
    /// The class of the next piece, and the piece. Raises: std::length_error for a piece or comment
    /// that is longer than a string may be.
    ///
    /// The plain tokenizer stops at the first line end. `UI_Macro` goes on over all lines; line
    /// ends, and white space other than blanks and tabs, lie between its pieces. It gives a
    /// comment as its first character, the words with the white space between them, an empty
    /// piece, and the class 0. A string without its closing quote gets one.
    virtual int GetNextToken(CStringA& piece);
    /// The colour of a class: red in the low byte, then green, then blue. 0 for an unknown class.
    virtual int GetFgColor(int pieceClass);

    /// Where the last piece begins, in bytes from the start of the input.
    std::size_t GetPieceStart() const { return m_PieceStart; }
    /// How many bytes of the input it covers; a closing quote that was added is not counted.
    std::size_t GetPieceLength() const { return m_PieceLength; }
    /// Whether the input is used up, so that every further piece is the end.
    bool IsAtEnd() const { return !m_Cursor; }

protected:
    void setPiece(const char* begin, std::size_t length);

    const char* m_Start = nullptr;
    const char* m_Cursor = nullptr; // null at the end

private:
    std::size_t m_PieceStart = 0;
    std::size_t m_PieceLength = 0;
};
