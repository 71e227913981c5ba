#pragma once

#include <MacroException.h>

#include <string>
#include <vector>

/// The open procedures at the moment when a run failed or was stopped. They have to be noted
/// while the run still stands there; afterwards the frames are gone.
class Trace {
public:
    /// Notes the frames of the current processor, the innermost first.
    void Note();
    /// The same for a failure. A condition may fail on a later line than that of its statement, so
    /// the innermost frame stands where the error is.
    void Note(const MacroException& error);
    void Clear();

    /// Zero-based line of the innermost frame, 0 without one.
    int GetLine() const { return m_Frames.empty() ? 0 : m_Frames.front().line; }
    /// One line for each frame; a long row of them is cut in the middle.
    std::string Describe() const;

private:
    struct Frame {
        std::string procedure; // empty at module level
        std::string file;
        int line = 0;
    };

    std::vector<Frame> m_Frames;
    int m_LeftOut = 0; // frames between the last but one and the last
};
