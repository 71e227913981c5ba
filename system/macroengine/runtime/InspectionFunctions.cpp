// What a value is, and how far an array reaches.

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"

namespace {

bool isNothing(const UI_MacroVariant& value) {
    return value.GetType() == vvtObject && !value.GetDispatchVal();
}

/// The dimension that a bound is asked of; without a usable number there is none.
int dimensionOf(int argc, const UI_MacroVariant* argv) {
    if (argc == 1)
        return 1;
    return argv[1].GetRVal() && IsChosen(argc, argv, 1) ? static_cast<int>(argv[1]) : -1;
}

UI_MacroVariant boundOf(int argc, UI_MacroVariant* argv, int (UI_MacroVariant::*bound)(int) const) {
    if (argc < 1 || argc > 2 || !argv)
        return wrongArguments();
    const int dimension = dimensionOf(argc, argv);
    const UI_MacroVariant* array = argv[0].GetRVal();
    if (!array || array->GetType() != vvtArray)
        return wrongArguments();
    return (array->*bound)(dimension);
}

enum VarTypeCode {
    vtEmpty = 0,
    vtNull = 1,
    vtInteger = 2,
    vtDouble = 5,
    vtString = 8,
    vtObject = 9,
    vtOther = 10,
    vtBoolean = 11,
    vtArray = 8192
};

VarTypeCode varTypeOf(const UI_MacroVariant& argument) {
    const UI_MacroVariant* body = argument.getBody();
    if (body && !isNothing(*body) &&
        (body->GetType() == vvtObject || body->GetType() == vvtFunction || body->IsMacroEval()))
        return vtObject;
    const UI_MacroVariant* value = argument.GetRVal();
    if (!value)
        return vtNull;
    switch (value->GetType()) {
    case vvtEmpty:
        return vtEmpty;
    case vvtString:
        return vtString;
    case vvtInteger:
        return vtInteger;
    case vvtDouble:
        return vtDouble;
    case vvtBoolean:
        return vtBoolean;
    case vvtArray:
        return vtArray;
    case vvtObject:
    case vvtFunction:
    case vvtReference:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return vtOther;
    }
    return vtOther;
}

} // namespace

UI_MacroVariant MacroIsArray(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const UI_MacroVariant* value = argv[0].GetRVal();
    return value && value->GetType() == vvtArray;
}

UI_MacroVariant MacroIsEmpty(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const UI_MacroVariant* value = argv[0].GetRVal();
    return value && value->GetType() == vvtEmpty && !value->IsMacroEval();
}

UI_MacroVariant MacroIsNull(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return argv[0].GetRVal() == nullptr;
}

UI_MacroVariant MacroIsNumeric(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const UI_MacroVariant* value = argv[0].GetRVal();
    return value && (value->GetType() == vvtInteger || value->GetType() == vvtDouble);
}

UI_MacroVariant MacroIsObject(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const UI_MacroVariant* body = argv[0].getBody();
    if (!body || isNothing(*body))
        return false;
    return body->GetType() == vvtObject || body->GetType() == vvtFunction || body->IsMacroEval();
}

UI_MacroVariant MacroTypeName(int argc, UI_MacroVariant* argv) {
    while (argv && argc >= 1 && argv[argc - 1].GetType() == vvtMissing)
        --argc;
    if (argc != 1 || !argv)
        return wrongArguments();
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

UI_MacroVariant MacroVarType(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return static_cast<int>(varTypeOf(argv[0]));
}

UI_MacroVariant MacroLBound(int argc, UI_MacroVariant* argv) {
    return boundOf(argc, argv, &UI_MacroVariant::GetArrayLowerBound);
}

UI_MacroVariant MacroUBound(int argc, UI_MacroVariant* argv) {
    return boundOf(argc, argv, &UI_MacroVariant::GetArrayUpperBound);
}
