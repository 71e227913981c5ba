// Equality, order and negation.

#include "values/Operators.h"

#include <cstdint>
#include <functional>
#include <vector>

#include "values/ArrayLimits.h"

using Role = UI_MacroVariant::Role;

namespace {

unsigned handleBits(const void* handle) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(handle));
}

// What the array operators see of an operand; a value of another kind counts as an empty array.
UI_MacroArray elementsOf(const UI_MacroVariant& value) {
    return value.GetType() == vvtArray ? value.Arrval() : UI_MacroArray();
}

bool sameBounds(const UI_MacroArray& a, const UI_MacroArray& b) {
    return a.GetLowerBound() == b.GetLowerBound() && a.GetUpperBound() == b.GetUpperBound();
}

// Two arrays that are being compared. They are shared copies, because reading an element may run
// code that changes the originals.
struct ArrayPair {
    UI_MacroArray a;
    UI_MacroArray b;
    int next = 0;
};

} // namespace

// Unset variables are equal; objects and constants are equal only to themselves.
bool UI_MacroVariant::Operators::EqualEmpty(const UI_MacroVariant& a, const UI_MacroVariant& b) {
    bool areValues =
        a.m_Role != Role::Object && b.m_Role != Role::Object && !a.isConstant() && !b.isConstant();
    return areValues || &a == &b;
}

UI_MacroVariant::Operators::Answer
UI_MacroVariant::Operators::EqualArrays(const UI_MacroVariant& a, const UI_MacroVariant& b) {
    std::vector<ArrayPair> open;
    open.push_back({elementsOf(a), elementsOf(b)});
    if (!sameBounds(open.back().a, open.back().b))
        return Answer::No;
    while (!open.empty()) {
        ArrayPair& top = open.back();
        if (top.next == top.a.GetCount()) {
            open.pop_back();
            continue;
        }
        const UI_MacroVariant& elementA = top.a.GetData()[top.next];
        const UI_MacroVariant& elementB = top.b.GetData()[top.next];
        ++top.next;
        UI_MacroVariant tempA;
        UI_MacroVariant tempB;
        const UI_MacroVariant& resolvedA = Resolve(tempA, elementA);
        const UI_MacroVariant& resolvedB = Resolve(tempB, elementB);
        const UI_MacroVariant* left = Find(resolvedA);
        const UI_MacroVariant* right = Find(resolvedB);
        if (!left || !right) {
            Fail(errObjectIsNothing);
            return Answer::No;
        }
        if (Superior(*left, *right) != vvtArray) {
            if (Equal(*left, *right) != Answer::Yes)
                return Answer::No;
            continue;
        }
        if (open.size() >= MaxArrayNesting) {
            Fail(errIllegalNesting);
            return Answer::No;
        }
        ArrayPair inner{elementsOf(*left), elementsOf(*right)};
        if (!sameBounds(inner.a, inner.b))
            return Answer::No;
        open.push_back(std::move(inner));
    }
    return Answer::Yes;
}

UI_MacroVariant::Operators::Answer UI_MacroVariant::Operators::Equal(const UI_MacroVariant& a,
                                                                     const UI_MacroVariant& b) {
    auto answer = [](bool equal) { return equal ? Answer::Yes : Answer::No; };
    switch (Superior(a, b)) {
    case vvtInteger:
        return answer(a.convToLongLong() == b.convToLongLong());
    case vvtDouble:
        return answer(a.convToDouble() == b.convToDouble());
    case vvtString:
    case vvtScript:
        return answer(a.convToString() == b.convToString());
    case vvtBoolean:
        if (a.m_Type == vvtString || b.m_Type == vvtString)
            return Answer::No;
        return answer(a.convToBool() == b.convToBool());
    case vvtEmpty:
        return answer(EqualEmpty(a, b));
    case vvtObject:
        return answer(a.m_Payload.integer == b.m_Payload.integer);
    case vvtArray:
        return EqualArrays(a, b);
    case vvtHandle: {
        unsigned left = handleBits(a.convToHandle());
        return answer(left == handleBits(b.convToHandle()));
    }
    case vvtUnknown:
        return answer(a.GetUnknownVal() == b.GetUnknownVal());
    case vvtFunction:
    case vvtReference:
    case vvtMissing:
        break;
    }
    return Answer::None;
}

