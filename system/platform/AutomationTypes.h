#pragma once

// The data types, codes and interfaces of automation. Include <Automation.h>, which has the
// services too and states the conventions.

#include <SCL_Types.h>

#include <cstdint>

// Calling convention of interface operations: the ordinary one here.
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE

// --- plain types -------------------------------------------------------------------------------

using BYTE = std::uint8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = __int64;
using ULONGLONG = unsigned long long;
using FLOAT = float;
using DOUBLE = double;
using DATE = double;

using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using DISPID = std::int32_t;
using MEMBERID = DISPID;
using LCID = std::uint32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;

using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
// Text with its length in the four bytes before it and a NUL behind it. Null is an empty text.
using BSTR = OLECHAR*;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;
inline constexpr LCID LOCALE_USER_DEFAULT = 0;

struct _GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend constexpr bool operator==(const _GUID&, const _GUID&) = default;
};
using GUID = _GUID;
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline constexpr GUID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
inline constexpr IID IID_NULL = GUID_NULL;
inline constexpr IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IBindCtx = {0x0000000E, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IMoniker = {0x0000000F, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IRunningObjectTable = {0x00000010, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumMoniker = {0x00000102, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeInfo = {0x00020401, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeLib = {0x00020402, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeComp = {0x00020403, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumVARIANT = {0x00020404, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// --- result codes and flags --------------------------------------------------------------------

constexpr bool SUCCEEDED(HRESULT result) noexcept { return result >= 0; }
constexpr bool FAILED(HRESULT result) noexcept { return result < 0; }

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001u);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002u);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003u);
inline constexpr HRESULT E_ABORT = static_cast<HRESULT>(0x80004004u);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFu);
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005u);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = static_cast<HRESULT>(0x80020001u);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = static_cast<HRESULT>(0x80020003u);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = static_cast<HRESULT>(0x80020004u);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005u);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = static_cast<HRESULT>(0x80020006u);
inline constexpr HRESULT DISP_E_NONAMEDARGS = static_cast<HRESULT>(0x80020007u);
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);
inline constexpr HRESULT DISP_E_EXCEPTION = static_cast<HRESULT>(0x80020009u);
inline constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000Au);
inline constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000Bu);
inline constexpr HRESULT DISP_E_UNKNOWNLCID = static_cast<HRESULT>(0x8002000Cu);
inline constexpr HRESULT DISP_E_ARRAYISLOCKED = static_cast<HRESULT>(0x8002000Du);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = static_cast<HRESULT>(0x8002000Eu);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = static_cast<HRESULT>(0x8002000Fu);
inline constexpr HRESULT DISP_E_NOTACOLLECTION = static_cast<HRESULT>(0x80020011u);
inline constexpr HRESULT DISP_E_DIVBYZERO = static_cast<HRESULT>(0x80020012u);
inline constexpr HRESULT TYPE_E_CANTLOADLIBRARY = static_cast<HRESULT>(0x80029C4Au);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110u);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154u);
inline constexpr HRESULT MK_E_UNAVAILABLE = static_cast<HRESULT>(0x800401E3u);
inline constexpr HRESULT MK_E_CANTOPENFILE = static_cast<HRESULT>(0x800401EAu);
inline constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3u);

inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 8;

enum INVOKEKIND {
    INVOKE_FUNC = 1,
    INVOKE_PROPERTYGET = 2,
    INVOKE_PROPERTYPUT = 4,
    INVOKE_PROPERTYPUTREF = 8
};

inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;
inline constexpr DISPID DISPID_EVALUATE = -5;

enum CLSCTX : DWORD {
    CLSCTX_INPROC_SERVER = 1,
    CLSCTX_INPROC_HANDLER = 2,
    CLSCTX_LOCAL_SERVER = 4,
    CLSCTX_REMOTE_SERVER = 16,
    CLSCTX_ALL = 23
};

inline constexpr DWORD STGM_READ = 0;
inline constexpr DWORD STGM_WRITE = 1;
inline constexpr DWORD STGM_READWRITE = 2;

enum VARENUM {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0x0FFF
};

// --- data --------------------------------------------------------------------------------------

struct IUnknown;
struct IDispatch;
struct ITypeInfo;
struct ITypeComp;
struct tagVARIANT;

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};

/// Made by SafeArrayCreate only. The bounds stand in reverse: rgsabound[0] is the last dimension.
/// The first index of an element runs fastest in memory.
struct tagSAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void* pvData;
    SAFEARRAYBOUND rgsabound[1];
};
using SAFEARRAY = tagSAFEARRAY;

