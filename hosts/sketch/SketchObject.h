#pragma once

#include <ClassDescriptors.h>
#include <UI_MacroEval.h>

/// What every class here does with its descriptor: shows it, and looks members up in it first.
/// `T` is the class itself, with a static `GetMacroClass`; `Base` what it derives from.
template <class T, class Base = MacroEval> class SketchObject : public Base {
public:
    using Base::Base;
    using MacroEval::operator=;

    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return T::GetMacroClass();
    }

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(static_cast<T&>(*this), name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }
};
