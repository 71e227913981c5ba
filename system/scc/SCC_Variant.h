#pragma once

#include <SYS_String.h>

namespace kel_ns {

/// A small tagged value for the borders of the system.
class KEL_MCR_API SCC_Variant {
public:
    enum Type { Empty = 0, Integer = 2, Real = 3, String = 4 };

    SCC_Variant() noexcept = default;
    /// From whatever an assignment below takes, and from nothing else: what converts to this class
    /// by an operator of its own must not end here.
    template <class T>
    requires(std::is_arithmetic_v<T> || std::is_convertible_v<const T&, const void*> ||
             std::is_convertible_v<const T&, SYS_String>) SCC_Variant(const T& value) {
        *this = value;
    }

    SCC_Variant& operator=(__int64 value);
    SCC_Variant& operator=(int value) { return *this = static_cast<__int64>(value); }
    SCC_Variant& operator=(long value) { return *this = static_cast<__int64>(value); }
    SCC_Variant& operator=(bool value) { return *this = static_cast<__int64>(value); }
    SCC_Variant& operator=(double value);
    SCC_Variant& operator=(const void* value); // an Integer: the address
    SCC_Variant& operator=(const SYS_String& value);
    SCC_Variant& operator=(const char* value) { return *this = SYS_String(value); }

    Type GetType() const noexcept { return m_Type; }

    /// Convert between all types; text that is no number gives 0, and a real that no integer can
    /// hold gives the smallest one.
    SYS_String ToString() const;
    double ToDouble() const;
    __int64 ToInteger() const;
    explicit operator SYS_String() const { return ToString(); }
    explicit operator double() const { return ToDouble(); }
    explicit operator __int64() const { return ToInteger(); }

private:
    Type m_Type = Empty;
    union {
        __int64 m_Integer = 0;
        double m_Real;
    };
    SYS_String m_Text;
};

} // namespace kel_ns
