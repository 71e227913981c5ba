// The table of the built-in functions, and the one map of their names.

#include "runtime/FunctionTable.h"

#include <UI_MacroProcessor.h>

const MacroSupport::FuncNode MacroSupport::s_Functions[] = {
#define MACRO_FUNCTION(name) {#name, Macro##name},
#include "runtime/Functions.def"
#undef MACRO_FUNCTION
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
