// Arithmetic, bitwise and logical operators.

#include "values/Operators.h"

#include <cmath>
#include <functional>

namespace {

// Integers wrap around; only unsigned arithmetic may.
__int64 wrap(unsigned long long value) { return static_cast<__int64>(value); }

unsigned long long bits(__int64 value) { return static_cast<unsigned long long>(value); }

UI_MacroVariant failType() { return Fail(errInvalidType); }

UI_MacroVariant null() { return UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr)); }

bool hasNoBits(const UI_MacroVariant& value) {
    switch (value.GetType()) {
    case vvtObject:
    case vvtFunction:
    case vvtArray:
    case vvtUnknown:
        return true;
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtReference:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
        return false;
    }
    return true;
}

// The bits of both operands, whatever they mean.
UI_MacroVariant combineBits(const UI_MacroVariant& a, const UI_MacroVariant& b, __int64 combined) {
    if (hasNoBits(a) || hasNoBits(b))
        return Fail(errIncorrectArgument);
    if (a.GetType() == vvtBoolean && b.GetType() == vvtBoolean)
        return UI_MacroVariant(combined != 0);
    return UI_MacroVariant(combined);
}

} // namespace

VariantValueType UI_MacroVariant::GetSuperiorType(VariantValueType other) const {
    return m_Type > other ? m_Type : other;
}

const UI_MacroVariant& UI_MacroVariant::Operators::Resolve(UI_MacroVariant& temp,
                                                           const UI_MacroVariant& operand) {
    if (readScalar(operand))
        return operand;
    const UI_MacroVariant& source = temp.derefObject(operand);
    if (source.m_Type == vvtReference && !source.isConstant())
        readTarget(source);
    return source;
}

const UI_MacroVariant* UI_MacroVariant::Operators::Find(const UI_MacroVariant& resolved) {
    const UI_MacroVariant* value = resolved.GetRVal();
    return value ? &liveElement(*value) : nullptr;
}

UI_MacroVariant UI_MacroVariant::Operators::ApplyAny(const UI_MacroVariant& lhs,
                                                     const UI_MacroVariant& rhs, Compute& compute) {
    UI_MacroVariant tempA;
    UI_MacroVariant tempB;
    const UI_MacroVariant& left = Resolve(tempA, lhs);
    const UI_MacroVariant& right = Resolve(tempB, rhs);
    const UI_MacroVariant* a = Find(left);
    const UI_MacroVariant* b = Find(right);
    if (!a || !b)
        return Fail(errObjectIsNothing);
    return compute(*a, *b);
}

UI_MacroVariant UI_MacroVariant::Operators::ApplyOne(const UI_MacroVariant& operand,
                                                     ComputeOne& compute) {
    if (const UI_MacroVariant* scalar = readScalar(operand))
        return compute(*scalar);
    UI_MacroVariant temp;
    const UI_MacroVariant* a = Find(Resolve(temp, operand));
    return a ? compute(*a) : Fail(errObjectIsNothing);
}

// --- arithmetic ---------------------------------------------------------------------------------

/// Integers and Booleans by one rule, reals by the other; no other kind is a number.
template <class OfIntegers, class OfReals>
UI_MacroVariant UI_MacroVariant::Operators::Calculate(const UI_MacroVariant& a,
                                                      const UI_MacroVariant& b,
                                                      OfIntegers ofIntegers, OfReals ofReals) {
    switch (Superior(a, b)) {
    case vvtInteger:
    case vvtBoolean: {
        const unsigned long long left = bits(a.convToLongLong());
        return wrap(ofIntegers(left, bits(b.convToLongLong())));
    }
    case vvtDouble: {
        const double left = a.convToDouble();
        return ofReals(left, b.convToDouble());
    }
    case vvtEmpty:
    case vvtObject:
    case vvtFunction:
    case vvtString:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        break;
    }
    return failType();
}

UI_MacroVariant UI_MacroVariant::Operators::Add(const UI_MacroVariant& a,
                                                const UI_MacroVariant& b) {
    if (Superior(a, b) != vvtString)
        return Calculate(a, b, std::plus<>(), std::plus<>());
    UI_MacroVariant result;
    result.m_Type = vvtString;
    result.m_Text = a.convToString() + b.convToString();
    return result;
}

UI_MacroVariant UI_MacroVariant::Operators::Subtract(const UI_MacroVariant& a,
                                                     const UI_MacroVariant& b) {
    return Calculate(a, b, std::minus<>(), std::minus<>());
}

UI_MacroVariant UI_MacroVariant::Operators::Multiply(const UI_MacroVariant& a,
                                                     const UI_MacroVariant& b) {
    return Calculate(a, b, std::multiplies<>(), std::multiplies<>());
}

UI_MacroVariant UI_MacroVariant::Operators::Divide(const UI_MacroVariant& a,
                                                   const UI_MacroVariant& b) {
    const VariantValueType kind = Superior(a, b);
    if (kind != vvtInteger && kind != vvtDouble && kind != vvtBoolean)
        return failType();
    const double dividend = a.convToDouble();
    return dividend / b.convToDouble();
}

UI_MacroVariant UI_MacroVariant::Operators::IntegerDivide(const UI_MacroVariant& a,
                                                          const UI_MacroVariant& b) {
    __int64 divisor = b.convToLongLong();
    if (divisor == 0)
        return Fail(errRuntime);
    __int64 dividend = a.convToLongLong();
    if (divisor == -1) // the machine traps on the smallest integer
        return wrap(0 - bits(dividend));
    return dividend / divisor;
}

