#include "MacroText.h"

#include <MacroSource.h>

#include "Session.h"
#include "Utf8.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace {

constexpr std::size_t kLongestLine = 160; // of a message; source lines may have no end

void refuse(const std::string& path, const char* reason) {
    WriteError("mcr: " + path + ": " + reason + "\n");
}

bool readStandardInput(SYS_String& text) {
    char buffer[65536];
    while (const size_t count = std::fread(buffer, 1, sizeof buffer, stdin)) {
        if (text.View().size() + count > SYS_String::GetMaxBytes()) {
            refuse("-", "Too large");
            return false;
        }
        text.Append(buffer, count);
    }
    if (text.View().starts_with("\xEF\xBB\xBF"))
        text = text.Mid(3);
    return true;
}

// A message is one line, whatever the source holds.
std::string inOneLine(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\v\f");
    if (begin == std::string_view::npos)
        return std::string();
    text = text.substr(begin, text.find_last_not_of(" \t\r\v\f") + 1 - begin);
    std::string line(text.substr(0, kLongestLine + 1));
    if (line.size() > kLongestLine) {
        std::size_t end = kLongestLine;
        while (end > 0 && (line[end] & 0xC0) == 0x80)
            --end; // not in the middle of a character
        line = line.substr(0, end) + "...";
    }
    return WithoutControls(line);
}

} // namespace

bool ReadMacroText(const std::string& path, SYS_String& text) {
    if (path == "-")
        return readStandardInput(text);
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        refuse(path, "Is a directory");
        return false;
    }
    errno = 0;
    const SCL_Pointer<MacroSourceFile> source(new MacroSourceFile(path.c_str()));
    const bool readable = source->IsReadable();
    if (readable && source->GetNextLine(text, true))
        return true;
    const bool tooLarge =
        !readable && std::filesystem::file_size(path, error) > 0x3FFFFFFF && !error;
    refuse(path, tooLarge ? "Too large" : errno != 0 ? std::strerror(errno) : "Cannot be read");
    return false;
}

void ForEachPiece(UI_Tokenizer& tokenizer, const SYS_String& text, const std::string& path,
                  const std::function<void(const MacroPiece&)>& visit) {
    const std::string_view all = text.c_str();
    if (all.size() < text.View().size())
        WriteError("mcr: " + path + ": The text ends at the NUL byte at offset " +
                   std::to_string(all.size()) + "\n");
    tokenizer.SetInputString(text.c_str());
    std::size_t behind = 0;
    CStringA buffer;
    MacroPiece piece;
    do {
        piece.kind = tokenizer.GetNextToken(buffer);
        if (piece.kind == UI_Tokenizer::pcCommentStart)
            piece.inComment = true;
        else if (piece.kind == UI_Tokenizer::pcEnd)
            piece.inComment = false;
        const std::size_t start = tokenizer.GetPieceStart();
        piece.between = all.substr(behind, start - behind);
        piece.source = all.substr(start, tokenizer.GetPieceLength());
        piece.text = buffer.View();
        behind = start + piece.source.size();
        visit(piece);
    } while (!tokenizer.IsAtEnd());
}

std::string DescribeProblem(const std::string& path, const MacroProblem& problem,
                            const char* prefix) {
    std::string_view text = problem.text.View();
    if (text.ends_with(": "))
        text.remove_suffix(2); // an error without a parameter
    std::string line =
        path + ":" + std::to_string(problem.line + 1) + ": " + prefix + inOneLine(text);
    const std::string source = inOneLine(problem.sourceLine.View());
    if (!source.empty())
        line += ": " + source;
    return line + "\n";
}
