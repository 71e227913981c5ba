#include <SCC_Variant.h>

#include <cstdint>
#include <limits>

namespace kel_ns {

SCC_Variant& SCC_Variant::operator=(__int64 value) {
    m_Text.Clear();
    m_Type = Integer;
    m_Integer = value;
    return *this;
}

SCC_Variant& SCC_Variant::operator=(double value) {
    m_Text.Clear();
    m_Type = Real;
    m_Real = value;
    return *this;
}

SCC_Variant& SCC_Variant::operator=(const void* value) {
    return *this = static_cast<__int64>(reinterpret_cast<std::intptr_t>(value));
}

SCC_Variant& SCC_Variant::operator=(const SYS_String& value) {
    m_Text = value;
    m_Type = String;
    return *this;
}

SYS_String SCC_Variant::ToString() const {
    SYS_String text;
    if (m_Type == Integer)
        text << m_Integer;
    else if (m_Type == Real)
        text << m_Real;
    else
        text = m_Text;
    return text;
}

double SCC_Variant::ToDouble() const {
    if (m_Type == Integer)
        return static_cast<double>(m_Integer);
    if (m_Type == Real)
        return m_Real;
    return m_Text.Value(static_cast<double*>(nullptr));
}

__int64 SCC_Variant::ToInteger() const {
    if (m_Type == Integer)
        return m_Integer;
    if (m_Type == String)
        return m_Text.Value(static_cast<__int64*>(nullptr));
    if (m_Type == Empty)
        return 0;
    // The comparison is false for what is not a number, too.
    bool fits = m_Real >= -9223372036854775808.0 && m_Real < 9223372036854775808.0;
    return fits ? static_cast<__int64>(m_Real) : std::numeric_limits<__int64>::min();
}

} // namespace kel_ns
