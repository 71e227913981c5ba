#include "LineReader.h"

#include "../Console.h"
#include "Interrupt.h"

#include <cstdio>
#include <cstdlib>
#include <histedit.h>
#include <unistd.h>

namespace {

void dropLineEnd(std::string& line) {
    if (line.ends_with('\n'))
        line.pop_back();
    if (line.ends_with('\r'))
        line.pop_back();
}

class PlainReader : public LineReader {
public:
    ~PlainReader() override { std::free(m_Buffer); }

private:
    bool ask(const std::string& prompt, std::string& line) override {
        std::fputs(prompt.c_str(), stdout);
        Console::Flush();
        const ssize_t count = getline(&m_Buffer, &m_Capacity, stdin);
        if (count < 0) {
            std::clearerr(stdin); // an interrupted read is no end of the input
            return false;
        }
        line.assign(m_Buffer, static_cast<std::size_t>(count));
        dropLineEnd(line);
        std::fprintf(stdout, "%s\n", line.c_str());
        return true;
    }

    char* m_Buffer = nullptr;
    std::size_t m_Capacity = 0;
};

class TerminalReader : public LineReader {
public:
    TerminalReader() : m_Line(el_init("mcr", stdin, stdout, stderr)), m_History(history_init()) {
        HistEvent event;
        history(m_History, &event, H_SETSIZE, kHistoryLines);
        history(m_History, &event, H_SETUNIQUE, 1);
        el_set(m_Line, EL_CLIENTDATA, this);
        el_set(m_Line, EL_PROMPT, &TerminalReader::givePrompt);
        el_set(m_Line, EL_EDITOR, "emacs");
        el_set(m_Line, EL_HIST, history, m_History);
        el_set(m_Line, EL_SIGNAL, 1); // the terminal is put right while a signal is handled
        el_source(m_Line, nullptr);   // the user's own key bindings
    }
    ~TerminalReader() override {
        history_end(m_History);
        el_end(m_Line);
    }

private:
    static constexpr int kHistoryLines = 500;

    bool ask(const std::string& prompt, std::string& line) override {
        Console::Flush();
        m_Prompt = prompt;
        int count = 0;
        const char* text = el_gets(m_Line, &count);
        if (!text || count <= 0)
            return false;
        line.assign(text, static_cast<std::size_t>(count));
        dropLineEnd(line);
        HistEvent event;
        if (line.find_first_not_of(' ') != std::string::npos)
            history(m_History, &event, H_ENTER, line.c_str());
        return true;
    }

    static char* givePrompt(EditLine* line) {
        TerminalReader* self = nullptr;
        el_get(line, EL_CLIENTDATA, &self);
        return self->m_Prompt.data();
    }

    EditLine* m_Line;
    History* m_History;
    std::string m_Prompt;
};

} // namespace

bool LineReader::Read(const std::string& prompt, std::string& line) {
    for (;;) {
        Interrupt::Clear(true);
        if (ask(prompt, line))
            return true;
        std::fputc('\n', stdout);
        if (!Interrupt::IsAsked())
            return false;
    }
}

std::unique_ptr<LineReader> LineReader::Make() {
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO))
        return std::make_unique<TerminalReader>();
    return std::make_unique<PlainReader>();
}
