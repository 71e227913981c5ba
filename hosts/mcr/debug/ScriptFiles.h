#pragma once

#include "Outline.h"
#include "ScriptText.h"

#include <memory>
#include <string>
#include <vector>

/// A macro file as the debugger holds it: read once, edited in memory.
struct ScriptFile {
    std::string path;
    std::string shown; ///< the path in messages
    ScriptText text;
    Outline outline; ///< of the text as it last parsed, or with the error of the text as it is

    /// "FILE:LINE" for messages; `line` counts from 0.
    std::string At(long line) const { return shown + ":" + std::to_string(line + 1); }
};

/// All files of a session. A file stays where it is until the end.
class ScriptFiles {
public:
    explicit ScriptFiles(Trace& trace) : m_Trace(trace) {}

    /// The file of that path, read when it is asked for first; null if it cannot be read.
    ScriptFile* Open(const std::string& path);
    /// A file known by that path, or by the end of it.
    ScriptFile* Find(const std::string& name) const;
    const std::vector<std::unique_ptr<ScriptFile>>& GetAll() const { return m_Files; }
    /// Parses the text again after a change.
    void Refresh(ScriptFile& file);
    /// Writes the text. False, with errno, if that failed.
    static bool Save(ScriptFile& file, const std::string& path);

private:
    Trace& m_Trace;
    std::vector<std::unique_ptr<ScriptFile>> m_Files;
};
