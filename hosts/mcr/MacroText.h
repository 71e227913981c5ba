#pragma once

#include <MacroReport.h>
#include <UI_Tokenizer.h>

#include <functional>
#include <string>
#include <string_view>

/// Reads a macro text, "-" being standard input, as the engine does: without a byte order mark.
/// False, with a message, if it cannot be read.
bool ReadMacroText(const std::string& path, SYS_String& text);

/// A piece as the tokenizer gives it, and where it stands.
struct MacroPiece {
    int kind = UI_Tokenizer::pcEnd;
    bool inComment = false;
    std::string_view between; ///< what lies between the piece before and this one
    std::string_view source;  ///< the bytes of the text that it covers
    std::string_view text;    ///< the piece itself
};

/// Gives every piece of a text to the visitor, at last the end of the text. Says so if the text
/// goes on behind its end.
void ForEachPiece(UI_Tokenizer& tokenizer, const SYS_String& text, const std::string& path,
                  const std::function<void(const MacroPiece&)>& visit);

/// A problem in one line: `FILE:LINE: text: the line of the source`, with a word before the text.
std::string DescribeProblem(const std::string& path, const MacroProblem& problem,
                            const char* prefix = "");
