#pragma once

// Operands that can be read without a visit of their own: number literals, and names that are
// plain variables. Reading them in place saves the steps and the cells of the common expressions;
// what a macro can observe stays the same, since a variable is read when its operator runs anyway.

#include "interpreter/Semantics.h"
#include "values/FastPath.h"

namespace semantics {

/// A number, or the Boolean result of a comparison.
struct Scalar {
    VariantValueType type = vvtEmpty;
    union {
        __int64 integer = 0;
        double real;
    };

    double AsReal() const { return type == vvtDouble ? real : static_cast<double>(integer); }
    void Store(UI_MacroVariant& out) const {
        if (type == vvtDouble)
            out.SetRealVal(real);
        else if (type == vvtInteger)
            out.SetIntVal(integer);
        else
            out.SetBoolVal(integer != 0);
    }
};

inline bool readNumber(const UI_MacroVariant& value, Scalar& out) {
    out.type = value.GetType();
    if (out.type == vvtInteger)
        out.integer = MacroVariantAccess::Integer(value);
    else if (out.type == vvtDouble)
        out.real = MacroVariantAccess::Real(value);
    else
        return false;
    return true;
}

/// The existing variable that a name stands for; null if the name may mean anything else.
inline UI_MacroVariantParam* plainVariable(MacroParser& processor, Node* node) {
    auto* object = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(node);
    if (!object->isPlainVariable || object->cachedNames != processor.GetNamesState())
        return nullptr;
    ExecutionContext* top = processor.GetFrames().Top();
    if (!top)
        return nullptr;
    if (UI_MacroVariantParam* local = top->m_Variables.Find(object->interned, object->cachedIndex))
        return local;
    ExecutionContext* bottom = processor.GetFrames().Bottom();
    return bottom == top ? nullptr
                         : bottom->m_Variables.Find(object->interned, object->cachedIndex);
}

/// Whether the node can be read in place; a variable is given along.
inline bool isLeaf(MacroParser& processor, Node* node, UI_MacroVariantParam*& variable) {
    if (node->Is(Kind::LongValue) || node->Is(Kind::DoubleValue))
        return true;
    if (!node->Is(Kind::ObjectExec))
        return false;
    variable = plainVariable(processor, node->GetFirstChild());
    return variable != nullptr;
}

/// The number that a leaf holds at this moment.
inline bool leafNumber(Node* node, const UI_MacroVariantParam* variable, Scalar& out) {
    if (node->Is(Kind::LongValue)) {
        out.type = vvtInteger;
        out.integer = static_cast<ParserTree::NodeImpl<ParserTree::LongValue, false>*>(node)->value;
        return true;
    }
    if (node->Is(Kind::DoubleValue)) {
        out.type = vvtDouble;
        out.real = static_cast<ParserTree::NodeImpl<ParserTree::DoubleValue, false>*>(node)->value;
        return true;
    }
    if (readNumber(*variable, out))
        return true;
    const UI_MacroVariant* value = readScalar(*variable);
    return value && readNumber(*value, out);
}

/// The cell of an operand; a leaf that was not visited gets one now.
inline Cell& leafOperand(MacroParser& processor, Node* node) {
    auto* slots = node->GetResult();
    Cell* cell = slots ? slots->GetTop() : nullptr;
    if (cell && cell->frame == processor.GetFrames().Top())
        return *cell;
    Cell& made = operand(processor, node);
    UI_MacroVariantParam* variable = nullptr;
    if (!isLeaf(processor, node, variable))
        return made;
    if (variable) {
        made.value.SetLValueVal(variable);
        return made;
    }
    Scalar number;
    leafNumber(node, nullptr, number);
    number.Store(made.value);
    return made;
}

} // namespace semantics
