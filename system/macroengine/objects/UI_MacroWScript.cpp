#include "objects/UI_MacroWScript.h"

#include <SCL_Assert.h>
#include <SCL_Path.h>
#include <UI_MacroProcessor.h>

#include "objects/ScriptFiles.h"
#include "values/CopyOut.h"

UI_MacroWScript::UI_MacroWScript(MacroSupport& owner) : MacroEval("WScript"), m_Owner(owner) {
    Register(m_Arguments, nullptr);
    owner.Register(*this, nullptr);
}

cMacroAppClass* UI_MacroWScript::GetMacroClass() {
    using Self = UI_MacroWScript;
    using Method = cMacroClassMethod<Self>;
    using Property = cMacroClassProperty<Self>;
    static cMacroAppClass self("Script", MacroEval::GetMacroClass());
    static Method execute(self, "Execute", "Script", &Self::Execute, false,
                          cMacroArgument("ScriptPath", TypeNameString));
    static Method echo(self, "Echo", "Script", &Self::Echo, false,
                       cMacroArgument("Message", TypeNameString));
    static Method evaluate(self, "Evaluate", TypeNameVariant, &Self::EvaluateText, false,
                           cMacroArgument("Expression", TypeNameString));
    static Property application(self, "Application", "Application", &Self::GetApplication);
    static Property fullName(self, "FullName", TypeNameString, &Self::GetFullName);
    static Property name(self, "Name", TypeNameString, &Self::GetProductName);
    static Property path(self, "Path", TypeNameString, &Self::GetPath);
    static Property scriptFullPath(self, "ScriptFullPath", TypeNameString,
                                   &Self::GetScriptFullPath);
    static Property scriptFolder(self, "ScriptFolder", TypeNameString, &Self::GetScriptFolder);
    return &self;
}

const ScriptDebugger::iApplicationClass* UI_MacroWScript::GetMacroDescriptor() const {
    return GetMacroClass();
}

UI_MacroVariant UI_MacroWScript::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    if (name && *name)
        Clear(); // a path that no statement has run must not be run later
    UI_MacroVariant result;
    if (EvaluateMember(*this, name, args, argc, result))
        return result;
    return MacroEval::Evaluate(name, args, argc);
}

bool UI_MacroWScript::IsPropertyGet(const char* name) {
    return !name || SYS_String(name).CompareNoCase("Evaluate") == 0;
}

SYS_String UI_MacroWScript::GetName() const { return "WScript"; }

UI_MacroVariant UI_MacroWScript::Execute(int, UI_MacroVariant* args) {
    const SYS_String path =
        FindScript(static_cast<SYS_String>(args[0]), SCL::PathDirectory(sourcePath()));
    if (path.IsEmpty()) {
        OnMacroError("Script path not found");
        return false;
    }
    SetExecScriptVal(path);
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
}

UI_MacroVariant UI_MacroWScript::Echo(int, UI_MacroVariant*) {
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
}

UI_MacroVariant UI_MacroWScript::EvaluateText(int, UI_MacroVariant* args) {
    return CopyOut(args[0].GetRVal());
}

UI_MacroVariant UI_MacroWScript::GetApplication(int, UI_MacroVariant*) {
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
}

UI_MacroVariant UI_MacroWScript::GetFullName(int, UI_MacroVariant*) {
    const SCC_Array<SYS_String>& parts = UI_MacroWScriptArguments::GetParts();
    return parts.IsEmpty() ? SYS_String() : parts[0];
}

UI_MacroVariant UI_MacroWScript::GetProductName(int, UI_MacroVariant*) { return "Macro Engine"; }

UI_MacroVariant UI_MacroWScript::GetPath(int argc, UI_MacroVariant* args) {
    return SCL::PathDirectory(static_cast<SYS_String>(GetFullName(argc, args)));
}

UI_MacroVariant UI_MacroWScript::GetScriptFullPath(int, UI_MacroVariant*) {
    SCL_ASSERT(m_Owner.GetSource(), "WScript.ScriptFullPath: no script");
    return sourcePath();
}

UI_MacroVariant UI_MacroWScript::GetScriptFolder(int, UI_MacroVariant*) {
    return SCL::PathDirectory(sourcePath());
}

SYS_String UI_MacroWScript::sourcePath() const {
    MacroSource* source = m_Owner.GetSource();
    return source ? source->GetFileName() : SYS_String();
}
