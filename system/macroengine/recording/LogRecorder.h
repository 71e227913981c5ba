#pragma once

#include "recording/MacroLogFile.h"

/// The processor that keeps the log of the program run. It hears the same lines as the current
/// processor, but runs no macros and is never current.
class LogRecorder : public MacroParser {
public:
    /// The only one. Stays to the end of the process; its log is closed before.
    static LogRecorder& Instance();

    using MacroParser::operator=;

    /// Begins the log that the switch asks for, unless there is one already.
    void OpenLog(const SYS_String& fileOfSwitch);
    bool InBackgroundMode() const override { return m_Log.IsOpen() && m_Suspended == 0; }
    /// Follows the current processor, so that a log shows what its output gets.
    bool GetCompressionMode() const override;
    /// A suspended log stays open and takes no lines.
    void Suspend(bool suspend) { m_Suspended = suspend ? 1 : 0; }

private:
    LogRecorder() : MacroParser(false) {}

    MacroOutput* backgroundLog() override { return InBackgroundMode() ? &m_Log : nullptr; }

    MacroLogFile m_Log;
    int m_Suspended = 0;
};
