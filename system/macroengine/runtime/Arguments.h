#pragma once

// What the built-in functions ask of their arguments. Variables arrive as References, so every
// question about a kind is about the value to read.

#include <UI_MacroVariant.h>

#include "values/Failure.h"

/// Whether the place is there and not left out.
inline bool IsGiven(int argc, const UI_MacroVariant* argv, int place) {
    if (place >= argc)
        return false;
    const UI_MacroVariant* value = argv[place].GetRVal();
    return !value || value->GetType() != vvtMissing;
}

/// The same, but Empty counts as left out too.
inline bool IsChosen(int argc, const UI_MacroVariant* argv, int place) {
    if (!IsGiven(argc, argv, place))
        return false;
    const UI_MacroVariant* value = argv[place].GetRVal();
    return !value || value->GetType() != vvtEmpty;
}

/// The argument if it is an array with this number of dimensions, else null.
inline const UI_MacroVariant* arrayArgument(const UI_MacroVariant& argument, int dimensions) {
    const UI_MacroVariant* value = argument.GetRVal();
    return value && value->GetType() == vvtArray && value->GetArrNumDims() == dimensions ? value
                                                                                         : nullptr;
}

inline SYS_String textOf(const UI_MacroVariant& argument) {
    return static_cast<SYS_String>(argument);
}

inline UI_MacroVariant wrongArguments() { return Fail(errIncorrectArgument); }
