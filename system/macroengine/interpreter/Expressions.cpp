// Value nodes: each computes one value into its cell of the current frame.
//
//   literals            Enter  store the value
//   VariantList         Leave  a list of the children's values
//   BinaryOp, UnaryOp   Leave  combine the operands' cells (Enter: when both can be read in place)
//   Object              Leave  resolve the name; the value may still stand for a call
//   ObjectExec          Leave  carry the call out, or hand the value on

#include <Automation.h>
#include <SCL_Assert.h>

#include <cmath>

#include "engine/TypeLibrary.h"
#include "interpreter/Leaves.h"
#include "interpreter/Semantics.h"
#include "runtime/FunctionTable.h"
#include "values/CopyOut.h"
#include "values/FastPath.h"

using namespace semantics;

SYS_String semantics::withDescription(const char* text, const SYS_String& description) {
    SYS_String message = text;
    if (description.IsEmpty())
        return message;
    message += ": '";
    message += description;
    message += "'";
    return message;
}

// --- Literals ----------------------------------------------------------------------------------

Step ParserTree::LongValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this).SetIntVal(value);
    return node.GetStepAfter();
}

Step ParserTree::DoubleValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this).SetRealVal(value);
    return node.GetStepAfter();
}

Step ParserTree::StringValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this).SetStringVal(value);
    return node.GetStepAfter();
}

Step ParserTree::BoolValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this).SetBoolVal(value);
    return node.GetStepAfter();
}

Step ParserTree::FunctionValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this) = UI_MacroVariant(handler);
    return node.GetStepAfter();
}

Step ParserTree::MissingValue::OnEnter(Node& node, MacroParser& processor) {
    freshResult(processor, *this).SetType(vvtMissing);
    return node.GetStepAfter();
}

// --- Lists -------------------------------------------------------------------------------------

Step ParserTree::VariantList::OnLeave(Node& node, MacroParser& processor) {
    int count = 0;
    for (Node* child = node.GetFirstChild(); child; child = child->GetNextSibling())
        ++count;
    UI_MacroVariant& list = ownResult(processor, *this);
    UI_MacroVariant* element = MacroVariantAccess::MakeList(list, count);
    for (Node* child = node.GetFirstChild(); child; child = child->GetNextSibling()) {
        Cell& cell = operand(processor, child);
        (element++)->Take(cell.value);
        ExecutionContext::FreeCell(&cell);
    }
    return node.GetStepAfter();
}

Step ParserTree::VariantValList::OnLeave(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    Cell& function = operand(processor, first);
    UI_MacroArray arguments;
    for (Node* child = first->GetNextSibling(); child; child = child->GetNextSibling()) {
        Cell& cell = operand(processor, child);
        arguments.Append(cell.value);
        ExecutionContext::FreeCell(&cell);
    }
    MacroVariantAccess::SetArguments(function.value, arguments.WritableData(),
                                     arguments.GetCount());
    adopt(*this, function);
    return node.GetStepAfter();
}

// --- Operators ---------------------------------------------------------------------------------

