#pragma once

// Runs macros from text, in a folder of their own.

#include <UI_Macro.h>

#include <string>

#include "macroengine/MemorySource.h"
#include "system/platform/TempDirectory.h"

class MacroRun {
public:
    /// The engine comes into being with its first run.
    MacroRun() { Run("x = 0"); }

    /// Runs the text; "@" stands for the folder with its separator. Gives the code of the error
    /// that ended it, 0 for none.
    int Run(const std::string& text) {
        try {
            m_Macro.Execute(new MemorySource(InFolder(text)), SYS_String(), nullptr, 0);
        } catch (const MacroException& error) {
            m_Error = error.GetText();
            return MacroSupport::GetProcessor()->GetLastErrorCode();
        }
        return 0;
    }
    std::string InFolder(const std::string& text) const {
        std::string result;
        for (const char c : text)
            result += c == '@' ? std::string(m_Folder.Path()) + "/" : std::string(1, c);
        return result;
    }
    /// A variable of the module when the macro has ended, as text.
    std::string Value(const char* name) const {
        const UI_MacroVariant* variable = Engine().LookupVar(SYS_StrNoCase(name));
        return variable ? static_cast<SYS_String>(*variable).c_str() : "no variable";
    }
    std::string Bytes(const char* name) const { return std::string(m_Folder.Read(name).View()); }
    std::string GetError() const { return m_Error.c_str(); }
    MacroSupport& Engine() const { return *MacroSupport::GetProcessor(); }
    UI_Macro& Macro() { return m_Macro; }
    const TempDirectory& Folder() const { return m_Folder; }

private:
    TempDirectory m_Folder;
    UI_Macro m_Macro{true};
    SYS_String m_Error;
};
