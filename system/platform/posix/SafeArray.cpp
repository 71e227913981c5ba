#include "AutomationElements.h"

#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

constexpr USHORT HasVartype = 0x0080;
constexpr USHORT HasTexts = 0x0100;
constexpr USHORT HasUnknowns = 0x0200;
constexpr USHORT HasDispatches = 0x0400;
constexpr USHORT HasVariants = 0x0800;

// Stands in front of every array. Arrays that wait to be destroyed or filled are chained through
// it, so that nesting of any depth needs neither native recursion nor memory.
struct alignas(std::max_align_t) Header {
    VARTYPE type;
    SAFEARRAY* next;
    SAFEARRAY* source; // while a copy is being made
};

Header* headerOf(SAFEARRAY* array) noexcept { return reinterpret_cast<Header*>(array) - 1; }

SAFEARRAYBOUND& boundOf(SAFEARRAY* array, UINT dimension) noexcept {
    SAFEARRAYBOUND* bounds = array->rgsabound;
    return bounds[array->cDims - dimension];
}

template <class T> T load(const void* from) noexcept {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <class T> void store(void* to, T value) noexcept { std::memcpy(to, &value, sizeof value); }

// Number of elements; dimensions without any make it 0 whatever the others are.
bool countElements(const SAFEARRAYBOUND* bounds, UINT dimensions, std::size_t& count) noexcept {
    constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();
    bool fits = true;
    bool none = false;
    count = 1;
    for (UINT i = 0; i < dimensions; ++i) {
        const __int64 upper = __int64{bounds[i].lLbound} + bounds[i].cElements - 1;
        if (upper > std::numeric_limits<LONG>::max() || upper < std::numeric_limits<LONG>::min())
            return false;
        none = none || bounds[i].cElements == 0;
        if (none)
            continue;
        fits = fits && bounds[i].cElements <= largest / count;
        if (fits)
            count *= bounds[i].cElements;
    }
    if (none)
        count = 0;
    return none || fits;
}

std::size_t elementsIn(SAFEARRAY* array) noexcept {
    std::size_t count = 0;
    countElements(array->rgsabound, array->cDims, count);
    return count;
}

char* elementAt(SAFEARRAY* array, std::size_t index) noexcept {
    return static_cast<char*>(array->pvData) + index * array->cbElements;
}

HRESULT findElement(SAFEARRAY* array, const LONG* indices, char*& element) noexcept {
    if (!array || !indices)
        return E_INVALIDARG;
    std::size_t offset = 0;
    std::size_t stride = 1;
    for (UINT dimension = 1; dimension <= array->cDims; ++dimension) {
        const SAFEARRAYBOUND& bound = boundOf(array, dimension);
        const __int64 place = __int64{indices[dimension - 1]} - bound.lLbound;
        if (place < 0 || place >= bound.cElements)
            return DISP_E_BADINDEX;
        offset += static_cast<std::size_t>(place) * stride;
        stride *= bound.cElements;
    }
    element = elementAt(array, offset);
    return S_OK;
}

USHORT featuresOf(VARTYPE type) noexcept {
    switch (type) {
    case VT_BSTR:
        return HasVartype | HasTexts;
    case VT_UNKNOWN:
        return HasVartype | HasUnknowns;
    case VT_DISPATCH:
        return HasVartype | HasDispatches;
    case VT_VARIANT:
        return HasVartype | HasVariants;
    default:
        return HasVartype;
    }
}

void freeBlock(SAFEARRAY* array) noexcept {
    std::free(array->pvData);
    std::free(headerOf(array));
}

bool ownsArray(const VARIANT& value) noexcept {
    return (value.vt & (VT_ARRAY | VT_BYREF)) == VT_ARRAY && value.parray;
}

void prepend(SAFEARRAY*& list, SAFEARRAY* array) noexcept {
    headerOf(array)->next = list;
    list = array;
}

SAFEARRAY* takeFirst(SAFEARRAY*& list) noexcept {
    SAFEARRAY* first = list;
    list = headerOf(first)->next;
    return first;
}

// Empties one element. The slot is cleared before anything is released.
void dropElement(SAFEARRAY* array, char* element, SAFEARRAY*& pending) noexcept {
    switch (headerOf(array)->type) {
    case VT_BSTR:
        SysFreeString(load<BSTR>(element));
        break;
    case VT_UNKNOWN:
        if (IUnknown* object = load<IUnknown*>(element)) {
            store<IUnknown*>(element, nullptr);
            object->Release();
        }
        break;
    case VT_DISPATCH:
        if (IDispatch* object = load<IDispatch*>(element)) {
            store<IDispatch*>(element, nullptr);
            object->Release();
        }
        break;
    case VT_VARIANT: {
        VARIANT value = load<VARIANT>(element);
        store(element, VARIANT{});
        if (!ownsArray(value)) {
            VariantClear(&value);
        } else if (value.parray->cLocks == 0) { // a locked one is its locker's from now on
            value.parray->cLocks = 1;
            prepend(pending, value.parray);
        }
        break;
    }
    default:
        break;
    }
}

// The array is locked while it waits and while it ends, so a release that comes back to it finds
// it in use.
void destroyAll(SAFEARRAY* pending) noexcept {
    while (pending) {
        SAFEARRAY* array = takeFirst(pending);
        if (array->fFeatures != HasVartype)
            for (std::size_t i = 0, count = elementsIn(array); i < count; ++i)
                dropElement(array, elementAt(array, i), pending);
        freeBlock(array);
    }
}

// An empty array of the same form.
SAFEARRAY* makeLike(SAFEARRAY* array) noexcept {
    const UINT dimensions = array->cDims;
    auto* bounds = static_cast<SAFEARRAYBOUND*>(std::calloc(dimensions, sizeof(SAFEARRAYBOUND)));
    if (!bounds)
        return nullptr;
    for (UINT i = 0; i < dimensions; ++i)
        bounds[i] = boundOf(array, i + 1);
    SAFEARRAY* made = SafeArrayCreate(headerOf(array)->type, dimensions, bounds);
    std::free(bounds);
    if (made)
        headerOf(made)->source = array;
    return made;
}

HRESULT copyElement(SAFEARRAY* array, char* to, const char* from, SAFEARRAY*& pending) noexcept {
    switch (headerOf(array)->type) {
    case VT_BSTR:
        if (BSTR text = load<BSTR>(from)) {
            BSTR copy = SysAllocStringLen(text, SysStringLen(text));
            store(to, copy);
            return copy ? S_OK : E_OUTOFMEMORY;
        }
        return S_OK;
    case VT_UNKNOWN:
        if (IUnknown* object = load<IUnknown*>(from)) {
            object->AddRef();
            store(to, object);
        }
        return S_OK;
    case VT_DISPATCH:
        if (IDispatch* object = load<IDispatch*>(from)) {
            object->AddRef();
            store(to, object);
        }
        return S_OK;
    default: {
        VARIANT value = load<VARIANT>(from);
        if (ownsArray(value)) {
            value.parray = makeLike(value.parray);
            if (!value.parray)
                return E_OUTOFMEMORY;
            prepend(pending, value.parray);
            store(to, value);
            return S_OK;
        }
        VARIANT copy{};
        const HRESULT result = VariantCopy(&copy, &value);
        store(to, copy);
        return result;
    }
    }
}

HRESULT fillFromSource(SAFEARRAY* array, SAFEARRAY*& pending) noexcept {
    SAFEARRAY* source = headerOf(array)->source;
    const std::size_t count = elementsIn(array);
    if (count == 0)
        return S_OK;
    if (array->fFeatures == HasVartype) {
        std::memcpy(array->pvData, source->pvData, count * array->cbElements);
        return S_OK;
    }
    ++source->cLocks;
    HRESULT result = S_OK;
    for (std::size_t i = 0; i < count && SUCCEEDED(result); ++i)
        result = copyElement(array, elementAt(array, i), elementAt(source, i), pending);
    --source->cLocks;
    return result;
}

} // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, const SAFEARRAYBOUND* bounds) {
    const UINT size = automation::SizeOfElement(type);
    std::size_t count = 0;
    if (size == 0 || !bounds || dimensions == 0 ||
        dimensions > std::numeric_limits<USHORT>::max() ||
        !countElements(bounds, dimensions, count) ||
        count > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / size)
        return nullptr;
    void* block = std::calloc(1, sizeof(Header) + sizeof(SAFEARRAY) +
                                     (dimensions - 1) * sizeof(SAFEARRAYBOUND));
    if (!block)
        return nullptr;
    auto* header = static_cast<Header*>(block);
    header->type = type;
    auto* array = reinterpret_cast<SAFEARRAY*>(header + 1);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = featuresOf(type);
    array->cbElements = size;
    for (UINT i = 0; i < dimensions; ++i)
        boundOf(array, i + 1) = bounds[i];
    if (count != 0) {
        // All bits 0 is an empty VARIANT, a null pointer and the number 0.
        array->pvData = std::calloc(count, size);
        if (!array->pvData) {
            std::free(block);
            return nullptr;
        }
    }
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (!array)
        return S_OK;
    if (array->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    array->cLocks = 1;
    headerOf(array)->next = nullptr;
    destroyAll(array);
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) {
    if (!copy)
        return E_INVALIDARG;
    *copy = nullptr;
    if (!array)
        return S_OK;
    SAFEARRAY* made = makeLike(array);
    if (!made)
        return E_OUTOFMEMORY;
    HRESULT result = S_OK;
    for (SAFEARRAY* pending = made; pending && SUCCEEDED(result);)
        result = fillFromSource(takeFirst(pending), pending);
    if (FAILED(result)) {
        SafeArrayDestroy(made);
        return result;
    }
    *copy = made;
    return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY* array) { return array ? array->cDims : 0; }

