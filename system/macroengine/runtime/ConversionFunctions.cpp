// From one kind of value to another.

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"
#include "runtime/Rounding.h"
#include "values/ArrayLimits.h"
#include "values/CopyOut.h"

namespace {

UI_MacroVariant roundedInto(int argc, UI_MacroVariant* argv, __int64 lowest, __int64 highest) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const __int64 value = RoundToInteger(static_cast<double>(argv[0]));
    if (value < lowest || value > highest)
        return wrongArguments();
    return value;
}

/// What the argument reads as, cut loose from the variables behind it.
UI_MacroVariant readValue(const UI_MacroVariant& argument) {
    UI_MacroVariant temp;
    UI_MacroVariant value = CopyOut(temp.derefObject(argument).GetRVal());
    if (value.GetType() == vvtArray)
        MacroVariantArraySupport::SeparateBuffers(value);
    return value;
}

/// The digits of the low 32 bits.
UI_MacroVariant digitsOf(int argc, UI_MacroVariant* argv, int base) {
    if (argc != 1 || !argv)
        return wrongArguments();
    SYS_String digits;
    digits.Add(static_cast<unsigned>(static_cast<int>(argv[0])), base);
    return digits.MakeUpper();
}

} // namespace

UI_MacroVariant MacroCBool(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return static_cast<bool>(argv[0]);
}

UI_MacroVariant MacroCByte(int argc, UI_MacroVariant* argv) {
    return roundedInto(argc, argv, 0, 255);
}

UI_MacroVariant MacroCInt(int argc, UI_MacroVariant* argv) {
    return roundedInto(argc, argv, -32768, 32767);
}

UI_MacroVariant MacroCLng(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return RoundToInteger(static_cast<double>(argv[0]));
}

UI_MacroVariant MacroCDbl(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return static_cast<double>(argv[0]);
}

UI_MacroVariant MacroCSng(int argc, UI_MacroVariant* argv) { return MacroCDbl(argc, argv); }

UI_MacroVariant MacroStr(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]);
}

UI_MacroVariant MacroCStr(int argc, UI_MacroVariant* argv) { return MacroStr(argc, argv); }

/// A point anywhere in the text makes the number a real one.
UI_MacroVariant MacroVal(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    if (textOf(argv[0]).Find('.') >= 0)
        return static_cast<double>(argv[0]);
    return static_cast<int>(argv[0]);
}

UI_MacroVariant MacroHex(int argc, UI_MacroVariant* argv) { return digitsOf(argc, argv, 16); }

UI_MacroVariant MacroOct(int argc, UI_MacroVariant* argv) { return digitsOf(argc, argv, 8); }

UI_MacroVariant MacroArray(int argc, UI_MacroVariant* argv) {
    if (argc > 0 && !argv)
        return wrongArguments();
    UI_MacroArray elements;
    if (argc > 0 && MacroArrayFits(argc)) {
        elements.SetSize(argc);
        UI_MacroVariant* element = elements.WritableData();
        for (int i = 0; i < argc; ++i) {
            UI_MacroVariant value = readValue(argv[i]);
            element[i].Take(value);
        }
    }
    return elements;
}
