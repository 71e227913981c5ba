#pragma once

#include <MacroSource.h>

#include <ostream>

/// Recorded lines on a stream, which must outlive the recording. Each is written at once, so that
/// nothing is lost however the program ends.
class RecordOutput : public MacroOutput {
public:
    explicit RecordOutput(std::ostream& stream) : m_Stream(stream) {}

    int Record(char const* text) override {
        m_Stream << text << std::endl;
        return m_Stream.good();
    }

private:
    std::ostream& m_Stream;
};
