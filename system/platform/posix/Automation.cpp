#include "AutomationElements.h"

#include <SYS_Unicode.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

namespace {

// The length stands in the last four of these bytes.
constexpr std::size_t TextPrefix = 8;

BSTR allocateText(std::size_t length) noexcept {
    constexpr std::size_t largest = (std::numeric_limits<ULONG>::max() - 64) / sizeof(OLECHAR);
    if (length > largest)
        return nullptr;
    const std::size_t bytes = length * sizeof(OLECHAR);
    void* block = std::calloc(1, TextPrefix + bytes + sizeof(OLECHAR));
    if (!block)
        return nullptr;
    char* text = static_cast<char*>(block) + TextPrefix;
    const ULONG size = static_cast<ULONG>(bytes);
    std::memcpy(text - sizeof size, &size, sizeof size);
    return reinterpret_cast<BSTR>(text);
}

bool isOwnedArray(const VARIANT& value) noexcept {
    return (value.vt & (VT_ARRAY | VT_BYREF)) == VT_ARRAY;
}

bool isValidTag(VARTYPE tag) noexcept {
    const VARTYPE base = tag & VT_TYPEMASK;
    if ((tag & ~(VT_TYPEMASK | VT_ARRAY | VT_BYREF)) != 0)
        return false;
    if ((tag & (VT_ARRAY | VT_BYREF)) != 0)
        return automation::SizeOfElement(base) != 0;
    if (base == VT_EMPTY || base == VT_NULL)
        return true;
    return base != VT_VARIANT && automation::SizeOfElement(base) != 0;
}

// Makes `copy` own a copy of what the source owns. Leaves it untouched on failure.
HRESULT duplicate(VARIANT& copy, const VARIANT& source) noexcept {
    if (!isValidTag(source.vt))
        return DISP_E_BADVARTYPE;
    VARIANT made = source;
    if (isOwnedArray(source)) {
        const HRESULT result = SafeArrayCopy(source.parray, &made.parray);
        if (FAILED(result))
            return result;
    } else if (source.vt == VT_BSTR && source.bstrVal) {
        made.bstrVal = SysAllocStringLen(source.bstrVal, SysStringLen(source.bstrVal));
        if (!made.bstrVal)
            return E_OUTOFMEMORY;
    } else if (source.vt == VT_DISPATCH && source.pdispVal) {
        source.pdispVal->AddRef();
    } else if (source.vt == VT_UNKNOWN && source.punkVal) {
        source.punkVal->AddRef();
    }
    copy = made;
    return S_OK;
}

// What a reference points at, still owned by its owner.
HRESULT follow(const VARIANT& reference, VARIANT& direct) noexcept {
    const VARTYPE base = reference.vt & static_cast<VARTYPE>(~VT_BYREF);
    if (!isValidTag(reference.vt))
        return DISP_E_BADVARTYPE;
    if (!reference.byref)
        return E_INVALIDARG;
    VariantInit(&direct);
    direct.vt = base;
    if ((base & VT_ARRAY) != 0)
        direct.parray = *reference.pparray;
    else
        std::memcpy(&direct.llVal, reference.byref, automation::SizeOfElement(base));
    return S_OK;
}

} // namespace

namespace automation {

UINT SizeOfElement(VARTYPE type) noexcept {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return sizeof(void*);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

BSTR NewText(const kel_ns::SYS_String& text) {
    try {
        const std::u16string wide = kel_ns::SYS_ToUtf16(text.View());
        if (wide.size() > std::numeric_limits<UINT>::max())
            return nullptr;
        return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    } catch (const std::exception&) { // no memory
        return nullptr;
    }
}

kel_ns::SYS_String TextOf(BSTR text) {
    if (!text)
        return {};
    return kel_ns::SYS_FromUtf16(std::u16string_view(text, SysStringLen(text)));
}

} // namespace automation

BSTR SysAllocString(LPCOLESTR text) {
    if (!text)
        return nullptr;
    const std::size_t length = std::char_traits<OLECHAR>::length(text);
    BSTR copy = allocateText(length);
    if (copy && length != 0)
        std::memcpy(copy, text, length * sizeof(OLECHAR));
    return copy;
}

BSTR SysAllocStringLen(LPCOLESTR text, UINT length) {
    BSTR copy = allocateText(length);
    if (copy && text && length != 0)
        std::memcpy(copy, text, length * sizeof(OLECHAR));
    return copy;
}

void SysFreeString(BSTR text) {
    if (text)
        std::free(reinterpret_cast<char*>(text) - TextPrefix);
}

UINT SysStringLen(BSTR text) {
    if (!text)
        return 0;
    ULONG bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof bytes, sizeof bytes);
    return bytes / sizeof(OLECHAR);
}

void VariantInit(VARIANT* value) {
    if (value)
        *value = VARIANT{};
}

HRESULT VariantClear(VARIANT* value) {
    if (!value)
        return E_INVALIDARG;
    if (!isValidTag(value->vt))
        return DISP_E_BADVARTYPE;
    if (isOwnedArray(*value) && value->parray && value->parray->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    // Empty before anything is released: a release may come back to this very value.
    const VARIANT old = *value;
    VariantInit(value);
    if (isOwnedArray(old))
        return SafeArrayDestroy(old.parray);
    if (old.vt == VT_BSTR)
        SysFreeString(old.bstrVal);
    else if (old.vt == VT_DISPATCH && old.pdispVal)
        old.pdispVal->Release();
    else if (old.vt == VT_UNKNOWN && old.punkVal)
        old.punkVal->Release();
    return S_OK;
}

HRESULT VariantCopy(VARIANT* target, const VARIANT* source) {
    if (!target || !source)
        return E_INVALIDARG;
    if (target == source)
        return S_OK;
    if (isOwnedArray(*target) && target->parray && target->parray->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    if (!isValidTag(target->vt))
        return DISP_E_BADVARTYPE;
    VARIANT copy;
    const HRESULT result = duplicate(copy, *source);
    if (FAILED(result))
        return result;
    VARIANT old = *target;
    *target = copy;
    VariantClear(&old);
    return S_OK;
}

HRESULT VariantCopyInd(VARIANT* target, const VARIANT* source) {
    if (!target || !source)
        return E_INVALIDARG;
    if ((source->vt & VT_BYREF) == 0)
        return VariantCopy(target, source);
    VARIANT direct;
    if (source->vt == (VT_BYREF | VT_VARIANT)) {
        const VARIANT* inner = source->pvarVal;
        // One reference to a value is allowed, and that value may be a reference to plain data.
        if (!inner || inner->vt == (VT_BYREF | VT_VARIANT))
            return E_INVALIDARG;
        if (inner == target && (inner->vt & VT_BYREF) == 0)
            return S_OK;
        return VariantCopyInd(target, inner);
    }
    const HRESULT result = follow(*source, direct);
    return FAILED(result) ? result : VariantCopy(target, &direct);
}

COleVariant::COleVariant(const kel_ns::SYS_String& text) : COleVariant() {
    bstrVal = automation::NewText(text);
    if (bstrVal)
        vt = VT_BSTR;
}

COleVariant::COleVariant(IDispatch* object) : COleVariant() {
    vt = VT_DISPATCH;
    pdispVal = object;
    if (object)
        object->AddRef();
}

COleVariant::COleVariant(IUnknown* object) : COleVariant() {
    vt = VT_UNKNOWN;
    punkVal = object;
    if (object)
        object->AddRef();
}