namespace {

enum BinaryCode {
    opAdd = 0,
    opJoin = 1,
    opSubtract = 2,
    opMultiply = 3,
    opDivide = 4,
    opPower = 5,
    opMod = 6,
    opIntDivide = 7,
    opEqual = 8,
    opNotEqual = 9,
    opLessEqual = 10,
    opLess = 11,
    opGreaterEqual = 12,
    opGreater = 13,
    opOr = 16,
    opAnd = 19,
    opXor = 22,
    opImp = 25,
    opEqv = 28,
    opIs = 29
};

UI_MacroVariant& objectOperand(MacroParser& processor, UI_MacroVariant& value) {
    UI_MacroVariant* object = value.getObject(true);
    if (!object)
        processor.OnError(withDescription("Object required", value.DescribeVar()));
    return *object;
}

/// Joins two texts; the left one grows in place when nothing else shares it.
void join(UI_MacroVariant& left, UI_MacroVariant& right) {
    SYS_String text = static_cast<SYS_String>(left);
    left.Clear();
    const UI_MacroVariant* tail = readScalar(right);
    if (tail && tail->GetType() == vvtString)
        text += tail->GetStringVal();
    else
        text += static_cast<SYS_String>(right);
    left.SetStringVal(std::move(text));
}

/// Both operands converted to real and rounded, then the 64-bit remainder.
UI_MacroVariant modulo(UI_MacroVariant& left, UI_MacroVariant& right) {
    const double a = static_cast<double>(left);
    const double b = static_cast<double>(right);
    return UI_MacroVariant(a) % UI_MacroVariant(b);
}

UI_MacroVariant compute(MacroParser& processor, int code, UI_MacroVariant& left,
                        UI_MacroVariant& right) {
    switch (static_cast<BinaryCode>(code)) {
    case opAdd:
        return left + right;
    case opJoin:
        break; // done in place
    case opSubtract:
        return left - right;
    case opMultiply:
        return left * right;
    case opDivide:
        return left / right;
    case opPower:
        return left.Power(right);
    case opMod:
        return modulo(left, right);
    case opIntDivide:
        return left.IntDiv(right);
    case opEqual:
    case opEqv:
        return left == right;
    case opNotEqual:
        return left != right;
    case opLessEqual:
        return left <= right;
    case opLess:
        return left < right;
    case opGreaterEqual:
        return left >= right;
    case opGreater:
        return left > right;
    case opOr:
        return left | right;
    case opAnd:
        return left & right;
    case opXor:
        return left ^ right;
    case opImp:
        return ~left | right;
    case opIs: {
        UI_MacroVariant& a = objectOperand(processor, left);
        return UI_MacroVariant(a.IsObjectSame(objectOperand(processor, right)));
    }
    }
    SCL_ASSERT(false, "ParserTree::BinaryOp: unknown operator");
    return UI_MacroVariant();
}

bool computeIntegers(int code, __int64 x, __int64 y, Scalar& out) {
    const auto ux = static_cast<unsigned long long>(x);
    const auto uy = static_cast<unsigned long long>(y);
    out.type = vvtInteger;
    switch (code) {
    case opAdd:
        out.integer = static_cast<__int64>(ux + uy);
        return true;
    case opSubtract:
        out.integer = static_cast<__int64>(ux - uy);
        return true;
    case opMultiply:
        out.integer = static_cast<__int64>(ux * uy);
        return true;
    default:
        break;
    }
    out.type = vvtBoolean;
    switch (code) {
    case opEqual:
    case opEqv:
        out.integer = x == y;
        return true;
    case opNotEqual:
        out.integer = x != y;
        return true;
    case opLess:
        out.integer = x < y;
        return true;
    case opLessEqual:
        out.integer = x <= y;
        return true;
    case opGreater:
        out.integer = x > y;
        return true;
    case opGreaterEqual:
        out.integer = x >= y;
        return true;
    default:
        return false;
    }
}

bool computeReals(int code, double x, double y, Scalar& out) {
    out.type = vvtDouble;
    switch (code) {
    case opAdd:
        out.real = x + y;
        return true;
    case opSubtract:
        out.real = x - y;
        return true;
    case opMultiply:
        out.real = x * y;
        return true;
    default:
        break;
    }
    out.type = vvtBoolean;
    switch (code) {
    case opEqual:
    case opEqv:
        out.integer = x == y;
        return true;
    case opNotEqual:
        out.integer = x != y;
        return true;
    case opLess:
        out.integer = x < y;
        return true;
    case opLessEqual:
        out.integer = x <= y;
        return true;
    case opGreater:
        out.integer = x > y;
        return true;
    case opGreaterEqual:
        out.integer = x >= y;
        return true;
    default:
        return false;
    }
}

/// Division of numbers that need no rounding and can neither fail nor wrap.
bool divideNumbers(int code, const Scalar& a, const Scalar& b, Scalar& out) {
    if (code == opDivide) {
        out.type = vvtDouble;
        out.real = a.AsReal() / b.AsReal();
        return true;
    }
    if (code != opMod && code != opIntDivide)
        return false;
    constexpr double kExact = 9007199254740992.0; // integers up to here are exact reals
    const double x = a.AsReal();
    const double y = b.AsReal();
    const bool whole = x >= -kExact && x <= kExact && y >= -kExact && y <= kExact &&
                       x == static_cast<double>(static_cast<__int64>(x)) &&
                       y == static_cast<double>(static_cast<__int64>(y));
    if (!whole || y == 0)
        return false;
    out.type = vvtInteger;
    const auto dividend = static_cast<__int64>(x);
    const auto divisor = static_cast<__int64>(y);
    out.integer = code == opMod ? dividend % divisor : dividend / divisor;
    return true;
}

/// Numbers on both sides, the common case. False leaves the work to the value operators.
bool computeNumbers(int code, const Scalar& a, const Scalar& b, Scalar& out) {
    if (code == opDivide || code == opMod || code == opIntDivide)
        return divideNumbers(code, a, b, out);
    if (a.type == vvtInteger && b.type == vvtInteger)
        return computeIntegers(code, a.integer, b.integer, out);
    return computeReals(code, a.AsReal(), b.AsReal(), out);
}

} // namespace

