// What a name means: objects, built-in functions, procedures, variables.

#include <Automation.h>
#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>

#include "engine/Frames.h"
#include "engine/TypeLibrary.h"

unsigned MacroSupport::GetNamesState() const {
    return s_OtherChanges + GetPMap()->GetChanges() + functionsMap()->GetChanges() +
           m_Functions.GetChanges();
}

bool MacroSupport::IsOwnName(const MacroName* name, const FunctionTableItem*& procedure) const {
    if (lookUpEntry(name) || HasTypeLibrary())
        return false;
    procedure = m_Functions.Lookup(name->text);
    return true;
}

MacroFunctionHandler MacroSupport::FindBuiltIn(const MacroName* name) const {
    const UI_MacroVariant* entry = lookUpEntry(name);
    return entry && entry->GetType() == vvtFunction ? entry->GetFunctionHandler() : nullptr;
}

UI_MacroVariantParam* MacroSupport::findVariable(const MacroName* name, unsigned& place) const {
    const ExecutionContext* top = m_ContextStack->Top();
    if (!top)
        return nullptr;
    if (UI_MacroVariantParam* local = top->m_Variables.Find(name, place))
        return local;
    return m_ContextStack->Bottom()->m_Variables.Find(name, place);
}

UI_MacroVariant* MacroSupport::LookupVar(const SYS_StrNoCase& name) {
    const ExecutionContext* top = m_ContextStack->Top();
    return top ? top->m_Variables.Find(MacroName::Intern(name.View())) : nullptr;
}

UI_MacroVariant* MacroSupport::RegisterVar(const SYS_StrNoCase& name) {
    ExecutionContext* top = m_ContextStack->Top();
    return top ? top->m_Variables.FindOrMake(MacroName::Intern(name.View())) : nullptr;
}

bool MacroSupport::RemoveVar(const SYS_StrNoCase& name) {
    ExecutionContext* top = m_ContextStack->Top();
    return top && top->m_Variables.Remove(MacroName::Intern(name.View()));
}

UI_MacroVariant* MacroSupport::getExecutionStackVar(const SYS_StrNoCase& name) {
    unsigned place = 0;
    return getExecutionStackVar(MacroName::Intern(name.View()), name, place);
}

UI_MacroVariantParam* MacroSupport::getExecutionStackVar(const MacroName* name,
                                                         const SYS_String& spelling,
                                                         unsigned& place) {
    ExecutionContext* top = m_ContextStack->Top();
    if (!top)
        return nullptr;
    if (UI_MacroVariantParam* local = top->m_Variables.Find(name, place))
        return local;
    ExecutionContext* bottom = m_ContextStack->Bottom();
    if (bottom != top)
        if (UI_MacroVariantParam* global = bottom->m_Variables.Find(name, place))
            return global;
    if (checkExplicit(spelling))
        return nullptr;
    return top->m_Variables.Add(name);
}

bool MacroSupport::checkExplicit(const char* name) {
    // A look at a paused macro makes no variables. Procedures that it calls may, as ever.
    const bool isEvaluatedText = IsInEvaluation() && !m_CurrentFunction;
    if (!m_Options.explicitDeclarations && !isEvaluatedText)
        return false;
    SYS_String message = "Variable is undefined : '";
    message += name;
    message += "'";
    OnError(message);
    return true;
}

UI_MacroVariant MacroSupport::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    if (!name)
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
    return evaluate(name, args, argc, false);
}

UI_MacroVariant* MacroSupport::lookUpEntry(const MacroName* name) const {
    if (UI_MacroVariant* object = const_cast<Map&>(*GetPMap()).Lookup(name->text))
        return object;
    return functionsMap()->Lookup(name->text);
}

UI_MacroVariant MacroSupport::evaluate(const char* name, UI_MacroVariant* args, int argc,
                                       bool isCall) {
    return evaluate(MacroName::Intern(name), name, args, argc, isCall);
}

UI_MacroVariant MacroSupport::evaluate(const MacroName* name, const SYS_String& spelling,
                                       UI_MacroVariant* args, int argc, bool isCall) {
    if (UI_MacroVariant* entry = lookUpEntry(name)) {
        if (entry->GetType() == vvtFunction) {
            SCL_ASSERT(entry->GetFunctionHandler(), "Not implemented yet");
            if (!entry->GetFunctionHandler())
                return UI_MacroVariant();
            UI_MacroVariant function(*entry);
            function.copyAgr(args, args ? argc : 0);
            return function;
        }
        const UI_MacroVariant value =
            entry->GetType() == vvtReference ? UI_MacroVariant(*entry) : UI_MacroVariant(entry);
        return evaluateDeref(value, spelling, args, argc, isCall);
    }
    if (UI_MacroVariant constant; FindTypeLibraryConstant(spelling, constant))
        return evaluateDeref(constant, spelling, args, argc, isCall);

    unsigned place = 0;
    if (const FunctionTableItem* item = CalledProcedure(m_Functions.Lookup(name->text), name,
                                                        args != nullptr || isCall, place)) {
        UI_MacroVariant call;
        call.SetFunctionRefVal(item->GetName(), this);
        call.copyAgr(args, args ? argc : 0);
        return call;
    }
    UI_MacroVariantParam* variable = getExecutionStackVar(name, spelling, place);
    if (!variable)
        return OnError(errInternal, SYS_String());
    return evaluateDeref(UI_MacroVariant(static_cast<UI_MacroVariant*>(variable)), spelling, args,
                         argc, isCall);
}

const FunctionTableItem* MacroSupport::CalledProcedure(const FunctionTableItem* procedure,
                                                       const MacroName* name, bool isApplied,
                                                       unsigned& place) const {
    if (!procedure)
        return nullptr;
    if (m_CurrentFunction && m_CurrentFunction->interned == name)
        return isApplied ? procedure : nullptr; // the return variable
    if (!findVariable(name, place))
        return procedure;
    if (m_CurrentFunction && m_CurrentFunction->locals.Lookup(name->text))
        return nullptr; // hidden by a declaration of the running procedure
    return procedure->HasBody() ? procedure : nullptr;
}

UI_MacroVariant MacroSupport::evaluateDeref(const UI_MacroVariant& value, const SYS_String& name,
                                            UI_MacroVariant* args, int argc, bool isCall) {
    if (argc == 0 && !isCall)
        return UI_MacroVariant(value);
    UI_MacroVariant result;
    if (const_cast<UI_MacroVariant&>(value).evaluateDereference(args, argc, result,
                                                                isCall ? derefMethod : derefAny))
        return result;
    SYS_String message = "Object doesn't support this property or method: '";
    message += name;
    message += "'";
    OnError(message);
    return UI_MacroVariant(value);
}

UI_MacroVariant MacroSupport::EvalArgListList(UI_MacroVariant* target, const char* name,
                                              const UI_MacroArray& lists) {
    UI_MacroVariant result;
    UI_MacroVariant* scope = target;
    for (int i = 0; i < lists.GetCount(); ++i) {
        UI_MacroArray list = lists.Data()[i].Arrval();
        const int argc = list.GetCount();
        UI_MacroVariant* args = argc ? list.WritableData() : &Null();
        UI_MacroVariant next = i == 0 ? scope->Evaluate(name, args, argc)
                                      : evaluateDeref(*scope, "", args, argc, false);
        result.Take(next);
        scope = &result;
    }
    return result;
}
