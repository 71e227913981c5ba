// Names in expressions: variables, elements, members and calls.
//
//   Object              Leave  resolve the name; the value may still stand for a call
//   ObjectExec          Leave  carry the call out, or hand the value on

#include "interpreter/Leaves.h"
#include "interpreter/Semantics.h"
#include "values/CopyOut.h"
#include "values/FastPath.h"

using namespace semantics;

namespace {

/// The object of the innermost `With` of the running procedure.
UI_MacroVariant* withObject(MacroParser& processor) {
    ExecutionContext* frame = processor.GetFrames().Top();
    ContextBlock* block = frame ? frame->m_TopBlock : nullptr;
    while (block && block->kind != ContextBlock::kWith)
        block = block->below;
    UI_MacroVariant* object = block ? block->object.getObject(false) : nullptr;
    if (!object) {
        if (block && block->active && !processor.IsInEvaluation())
            throw pbNotHandled; // the dialog went away in the middle of its block
        processor.OnError(errInternal, SYS_String());
    }
    return object;
}

/// What the members of a dotted name belong to.
UI_MacroVariant* prefixObject(MacroParser& processor, UI_MacroVariant& prefix) {
    UI_MacroVariant* object = prefix.getObject(false);
    if (object)
        return object;
    if (prefix.GetType() == vvtReference && prefix.getRefVal() == nullptr)
        processor.OnError("Object required");
    processor.OnError(withDescription("Object required", prefix.DescribeVar()));
    return nullptr;
}

/// Whether nothing but operators, literals, variables and elements stands below the node.
bool isHarmless(MacroParser& processor, Node* root) {
    for (Node* at = root;;) {
        if (at->Is(Kind::Object)) {
            auto* object = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(at);
            if (!object->IsOwnVariable(*at, processor))
                return false;
        }
        if (at->GetFirstChild()) {
            at = at->GetFirstChild();
            continue;
        }
        while (at != root && !at->GetNextSibling())
            at = at->GetParent();
        if (at == root)
            return true;
        at = at->GetNextSibling();
    }
}

/// Whether the element may be taken as a value instead of a Reference to it. A Reference needs an
/// array of its own, so a shared one would be copied for nothing.
bool mayReadElement(MacroParser& processor, Node& exec, const UI_MacroVariant& array) {
    if (isOnlyRead(exec))
        return true;
    return array.Arrval().IsShared() && exec.Is(Kind::ObjectExec) &&
           exec.GetParent()->Is(Kind::BinaryOp) && isHarmless(processor, exec.GetNextSibling());
}

/// The simple element that computed indices select, without a Reference to it.
const UI_MacroVariant* readElement(const UI_MacroVariant& array, UI_MacroVariant* args, int argc) {
    return selectElement<false>(array, argc, [&](int& index) {
        const UI_MacroVariant* value = readScalar(args[--argc]);
        Scalar number;
        return value && readNumber(*value, number) && toIndex(number, index);
    });
}

} // namespace

void ParserTree::Object::learn(Node& node, MacroParser& processor) {
    procedure = nullptr;
    isOwnName = processor.IsOwnName(interned, procedure);
    builtIn = processor.FindBuiltIn(interned);
    isPlainVariable = isOwnName && !procedure && !isCall && !node.GetFirstChild();
    cachedNames = processor.GetNamesState();
}

bool ParserTree::Object::IsOwnVariable(Node& node, MacroParser& processor) {
    const Node* child = node.GetFirstChild();
    if (hasDot || (child && child->Is(Kind::ObjectExec)))
        return false; // a member
    if (cachedNames != processor.GetNamesState())
        learn(node, processor);
    return isOwnName && !procedure;
}

/// A name that is a procedure or a variable: the call, the variable, or its element.
Step ParserTree::Object::resolveOwnName(Node& node, MacroParser& processor, Cell* list) {
    if (const FunctionTableItem* called =
            processor.CalledProcedure(procedure, interned, list || isCall, cachedIndex)) {
        UI_MacroVariant& call = freshResult(processor, *this);
        call.SetFunctionRefVal(called->GetDeclaration()->name, &processor);
        if (list)
            MacroVariantAccess::AdoptArguments(call, list->value);
    } else {
        UI_MacroVariantParam* variable =
            processor.getExecutionStackVar(interned, name, cachedIndex);
        if (!variable)
            processor.OnError(errInternal, SYS_String());
        const int argc = list ? list->value.Arrval().GetCount() : 0;
        if (argc == 0 && !isCall) {
            freshResult(processor, *this).SetLValueVal(variable);
        } else {
            UI_MacroVariant* args =
                argc ? list->value.Arrval().WritableData() : &UI_MacroVariant::Null();
            const UI_MacroVariant* array = argc ? readArray(*variable) : nullptr;
            const UI_MacroVariant* element =
                array && mayReadElement(processor, *node.GetParent(), *array)
                    ? readElement(*array, args, argc)
                    : nullptr;
            UI_MacroVariant result =
                element ? UI_MacroVariant(*element)
                        : processor.evaluateDeref(
                              UI_MacroVariant(static_cast<UI_MacroVariant*>(variable)), name, args,
                              argc, isCall);
            freshResult(processor, *this).Take(result);
        }
    }
    if (list)
        ExecutionContext::FreeCell(list);
    return node.GetStepAfter();
}

