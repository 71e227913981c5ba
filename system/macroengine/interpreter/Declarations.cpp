// Dim, ReDim, Const and Erase at run time. The parser has declared the names.

#include <SCL_Assert.h>

#include "interpreter/Semantics.h"
#include "values/CopyOut.h"

using namespace semantics;

namespace {

int takeBound(MacroParser& processor, Node* node) {
    Cell& cell = operand(processor, node);
    const int bound = static_cast<int>(cell.value);
    ExecutionContext::FreeCell(&cell);
    return bound;
}

} // namespace

Step ParserTree::Result<_ArraySubscript>::OnLeave(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    Node* second = first->GetNextSibling();
    value.lower = second ? takeBound(processor, first) : 0;
    value.upper = takeBound(processor, second ? second : first);
    if (value.lower > value.upper)
        processor.OnError(errInvalidBounds, SYS_String());
    return node.GetStepAfter();
}

Step ParserTree::Result<SCC_Array<_ArraySubscript>>::OnLeave(Node& node, MacroParser&) {
    value.Clear();
    for (Node* child = node.GetFirstChild(); child; child = child->GetNextSibling()) {
        SCL_ASSERT(child->Is(Kind::Subscript), "ParserTree: a subscript is expected");
        value.Append(static_cast<NodeImpl<Result<_ArraySubscript>, false>*>(child)->value);
    }
    return node.GetStepAfter();
}

Step ParserTree::ArrRedecl::OnLeave(Node& node, MacroParser&) {
    subscripts.Clear();
    for (Node* child = node.GetFirstChild(); child; child = child->GetNextSibling()) {
        if (child->Is(Kind::SubscriptList))
            subscripts =
                static_cast<NodeImpl<Result<SCC_Array<_ArraySubscript>>, false>*>(child)->value;
        else if (child->Is(Kind::Subscript))
            subscripts.Append(static_cast<NodeImpl<Result<_ArraySubscript>, false>*>(child)->value);
    }
    return node.GetStepAfter();
}

Step ParserTree::Result<SCC_Array<_ArrayDecl>>::OnLeave(Node& node, MacroParser&) {
    value.Clear();
    for (Node* child = node.GetFirstChild(); child; child = child->GetNextSibling()) {
        SCL_ASSERT(child->Is(Kind::ArrRedecl), "ParserTree: an array declaration is expected");
        auto* item = static_cast<NodeImpl<ArrRedecl, false>*>(child);
        _ArrayDecl row;
        row.name = item->name;
        row.subscripts = &item->subscripts;
        value.Append(row);
    }
    return node.GetStepAfter();
}

Step ParserTree::VarDecl::OnLeave(Node& node, MacroParser& processor) {
    Node* child = node.GetFirstChild();
    if (!child)
        return node.GetStepAfter();
    refuseToWrite(processor);
    SCL_ASSERT(child->Is(Kind::SubscriptList), "ParserTree: a list of subscripts is expected");
    UI_MacroVariant* variable = processor.RegisterVar(SYS_StrNoCase(name));
    if (!variable)
        return {nullptr, false};
    auto* list = static_cast<NodeImpl<Result<SCC_Array<_ArraySubscript>>, false>*>(child);
    MacroVariantArraySupport::CreateArray(variable, list->value, false);
    return node.GetStepAfter();
}

/// Leave: reshape each array; a name that does not exist yet becomes a dynamic array.
/// `Preserve` is accepted and keeps nothing.
Step ParserTree::Redim::OnLeave(Node& node, MacroParser& processor) {
    refuseToWrite(processor);
    Node* child = node.GetFirstChild();
    if (!child || !child->Is(Kind::ArrRedeclList))
        processor.OnError(errInternal, SYS_String());
    auto* list = static_cast<NodeImpl<Result<SCC_Array<_ArrayDecl>>, false>*>(child);
    for (const _ArrayDecl& row : std::as_const(list->value)) {
        const SYS_StrNoCase key(row.name);
        if (processor.LookupVar(key)) {
            UI_MacroVariant value = processor.Evaluate(row.name, nullptr, 0);
            UI_MacroVariant* target = value.GetType() == vvtReference ? value.GetRVal() : &value;
            if (target)
                MacroVariantArraySupport::ReCreateArray(target, *row.subscripts, false);
        } else if (UI_MacroVariant* variable = processor.RegisterVar(key)) {
            MacroVariantArraySupport::CreateArray(variable, *row.subscripts, true);
        }
    }
    return node.GetStepAfter();
}

Step ParserTree::Const::OnLeave(Node& node, MacroParser& processor) {
    refuseToWrite(processor);
    for (const ConstItem& item : items) {
        Cell* cell = processor.getResultVal(item.value);
        UI_MacroVariant* variable = processor.RegisterVar(SYS_StrNoCase(item.name));
        if (!cell || !variable)
            processor.OnError(errInternal, SYS_String());
        if (!variable->isConstant()) {
            *variable = CopyOut(cell->value.GetRVal());
            variable->SetConstant(true);
        }
        ExecutionContext::FreeCell(cell);
    }
    return node.GetStepAfter();
}

void MacroSupport::OnErase(UI_MacroVariant& value) {
    UI_MacroVariant* body = value.GetType() == vvtReference ? value.getBody() : nullptr;
    if (!body || body->GetType() != vvtArray) {
        OnError(errUnknownArray, SYS_String());
        return;
    }
    if (body->GetArrayType() != ArrayFixed) {
        body->Clear();
        return;
    }
    // The shape stays; each innermost element becomes Empty.
    const int dimensions = body->GetArrNumDims();
    if (dimensions < 1)
        return;
    SCC_Array<long> index;
    index.SetSize(dimensions);
    long* at = index.WritableData();
    body->resetMultiArrayInx(at);
    while (UI_MacroVariant* element = body->nextMultiArrayVal(at))
        element->Clear();
}
