// Control flow: what each statement's node says comes next.
//
//   If          condition, IfCond, condition, IfCond, ..., statements of Else
//   Select      selector, list, SelectCase, list, SelectCase, ..., statements of Case Else
//   ForStm      ForCond or ForeachCond, body, Next
//   DoLoop      [WhileCond], body, [WhileCond], Loop
//   WhileWend   WhileCond, body
//   With        expression, WithContext, body

#include <SCL_Assert.h>

#include "interpreter/ForEach.h"
#include "interpreter/Semantics.h"
#include "values/CopyOut.h"
#include "values/FastPath.h"

using namespace semantics;

namespace {

/// Reads a condition's cell and lets go of it.
bool takeCondition(MacroParser& processor, Node* node) {
    Cell& cell = operand(processor, node);
    const bool result = isTrue(cell.value);
    ExecutionContext::FreeCell(&cell);
    return result;
}

} // namespace

// --- If, Select --------------------------------------------------------------------------------

Step ParserTree::IfCond::OnEnter(Node& node, MacroParser& processor) {
    const bool holds = takeCondition(processor, node.GetPreviousSibling());
    if (!holds || !node.GetFirstChild())
        return node.GetStepAfter();
    return {node.GetFirstChild(), false};
}

Step ParserTree::IfCond::OnLeave(Node& node, MacroParser&) {
    return node.GetParent()->GetStepAfter();
}

Step ParserTree::SelectCase::OnEnter(Node& node, MacroParser& processor) {
    Node* select = node.GetParent();
    Cell& selector = operand(processor, select->GetFirstChild());
    Cell& list = operand(processor, node.GetPreviousSibling());
    bool matches = false;
    {
        const UI_MacroArray items = list.value.Arrval();
        for (int i = 0; i < items.GetCount() && !matches; ++i) {
            const UI_MacroVariant item(items.Data()[i]);
            matches = isTrue(item == selector.value);
        }
    }
    ExecutionContext::FreeCell(&list);
    if (!matches)
        return node.GetStepAfter();
    return node.GetFirstChild() ? Step{node.GetFirstChild(), false} : Step{select, true};
}

Step ParserTree::SelectCase::OnLeave(Node& node, MacroParser&) { return {node.GetParent(), true}; }

Step ParserTree::Select::OnLeave(Node& node, MacroParser& processor) {
    processor.releaseResult(node.GetFirstChild());
    return node.GetStepAfter();
}

// --- For ---------------------------------------------------------------------------------------

namespace {

UI_MacroVariantParam& loopVariable(MacroParser& processor, ParserTree::LoopVariable& loop) {
    UI_MacroVariantParam* variable =
        processor.getExecutionStackVar(loop.interned, loop.variable, loop.cachedIndex);
    if (!variable)
        processor.OnError(errInternal, SYS_String());
    if (variable->isConstant())
        processor.OnError(withDescription("Illegal assignment", loop.variable));
    return *variable;
}

/// A start, bound or step as it reads now.
UI_MacroVariant takeLoopOperand(MacroParser& processor, Node* node) {
    Cell& cell = operand(processor, node);
    UI_MacroVariant temp;
    UI_MacroVariant* value = temp.derefObject(cell.value).GetRVal();
    if (!value || value->GetType() == vvtEmpty || value->GetType() == vvtMissing)
        processor.OnError(errInternal, SYS_String());
    UI_MacroVariant copy(*value);
    ExecutionContext::FreeCell(&cell);
    return copy;
}

bool loopGoesOn(const UI_MacroVariant& variable, const UI_MacroVariant& bound,
                const UI_MacroVariant& step) {
    static const UI_MacroVariant zero;
    if (isTrue(step > zero))
        return isTrue(variable <= bound);
    return isTrue(variable >= bound);
}

/// Adds the step and tests the bound; false if the operands are no plain numbers.
bool advanceNumbers(UI_MacroVariantParam& variable, const UI_MacroVariant& bound,
                    const UI_MacroVariant& step, bool& goesOn) {
    using Access = MacroVariantAccess;
    const auto isNumber = [](const UI_MacroVariant& v) {
        return v.GetType() == vvtInteger || v.GetType() == vvtDouble;
    };
    if (!isNumber(variable) || !isNumber(bound) || !isNumber(step))
        return false;
    if (variable.GetType() == vvtInteger && step.GetType() == vvtInteger) {
        variable.SetIntVal(
            static_cast<__int64>(static_cast<unsigned long long>(Access::Integer(variable)) +
                                 static_cast<unsigned long long>(Access::Integer(step))));
    } else {
        variable.SetRealVal(Access::Number(variable) + Access::Number(step));
    }
    const double by = Access::Number(step);
    if (variable.GetType() == vvtInteger && bound.GetType() == vvtInteger) {
        const __int64 x = Access::Integer(variable);
        const __int64 y = Access::Integer(bound);
        goesOn = by > 0 ? x <= y : x >= y;
    } else {
        const double x = Access::Number(variable);
        const double y = Access::Number(bound);
        goesOn = by > 0 ? x <= y : x >= y;
    }
    return true;
}

} // namespace

