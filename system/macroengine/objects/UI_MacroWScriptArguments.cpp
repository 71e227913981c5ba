#include "objects/UI_MacroWScriptArguments.h"

#include <MacroException.h>
#include <Platform.h>
#include <UI_MacroProcessor.h>

#include <algorithm>
#include <string_view>

namespace {

UI_MacroVariant refuse() {
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(errIncorrectArgument);
    throw MacroException(GetMacroErrorText(errIncorrectArgument), SYS_String(), 0, nullptr);
}

SCC_Array<SYS_String> split(const SYS_String& line) {
    SCC_Array<SYS_String> parts;
    const std::string_view text = line.View();
    std::size_t at = 0;
    while ((at = text.find_first_not_of(" \t", at)) != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(" \t", at), text.size());
        SYS_String part(text.substr(at, end - at));
        part.TrimLeft();
        parts.Append(part);
        at = end;
    }
    return parts;
}

bool isNamed(const char* name, const char* expected) {
    return name && SYS_String(name).CompareNoCase(expected) == 0;
}

} // namespace

UI_MacroWScriptArguments::UI_MacroWScriptArguments() : MacroEval("Arguments") {}

const SCC_Array<SYS_String>& UI_MacroWScriptArguments::GetParts() {
    static const SCC_Array<SYS_String>& parts =
        *new SCC_Array<SYS_String>(split(GetPlatform().CommandLine()));
    return parts;
}

UI_MacroVariant UI_MacroWScriptArguments::Evaluate(const char* name, UI_MacroVariant* args,
                                                   int argc) {
    const bool hasName = name && *name;
    if (!hasName && argc == 0)
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
    if (argc == 1 && (!hasName || isNamed(name, "Item")))
        return GetItem(argc, args);
    if (argc == 0 && isNamed(name, "count"))
        return GetCount(argc, args);
    return refuse();
}

SYS_String UI_MacroWScriptArguments::GetName() const { return "Arguments"; }

UI_MacroVariant UI_MacroWScriptArguments::GetItem(int, UI_MacroVariant* args) const {
    const SCC_Array<SYS_String>& parts = GetParts();
    const __int64 index = args ? static_cast<__int64>(args[0]) : -1;
    if (index < 0 || index >= parts.GetCount())
        return refuse();
    return parts[static_cast<int>(index)];
}

UI_MacroVariant UI_MacroWScriptArguments::GetCount(int, UI_MacroVariant*) const {
    return GetParts().GetCount();
}

cMacroAppClass* UI_MacroWScriptArguments::GetMacroClass() {
    using Self = UI_MacroWScriptArguments;
    static cMacroAppClass self("Arguments", MacroEval::GetMacroClass());
    static cMacroClassProperty<Self> item(self, "Item", TypeNameString, &Self::GetItem, nullptr,
                                          nullptr, true, cMacroArgument("Index", TypeNameInt));
    static cMacroClassProperty<Self> count(self, "count", TypeNameInt, &Self::GetCount);
    return &self;
}

const ScriptDebugger::iApplicationClass* UI_MacroWScriptArguments::GetMacroDescriptor() const {
    return GetMacroClass();
}
