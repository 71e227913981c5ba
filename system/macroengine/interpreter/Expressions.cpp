// Value nodes: each computes one value into its cell of the current frame.
//
//   literals            Enter  store the value
//   VariantList         Leave  a list of the children's values
//   BinaryOp, UnaryOp   Leave  combine the operands' cells (Enter: when both can be read in place)

#include <SCL_Assert.h>

#include "interpreter/Appending.h"
#include "interpreter/Leaves.h"
#include "interpreter/Semantics.h"
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

template <class T> bool compareNumbers(int code, T x, T y, Scalar& out) {
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
        return compareNumbers(code, x, y, out);
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
        return compareNumbers(code, x, y, out);
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
    constexpr double kExact = 9007199254740992.0; // integers below this are exact reals
    const double x = a.AsReal();
    const double y = b.AsReal();
    const bool whole = x > -kExact && x < kExact && y > -kExact && y < kExact &&
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
    Leaf left;
    Leaf right;
    if (!isReadable(processor, first, left))
        return {first, false};
    if (!isReadable(processor, second, right))
        return {left.element ? first : second, false};
    Scalar a;
    Scalar b;
    Scalar result;
    if (!leafNumber(first, left, a) || !leafNumber(second, right, b) ||
        !computeNumbers(code, a, b, result))
        return OnLeave(node, processor);
    result.Store(freshResult(processor, *this));
    return node.GetStepAfter();
}

Step ParserTree::BinaryOp::OnLeave(Node& node, MacroParser& processor) {
    if (code == opJoin && KeepForAppending(processor, node, *this))
        return node.GetStepAfter();
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
