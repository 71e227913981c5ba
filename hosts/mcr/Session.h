#pragma once

#include <PlatformLayer.h>
#include <Trace.h>
#include <UI_Macro.h>

#include "Console.h"

#include <functional>
#include <string>

/// How the program ends.
enum ExitCode : int { ExitDone = 0, ExitMacroError = 1, ExitUsage = 2 };

/// The engine with the objects that mcr gives to macros, from start to end.
class Session {
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    UI_Macro& GetMacro() { return m_Macro; }
    Trace& GetTrace() { return m_Trace; }
    /// The processor of this session, with its tree.
    MacroParser& GetParser();

    /// A source for a file, "-" being standard input. Null, with a message, if it cannot be read.
    SCL_Pointer<MacroSource> OpenSource(const std::string& path);

    /// Does something with the engine that may fail. Reports what went wrong and gives the exit
    /// code: that of `work` if it came through.
    int Guard(MacroSource& source, const std::function<int()>& work);

private:
    struct Library {
        Library() { MacroEngineDllInitialize(); }
        ~Library() { MacroEngineDllTerminate(); }
    };

    /// Wakes a macro that waits for a file, when its run is to end.
    struct Waiting : PlatformLayer {
        Waiting() { SetPlatform(this); }
        ~Waiting() override { SetPlatform(&Below()); }
        bool KeepsWaiting() override;
    };

    void onStatement(long line);
    int reportError(const SYS_String& file, int line, const std::string& text) const;

    Waiting m_Waiting;
    Trace m_Trace;
    Library m_Library;
    UI_Macro m_Macro{true};
    Console m_Console;
};

/// Writes to standard error, behind everything that the macro has written.
void WriteError(const std::string& text);
