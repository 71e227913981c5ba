#pragma once

#include <UI_MacroVariant.h>

#include <utility>

class MacroEval;

/// What the interpreter may do to a value beyond its public operations.
struct MacroVariantAccess {
    /// Makes the value a list of n Empty elements; gives the first of them.
    static UI_MacroVariant* MakeList(UI_MacroVariant& value, int n) {
        value.Clear();
        value.m_Type = vvtArray;
        value.m_FlagsOrDims = 1;
        value.m_IdOrArrayType = ArrayValue;
        if (n == 0)
            return nullptr;
        UI_MacroArray& array = value.Arrval();
        array.SetSize(n);
        return array.WritableData();
    }
    /// Makes the value an array of Empty elements; the outermost level comes first.
    static void MakeArray(UI_MacroVariant& value, const _ArraySubscript* levels, int dims);
    /// The automation face of a host's object, counted for the caller; false if it has none.
    static bool GetDispatch(const MacroEval& object, IDispatch** out);
    /// Carries out a pending call of an Object.
    static void Invoke(UI_MacroVariant& value) { value.invokeObjectIfNeeded(); }
    static void SetArguments(UI_MacroVariant& value, UI_MacroVariant* args, int argc) {
        value.copyAgr(args, argc);
    }
    /// Moves the elements of a list into a pending call as its arguments.
    static void AdoptArguments(UI_MacroVariant& value, UI_MacroVariant& list) {
        std::swap(value.m_Parts, list.m_Parts);
    }
    /// Appends to the text of a String.
    static void AppendText(UI_MacroVariant& value, const SYS_String& rest) { value.m_Text += rest; }
    static __int64 Integer(const UI_MacroVariant& value) { return value.m_Payload.integer; }
    static double Real(const UI_MacroVariant& value) { return value.m_Payload.real; }
    /// A number as a double; the kind must be Integer or Double.
    static double Number(const UI_MacroVariant& value) {
        return value.m_Type == vvtDouble ? value.m_Payload.real
                                         : static_cast<double>(value.m_Payload.integer);
    }
};