// `scripts` answers for macro text, which only one of the relations compares.
template <class Relation>
UI_MacroVariant::Operators::Answer
UI_MacroVariant::Operators::Relate(const UI_MacroVariant& a, const UI_MacroVariant& b,
                                   Relation holds, bool comparesScripts) {
    auto answer = [](bool held) { return held ? Answer::Yes : Answer::No; };
    switch (Superior(a, b)) {
    case vvtInteger:
    case vvtBoolean: {
        __int64 left = a.convToLongLong();
        return answer(holds(left, b.convToLongLong()));
    }
    case vvtDouble: {
        double left = a.convToDouble();
        return answer(holds(left, b.convToDouble()));
    }
    case vvtString:
        return answer(holds(a.convToString().Compare(b.convToString()), 0));
    case vvtHandle: {
        unsigned left = handleBits(a.convToHandle());
        return answer(holds(left, handleBits(b.convToHandle())));
    }
    case vvtScript:
        if (comparesScripts)
            return answer(holds(a.convToString().Compare(b.convToString()), 0));
        break;
    case vvtEmpty:
    case vvtObject:
    case vvtFunction:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtUnknown:
        break;
    }
    return Answer::None;
}

UI_MacroVariant UI_MacroVariant::Operators::Value(Answer answer) {
    switch (answer) {
    case Answer::No:
        return false;
    case Answer::Yes:
        return true;
    case Answer::None:
        break;
    }
    return UI_MacroVariant();
}

UI_MacroVariant UI_MacroVariant::Operators::IsEqual(const UI_MacroVariant& a,
                                                    const UI_MacroVariant& b) {
    return Value(Equal(a, b));
}

// What has no answer to equality is different.
UI_MacroVariant UI_MacroVariant::Operators::IsDifferent(const UI_MacroVariant& a,
                                                        const UI_MacroVariant& b) {
    return Equal(a, b) != Answer::Yes;
}

UI_MacroVariant UI_MacroVariant::Operators::IsLess(const UI_MacroVariant& a,
                                                   const UI_MacroVariant& b) {
    return Value(Relate(a, b, std::less<>(), false));
}

UI_MacroVariant UI_MacroVariant::Operators::IsLessOrEqual(const UI_MacroVariant& a,
                                                          const UI_MacroVariant& b) {
    return Value(Relate(a, b, std::less_equal<>(), true));
}

UI_MacroVariant UI_MacroVariant::Operators::IsGreater(const UI_MacroVariant& a,
                                                      const UI_MacroVariant& b) {
    return Value(Relate(a, b, std::greater<>(), false));
}

UI_MacroVariant UI_MacroVariant::Operators::IsGreaterOrEqual(const UI_MacroVariant& a,
                                                             const UI_MacroVariant& b) {
    return Value(Relate(a, b, std::greater_equal<>(), false));
}

UI_MacroVariant UI_MacroVariant::operator==(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsEqual>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator!=(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsDifferent>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator<(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsLess>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator<=(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsLessOrEqual>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator>(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsGreater>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator>=(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IsGreaterOrEqual>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::Operators::Not(const UI_MacroVariant& a) {
    switch (a.m_Type) {
    case vvtEmpty:
        return true;
    case vvtFunction:
        return a.m_Payload.handler == nullptr;
    case vvtString:
    case vvtScript:
        return a.m_Text.IsEmpty();
    case vvtInteger:
    case vvtBoolean:
        return a.m_Payload.integer == 0;
    case vvtDouble:
        return a.m_Payload.real == 0.0;
    case vvtReference:
        return a.getRefVal() == nullptr;
    case vvtHandle:
        return handleBits(a.m_Payload.pointer) == 0;
    case vvtObject:
    case vvtArray:
    case vvtMissing:
    case vvtUnknown:
        break;
    }
    return Fail(errInvalidType);
}

UI_MacroVariant UI_MacroVariant::operator!() const {
    return Operators::ApplyOne(*this, Operators::Not);
}