UINT SafeArrayGetElemsize(SAFEARRAY* array) { return array ? array->cbElements : 0; }

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type) {
    if (!array || !type)
        return E_INVALIDARG;
    *type = headerOf(array)->type;
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || !bound)
        return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    *bound = boundOf(array, dimension).lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || !bound)
        return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    const SAFEARRAYBOUND& of = boundOf(array, dimension);
    *bound = static_cast<LONG>(__int64{of.lLbound} + of.cElements - 1);
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, const LONG* indices, void* value) {
    char* element = nullptr;
    const HRESULT result = findElement(array, indices, element);
    if (FAILED(result))
        return result;
    if (!value)
        return E_INVALIDARG;
    if (headerOf(array)->type == VT_VARIANT) {
        const VARIANT held = load<VARIANT>(element);
        return VariantCopy(static_cast<VARIANT*>(value), &held);
    }
    if (array->fFeatures != HasVartype) {
        store<void*>(value, nullptr);
        SAFEARRAY* none = nullptr;
        return copyElement(array, static_cast<char*>(value), element, none);
    }
    std::memcpy(value, element, array->cbElements);
    return S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, const LONG* indices, void* value) {
    char* element = nullptr;
    const HRESULT result = findElement(array, indices, element);
    if (FAILED(result))
        return result;
    switch (headerOf(array)->type) {
    case VT_BSTR: {
        BSTR text = static_cast<BSTR>(value);
        BSTR copy = text ? SysAllocStringLen(text, SysStringLen(text)) : nullptr;
        if (text && !copy)
            return E_OUTOFMEMORY;
        SysFreeString(load<BSTR>(element));
        store(element, copy);
        return S_OK;
    }
    case VT_UNKNOWN: {
        IUnknown* object = static_cast<IUnknown*>(value);
        IUnknown* old = load<IUnknown*>(element);
        if (object)
            object->AddRef();
        store(element, object);
        if (old)
            old->Release();
        return S_OK;
    }
    case VT_DISPATCH: {
        IDispatch* object = static_cast<IDispatch*>(value);
        IDispatch* old = load<IDispatch*>(element);
        if (object)
            object->AddRef();
        store(element, object);
        if (old)
            old->Release();
        return S_OK;
    }
    case VT_VARIANT:
        return VariantCopy(reinterpret_cast<VARIANT*>(element), static_cast<VARIANT*>(value));
    default:
        if (!value)
            return E_INVALIDARG;
        std::memcpy(element, value, array->cbElements);
        return S_OK;
    }
}

HRESULT SafeArrayLock(SAFEARRAY* array) {
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == std::numeric_limits<ULONG>::max())
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array) {
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) {
    if (!data)
        return E_INVALIDARG;
    const HRESULT result = SafeArrayLock(array);
    *data = SUCCEEDED(result) ? array->pvData : nullptr;
    return result;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) { return SafeArrayUnlock(array); }
