// mcr tokens: the pieces of a macro as an editor gets them.

#include "EditorCommands.h"
#include "MacroText.h"
#include "Session.h"
#include "Utf8.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr const char* kClassNames[] = {"end",         "string",  "real",  "integer",
                                       "character",   "keyword", "name",  "comment-start",
                                       "comment-end", "tabs",    "blanks"};

// Everything stays in its row, and can be read back.
std::string escaped(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = ControlLength(text) == 0 ? Utf8Length(text) : 0;
        const auto byte = static_cast<unsigned char>(text[0]);
        if (text[0] == '\t') {
            out += "\\t";
        } else if (text[0] == '\\') {
            out += "\\\\";
        } else if (length == 0) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02x", byte);
            out += code;
        } else {
            out += text.substr(0, length);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

/// Line and column of the piece that comes next, from 1.
struct Place {
    std::size_t line = 1;
    std::size_t column = 1;

    void Pass(std::string_view text) {
        const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
        line += ends;
        column = ends > 0 ? text.size() - text.rfind('\n') : column + text.size();
    }
};

} // namespace

int PrintTokens(const std::string& file) {
    Session session;
    SYS_String text;
    if (!ReadMacroText(file, text))
        return ExitUsage;
    Place place;
    ForEachPiece(session.GetMacro(), text, file, [&](const MacroPiece& piece) {
        place.Pass(piece.between);
        if (piece.kind != UI_Tokenizer::pcEnd)
            std::printf("%zu:%zu\t%d\t%s\t%s\n", place.line, place.column, piece.kind,
                        kClassNames[piece.kind], escaped(piece.text).c_str());
        place.Pass(piece.source);
    });
    return ExitDone;
}