Step ParserTree::ForCond::OnEnter(Node& node, MacroParser& processor) {
    refuseToWrite(processor);
    processor.releaseResult(&node); // an Exit may have left the last loop's bound behind
    return {node.GetFirstChild(), false};
}

/// Leave: first assign the start and keep bound and step in the own cell, later add the step.
Step ParserTree::ForCond::OnLeave(Node& node, MacroParser& processor) {
    UI_MacroVariantParam& variableSlot = loopVariable(processor, *this);
    UI_MacroVariant& state = ownResult(processor, *this);
    bool goesOn = false;
    if (state.GetType() != vvtArray) {
        Node* start = node.GetFirstChild();
        Node* bound = start->GetNextSibling();
        // The start is stored first: a bound that names the variable reads it.
        variableSlot.Assign(takeLoopOperand(processor, start));
        UI_MacroVariant last = takeLoopOperand(processor, bound);
        UI_MacroVariant by = takeLoopOperand(processor, bound->GetNextSibling());
        UI_MacroVariant* kept = MacroVariantAccess::MakeList(state, 2);
        kept[0].Take(last);
        kept[1].Take(by);
        goesOn = loopGoesOn(variableSlot, kept[0], kept[1]);
    } else {
        const UI_MacroVariant* kept = state.Arrval().Data();
        if (!advanceNumbers(variableSlot, kept[0], kept[1], goesOn)) {
            const UI_MacroVariant next = variableSlot + kept[1];
            variableSlot.Assign(next);
            goesOn = loopGoesOn(variableSlot, kept[0], kept[1]);
        }
    }
    if (goesOn)
        return node.GetStepAfter();
    processor.releaseResult(&node);
    return node.GetParent()->GetStepAfter();
}

Step ParserTree::ForeachCond::OnEnter(Node& node, MacroParser& processor) {
    refuseToWrite(processor);
    processor.releaseResult(&node);
    return {node.GetFirstChild(), false};
}

/// Leave: first make an enumerator and keep it in the own cell, then take the next item.
Step ParserTree::ForeachCond::OnLeave(Node& node, MacroParser& processor) {
    UI_MacroVariantParam& variableSlot = loopVariable(processor, *this);
    UI_MacroVariant& state = ownResult(processor, *this);
    if (state.GetType() != vvtUnknown) {
        Cell& collection = operand(processor, node.GetFirstChild());
        MakeEnumerator(processor, collection.value, state);
        ExecutionContext::FreeCell(&collection);
    }
    UI_MacroVariant item;
    if (NextItem(state, item)) {
        if (item.getObject(false))
            variableSlot.SetObjectRef(*item.getObject(false));
        else
            variableSlot.Assign(item);
        return node.GetStepAfter();
    }
    processor.releaseResult(&node);
    return node.GetParent()->GetStepAfter();
}

