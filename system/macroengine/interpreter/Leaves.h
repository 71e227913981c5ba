#pragma once

// Operands that can be read without a visit of their own: number literals, and names that are
// plain variables. Reading them in place saves the steps and the cells of the common expressions;
// what a macro can observe stays the same, since a variable is read when its operator runs anyway.

#include <utility>

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

/// The variable of a name where the running procedure sees it, null if there is none yet.
inline UI_MacroVariantParam* findVariable(MacroParser& processor, ParserTree::Object& object) {
    ExecutionContext* top = processor.GetFrames().Top();
    if (!top)
        return nullptr;
    if (UI_MacroVariantParam* local = top->m_Variables.Find(object.interned, object.cachedIndex))
        return local;
    ExecutionContext* bottom = processor.GetFrames().Bottom();
    return bottom == top ? nullptr
                         : bottom->m_Variables.Find(object.interned, object.cachedIndex);
}

/// The existing variable that a name stands for; null if the name may mean anything else.
inline UI_MacroVariantParam* plainVariable(MacroParser& processor, Node* node) {
    auto* object = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(node);
    if (!object->isPlainVariable || object->cachedNames != processor.GetNamesState())
        return nullptr;
    return findVariable(processor, *object);
}

/// A number as an index; false if it needs rounding or cutting.
inline bool toIndex(const Scalar& number, int& index) {
    if (number.type == vvtInteger) {
        index = static_cast<int>(number.integer);
        return index == number.integer;
    }
    if (!(number.real > -2147483649.0 && number.real < 2147483648.0))
        return false;
    index = static_cast<int>(number.real);
    return index == number.real;
}

/// What a node stands for that can be read in place: a literal if both are null.
struct Leaf {
    UI_MacroVariantParam* variable = nullptr;
    const UI_MacroVariant* element = nullptr;
};

/// A literal, or a name that is a plain variable.
inline bool isLeaf(MacroParser& processor, Node* node, Leaf& leaf) {
    if (node->Is(Kind::LongValue) || node->Is(Kind::DoubleValue))
        return true;
    if (!node->Is(Kind::ObjectExec))
        return false;
    leaf.variable = plainVariable(processor, node->GetFirstChild());
    return leaf.variable != nullptr;
}

/// The number that a leaf holds at this moment.
inline bool leafNumber(Node* node, const Leaf& leaf, Scalar& out) {
    if (leaf.element)
        return readNumber(*leaf.element, out);
    if (leaf.variable) {
        if (readNumber(*leaf.variable, out))
            return true;
        const UI_MacroVariant* value = readScalar(*leaf.variable);
        return value && readNumber(*value, out);
    }
    if (node->Is(Kind::LongValue)) {
        out.type = vvtInteger;
        out.integer = static_cast<ParserTree::NodeImpl<ParserTree::LongValue, false>*>(node)->value;
        return true;
    }
    out.type = vvtDouble;
    out.real = static_cast<ParserTree::NodeImpl<ParserTree::DoubleValue, false>*>(node)->value;
    return true;
}

/// The simple element that a name with indices stands for, if all indices are leaves.
template <bool ForWriting>
const UI_MacroVariant* leafElement(MacroParser& processor, Node* node) {
    auto* object = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(node);
    Node* list = node->GetFirstChild();
    if (!list || !object->isOwnName || object->procedure || object->isCall ||
        object->cachedNames != processor.GetNamesState())
        return nullptr;
    const UI_MacroVariantParam* variable = findVariable(processor, *object);
    const UI_MacroVariant* array = variable ? readArray(*variable) : nullptr;
    if (!array)
        return nullptr;
    int count = 0;
    for (Node* child = list->GetFirstChild(); child; child = child->GetNextSibling())
        ++count;
    Node* child = list->GetLastChild();
    return selectElement<ForWriting>(*array, count, [&](int& index) {
        Leaf leaf;
        Scalar number;
        Node* const at = std::exchange(child, child->GetPreviousSibling());
        return isLeaf(processor, at, leaf) && leafNumber(at, leaf, number) &&
               toIndex(number, index);
    });
}

/// A leaf, or an element whose indices are leaves. The indices are read now: nothing that could
/// change them may run before the element is read.
inline bool isReadable(MacroParser& processor, Node* node, Leaf& leaf) {
    if (isLeaf(processor, node, leaf))
        return true;
    if (node->Is(Kind::ObjectExec))
        leaf.element = leafElement<false>(processor, node->GetFirstChild());
    return leaf.element != nullptr;
}

/// Whether a call's value is consumed as soon as it is there, and in no way but reading.
inline bool isOnlyRead(Node& exec) {
    Node* parent = exec.GetParent();
    if (!exec.Is(Kind::ObjectExec) || !parent || exec.GetNextSibling())
        return false;
    if (parent->Is(Kind::BinaryOp) || parent->Is(Kind::UnaryOp))
        return true;
    return parent->Is(Kind::Statement) && exec.GetPreviousSibling() &&
           static_cast<ParserTree::NodeImpl<ParserTree::Statement, true>*>(parent)->code ==
               ParserTree::Statement::kLet;
}

/// The variable of a name that was passed over. It was one when it was passed over, whatever has
/// become of the tables of names since. Raises: 46 without a frame.
inline UI_MacroVariantParam& passedVariable(MacroParser& processor, Node* node) {
    auto* object = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(node);
    UI_MacroVariantParam* variable = processor.getExecutionStackVar(
        object->interned, object->name, object->cachedIndex);
    if (!variable)
        processor.OnError(errInternal, SYS_String());
    return *variable;
}

/// The cell of an operand; one that was passed over gets its cell now.
inline Cell& leafOperand(MacroParser& processor, Node* node) {
    auto* slots = node->GetResult();
    Cell* cell = slots ? slots->GetTop() : nullptr;
    if (cell && cell->frame == processor.GetFrames().Top())
        return *cell;
    Cell& made = operand(processor, node);
    Leaf leaf;
    if (node->Is(Kind::ObjectExec)) {
        Node* name = node->GetFirstChild();
        if (!name->GetFirstChild())
            made.value.SetLValueVal(&passedVariable(processor, name));
        else if (isReadable(processor, node, leaf) && leaf.element)
            made.value = *leaf.element;
    } else if (isLeaf(processor, node, leaf)) {
        Scalar number;
        leafNumber(node, leaf, number);
        number.Store(made.value);
    }
    return made;
}

} // namespace semantics
