// The simple statements. The operands have been computed into the children's cells.
//
//   0 call   1 Let   2 Set   3 Print   4 Input   5 Randomize   6 Close   7 Width   8 Erase

#include <SCL_Assert.h>

#include "interpreter/Leaves.h"
#include "interpreter/ScriptExecution.h"
#include "interpreter/Semantics.h"

using namespace semantics;

namespace {

enum StatementCode {
    stCall = 0,
    stLet = 1,
    stSet = 2,
    stPrint = 3,
    stInput = 4,
    stRandomize = 5,
    stClose = 6,
    stWidth = 7,
    stErase = 8
};

/// Whether a write through the value would end at a constant.
bool leadsToConstant(const UI_MacroVariant& value) {
    for (const UI_MacroVariant* v = &value; v;) {
        if (v->isConstant())
            return true;
        if (v->GetType() != vvtReference)
            return false;
        v = v->getRefVal();
    }
    return false;
}

void refuseAssignment(MacroParser& processor, Node* target) {
    SYS_String name;
    if (target->Is(Kind::Object))
        name = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(target)->name;
    processor.OnError(withDescription("Illegal assignment", name));
}

/// The plain variable that a target names, if it needs no visit.
UI_MacroVariantParam* targetVariable(MacroParser& processor, Node* target) {
    return target->Is(Kind::Object) && !target->GetFirstChild() ? plainVariable(processor, target)
                                                                : nullptr;
}

UI_MacroVariant& assignmentTarget(MacroParser& processor, Node* target) {
    if (!processor.findResult(target))
        if (UI_MacroVariantParam* variable = targetVariable(processor, target)) {
            if (leadsToConstant(*variable))
                refuseAssignment(processor, target);
            return *variable;
        }
    UI_MacroVariant& value = operand(processor, target).value;
    if (value.GetType() == vvtFunction || leadsToConstant(value))
        refuseAssignment(processor, target);
    if (value.GetType() == vvtReference && value.getRefVal())
        return *value.getRefVal();
    return value;
}

void assign(MacroParser& processor, Node& node) {
    Node* target = node.GetFirstChild();
    Cell& source = operand(processor, target->GetNextSibling());
    assignmentTarget(processor, target).Assign(source.value);
}

void bindObject(MacroParser& processor, Node& node) {
    Node* target = node.GetFirstChild();
    Cell& source = operand(processor, target->GetNextSibling());
    UI_MacroVariant* object = source.value.getObject(false);
    assignmentTarget(processor, target)
        .SetObjectRef(object ? *object : UI_MacroVariant::Nothing());
}

} // namespace

/// Enter: the target of an assignment to a plain variable is passed over.
Step ParserTree::Statement::OnEnter(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    if (!first)
        return OnLeave(node, processor);
    if (code == stLet && targetVariable(processor, first))
        return {first->GetNextSibling(), false};
    return {first, false};
}

Step ParserTree::Statement::OnLeave(Node& node, MacroParser& processor) {
    if (code != stCall && processor.GetExecutionMode() == MacroSupport::emEvalPure)
        processor.OnError(errInternal, SYS_String());
    Node* first = node.GetFirstChild();
    switch (static_cast<StatementCode>(code)) {
    case stCall:
        if (processor.IsInEvaluation())
            break; // the evaluation reads the cell
        if (Cell* cell = processor.findResult(first)) {
            const UI_MacroVariant* value = cell->value.GetRVal();
            if (value && value->IsExecScript() && !first->GetNextSibling())
                return StartScript(node, processor);
            ExecutionContext::FreeCell(cell);
        }
        break;
    case stLet:
        assign(processor, node);
        break;
    case stSet:
        bindObject(processor, node);
        break;
    case stErase:
        processor.OnErase(operand(processor, first).value);
        break;
    case stRandomize:
        processor.OnRandomize(&operand(processor, first).value);
        break;
    case stPrint:
    case stInput:
    case stClose:
    case stWidth:
        processor.OnError(errDisabledOperation, SYS_String());
        break;
    }
    if (code != stCall)
        for (Node* child = first; child; child = child->GetNextSibling())
            processor.releaseResult(child);
    return node.GetStepAfter();
}

Step ParserTree::OpenFile::OnLeave(Node& node, MacroParser& processor) {
    processor.OnError(errDisabledOperation, SYS_String());
    return node.GetStepAfter();
}