/// Enter: compute at once if both operands are leaves; pass over a left one.
Step ParserTree::BinaryOp::OnEnter(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    Node* second = first->GetNextSibling();
    UI_MacroVariantParam* leftVariable = nullptr;
    UI_MacroVariantParam* rightVariable = nullptr;
    if (!isLeaf(processor, first, leftVariable))
        return {first, false};
    if (!isLeaf(processor, second, rightVariable))
        return {second, false};
    Scalar a;
    Scalar b;
    Scalar result;
    if (!leafNumber(first, leftVariable, a) || !leafNumber(second, rightVariable, b) ||
        !computeNumbers(code, a, b, result))
        return OnLeave(node, processor);
    result.Store(freshResult(processor, *this));
    return node.GetStepAfter();
}

Step ParserTree::BinaryOp::OnLeave(Node& node, MacroParser& processor) {
    Node* first = node.GetFirstChild();
    Cell& left = leafOperand(processor, first);
    Cell& right = leafOperand(processor, first->GetNextSibling());
    const UI_MacroVariant* a = readScalar(left.value);
    const UI_MacroVariant* b = a ? readScalar(right.value) : nullptr;
    Scalar x;
    Scalar y;
    Scalar result;
    if (b && readNumber(*a, x) && readNumber(*b, y) && computeNumbers(code, x, y, result)) {
        left.value.Clear();
        result.Store(left.value);
    } else if (code == opJoin) {
        join(left.value, right.value);
    } else {
        UI_MacroVariant value = compute(processor, code, left.value, right.value);
        left.value.Take(value);
    }
    ExecutionContext::FreeCell(&right);
    adopt(*this, left);
    return node.GetStepAfter();
}

Step ParserTree::UnaryOp::OnLeave(Node& node, MacroParser& processor) {
    Cell& cell = operand(processor, node.GetFirstChild());
    UI_MacroVariant result;
    switch (code) {
    case 0:
        result = -cell.value;
        break;
    case 1:
        result = cell.value == UI_MacroVariant(false);
        break;
    case 2:
        result = ~cell.value;
        break;
    case 3:
        result.SetBoolVal(!isTrue(cell.value));
        break;
    default:
        SCL_ASSERT(false, "ParserTree::UnaryOp: unknown operator");
    }
    cell.value.Take(result);
    adopt(*this, cell);
    return node.GetStepAfter();
}

// --- Names -------------------------------------------------------------------------------------

namespace {

/// The object of the innermost `With` of the running procedure.
UI_MacroVariant* withObject(MacroParser& processor) {
    ExecutionContext* frame = processor.GetFrames().Top();
    ContextBlock* block = frame ? frame->m_TopBlock : nullptr;
    while (block && block->kind != ContextBlock::kWith)
        block = block->below;
    UI_MacroVariant* object = block ? block->object.getObject(false) : nullptr;
    if (!object) {
        if (block && block->active)
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

} // namespace

/// Leave: 1 prefix and argument list, 2 scope, 3 property check of a watch, 4 call, 5 store.
Step ParserTree::Object::OnLeave(Node& node, MacroParser& processor) {
    Node* child = node.GetFirstChild();
    if (!child && isPlainVariable && cachedNames == processor.GetNamesState()) {
        UI_MacroVariantParam* variable =
            processor.getExecutionStackVar(interned, name, cachedIndex);
        if (!variable)
            processor.OnError(errInternal, SYS_String());
        freshResult(processor, *this).SetLValueVal(variable);
        return node.GetStepAfter();
    }
    Node* prefix = child && child->Is(Kind::ObjectExec) ? child : nullptr;
    Node* list = prefix ? prefix->GetNextSibling() : child;
    Cell* prefixCell = prefix ? &operand(processor, prefix) : nullptr;
    Cell* listCell = list ? &operand(processor, list) : nullptr;

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
        isPlainVariable = !child && !isCall && processor.IsPlainVariable(interned);
        cachedNames = processor.GetNamesState();
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

/// Enter: a plain variable is taken without a visit to its name.
Step ParserTree::ObjectExec::OnEnter(Node& node, MacroParser& processor) {
    Node* child = node.GetFirstChild();
    if (UI_MacroVariantParam* variable = plainVariable(processor, child)) {
        freshResult(processor, *this).SetLValueVal(variable);
        return node.GetStepAfter();
    }
    return {child, false};
}

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
            return processor.EnterProcedure(node, cell);
        if (processor.GetExecutionMode() == MacroSupport::emEvalPure &&
            IsMacroAction(value.GetFunctionHandler()))
            processor.OnError(errInternal, SYS_String());
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
