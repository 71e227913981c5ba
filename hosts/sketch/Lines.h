#pragma once

#include <istream>
#include <string>

/// Where gestures come from, a line at a time.
class Lines {
public:
    virtual ~Lines() = default;
    /// The next line without its end; false at the end of the input.
    virtual bool Read(std::string& line) = 0;
};

class StreamLines : public Lines {
public:
    explicit StreamLines(std::istream& stream) : m_Stream(stream) {}
    bool Read(std::string& line) override;

private:
    std::istream& m_Stream;
};

/// Lines that a user types at a terminal, and can edit and call back.
class TerminalLines : public Lines {
public:
    TerminalLines();
    bool Read(std::string& line) override;
};
