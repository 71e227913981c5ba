#pragma once

// How failures of macros reach the host: one exception type for every error of a parse or a run.

#include <SCL_Pointer.h>
#include <SCL_Types.h>
#include <SYS_String.h>

using namespace kel_ns;

class MacroSource;

/// The errors with a number of their own. Any other number reads "Error: Unknown error".
enum MacroERR_Code : int {
#define MACRO_ERROR(code, name, id, text) err##name = code,
#include "engine/ErrorCodes.def"
#undef MACRO_ERROR
};

/// What went wrong in a macro and where. The language cannot catch it: it ends the parse or run.
class KEL_MCR_API MacroException {
public:
    /// Keeps the text as given. `position` is a zero-based line. Takes a counted reference to
    /// the source, which may be null.
    MacroException(const SYS_String& text, const SYS_String& path, int position,
                   MacroSource* source);
    /// The text is the one of the code.
    MacroException(MacroERR_Code code, const SYS_String& path, int position, MacroSource* source);
    MacroException(const MacroException& other);
    MacroException& operator=(const MacroException& other);
    virtual ~MacroException();

    /// Appends ": " and the parameter, also an empty one.
    void AddParam(const SYS_String& param);
    /// What went wrong. A parse error has a second line with file, line number (from 1) and the
    /// line of the source.
    const SYS_String& GetText() const { return m_Text; }
    /// What an automation object said of its failure, after its name; mostly empty.
    const SYS_String& GetDetail() const { return m_Detail; }
    void SetDetail(const SYS_String& detail) { m_Detail = detail; }
    /// The name of the source; may be empty.
    const SYS_String& GetFilePath() const { return m_FilePath; }
    /// The line, from 0, as the engine counts: a `rem` line counts twice.
    int GetPosition() const { return m_Position; }
    /// Owner: the exception and its copies. May be null.
    MacroSource* GetSource() const;

private:
    SCL_Pointer<MacroSource> m_Source;
    SYS_String m_Text;
    SYS_String m_Detail;
    SYS_String m_FilePath;
    int m_Position;
};

/// Thrown by a host, or by a host callback under a macro, to end a run. Not an error.
class KEL_MCR_API MacroStopException {
public:
    virtual ~MacroStopException();
};

/// The text of an error number; "" for code 1, which has none of its own; "Unknown Error" if the
/// engine's texts are not available.
KEL_MCR_API SYS_String GetMacroErrorText(MacroERR_Code code);
