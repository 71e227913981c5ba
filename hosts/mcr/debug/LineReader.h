#pragma once

#include <memory>
#include <string>

/// Where the commands of the debugger come from.
class LineReader {
public:
    virtual ~LineReader() = default;
    /// Asks for the next line, without its end; false at the end of the input. Ctrl-C asks anew.
    bool Read(const std::string& prompt, std::string& line);

    /// With line editing and history if standard input is a terminal; else plain lines, which are
    /// shown behind the prompt, so that the output reads like the session.
    static std::unique_ptr<LineReader> Make();

private:
    /// The line with its end; false if none came, at the end or because of a signal.
    virtual bool ask(const std::string& prompt, std::string& line) = 0;
};
