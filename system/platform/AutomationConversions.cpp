#include "AutomationConversions.h"

#include <cmath>
#include <limits>

namespace automation {

namespace {

/// What a reference points at, or what an object's default member gives. One step is enough: an
/// object that gives an object has no plain value.
bool readThrough(const VARIANT& value, COleVariant& plain) {
    if ((value.vt & VT_BYREF) != 0)
        return SUCCEEDED(VariantCopyInd(&plain, &value)) && plain.vt != VT_DISPATCH;
    if (value.vt != VT_DISPATCH || !value.pdispVal)
        return false;
    DISPPARAMS none{};
    return SUCCEEDED(value.pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                            DISPATCH_PROPERTYGET, &none, &plain, nullptr,
                                            nullptr)) &&
           plain.vt != VT_DISPATCH && (plain.vt & VT_BYREF) == 0;
}

bool readWhole(const VARIANT& value, LONGLONG& out) {
    switch (value.vt) {
    case VT_EMPTY:
        out = 0;
        return true;
    case VT_I1:
        out = static_cast<signed char>(value.cVal);
        return true;
    case VT_UI1:
        out = value.bVal;
        return true;
    case VT_I2:
        out = value.iVal;
        return true;
    case VT_UI2:
        out = value.uiVal;
        return true;
    case VT_I4:
    case VT_INT:
        out = value.lVal;
        return true;
    case VT_UI4:
    case VT_UINT:
        out = value.ulVal;
        return true;
    case VT_I8:
    case VT_UI8:
        out = value.llVal;
        return true;
    case VT_BOOL:
        out = value.boolVal != VARIANT_FALSE ? -1 : 0;
        return true;
    default:
        return false;
    }
}

LONGLONG rounded(double value) {
    const double whole = std::round(value);
    constexpr double limit = 9223372036854775808.0;
    return whole >= -limit && whole < limit ? static_cast<LONGLONG>(whole)
                                            : std::numeric_limits<LONGLONG>::min();
}

} // namespace

bool ReadInteger(const VARIANT& value, LONGLONG& out) {
    double real = 0;
    if (readWhole(value, out))
        return true;
    if (!ReadReal(value, real))
        return false;
    out = rounded(real);
    return true;
}

bool ReadReal(const VARIANT& value, double& out) {
    LONGLONG whole = 0;
    if (value.vt == VT_R8 || value.vt == VT_R4) {
        out = value.vt == VT_R8 ? value.dblVal : static_cast<double>(value.fltVal);
        return true;
    }
    if (readWhole(value, whole)) {
        out = static_cast<double>(whole);
        return true;
    }
    if (value.vt == VT_BSTR) {
        kel_ns::SYS_String text = TextOf(value.bstrVal);
        text.TrimRight();
        const char* end = nullptr;
        const double number = text.Value(&out, &end);
        if (text.IsEmpty() || *end != '\0')
            return false;
        out = number;
        return true;
    }
    COleVariant plain;
    return readThrough(value, plain) && ReadReal(plain, out);
}

bool ReadText(const VARIANT& value, kel_ns::SYS_String& out) {
    LONGLONG whole = 0;
    double real = 0;
    if (value.vt == VT_BSTR) {
        out = TextOf(value.bstrVal);
    } else if (value.vt == VT_EMPTY) {
        out.Clear();
    } else if (value.vt == VT_BOOL) {
        out = value.boolVal != VARIANT_FALSE ? "True" : "False";
    } else if (readWhole(value, whole)) {
        out = kel_ns::SYS_String();
        out << whole;
    } else if ((value.vt == VT_R8 || value.vt == VT_R4) && ReadReal(value, real)) {
        out = kel_ns::SYS_String();
        out << real;
    } else {
        COleVariant plain;
        return readThrough(value, plain) && ReadText(plain, out);
    }
    return true;
}

} // namespace automation
