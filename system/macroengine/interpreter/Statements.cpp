// The simple statements. The operands have been computed into the children's cells.
//
//   0 call   1 Let   2 Set   3 Print   4 Input   5 Randomize   6 Close   7 Width   8 Erase

#include <SCL_Assert.h>

#include "interpreter/Appending.h"
#include "interpreter/FileStatements.h"
#include "interpreter/Leaves.h"
#include "interpreter/ScriptExecution.h"
#include "interpreter/Semantics.h"
#include "values/CopyOut.h"

using namespace semantics;

namespace {

enum StatementCode {
    stCall = 0,
    stLet = ParserTree::Statement::kLet,
    stSet = 2,
    stPrint = 3,
    stInput = 4,
    stRandomize = 5,
    stClose = 6,
    stWidth = 7,
    stErase = 8
};

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
    if (!processor.findResult(target) && target->Is(Kind::Object) && !target->GetFirstChild()) {
        UI_MacroVariantParam& variable = passedVariable(processor, target);
        if (LeadsToConstant(variable))
            refuseAssignment(processor, target);
        return variable;
    }
    UI_MacroVariant& value = operand(processor, target).value;
    if (value.GetType() == vvtFunction || LeadsToConstant(value))
        refuseAssignment(processor, target);
    if (value.GetType() == vvtReference && value.getRefVal())
        return *value.getRefVal();
    return value;
}

void assign(MacroParser& processor, Node& node) {
    Node* target = node.GetFirstChild();
    Cell& source = operand(processor, target->GetNextSibling());
    SYS_String kept;
    if (TakeKeptText(processor, target, kept))
        AppendToKept(assignmentTarget(processor, target), kept, source.value.GetStringVal());
    else
        assignmentTarget(processor, target).Assign(source.value);
}

void bindObject(MacroParser& processor, Node& node) {
    Node* target = node.GetFirstChild();
    Cell& source = operand(processor, target->GetNextSibling());
    UI_MacroVariant* object = source.value.getObject(false);
    assignmentTarget(processor, target).SetObjectRef(object ? *object : UI_MacroVariant::Nothing());
}

/// Carries out `array(index) = simple value` if nothing of it needs a visit.
bool storeElement(MacroParser& processor, Node* target, Node* source) {
    Leaf leaf;
    if (!target->Is(Kind::Object) || !isReadable(processor, source, leaf) ||
        processor.IsInEvaluation())
        return false;
    Scalar number;
    const UI_MacroVariant* text = nullptr;
    if (!leafNumber(source, leaf, number)) {
        text = leaf.element ? leaf.element : readScalar(*leaf.variable);
        if (!text || text->IsEmpty())
            return false;
    }
    UI_MacroVariant value;
    if (text)
        value = *text;
    else
        number.Store(value);
    auto* element = const_cast<UI_MacroVariant*>(leafElement<true>(processor, target));
    if (element)
        element->Take(value);
    return element != nullptr;
}

} // namespace

/// Enter: the target of an assignment to a plain variable is passed over, and an element that
/// takes a value at hand is written at once.
Step ParserTree::Statement::OnEnter(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    if (!first)
        return OnLeave(node, processor);
    if (code == stLet && targetVariable(processor, first)) {
        if (first->GetResult()->GetTop())
            processor.releaseResult(first); // a run that failed may have left a kept text
        return {first->GetNextSibling(), false};
    }
    if (code == stLet && storeElement(processor, first, first->GetNextSibling()))
        return node.GetStepAfter();
    return {first, false};
}

Step ParserTree::Statement::OnLeave(Node& node, MacroParser& processor) {
    if (code != stCall)
        refuseToWrite(processor);
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
        printToFile(node, processor);
        break;
    case stInput:
        inputFromFile(node, processor);
        break;
    case stClose:
        closeFiles(node, processor);
        break;
    case stWidth:
        setFileWidth(node, processor);
        break;
    }
    if (code != stCall)
        for (Node* child = first; child; child = child->GetNextSibling())
            processor.releaseResult(child);
    return node.GetStepAfter();
}
