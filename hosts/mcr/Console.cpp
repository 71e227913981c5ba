#include "Console.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int kDefaultWidth = 80;

// Columns of the terminal behind standard output, else what the environment says.
int terminalWidth() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    const char* columns = std::getenv("COLUMNS");
    const int width = columns ? std::atoi(columns) : 0;
    return width > 0 ? width : kDefaultWidth;
}

struct FreeBuffer {
    void operator()(char* buffer) const { std::free(buffer); }
};

} // namespace

bool Console::s_LineIsOpen = false;

Console::Console() : MacroEval("Console") {}

UI_MacroVariant Console::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    const Member* member = findMember(name);
    return member ? (this->*member->method)(args, argc) : MacroEval::Evaluate(name, args, argc);
}

bool Console::IsPropertyGet(const char* name) {
    const Member* member = findMember(name);
    return member ? member->isProperty : MacroEval::IsPropertyGet(name);
}

bool Console::Flush() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

void Console::StartLine() {
    if (s_LineIsOpen)
        std::fputc('\n', stdout);
    s_LineIsOpen = false;
}

const Console::Member* Console::findMember(const char* name) {
    static constexpr Member kMembers[] = {
        {"WriteLine", &Console::writeLine, false},
        {"Write", &Console::write, false},
        {"ReadLine", &Console::readLine, false},
        {"Width", &Console::width, true},
    };
    if (!name)
        return nullptr;
    const SYS_String wanted(name);
    for (const Member& member : kMembers) {
        if (wanted.CompareNoCase(member.name) == 0)
            return &member;
    }
    return nullptr;
}

// All arguments are converted before the first is written: a value that cannot be converted
// leaves no half a line behind.
UI_MacroVariant Console::write(UI_MacroVariant* args, int argc) {
    SYS_String text;
    for (int i = 0; i < argc; ++i)
        text += static_cast<SYS_String>(args[i]);
    std::fwrite(text.c_str(), 1, static_cast<size_t>(text.GetLength()), stdout);
    if (!text.IsEmpty())
        s_LineIsOpen = text.View().back() != '\n';
    return UI_MacroVariant();
}

UI_MacroVariant Console::writeLine(UI_MacroVariant* args, int argc) {
    write(args, argc);
    std::fputc('\n', stdout);
    s_LineIsOpen = false;
    return UI_MacroVariant();
}

UI_MacroVariant Console::readLine(UI_MacroVariant* args, int argc) {
    CheckArguments(0, args, argc);
    Flush(); // a question must be seen before its answer is awaited
    s_LineIsOpen = s_LineIsOpen && !isatty(STDIN_FILENO); // the answer's own line end is seen

    char* buffer = nullptr;
    size_t capacity = 0;
    const ssize_t count = getline(&buffer, &capacity, stdin);
    const std::unique_ptr<char, FreeBuffer> owner(buffer);
    if (count < 0) {
        std::clearerr(stdin); // an interrupted read is no end of the input
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr));
    }
    size_t length = static_cast<size_t>(count);
    if (length > 0 && buffer[length - 1] == '\n')
        --length;
    if (length > 0 && buffer[length - 1] == '\r')
        --length;
    return UI_MacroVariant(SYS_String(buffer, length));
}

UI_MacroVariant Console::width(UI_MacroVariant* args, int argc) {
    CheckArguments(0, args, argc);
    return UI_MacroVariant(terminalWidth());
}
