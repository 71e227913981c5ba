#pragma once

#include "App.h"
#include "Lines.h"

#include <Trace.h>
#include <UI_Macro.h>

#include <ostream>
#include <string>

/// How the program ends.
enum ExitCode : int { ExitDone = 0, ExitFault = 1, ExitUsage = 2 };

/// The engine and the program's objects, with an empty drawing.
class Session {
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// Runs a macro file; false if that failed, which has been reported with the procedures that
    /// were open. `code` is what the
    /// program ends with: after a success, what the macro gave to `App.Quit`.
    bool Play(const std::string& path, int& code);
    /// Does what the lines say, and records it as a macro. `name` stands in messages. False if a
    /// line was faulty; with `goesOn` the others are done all the same.
    bool Record(Lines& lines, const std::string& name, bool goesOn, std::ostream& macro);

    std::string GetPicture() const;

private:
    void reportMacro(const std::string& file, int line, const SYS_String& text) const;

    struct Library {
        Library() { MacroEngineDllInitialize(); }
        Library(const Library&) = delete;
        Library& operator=(const Library&) = delete;
        ~Library() { MacroEngineDllTerminate(); }
    };

    Trace m_Trace;
    Library m_Library;
    UI_Macro m_Macro{true};
    Desk m_Desk;
    App m_App{m_Desk};
};
