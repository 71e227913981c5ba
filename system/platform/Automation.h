#pragma once

// Automation: the interfaces, data types and services through which macros reach objects of other
// programs and libraries. On a system that has these natively the same names mean its own; here
// they are implemented in this process.
//
// Conventions, for all that follows:
// - An interface pointer handed out through an out-parameter or a result carries one reference,
//   which the receiver releases. A pointer passed in carries none.
// - Functions report success with a result of 0 or above (SUCCEEDED) and never throw. On failure
//   an out-parameter is null or unchanged.
// - A BSTR, VARIANT or SAFEARRAY belongs to one owner, who frees, clears or destroys it.
// - Nothing here may be called from two threads at once.

#include <AutomationTypes.h>
#include <SYS_String.h>

#include <concepts>
#include <functional>

// --- services: text and values -----------------------------------------------------------------

/// Null for null text or when memory is short. The Len form takes NULs too; null text gives a text
/// of NULs of that length.
KEL_MCR_API BSTR SysAllocString(LPCOLESTR text);
KEL_MCR_API BSTR SysAllocStringLen(LPCOLESTR text, UINT length);
KEL_MCR_API void SysFreeString(BSTR text);
/// In code units.
KEL_MCR_API UINT SysStringLen(BSTR text);

KEL_MCR_API void VariantInit(VARIANT* value);
/// Frees what the value owns and leaves VT_EMPTY. A locked array or an unknown tag fails and leaves
/// the value alone.
KEL_MCR_API HRESULT VariantClear(VARIANT* value);
/// Clears the target and puts a copy of the source there. On failure the target keeps its value.
KEL_MCR_API HRESULT VariantCopy(VARIANT* target, const VARIANT* source);
/// The same, but a reference is followed and what it points at is copied.
KEL_MCR_API HRESULT VariantCopyInd(VARIANT* target, const VARIANT* source);

// --- services: arrays --------------------------------------------------------------------------

/// Makes an array of empty elements; bounds[k - 1] belongs to dimension k. Null if the element type
/// is none that an array can hold, without dimensions, or when memory is short. A dimension may
/// have no elements.
KEL_MCR_API SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, const SAFEARRAYBOUND* bounds);
/// Fails if the array is locked. Null is fine.
KEL_MCR_API HRESULT SafeArrayDestroy(SAFEARRAY* array);
/// Copies elements and all they own; the copy is not locked. Null gives null.
KEL_MCR_API HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
KEL_MCR_API UINT SafeArrayGetDim(SAFEARRAY* array);
KEL_MCR_API UINT SafeArrayGetElemsize(SAFEARRAY* array);
KEL_MCR_API HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
/// Dimensions count from 1. The upper bound of a dimension without elements is one below its lower.
KEL_MCR_API HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
KEL_MCR_API HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
/// Copy one element out or in; indices[k - 1] belongs to dimension k. `value` points at the element
/// type, but PutElement of a BSTR or an interface takes the pointer itself. GetElement overwrites
/// what stands there, except a VARIANT, which must be valid and is cleared first.
KEL_MCR_API HRESULT SafeArrayGetElement(SAFEARRAY* array, const LONG* indices, void* value);
KEL_MCR_API HRESULT SafeArrayPutElement(SAFEARRAY* array, const LONG* indices, void* value);
/// A locked array is not destroyed. Locks count.
KEL_MCR_API HRESULT SafeArrayLock(SAFEARRAY* array);
KEL_MCR_API HRESULT SafeArrayUnlock(SAFEARRAY* array);
/// Lock, and give the elements; the Unaccess form unlocks.
KEL_MCR_API HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
KEL_MCR_API HRESULT SafeArrayUnaccessData(SAFEARRAY* array);

// --- services: classes and running objects -----------------------------------------------------

struct COSERVERINFO {
    DWORD dwReserved1;
    LPOLESTR pwszName;
    void* pAuthInfo;
    DWORD dwReserved2;
};

struct MULTI_QI {
    const IID* pIID;
    IUnknown* pItf;
    HRESULT hr;
};

/// Only classes and objects that this process has registered (see below) are known.
KEL_MCR_API HRESULT CLSIDFromProgID(LPCOLESTR progId, CLSID* classId);
KEL_MCR_API HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid,
                                     void** object);
KEL_MCR_API HRESULT GetActiveObject(REFCLSID classId, void* reserved, IUnknown** object);
// The way to the table of running objects.
KEL_MCR_API HRESULT CreateBindCtx(DWORD reserved, IBindCtx** context);
// Null is fine.
KEL_MCR_API void CoTaskMemFree(void* memory);

