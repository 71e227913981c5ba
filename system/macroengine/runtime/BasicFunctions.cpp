#include <cmath>

#include "runtime/FunctionTable.h"
#include "values/Failure.h"

UI_MacroVariant MacroAbs(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    return UI_MacroVariant(std::fabs(static_cast<double>(argv[0])));
}

UI_MacroVariant MacroCStr(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    return UI_MacroVariant(static_cast<SYS_String>(argv[0]));
}

UI_MacroVariant MacroLen(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    const UI_MacroVariant* value = argv[0].GetRVal();
    if (!value)
        return UI_MacroVariant(0);
    switch (value->GetType()) {
    case vvtString:
        return UI_MacroVariant(value->GetStringVal().GetLength());
    case vvtDouble:
        return UI_MacroVariant(8);
    case vvtInteger:
        return UI_MacroVariant(4);
    case vvtBoolean:
        return UI_MacroVariant(1);
    case vvtEmpty:
    case vvtObject:
    case vvtFunction:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return UI_MacroVariant(0);
    }
    return UI_MacroVariant(0);
}

UI_MacroVariant MacroTypeName(int argc, UI_MacroVariant* argv) {
    while (argv && argc >= 1 && argv[argc - 1].GetType() == vvtMissing)
        --argc;
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    const UI_MacroVariant* value = argv[0].GetRVal();
    if (!value)
        return UI_MacroVariant("Null");
    if (value->IsMacroEval())
        return UI_MacroVariant("Macro object");
    switch (value->GetType()) {
    case vvtEmpty:
        return UI_MacroVariant("Empty");
    case vvtObject:
    case vvtFunction:
        return UI_MacroVariant("Object");
    case vvtString:
        return UI_MacroVariant("String");
    case vvtInteger:
        return UI_MacroVariant("Integer");
    case vvtDouble:
        return UI_MacroVariant("Double");
    case vvtBoolean:
        return UI_MacroVariant("Boolean");
    case vvtArray:
        return UI_MacroVariant("Array");
    case vvtReference:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return UI_MacroVariant("Error");
    }
    return UI_MacroVariant("Error");
}
