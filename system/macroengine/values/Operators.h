#pragma once

// What the operators share: reading both operands, and the kind that decides.

#include <UI_MacroVariant.h>

#include "values/Failure.h"
#include "values/FastPath.h"

struct UI_MacroVariant::Operators {
    using Compute = UI_MacroVariant(const UI_MacroVariant& a, const UI_MacroVariant& b);
    using ComputeOne = UI_MacroVariant(const UI_MacroVariant& a);

    /// A comparison of kinds that cannot be compared has no answer, which is no error.
    enum class Answer : unsigned char { No, Yes, None };

    // Arithmetic on operands that have been read.
    static Compute Add, Subtract, Multiply, Divide, IntegerDivide, Remainder, Raise;
    static ComputeOne Negate, Invert;
    template <class OfIntegers, class OfReals>
    static UI_MacroVariant Calculate(const UI_MacroVariant& a, const UI_MacroVariant& b,
                                     OfIntegers ofIntegers, OfReals ofReals);

    // Bits and logic on operands that have been read.
    static Compute Xor, Both, Either;
    template <class Combine>
    static UI_MacroVariant CombineBits(const UI_MacroVariant& lhs, const UI_MacroVariant& rhs,
                                       Combine combine, UI_MacroVariant (*withNull)(__int64 known));
    static ComputeOne Not;

    // Comparisons of operands that have been read.
    static Compute IsEqual, IsDifferent, IsLess, IsLessOrEqual, IsGreater, IsGreaterOrEqual;
    static Answer Equal(const UI_MacroVariant& a, const UI_MacroVariant& b);
    static Answer EqualArrays(const UI_MacroVariant& a, const UI_MacroVariant& b);
    static bool EqualEmpty(const UI_MacroVariant& a, const UI_MacroVariant& b);
    template <class Relation>
    static Answer Relate(const UI_MacroVariant& a, const UI_MacroVariant& b, Relation holds,
                         bool comparesScripts);
    static UI_MacroVariant Value(Answer answer);

    static VariantValueType Superior(const UI_MacroVariant& a, const UI_MacroVariant& b) {
        return a.m_Type > b.m_Type ? a.m_Type : b.m_Type;
    }
    static bool BothIntegers(const UI_MacroVariant& a, const UI_MacroVariant& b) {
        return a.m_Type == vvtInteger && b.m_Type == vvtInteger;
    }
    static bool IsNumber(const UI_MacroVariant& a) {
        return a.m_Type == vvtInteger || a.m_Type == vvtDouble;
    }

    /// The operand with objects read through their default member, which `temp` then holds. This
    /// may run code, after which values found before may be gone: find the values last.
    static const UI_MacroVariant& Resolve(UI_MacroVariant& temp, const UI_MacroVariant& operand);
    /// The value of a resolved operand; null for Null. Runs nothing.
    static const UI_MacroVariant* Find(const UI_MacroVariant& resolved);

    /// Reads both operands, the left one first, and computes. Null fails.
    template <Compute& compute>
    static UI_MacroVariant Apply(const UI_MacroVariant& lhs, const UI_MacroVariant& rhs) {
        const UI_MacroVariant* a = readScalar(lhs);
        const UI_MacroVariant* b = a ? readScalar(rhs) : nullptr;
        if (b)
            return compute(*a, *b);
        return ApplyAny(lhs, rhs, compute);
    }
    static UI_MacroVariant ApplyAny(const UI_MacroVariant& lhs, const UI_MacroVariant& rhs,
                                    Compute& compute);
    static UI_MacroVariant ApplyOne(const UI_MacroVariant& operand, ComputeOne& compute);
};
