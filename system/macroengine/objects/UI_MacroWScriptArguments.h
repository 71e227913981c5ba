#pragma once

#include <UI_MacroEval.h>

/// The process's command line for macros: `WScript.Arguments(i)` and `WScript.Arguments.count`.
/// Element 0 is the program. Any other use raises "Error: Incorrect function argument(s)".
class UI_MacroWScriptArguments final : public MacroEval {
public:
    UI_MacroWScriptArguments();

    using MacroEval::operator=;

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    SYS_String GetName() const override;
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override;
    static cMacroAppClass* GetMacroClass();

    UI_MacroVariant GetItem(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetCount(int argc, UI_MacroVariant* args) const;

    /// The command line cut at blanks and tabs; quotes mean nothing here.
    static const SCC_Array<SYS_String>& GetParts();
};