/// Objects on other machines, objects made from files and type libraries in files do not exist
/// here: these always fail.
KEL_MCR_API HRESULT CoCreateInstanceEx(REFCLSID classId, IUnknown* outer, DWORD context,
                                       COSERVERINFO* server, DWORD count, MULTI_QI* results);
KEL_MCR_API HRESULT CoGetInstanceFromFile(COSERVERINFO* server, CLSID* classId, IUnknown* outer,
                                          DWORD context, DWORD mode, LPOLESTR name, DWORD count,
                                          MULTI_QI* results);
KEL_MCR_API HRESULT LoadTypeLib(LPCOLESTR file, ITypeLib** library);

namespace automation {

// Makes an object; the result carries one reference. Null if that failed.
using Factory = std::function<IUnknown*()>;

// Program names and display names are UTF-8 and compared without regard to ASCII case. All of
// these return false for a missing name, factory or object, or when memory is short.

/// Makes a class known under its program name, replacing one of the same name. Without a class id
/// it gets one of its own, which lasts as long as the process.
KEL_MCR_API bool RegisterClass(const char* progId, Factory factory);
KEL_MCR_API bool RegisterClass(const char* progId, REFCLSID classId, Factory factory);
KEL_MCR_API bool RevokeClass(const char* progId);

/// The object that GetActiveObject finds for a program name, whether its class can be made or not.
/// The registry keeps a reference until the object is revoked or replaced.
KEL_MCR_API bool RegisterActive(const char* progId, IUnknown* object);
KEL_MCR_API bool RevokeActive(const char* progId);

/// The object that is running under a display name, usually a document under its file name. The
/// registry keeps a reference until the object is revoked or replaced.
KEL_MCR_API bool RegisterRunning(const char* displayName, IUnknown* object);
KEL_MCR_API bool RevokeRunning(const char* displayName);
/// Null if there is none; else the result carries one reference.
KEL_MCR_API IUnknown* FindRunning(const char* displayName);

/// Between text and BSTR, NULs included. The text side is UTF-8; bytes that are none survive the
/// way there and back. NewText gives null only when memory is short.
KEL_MCR_API BSTR NewText(const kel_ns::SYS_String& text);
KEL_MCR_API kel_ns::SYS_String TextOf(BSTR text);

} // namespace automation

/// A VARIANT that clears itself. Copies are deep; a copy that fails for lack of memory is empty.
class KEL_MCR_API COleVariant : public tagVARIANT {
public:
    COleVariant() noexcept : tagVARIANT{} {}
    COleVariant(const VARIANT& value) : COleVariant() { VariantCopy(this, &value); }
    COleVariant(const COleVariant& other) : COleVariant(static_cast<const VARIANT&>(other)) {}
    COleVariant(COleVariant&& other) noexcept : tagVARIANT(other) {
        static_cast<VARIANT&>(other) = VARIANT{};
    }
    explicit COleVariant(SHORT value) noexcept : COleVariant() { vt = VT_I2, iVal = value; }
    explicit COleVariant(LONG value) noexcept : COleVariant() { vt = VT_I4, lVal = value; }
    explicit COleVariant(LONGLONG value) noexcept : COleVariant() { vt = VT_I8, llVal = value; }
    explicit COleVariant(double value) noexcept : COleVariant() { vt = VT_R8, dblVal = value; }
    template <std::same_as<bool> B> explicit COleVariant(B value) noexcept : COleVariant() {
        vt = VT_BOOL;
        boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit COleVariant(const char* text) : COleVariant(kel_ns::SYS_String(text)) {}
    explicit COleVariant(const kel_ns::SYS_String& text);
    /// Add a reference of their own.
    explicit COleVariant(IDispatch* object);
    explicit COleVariant(IUnknown* object);
    ~COleVariant() { Clear(); }

    COleVariant& operator=(const VARIANT& value) {
        VariantCopy(this, &value);
        return *this;
    }
    COleVariant& operator=(const COleVariant& other) {
        return *this = static_cast<const VARIANT&>(other);
    }
    COleVariant& operator=(COleVariant&& other) noexcept {
        if (this != &other)
            Attach(other);
        return *this;
    }

    void Clear() noexcept {
        if (vt > VT_R8) // the tags up to here own nothing
            VariantClear(this);
        else
            static_cast<VARIANT&>(*this) = VARIANT{};
    }

    /// Takes the value over and leaves `value` empty.
    void Attach(VARIANT& value) noexcept {
        Clear();
        static_cast<VARIANT&>(*this) = value;
        VariantInit(&value);
    }
    /// Gives the value away to the caller, who clears it.
    VARIANT Detach() noexcept {
        VARIANT value = *this;
        VariantInit(this);
        return value;
    }
};
