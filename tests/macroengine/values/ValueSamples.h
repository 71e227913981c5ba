#pragma once

// Values of every kind with what they are known to convert to, and outcomes as text.

#include <UI_MacroEval.h>
#include <UI_MacroProcessor.h>
#include <UI_MacroVariant.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class ValueTest : public testing::Test {
protected:
    MacroParser processor{true};
};

/// An object that macros can name, of a class without a descriptor.
class BareObject : public MacroEval {
public:
    BareObject() : MacroEval("bare") {}
    using MacroEval::operator=;
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override { return nullptr; }
};

inline std::string Text(const SYS_String& text) { return std::string(text.View()); }

inline std::string ShowReal(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "Double %.17g", value);
    return buffer;
}

inline std::string Show(const UI_MacroVariant& value) {
    switch (value.GetType()) {
    case vvtEmpty:
        return "Empty";
    case vvtInteger:
        return "Integer " + std::to_string(value.GetIntVal());
    case vvtDouble:
        return ShowReal(static_cast<double>(value));
    case vvtBoolean:
        return value.GetIntVal() == 0    ? "False"
               : value.GetIntVal() == -1 ? "True"
                                         : "a broken Boolean";
    case vvtString:
        return "String " + Text(value.GetStringVal());
    case vvtReference:
        return value.getRefVal() ? "Reference" : "Null";
    case vvtObject:
        return value.GetDispatchVal() ? "Object" : "Nothing";
    case vvtFunction:
        return "Function " + Text(value.GetFunctionName());
    case vvtArray:
        return "Array of " + std::to_string(value.Arrval().GetCount());
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        break;
    }
    return "kind " + std::to_string(value.GetType());
}

inline std::string Show(const SYS_String& text) { return "String " + Text(text); }
inline std::string Show(double value) { return ShowReal(value); }
inline std::string Show(__int64 value) { return "Integer " + std::to_string(value); }
inline std::string Show(bool value) { return value ? "True" : "False"; }

inline std::string Error(int code) { return "error " + std::to_string(code); }

/// The lowest code whose text the exception begins with.
inline std::string ShowError(const MacroException& error) {
    const std::string text = Text(error.GetText());
    for (int code = 2; code <= 46; ++code) {
        if (text.starts_with(Text(GetMacroErrorText(static_cast<MacroERR_Code>(code)))))
            return Error(code);
    }
    return "error text " + text;
}

/// The result of an action as text, or the number of its error.
template <class Action> std::string Outcome(Action action) {
    try {
        return Show(action());
    } catch (const MacroException& error) {
        return ShowError(error);
    }
}

/// A value and all that the operators and conversions can know of it. No number: error 23.
struct Sample {
    const char* name;
    std::function<UI_MacroVariant()> make;
    int kind;
    std::string text;
    std::optional<__int64> integer;
    std::optional<double> real;
    std::optional<unsigned> handle;
    __int64 bits = 0;
    bool null = false;
};

/// The values that samples refer to; they live as long as this.
struct SampleTargets {
    SampleTargets()
        : variable(UI_MacroVariant(7), false), alias(UI_MacroVariant(&variable), false),
          constant(UI_MacroVariant("2.5"), true), unset(false), element(UI_MacroVariant(2.5)) {}

    UI_MacroVariantParam variable;
    UI_MacroVariantParam alias;
    UI_MacroVariantParam constant;
    UI_MacroVariantParam unset;
    UI_MacroVariant element;
};

inline UI_MacroVariant GiveThree(int, UI_MacroVariant*) { return UI_MacroVariant(3); }

inline UI_MacroVariant OfKind(VariantValueType kind) {
    UI_MacroVariant value;
    value.SetType(kind);
    return value;
}

inline UI_MacroVariant NullValue() {
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr));
}

inline UI_MacroVariant ScriptOf(const char* text) {
    UI_MacroVariant value;
    value.SetExecScriptVal(text);
    return value;
}

inline UI_MacroVariant HandleOf(unsigned bits) {
    return UI_MacroVariant(reinterpret_cast<void*>(static_cast<std::uintptr_t>(bits)));
}

inline UI_MacroVariant ElementOf(UI_MacroVariant& element) {
    UI_MacroVariant* const reference = new UI_MacroVariantItemRef(&element);
    return UI_MacroVariant(reference);
}

inline UI_MacroVariant ListOf(const std::vector<UI_MacroVariant>& values) {
    UI_MacroArray array;
    for (const UI_MacroVariant& value : values)
        array.Append(value);
    return UI_MacroVariant(array);
}

std::vector<Sample> AllSamples(SampleTargets& targets);
