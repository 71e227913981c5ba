#include "MessageBox.h"

#include "Console.h"

#include <cstdio>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

/// The number is what the macro gets.
struct Button {
    int number;
    const char* name;
};

constexpr Button kOk = {1, "OK"};
constexpr Button kCancel = {2, "Cancel"};
constexpr Button kAbort = {3, "Abort"};
constexpr Button kRetry = {4, "Retry"};
constexpr Button kIgnore = {5, "Ignore"};
constexpr Button kYes = {6, "Yes"};
constexpr Button kNo = {7, "No"};

std::vector<Button> buttonsOf(int flags) {
    switch (flags & 15) {
    case 1:
        return {kOk, kCancel};
    case 2:
        return {kAbort, kRetry, kIgnore};
    case 3:
        return {kYes, kNo, kCancel};
    case 4:
        return {kYes, kNo};
    case 5:
        return {kRetry, kCancel};
    default:
        return {kOk};
    }
}

std::size_t defaultOf(int flags, std::size_t count) {
    const auto index = static_cast<std::size_t>(flags & 0x300) / 256;
    return index < count ? index : 0;
}

/// Reads a line without its end; false at the end of the input.
bool readLine(std::string& line) {
    line.clear();
    int c;
    while ((c = std::getchar()) != EOF && c != '\n')
        line += static_cast<char>(c);
    if (c == EOF)
        std::clearerr(stdin); // an interrupted read is no end of the input
    return c != EOF || !line.empty();
}

/// Whether the answer begins the button's name.
bool begins(const std::string& answer, const char* name) {
    const kel_ns::SYS_String full(name);
    return full.Left(static_cast<unsigned>(answer.size())).CompareNoCase(answer.c_str()) == 0;
}

/// "Yes [No] Cancel? ", with the default in brackets.
std::string promptFor(const std::vector<Button>& buttons, std::size_t byDefault) {
    std::string prompt;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const std::string name = buttons[i].name;
        prompt +=
            (i == byDefault ? "[" + name + "]" : name) + (i + 1 < buttons.size() ? " " : "? ");
    }
    return prompt;
}

} // namespace

int ShowMessageBox(const kel_ns::SYS_String& text, int flags, const kel_ns::SYS_String& title) {
    const std::vector<Button> buttons = buttonsOf(flags);
    const std::size_t byDefault = defaultOf(flags, buttons.size());
    if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO))
        return buttons[byDefault].number;
    std::string shown(title.View());
    if (!shown.empty())
        shown += ": ";
    shown += std::string(text.View()) + "\n";
    Console::StartLine();
    std::fwrite(shown.data(), 1, shown.size(), stdout);
    const std::string prompt = promptFor(buttons, byDefault);
    std::string answer;
    for (;;) {
        std::fwrite(prompt.data(), 1, prompt.size(), stdout);
        Console::Flush();
        if (!readLine(answer) || answer.empty())
            return buttons[byDefault].number;
        for (const Button& button : buttons)
            if (begins(answer, button.name))
                return button.number;
    }
}
