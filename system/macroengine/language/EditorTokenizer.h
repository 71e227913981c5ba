#pragma once

// The pieces of macro text for an editor: the scanner's tokens as they stand in the text, comments
// word by word, and the white space that the scanner drops.

#include <UI_Tokenizer.h>

#include <string_view>

#include "language/Scanner.h"

/// A piece of a text, with its class.
struct EditorPiece {
    int kind = UI_Tokenizer::pcEnd;
    std::string_view text;   // within the text
    bool lacksQuote = false; // a string without its end
};

/// The next run of tabs or blanks, or word, and moves the cursor behind it. At a line end, a NUL
/// or without a cursor: an empty piece of class 0.
EditorPiece NextPlainPiece(const char*& cursor);

/// Has a scanner of its own, so that colouring disturbs no macro that is being run.
class EditorTokenizer {
public:
    EditorTokenizer() = default;
    EditorTokenizer(const EditorTokenizer&) = delete;
    EditorTokenizer& operator=(const EditorTokenizer&) = delete;

    /// Forgets the text before.
    void Begin();
    /// The next piece, and moves the cursor behind it; at the end the cursor becomes null.
    EditorPiece Next(const char*& cursor);

private:
    EditorPiece nextInComment(const char*& cursor);
    EditorPiece nextToken(const char*& cursor);

    MacroScanner m_Scanner;
    int m_Comment = 0; // 0 outside; pcCommentStart among its words, pcCommentEnd behind them
};