/// A tagged value. A new one is made valid by VariantInit. With VT_BYREF it points at data of
/// somebody else, which it neither frees nor counts.
struct tagVARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        char cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        BYTE* pbVal;
        SHORT* piVal;
        LONG* plVal;
        LONGLONG* pllVal;
        FLOAT* pfltVal;
        DOUBLE* pdblVal;
        VARIANT_BOOL* pboolVal;
        SCODE* pscode;
        DATE* pdate;
        BSTR* pbstrVal;
        IUnknown** ppunkVal;
        IDispatch** ppdispVal;
        SAFEARRAY** pparray;
        tagVARIANT* pvarVal;
        char* pcVal;
        USHORT* puiVal;
        ULONG* pulVal;
        ULONGLONG* pullVal;
        INT* pintVal;
        UINT* puintVal;
        void* byref;
    };
};
using VARIANT = tagVARIANT;
using VARIANTARG = VARIANT;

/// Arguments of a call, the last one first; named arguments stand in front.
struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

/// What a call that failed with DISP_E_EXCEPTION has to tell. The caller frees the texts.
struct EXCEPINFO {
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    void* pvReserved;
    HRESULT(STDAPICALLTYPE* pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};

// --- interfaces --------------------------------------------------------------------------------

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

protected:
    ~IUnknown() = default; // ends by Release
};

struct IDispatch : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                                    LCID locale, DISPID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale,
                                             WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                             EXCEPINFO* exception, UINT* wrongArgument) = 0;

protected:
    ~IDispatch() = default;
};

struct IEnumVARIANT : IUnknown {
    /// Gives up to `count` values; S_FALSE if there were fewer.
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) = 0;

protected:
    ~IEnumVARIANT() = default;
};

// Running objects, as far as looking for one by its name is concerned.

struct IBindCtx;

struct IMoniker : IUnknown {
    // The receiver frees the name with CoTaskMemFree.
    virtual HRESULT STDMETHODCALLTYPE GetDisplayName(IBindCtx* context, IMoniker* toLeft,
                                                     LPOLESTR* name) = 0;

protected:
    ~IMoniker() = default;
};

struct IEnumMoniker : IUnknown {
    // Gives up to `count` names; S_FALSE if there were fewer.
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, IMoniker** monikers, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumMoniker** copy) = 0;

protected:
    ~IEnumMoniker() = default;
};

struct IRunningObjectTable : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetObject(IMoniker* moniker, IUnknown** object) = 0;
    // Over what is running now.
    virtual HRESULT STDMETHODCALLTYPE EnumRunning(IEnumMoniker** monikers) = 0;

protected:
    ~IRunningObjectTable() = default;
};

struct IBindCtx : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetRunningObjectTable(IRunningObjectTable** table) = 0;

protected:
    ~IBindCtx() = default;
};

// Type libraries, as far as the constants in them are concerned.

enum DESCKIND {
    DESCKIND_NONE = 0,
    DESCKIND_FUNCDESC = 1,
    DESCKIND_VARDESC = 2,
    DESCKIND_TYPECOMP = 3,
    DESCKIND_IMPLICITAPPOBJ = 4
};

enum VARKIND { VAR_PERINSTANCE = 0, VAR_STATIC = 1, VAR_CONST = 2, VAR_DISPATCH = 3 };

struct FUNCDESC;

struct VARDESC {
    MEMBERID memid;
    LPOLESTR lpstrSchema;
    union {
        ULONG oInst;
        VARIANT* lpvarValue; // the constant's value, for VAR_CONST
    };
    WORD wVarFlags;
    VARKIND varkind;
};

union BINDPTR {
    FUNCDESC* lpfuncdesc;
    VARDESC* lpvardesc;
    ITypeComp* lptcomp;
};

struct ITypeInfo : IUnknown {
    /// Give back what ITypeComp::Bind handed out together with this object.
    virtual void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* description) = 0;
    virtual void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC* description) = 0;

protected:
    ~ITypeInfo() = default;
};

struct ITypeComp : IUnknown {
    /// Success with DESCKIND_NONE means that the name is unknown. A description belongs to `info`
    /// if that is not null, else to the ITypeComp.
    virtual HRESULT STDMETHODCALLTYPE Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** info,
                                           DESCKIND* kind, BINDPTR* binding) = 0;

protected:
    ~ITypeComp() = default;
};

struct ITypeLib : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** comp) = 0;

protected:
    ~ITypeLib() = default;
};
