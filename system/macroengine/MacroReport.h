#pragma once

// What a parse tells about a macro text, for editors and other tools. Plain values: a report
// stays good when the engine goes on to other work. All lines and columns count from zero, columns
// in bytes.

#include <SCL_Vector.h>
#include <SYS_String.h>

using namespace kel_ns;

/// Why a text is no macro, or not all of it.
struct MacroProblem {
    int code = 1;    ///< of the error, see MacroERR_Code; 0 an error that is only text; 1 no error
    SYS_String text; ///< the error's own text, without place
    /// The line as errors of the engine count it: a `rem` line counts twice. Wherever a macro
    /// gives a line of its own, this is the one that matches.
    int line = 0;
    int textLine = 0;      ///< the line of the text; -1 if the text could not be read
    int column = 0;        ///< in that line, where the token begins at which the parser gave up
    SYS_String sourceLine; ///< that line, without its line end
};

enum class MacroAccess { None, Public, PublicDefault, Private };

struct MacroArgumentInfo {
    SYS_String name;
    bool byValue = false;
    bool isArray = false; ///< written with `()`
};

/// A Sub or Function.
struct MacroProcedureInfo {
    SYS_String name;
    bool isFunction = false;
    MacroAccess access = MacroAccess::None;
    int line = 0;     ///< of the text: the one with its name
    int endLine = -1; ///< of the text: its `End Sub` or `End Function`; -1 if there is none
    SCL_Vector<MacroArgumentInfo> arguments;
    SYS_String description; ///< the comment in front of it, without white space around it
};

/// A name that a statement outside all procedures declares.
struct MacroNameInfo {
    enum Kind { Variable, Array, Constant };

    SYS_String name;
    Kind kind = Variable;
    MacroAccess access = MacroAccess::None; ///< of a constant
    int line = 0;                           ///< of the text
};

/// What stands in a macro text, in the order of the text. If the text has an error, what was read
/// before it.
struct MacroReport {
    bool parses = false;
    /// The text parses, but a string without its closing quote ends it early. The engine says
    /// nothing of that when it runs the macro.
    bool endsEarly = false;
    MacroProblem problem; ///< if it does not parse, or where it ends early
    SCL_Vector<MacroProcedureInfo> procedures;
    SCL_Vector<MacroNameInfo> names;
};
