// From a name to the host's member function.

#include "objects/MemberDispatch.h"

#include <ClassDescriptors.h>
#include <UI_MacroEval.h>
#include <UI_MacroProcessor.h>

namespace {

using Entry = cMacroAppClass::Entry;

/// Reports through the object, which may have an error handling of its own, while it lives.
template <class... A>
void report(const SCC_SafePointer<UI_MacroVariant>& object, const A&... error) {
    if (UI_MacroVariant* living = object)
        static_cast<MacroEval*>(living)->OnMacroError(error...);
    else if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(error...);
}

void applyToObject(MacroEval& object, UI_MacroVariant* args, int argc, UI_MacroVariant& result) {
    if (argc == 0) {
        UI_MacroVariant reference(static_cast<UI_MacroVariant*>(&object));
        result.Take(reference);
        return;
    }
    SCC_SafePointer<UI_MacroVariant> living(&object);
    UI_MacroVariant value;
    if (object.evaluateDereference(args, argc, value, derefAny))
        result.Take(value);
    else
        report(living, "Object doesn't support this property or method");
}

/// A member without arguments is read, and what it gives takes the arguments.
void applyToResult(const Entry& entry, MacroEval& object, UI_MacroVariant* args, int argc,
                   UI_MacroVariant& result) {
    SCC_SafePointer<UI_MacroVariant> living(&object);
    UI_MacroVariant value = entry.callable->Call(object, 0, nullptr);
    UI_MacroVariant member;
    if (value.evaluateDereference(args, argc, member, derefAny))
        result.Take(member);
    else
        report(living, errIncorrectArgument, entry.name);
}

void runMember(const Entry& entry, MacroEval& object, const char* name, UI_MacroVariant* args,
               int argc, UI_MacroVariant& result) {
    const auto given = static_cast<unsigned>(argc);
    if (given > 0 && entry.requiredPlaces == 0 && entry.optionalPlaces == 0) {
        applyToResult(entry, object, args, argc, result);
        return;
    }
    if (given < entry.requiredPlaces || given > entry.requiredPlaces + entry.optionalPlaces) {
        object.OnMacroError(errIncorrectArgument, name);
        return;
    }
    if (UI_MacroVariant* proxy = entry.callable->MakeProxy(object, argc, args)) {
        UI_MacroVariant reference(proxy);
        result.Take(reference);
        return;
    }
    UI_MacroVariant value = entry.callable->Call(object, argc, args);
    result.Take(value);
}

} // namespace

bool EvaluateClassMember(const cMacroAppClass& appClass, MacroEval& object, const char* name,
                         UI_MacroVariant* args, int argc, UI_MacroVariant& result) {
    if (!args || argc < 0)
        argc = 0;
    if (!name || !*name) {
        applyToObject(object, args, argc, result);
        return true;
    }
    const cMacroAppClass* root = MacroEval::GetMacroClass();
    for (const cMacroAppClass* c = &appClass; c; c = c->GetParentAppClass()) {
        if (c == root && c != &appClass)
            return false; // its members come after the children of the object
        const Entry* entry = c->Find(name);
        if (!entry || !entry->callable)
            continue;
        if (c != &appClass && !entry->callable->Fits(object))
            continue; // the parent is one in name only
        runMember(*entry, object, name, args, argc, result);
        return true;
    }
    return false;
}

bool DispatchMacroEvalMember(MacroEval& object, const char* name, UI_MacroVariant* args, int argc,
                             UI_MacroVariant& result) {
    return EvaluateClassMember(*MacroEval::GetMacroClass(), object, name, args, argc, result);
}

// --- The class that all objects share ------------------------------------------------------

cMacroAppClass* MacroEval::GetMacroClass() {
    static cMacroAppClass& self = *new cMacroAppClass("MacroEval", nullptr);
    static cMacroClassProperty<MacroEval>& macroName = *new cMacroClassProperty<MacroEval>(
        self, "MacroName", TypeNameString, &MacroEval::GetMacroName);
    static_cast<void>(macroName);
    return &self;
}

const ScriptDebugger::iApplicationClass* MacroEval::GetMacroDescriptor() const {
    return GetMacroClass();
}

bool MacroEval::IsPropertyGet(const char* name) {
    if (!name || Get(name))
        return true;
    for (const ScriptDebugger::iApplicationClass* c = GetMacroDescriptor(); c;
         c = c->GetParentClass()) {
        const unsigned properties = c->GetPropertiesCount();
        for (unsigned i = 0; i < properties; ++i)
            if (c->GetProperty(i)->GetName().CompareNoCase(name) == 0)
                return true;
        const unsigned methods = c->GetMethodsCount();
        for (unsigned i = 0; i < methods; ++i)
            if (c->GetMethod(i)->GetName().CompareNoCase(name) == 0)
                return false;
    }
    return false;
}
