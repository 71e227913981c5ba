#pragma once

// What a debugger reads of a paused macro: the variables of its frames, and values opened into
// their parts. Frames are read through `UI_Macro`:
//
//     for (const MacroVariableInfo& variable : macro.GetVariables(0))
//         print(variable.name, variable.description);
//     UI_MacroVariant value;
//     if (macro.GetVariable(0, "prices", value))
//         for (const MacroPartInfo& part : ListMacroParts(value, 0, 20))
//             print(part.name, part.description); // "(0)", "[number: 12]"

#include <SCL_Vector.h>
#include <SYS_String.h>
#include <UI_MacroVariant.h>

using namespace kel_ns;

/// A variable of a frame.
struct MacroVariableInfo {
    SYS_String name;         ///< names ignore case; this is one of its spellings
    SYS_String description;  ///< the `DescribeVar` text of its value
    bool isConstant = false; ///< cannot be given another value
    bool hasParts = false;   ///< its value can be opened by `ListMacroParts`
};

/// An element of an array, or a property of an object.
struct MacroPartInfo {
    SYS_String name;        ///< "(2)", "(0, 3)", or the name of the property
    UI_MacroVariant value;  ///< a copy; an object: a Reference to it; Empty if reading failed
    SYS_String description; ///< the `DescribeVar` text, or what reading the property raised
    bool hasFailed = false; ///< reading the property raised an error
    bool hasParts = false;
};

/// How many parts a value has: all elements of an array, or the readable properties of an object
/// and its parent classes, as its class descriptor states them. References are followed; 0 for
/// any other value. Raises: never.
KEL_MCR_API int CountMacroParts(const UI_MacroVariant& value);

/// The parts from `first` (counted from 0) on, `count` at most. Elements come with the first index
/// running fastest, as in `For Each`; properties in the order of their declaration, those of the
/// object's own class first. Properties with required arguments and hidden ones are left out.
/// Raises: nothing of the engine's; an error of a property is told in its part. Re-enters: the
/// host's getters.
KEL_MCR_API SCL_Vector<MacroPartInfo> ListMacroParts(const UI_MacroVariant& value, int first,
                                                     int count);