/// Leave: 1 prefix and argument list, 2 scope, 3 property check of a watch, 4 call, 5 store.
Step ParserTree::Object::OnLeave(Node& node, MacroParser& processor) {
    Node* child = node.GetFirstChild();
    Node* prefix = child && child->Is(Kind::ObjectExec) ? child : nullptr;
    Node* list = prefix ? prefix->GetNextSibling() : child;
    Cell* prefixCell = prefix ? &operand(processor, prefix) : nullptr;
    Cell* listCell = list ? &operand(processor, list) : nullptr;
    if (!prefix && !hasDot) {
        if (cachedNames != processor.GetNamesState())
            learn(node, processor);
        if (isOwnName)
            return resolveOwnName(node, processor, listCell);
        if (builtIn) {
            UI_MacroVariant call(builtIn);
            if (listCell) {
                MacroVariantAccess::AdoptArguments(call, listCell->value);
                ExecutionContext::FreeCell(listCell);
            }
            freshResult(processor, *this).Take(call);
            return node.GetStepAfter();
        }
    }

    UI_MacroVariant* args = nullptr;
    int argc = 0;
    if (listCell) {
        UI_MacroArray& array = listCell->value.Arrval();
        argc = array.GetCount();
        args = argc ? array.WritableData() : &UI_MacroVariant::Null();
    }

    UI_MacroVariant result;
    if (name.IsEmpty() && prefixCell) {
        result = processor.evaluateDeref(prefixCell->value, name, args, argc, false);
    } else if (!prefixCell && !hasDot) {
        result = processor.evaluate(interned, name, args, argc, isCall);
    } else {
        UI_MacroVariant* scope =
            prefixCell ? prefixObject(processor, prefixCell->value) : withObject(processor);
        if (processor.GetExecutionMode() == MacroSupport::emEvalPure &&
            !scope->IsPropertyGet(name) && !scope->SetToPropertyGet())
            processor.OnError(errInternal, SYS_String());
        result = scope->Evaluate(name, args, argc);
    }
    if (listCell)
        ExecutionContext::FreeCell(listCell);
    freshResult(processor, *this).Take(result);
    if (prefixCell)
        ExecutionContext::FreeCell(prefixCell);
    return node.GetStepAfter();
}

/// Enter: a plain variable, or an element that is only read, is taken without a visit to its name.
Step ParserTree::ObjectExec::OnEnter(Node& node, MacroParser& processor) {
    Node* child = node.GetFirstChild();
    if (child->GetFirstChild() && isOnlyRead(node))
        if (const UI_MacroVariant* element = leafElement<false>(processor, child)) {
            freshResult(processor, *this) = *element;
            return node.GetStepAfter();
        }
    if (UI_MacroVariantParam* variable = plainVariable(processor, child)) {
        freshResult(processor, *this).SetLValueVal(variable);
        return node.GetStepAfter();
    }
    return {child, false};
}

namespace {

/// The procedure that the called name is known to mean, if it still does.
const FunctionTableItem* knownProcedure(MacroParser& processor, Node& exec) {
    auto* object =
        static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(exec.GetFirstChild());
    return object->cachedNames == processor.GetNamesState() ? object->procedure : nullptr;
}

} // namespace

Step ParserTree::ObjectExec::OnLeave(Node& node, MacroParser& processor) {
    Cell& cell = operand(processor, node.GetFirstChild());
    UI_MacroVariant& value = cell.value;
    switch (value.GetType()) {
    case vvtReference: {
        UI_MacroVariant* target = value.getRefVal();
        if (target && target->GetRole() == UI_MacroVariant::Role::Variable)
            break;
        value.InitRVal();
        target = value.getRefVal();
        if (!target || target->GetRole() == UI_MacroVariant::Role::Plain) {
            UI_MacroVariant copy = CopyOut(value.GetRVal());
            value.Take(copy);
        }
        break;
    }
    case vvtFunction:
        if (!value.GetFunctionHandler())
            return processor.EnterProcedure(node, cell, knownProcedure(processor, node));
        {
            UI_MacroVariant result = value.Evaluate(nullptr, nullptr, 0);
            value.Take(result);
        }
        break;
    case vvtObject:
        if (processor.GetExecutionMode() == MacroSupport::emEvalPure)
            value.SetToPropertyGet();
        if (value.GetWFlags() != 0)
            MacroVariantAccess::Invoke(value);
        break;
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        break;
    }
    adopt(*this, cell);
    return node.GetStepAfter();
}
