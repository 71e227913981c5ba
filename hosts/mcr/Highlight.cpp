// mcr highlight: a macro in colour, on the terminal or as a page.

#include "EditorCommands.h"
#include "MacroText.h"
#include "Session.h"
#include "Utf8.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using Tokenizer = UI_Tokenizer;

constexpr const char* kUnknown = "\xEF\xBF\xBD"; // the sign for a character that is none

void write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

/// How a text in colour is written.
class Writer {
public:
    virtual ~Writer() = default;
    virtual void Begin() {}
    /// A part of a line, all of one class.
    virtual void Text(int kind, std::string_view text) = 0;
    virtual void EndLine() { write("\n"); }
    virtual void End() {}
};

/// Joins pieces of one class, so that characters of several bytes stay whole, and cuts the text
/// at its line ends.
class Runs {
public:
    explicit Runs(Writer& writer) : m_Writer(writer) {}

    void Add(int kind, std::string_view text) {
        if (text.empty())
            return;
        if (kind != m_Kind)
            flush();
        m_Kind = kind;
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            m_Run += text.substr(begin, end - begin);
            if (end == text.size())
                break;
            if (m_Run.ends_with('\r'))
                m_Run.pop_back();
            flush();
            m_Writer.EndLine();
            begin = end + 1;
            m_InLine = false;
        }
    }
    void End() {
        flush();
        if (m_InLine)
            m_Writer.EndLine();
    }

private:
    void flush() {
        if (m_Run.empty())
            return;
        m_InLine = true;
        m_Writer.Text(m_Kind, m_Run);
        m_Run.clear();
    }

    Writer& m_Writer;
    std::string m_Run;
    int m_Kind = Tokenizer::pcEnd;
    bool m_InLine = false;
};

// --- The terminal -----------------------------------------------------------------------------

class Terminal : public Writer {
public:
    explicit Terminal(UI_Tokenizer& colors) : m_Colors(colors) {
        const char* refused = std::getenv("NO_COLOR");
        m_InColor = !refused || !*refused;
    }

    void Text(int kind, std::string_view text) override {
        const int color = m_InColor ? nearest(m_Colors.GetFgColor(kind)) : 0;
        if (color == 0) {
            plain(text);
            return;
        }
        write("\x1b[" + std::to_string(color) + "m");
        plain(text);
        write("\x1b[0m");
    }

private:
    // Control characters could make a terminal do anything.
    static void plain(std::string_view text) {
        while (!text.empty()) {
            const char c = text[0];
            const std::size_t control = c == '\t' ? 0 : ControlLength(text);
            if (control == 0)
                write({&c, 1});
            else if (control == 1)
                write({std::array{'^', static_cast<char>(c ^ 0x40)}.data(), 2});
            else
                write(kUnknown);
            text.remove_prefix(std::max<std::size_t>(control, 1));
        }
    }

    // One of the colours that every terminal has; 0 for its own one.
    static int nearest(int color) {
        const int red = color & 0xFF;
        const int green = color >> 8 & 0xFF;
        const int blue = color >> 16 & 0xFF;
        if (color == 0)
            return 0;
        if (red == green && green == blue)
            return 90;
        const bool bright = std::max({red, green, blue}) > 0xC0;
        return (bright ? 90 : 30) + (red > 0x40 ? 1 : 0) + (green > 0x40 ? 2 : 0) +
               (blue > 0x40 ? 4 : 0);
    }

    UI_Tokenizer& m_Colors;
    bool m_InColor;
};

// --- The page ---------------------------------------------------------------------------------

class Page : public Writer {
public:
    Page(UI_Tokenizer& colors, const std::string& title) : m_Colors(colors), m_Title(title) {}

    void Begin() override {
        write("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>");
        plain(m_Title);
        write("</title>\n<style>\n"
              "body { margin: 1.5em; color: #000000; background: #ffffff; }\n"
              "pre { font: 14px/1.45 \"DejaVu Sans Mono\", Consolas, Menlo, monospace;"
              " tab-size: 4; counter-reset: line; }\n"
              ".line::before { counter-increment: line; content: counter(line);"
              " display: inline-block; width: 3em; margin-right: 1.5em; text-align: right;"
              " color: #b0b0b0; }\n");
        for (const auto& [kind, name] : kNames)
            std::printf(".%s { color: %s; }\n", name, colorOf(kind).c_str());
        write("</style>\n</head>\n<body>\n<pre><code>");
    }
    void Text(int kind, std::string_view text) override {
        beginLine();
        const char* name = nameOf(kind);
        if (name)
            write(std::string("<span class=\"") + name + "\">");
        plain(text);
        if (name)
            write("</span>");
    }
    void EndLine() override {
        beginLine();
        write("</span>\n");
        m_InLine = false;
    }
    void End() override { write("</code></pre>\n</body>\n</html>\n"); }

private:
    struct ClassName {
        int kind;
        const char* name;
    };
    static constexpr ClassName kNames[] = {
        {Tokenizer::pcString, "string"},        {Tokenizer::pcReal, "real"},
        {Tokenizer::pcInteger, "integer"},      {Tokenizer::pcCharacter, "character"},
        {Tokenizer::pcKeyword, "keyword"},      {Tokenizer::pcName, "name"},
        {Tokenizer::pcCommentStart, "comment"},
    };

    static const char* nameOf(int kind) {
        for (const ClassName& row : kNames)
            if (row.kind == kind)
                return row.name;
        return nullptr;
    }

    std::string colorOf(int kind) const {
        const int color = m_Colors.GetFgColor(kind);
        char text[8];
        std::snprintf(text, sizeof text, "#%02x%02x%02x", color & 0xFF, color >> 8 & 0xFF,
                      color >> 16 & 0xFF);
        return text;
    }

    void beginLine() {
        if (!m_InLine)
            write("<span class=\"line\">");
        m_InLine = true;
    }

    // What no page may hold is shown as unknown.
    static void plain(std::string_view text) {
        while (!text.empty()) {
            const std::size_t length = Utf8Length(text);
            const char c = text[0];
            if (length == 0 || (c != '\t' && ControlLength(text) > 0))
                write(kUnknown);
            else if (c == '&')
                write("&amp;");
            else if (c == '<')
                write("&lt;");
            else if (c == '>')
                write("&gt;");
            else
                write(text.substr(0, length));
            text.remove_prefix(std::max<std::size_t>(length, 1));
        }
    }

    UI_Tokenizer& m_Colors;
    const std::string m_Title;
    bool m_InLine = false;
};

void print(UI_Tokenizer& tokenizer, const SYS_String& text, const std::string& file,
           Writer& writer) {
    writer.Begin();
    Runs runs(writer);
    ForEachPiece(tokenizer, text, file, [&](const MacroPiece& piece) {
        runs.Add(Tokenizer::pcEnd, piece.between);
        runs.Add(piece.inComment ? Tokenizer::pcCommentStart : piece.kind, piece.source);
    });
    runs.End();
    writer.End();
}

} // namespace

int PrintHighlighted(const std::string& file, bool asPage) {
    Session session;
    SYS_String text;
    if (!ReadMacroText(file, text))
        return ExitUsage;
    UI_Tokenizer& tokenizer = session.GetMacro();
    if (asPage) {
        Page page(tokenizer, file);
        print(tokenizer, text, file, page);
    } else {
        Terminal terminal(tokenizer);
        print(tokenizer, text, file, terminal);
    }
    return ExitDone;
}
