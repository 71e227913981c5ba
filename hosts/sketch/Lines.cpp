#include "Lines.h"

#include <editline/readline.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>

namespace {

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

} // namespace

bool StreamLines::Read(std::string& line) {
    if (!std::getline(m_Stream, line))
        return false;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

TerminalLines::TerminalLines() {
    rl_initialize();
    using_history();
}

bool TerminalLines::Read(std::string& line) {
    std::cout.flush();
    const std::unique_ptr<char, FreeText> text(readline("sketch> "));
    if (!text) {
        std::cout << '\n';
        return false;
    }
    line = text.get();
    if (!line.empty())
        add_history(text.get());
    return true;
}
