#include "interpreter/Appending.h"

#include "interpreter/Leaves.h"

namespace semantics {

namespace {

using Name = ParserTree::NodeImpl<ParserTree::Object, false>;

/// The node of a name that stands for itself, without dot, arguments or index.
const Name* simpleName(Node* node) {
    if (!node->Is(Kind::Object) || node->GetFirstChild())
        return nullptr;
    const auto* name = static_cast<const Name*>(node);
    return name->hasDot ? nullptr : name;
}

/// The target of the assignment whose value begins with this join, if it is the name on the left.
Node* appendTarget(Node& join) {
    Node* left = join.GetFirstChild();
    const Name* name = left->Is(Kind::ObjectExec) ? simpleName(left->GetFirstChild()) : nullptr;
    if (!name)
        return nullptr;
    using Operator = ParserTree::NodeImpl<ParserTree::BinaryOp, false>;
    const int code = static_cast<Operator&>(join).code;
    Node* value = &join;
    Node* parent = value->GetParent();
    while (parent && parent->Is(Kind::BinaryOp) && parent->GetFirstChild() == value &&
           static_cast<Operator*>(parent)->code == code) {
        value = parent;
        parent = value->GetParent();
    }
    if (!parent || !parent->Is(Kind::Statement) ||
        static_cast<ParserTree::NodeImpl<ParserTree::Statement, true>*>(parent)->code !=
            ParserTree::Statement::kLet)
        return nullptr;
    Node* target = parent->GetFirstChild();
    const Name* assigned = target == value ? nullptr : simpleName(target);
    return assigned && assigned->interned == name->interned ? target : nullptr;
}

/// The variable behind a name if it holds text that may grow in place.
const UI_MacroVariant* textVariable(const UI_MacroVariant& variable) {
    const UI_MacroVariant* value = readScalar(variable);
    return value && value->GetType() == vvtString &&
                   value->GetRole() == UI_MacroVariant::Role::Variable
               ? value
               : nullptr;
}

} // namespace

bool KeepForAppending(MacroParser& processor, Node& join, ParserTree::ValueSlots& slots) {
    Node* target = appendTarget(join);
    Node* left = join.GetFirstChild();
    if (!target || processor.findResult(target) || processor.findResult(left))
        return false;
    const UI_MacroVariant* variable =
        textVariable(passedVariable(processor, left->GetFirstChild()));
    if (!variable)
        return false;
    const SYS_String kept = variable->GetStringVal(); // before the right operand is converted
    Cell& right = leafOperand(processor, left->GetNextSibling());
    right.value.SetStringVal(static_cast<SYS_String>(right.value));
    freshResult(processor, *target->GetResult()).SetExecScriptVal(kept);
    adopt(slots, right);
    return true;
}

bool TakeKeptText(MacroParser& processor, Node* target, SYS_String& kept) {
    Cell* cell = processor.findResult(target);
    if (!cell || cell->value.GetType() != vvtScript)
        return false;
    kept = cell->value.GetExecScriptVal();
    ExecutionContext::FreeCell(cell);
    return true;
}

void AppendToKept(UI_MacroVariant& variable, SYS_String& kept, const SYS_String& rest) {
    const UI_MacroVariant* text = textVariable(variable);
    if (text && text->GetStringVal().SharesTextWith(kept)) {
        kept.Clear();
        MacroVariantAccess::AppendText(const_cast<UI_MacroVariant&>(*text), rest);
    } else {
        kept += rest;
        variable.Assign(UI_MacroVariant(kept));
    }
}

} // namespace semantics