Step ParserTree::Next::OnEnter(Node& node, MacroParser&) {
    return {node.GetParent()->GetFirstChild(), true};
}

// --- While, Do ---------------------------------------------------------------------------------

Step ParserTree::While::OnLeave(Node& node, MacroParser&) { return {&node, false}; }

void ParserTree::DoLoop::OnAbandon(Node&, MacroParser&) {}

Step ParserTree::WhileCond::OnLeave(Node& node, MacroParser& processor) {
    if (takeCondition(processor, node.GetFirstChild()))
        return node.GetStepAfter();
    return node.GetParent()->GetStepAfter();
}

Step ParserTree::Loop::OnEnter(Node& node, MacroParser&) {
    return {node.GetParent()->GetFirstChild(), false};
}

// --- Exit, Stop --------------------------------------------------------------------------------

namespace {

constexpr int kTokenDo = 262;
constexpr int kTokenFor = 279;

Kind exitTarget(int token) {
    if (token == kTokenDo)
        return Kind::DoLoop;
    return token == kTokenFor ? Kind::ForStm : Kind::Function;
}

} // namespace

Step ParserTree::Exit::OnEnter(Node& node, MacroParser& processor) {
    const Kind wanted = exitTarget(token);
    for (Node* ancestor = node.GetParent(); ancestor; ancestor = ancestor->GetParent()) {
        if (ancestor->Is(wanted))
            return wanted == Kind::Function ? Step{ancestor, true} : ancestor->GetStepAfter();
        ancestor->Abandon(processor);
    }
    return {nullptr, false};
}

Step ParserTree::Stop::OnEnter(Node&, MacroParser& processor) {
    processor.SetExecutionMode(MacroSupport::emFinished);
    return {nullptr, false};
}

// --- With --------------------------------------------------------------------------------------

Step ParserTree::With::OnEnter(Node& node, MacroParser&) {
    if (isDialog) {
        SCL_ASSERT(nestedRuns == 0, "ParserTree::With: the block is running already");
        return node.GetStepAfter();
    }
    return node.GetFirstChild() ? Step{node.GetFirstChild(), false} : node.GetStepAfter();
}

Step ParserTree::With::OnLeave(Node& node, MacroParser& processor) {
    processor.WithEnd();
    if (isDialog && nestedRuns != 0)
        return {nullptr, false}; // ends the nested run of this block
    return node.GetStepAfter();
}

void ParserTree::With::OnAbandon(Node&, MacroParser& processor) {
    // Jumping out of a running dialog block would run the rest of the macro inside the dialog.
    if (nestedRuns != 0)
        processor.OnError(errIllegalNesting, SYS_String());
    processor.WithEnd();
}

void ParserTree::With::OnChanged(Node& node, MacroParser& processor) {
    for (ExecutionContext* frame = processor.GetFrames().Top(); frame; frame = frame->m_Below)
        for (ContextBlock* block = frame->m_TopBlock; block; block = block->below)
            if (block->kind == ContextBlock::kWith && block->node == &node)
                return;
    processor.OnError("With context is broken");
}

Step ParserTree::WithContext::OnEnter(Node& node, MacroParser& processor) {
    Node* parent = node.GetParent();
    if (!parent || !parent->Is(Kind::With))
        processor.OnError("Parser tree is broken");
    auto* with = static_cast<NodeImpl<ParserTree::With, true>*>(parent);
    Cell& cell = operand(processor, node.GetPreviousSibling());
    UI_MacroVariant* object = cell.value.getObject(false);
    if (!object)
        processor.OnError(withDescription("Object required", cell.value.DescribeVar()));
    const UI_MacroVariant kept = CopyOut(object);
    ExecutionContext::FreeCell(&cell);
    processor.MacroSupport::With(kept, with, with->isDialog);
    return node.GetStepAfter();
}
