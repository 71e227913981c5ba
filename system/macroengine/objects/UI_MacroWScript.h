#pragma once

#include <UI_MacroEval.h>

#include "objects/UI_MacroWScriptArguments.h"

/// The object `WScript` of every macro: the macro's own path, the command line, and the way to
/// run another script.
class UI_MacroWScript final : public MacroEval {
public:
    /// Registers itself with the processor that owns it.
    explicit UI_MacroWScript(MacroSupport& owner);

    using MacroEval::operator=;

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    bool IsPropertyGet(const char* name) override;
    SYS_String GetName() const override;
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override;
    static cMacroAppClass* GetMacroClass();

    /// Finds a script. This object then holds its path with kind Script, which a call statement
    /// takes as the order to run the file; the result is a Reference to this object, or False.
    UI_MacroVariant Execute(int argc, UI_MacroVariant* args);
    UI_MacroVariant Echo(int argc, UI_MacroVariant* args);
    /// The argument as it is: whoever calls has computed it.
    UI_MacroVariant EvaluateText(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetApplication(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetFullName(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetProductName(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetPath(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetScriptFullPath(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetScriptFolder(int argc, UI_MacroVariant* args);

private:
    SYS_String sourcePath() const;

    MacroSupport& m_Owner;
    UI_MacroWScriptArguments m_Arguments;
};