UI_MacroVariant UI_MacroVariant::Operators::Remainder(const UI_MacroVariant& a,
                                                      const UI_MacroVariant& b) {
    __int64 dividend = a.convToLongLong();
    __int64 divisor = b.convToLongLong();
    if (divisor == 0)
        return Fail(errRuntime);
    return divisor == -1 ? __int64{0} : dividend % divisor;
}

UI_MacroVariant UI_MacroVariant::Operators::Raise(const UI_MacroVariant& a,
                                                  const UI_MacroVariant& b) {
    if (!IsNumber(a))
        return Fail(errInvalidBase);
    if (!IsNumber(b))
        return Fail(errInvalidExponent);
    double base = a.convToDouble();
    double exponent = b.convToDouble();
    if (b.m_Type == vvtDouble && base < 0)
        return Fail(errRealPowerOfNegative);
    if (exponent < 0 && base == 0)
        return Fail(errNegativePowerOfZero);
    return std::pow(base, exponent);
}

UI_MacroVariant UI_MacroVariant::Operators::Negate(const UI_MacroVariant& a) {
    switch (a.m_Type) {
    case vvtEmpty:
        return 0;
    case vvtInteger:
    case vvtBoolean:
        return wrap(0 - bits(a.m_Payload.integer));
    case vvtDouble:
        return -a.m_Payload.real;
    case vvtObject:
    case vvtFunction:
    case vvtString:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        break;
    }
    return failType();
}

UI_MacroVariant UI_MacroVariant::operator+(const UI_MacroVariant& rhs) const {
    const UI_MacroVariant* a = readScalar(*this);
    const UI_MacroVariant* b = a ? readScalar(rhs) : nullptr;
    if (b && Operators::BothIntegers(*a, *b))
        return wrap(bits(a->m_Payload.integer) + bits(b->m_Payload.integer));
    return b ? Operators::Add(*a, *b) : Operators::ApplyAny(*this, rhs, Operators::Add);
}

UI_MacroVariant UI_MacroVariant::operator-(const UI_MacroVariant& rhs) const {
    const UI_MacroVariant* a = readScalar(*this);
    const UI_MacroVariant* b = a ? readScalar(rhs) : nullptr;
    if (b && Operators::BothIntegers(*a, *b))
        return wrap(bits(a->m_Payload.integer) - bits(b->m_Payload.integer));
    return b ? Operators::Subtract(*a, *b) : Operators::ApplyAny(*this, rhs, Operators::Subtract);
}

UI_MacroVariant UI_MacroVariant::operator*(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Multiply>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator/(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Divide>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator%(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Remainder>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::IntDiv(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::IntegerDivide>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::Power(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Raise>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator-() const {
    return Operators::ApplyOne(*this, Operators::Negate);
}

// --- bits and logic -----------------------------------------------------------------------------

UI_MacroVariant UI_MacroVariant::Operators::Xor(const UI_MacroVariant& a,
                                                const UI_MacroVariant& b) {
    return combineBits(a, b, a.m_Payload.integer ^ b.m_Payload.integer);
}

UI_MacroVariant UI_MacroVariant::operator^(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Xor>(*this, rhs);
}

/// `withNull` tells what comes of Null on one side and a value on the other; two Nulls give Null.
template <class Combine>
UI_MacroVariant
UI_MacroVariant::Operators::CombineBits(const UI_MacroVariant& lhs, const UI_MacroVariant& rhs,
                                        Combine combine,
                                        UI_MacroVariant (*withNull)(__int64 known)) {
    const UI_MacroVariant* a = readScalar(lhs);
    const UI_MacroVariant* b = a ? readScalar(rhs) : nullptr;
    if (b)
        return combineBits(*a, *b, combine(a->m_Payload.integer, b->m_Payload.integer));
    UI_MacroVariant tempA;
    UI_MacroVariant tempB;
    const UI_MacroVariant& left = Resolve(tempA, lhs);
    const UI_MacroVariant& right = Resolve(tempB, rhs);
    a = Find(left);
    b = Find(right);
    if (a && b)
        return combineBits(*a, *b, combine(a->m_Payload.integer, b->m_Payload.integer));
    const UI_MacroVariant* known = a ? a : b;
    return known ? withNull(known->m_Payload.integer) : null();
}

UI_MacroVariant UI_MacroVariant::operator|(const UI_MacroVariant& rhs) const {
    return Operators::CombineBits(*this, rhs, std::bit_or<>(), [](__int64 known) {
        return known ? UI_MacroVariant(known) : null();
    });
}

UI_MacroVariant UI_MacroVariant::operator&(const UI_MacroVariant& rhs) const {
    return Operators::CombineBits(*this, rhs, std::bit_and<>(), [](__int64 known) {
        return known ? null() : UI_MacroVariant(0);
    });
}

UI_MacroVariant UI_MacroVariant::Operators::Invert(const UI_MacroVariant& a) {
    if (a.m_Type == vvtInteger || a.m_Type == vvtBoolean)
        return ~a.m_Payload.integer;
    return failType();
}

UI_MacroVariant UI_MacroVariant::Operators::Both(const UI_MacroVariant& a,
                                                 const UI_MacroVariant& b) {
    return a.m_Payload.integer != 0 && b.m_Payload.integer != 0;
}

UI_MacroVariant UI_MacroVariant::Operators::Either(const UI_MacroVariant& a,
                                                   const UI_MacroVariant& b) {
    return a.m_Payload.integer != 0 || b.m_Payload.integer != 0;
}

UI_MacroVariant UI_MacroVariant::operator~() const {
    return Operators::ApplyOne(*this, Operators::Invert);
}

UI_MacroVariant UI_MacroVariant::operator&&(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Both>(*this, rhs);
}

UI_MacroVariant UI_MacroVariant::operator||(const UI_MacroVariant& rhs) const {
    return Operators::Apply<Operators::Either>(*this, rhs);
}
