// Calls of the macro's own procedures. A call pushes a frame and answers with a step into the
// body; the end of the body pops it and answers with the step behind the call.

#include <SCL_Assert.h>

#include <memory>

#include "interpreter/Semantics.h"
#include "values/CopyOut.h"

using namespace semantics;

void MacroParser::SwitchUnit(ParserTree::ScriptUnit* unit) {
    if (unit && unit != m_Tree->GetCurrentUnit())
        m_Tree->SetCurrentUnit(unit);
}

namespace {

using FunctionNode = ParserTree::NodeImpl<ParserTree::Function, false>;

/// The variables that every call makes, in order, and the place of each argument among them.
void refreshLayout(ParserTree::Function& function) {
    if (function.interned && function.layoutState == function.locals.GetChanges())
        return;
    function.interned = MacroName::Intern(function.name.View());
    function.layout.clear();
    for (const auto& local : function.locals)
        if (!local.value.isConstant)
            function.layout.push_back(MacroName::Intern(local.key.View()));
    for (ParserTree::Argument& argument : function.arguments) {
        argument.interned = MacroName::Intern(argument.name.View());
        argument.place = static_cast<unsigned>(function.layout.size());
        for (unsigned i = 0; i < function.layout.size(); ++i)
            if (function.layout[i] == argument.interned)
                argument.place = i;
    }
    function.layoutState = function.locals.GetChanges();
}

/// Whether the buffer of an array may serve two variables until one of them writes. A Reference
/// to an element would then stay with the wrong one.
bool canShare(const UI_MacroVariant& value) {
    return value.GetType() == vvtArray && !value.Arrval().IsEmpty() &&
           !UI_MacroVariantItemRef::AnyLive();
}

/// Gives a parameter the caller's argument, as an alias or as a copy.
void bindArgument(MacroParser& processor, const ParserTree::Argument& argument,
                  UI_MacroVariantParam& parameter, UI_MacroVariant& element) {
    const VariantValueType type = element.GetType();
    const bool byReference = argument.mode == 1;
    if (type >= vvtString && type <= vvtBoolean && !argument.isArray) {
        parameter.Take(element); // computed for this call alone
        return;
    }
    UI_MacroVariant* value = element.GetRVal();
    if (!value && (byReference || argument.isArray))
        processor.OnError(errInternal, SYS_String());
    if (argument.isArray && value->GetType() != vvtArray)
        processor.OnError(errInternal, SYS_String());
    if (value && value->isConstant()) {
        parameter.Assign(element);
    } else if (byReference) {
        parameter = element;
    } else {
        UI_MacroVariant* body = element.getBody();
        if (!body)
            parameter.Assign(element);
        else if (body->IsMacroEval() || body->GetType() == vvtObject ||
                 body->GetType() == vvtFunction)
            parameter.SetObjectRef(*body); // objects are shared even by value
        else if (canShare(*body))
            parameter.UI_MacroVariant::operator=(*body);
        else
            parameter.Assign(*body);
    }
}

} // namespace

void MacroParser::ForgetProceduresOf(ParserTree::ScriptUnit* unit) {
    SCL_Vector<SYS_StrNoCase> names;
    for (const auto& entry : m_Functions) {
        const ParserTree::Position* position = entry.value.GetDeclaration()->GetPosition();
        if (position && position->script == unit)
            names.push_back(entry.key);
    }
    for (const SYS_StrNoCase& name : names)
        m_Functions.Remove(name);
}

void MacroParser::bindArguments(ParserTree::Function& function, ExecutionContext& frame,
                                UI_MacroVariant& call) {
    for (const MacroName* name : function.layout)
        frame.m_Variables.Add(name);
    UI_MacroArray& arguments = call.Arrval();
    if (arguments.GetCount() != static_cast<int>(function.arguments.size()))
        OnError(errInternal, SYS_String());
    UI_MacroVariant* element = arguments.GetCount() ? arguments.WritableData() : nullptr;
    for (const ParserTree::Argument& argument : function.arguments) {
        if (argument.place >= frame.m_Variables.GetCount())
            frame.m_Variables.FindOrMake(argument.interned);
        UI_MacroVariantParam* parameter =
            argument.place < frame.m_Variables.GetCount() &&
                    frame.m_Variables.GetName(argument.place) == argument.interned
                ? frame.m_Variables.GetValue(argument.place)
                : frame.m_Variables.FindOrMake(argument.interned);
        bindArgument(*this, argument, *parameter, *element++);
    }
}

ParserTree::Step MacroParser::EnterProcedure(ParserTree::Node& call, ParserTree::Cell& target,
                                             const FunctionTableItem* known) {
    const SYS_String& name = target.value.GetFunctionName();
    const FunctionTableItem* item = nullptr;
    if (m_ExecutionMode != emEvalPure)
        item = known && known->GetDeclaration()->name == name
                   ? known
                   : m_Functions.Lookup(SYS_StrNoCase(name));
    if (!item)
        OnError(errInternal, SYS_String());
    if (m_ContextStack->GetCount() > GetLimits().frames)
        OnError(errRuntime, "out of memory");
    FunctionNode* function = item->GetDeclaration();
    refreshLayout(*function);

    // The arguments are bound first: if that fails, nothing of the call remains, and the error is
    // one of the calling line.
    auto frame = std::make_unique<ExecutionContext>();
    bindArguments(*function, *frame, target.value);

    auto block = std::make_unique<ContextBlock>();
    block->kind = ContextBlock::kCall;
    block->line = function->GetPosition();
    block->callPosition = call.GetPosition();
    block->node = &call;
    block->name = function->name;
    if (function->GetPosition())
        SwitchUnit(function->GetPosition()->script);
    frame->m_Source = m_Source;
    frame->m_Name = function->name;
    frame->m_Position = function->GetLine();
    frame->m_Function = function;
    frame->PushBlock(block.release());
    m_ContextStack->Push(frame.release());
    m_CurrentFunction = function;
    ExecutionContext::FreeCell(&target);
    return {function, false};
}

ParserTree::Step MacroParser::LeaveProcedure(ParserTree::Function& function) {
    if (m_ExecutionMode == emEvalPure)
        OnError(errInternal, SYS_String());
    m_CurrentFunction = nullptr;
    m_ResultCode = pbBlockDone;
    ExecutionContext* top = m_ContextStack->Top();
    if (!top || !top->m_TopBlock || top->m_TopBlock->kind != ContextBlock::kCall)
        OnError("Invalid function stack");
    const std::unique_ptr<ExecutionContext> frame(m_ContextStack->Take());
    ParserTree::Node* call = frame->m_TopBlock->node;
    if (call->GetPosition())
        SwitchUnit(call->GetPosition()->script);

    UI_MacroVariant result;
    if (function.isFunction) {
        UI_MacroVariantParam* variable = frame->m_Variables.Find(function.interned);
        if (variable && variable->GetType() != vvtReference) {
            result.Take(*variable);
        } else if (variable) {
            UI_MacroVariant copy = CopyOut(variable->GetRVal());
            result.Take(copy);
        }
    }
    frame->FreeCells();
    if (ExecutionContext* caller = m_ContextStack->Top())
        m_CurrentFunction = caller->m_Function;
    if (ParserTree::Cell* cell = getResultVal(call))
        cell->value.Take(result);
    else if (function.isFunction)
        return {nullptr, false};
    return call->GetStepAfter();
}

ParserTree::Step ParserTree::Function::OnLeave(Node&, MacroParser& processor) {
    return processor.LeaveProcedure(*this);
}
