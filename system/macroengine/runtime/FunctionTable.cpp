// The table of the built-in functions, and the one map of their names.

#include "runtime/FunctionTable.h"

#include <UI_MacroProcessor.h>

#include <iterator>

#include "runtime/SystemFunctions.h"

const MacroSupport::FuncNode MacroSupport::s_Functions[] = {
    {"Len", MacroLen},
    {"Abs", MacroAbs},
    {"CStr", MacroCStr},
    {"TypeName", MacroTypeName},

    // System, files and objects.
    {"Command", MacroCommand},
    {"CreateObject", MacroCreateObject},
    {"CurDir", MacroCurDir},
    {"Dir", MacroDir},
    {"DoEvents", MacroDoEvents},
    {"Environ", MacroEnviron},
    {"EOF", MacroEOF},
    {"GetObject", MacroGetObject},
    {"GetRef", MacroGetRef},
    {"GetTmpFileName", MacroGetTmpFileName},
    {"LoadImage", MacroLoadImage},
    {"MkDir", MacroMkDir},
    {"MoveFile", MacroMoveFile},
    {"MsgBox", MacroMsgBox},
    {"ScriptEngine", MacroScriptEngine},
    {"ScriptEngineBuildVersion", MacroScriptEngineBuildVersion},
    {"ScriptEngineMajorVersion", MacroScriptEngineMajorVersion},
    {"ScriptEngineMinorVersion", MacroScriptEngineMinorVersion},
};

SCC_SharedPointer<MacroEval::Map> MacroSupport::InitFunctionsMap() {
    SCC_SharedPointer<Map> map(new Map);
    for (const FuncNode& row : s_Functions)
        map->Install(SYS_StrNoCase(row.name), UI_MacroVariant(row.handler));
    return map;
}

MacroEval::Map* MacroSupport::functionsMap() {
    static auto& map = *new SCC_SharedPointer<Map>(InitFunctionsMap());
    return map;
}
