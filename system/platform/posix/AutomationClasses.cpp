#include <Automation.h>

#include <SYS_Unicode.h>

#include <list>
#include <new>
#include <string_view>
#include <utility>

using kel_ns::SYS_StrNoCase;

namespace {

struct Class {
    SYS_StrNoCase progId;
    CLSID id = GUID_NULL;
    automation::Factory factory;
    IUnknown* active = nullptr;
};

// Never destroyed: at the end of the process the objects' own libraries may have gone.
std::list<Class>& classes() {
    static auto* const all = new std::list<Class>;
    return *all;
}

Class* findClass(const SYS_StrNoCase& progId) {
    for (Class& each : classes())
        if (each.progId == progId)
            return &each;
    return nullptr;
}

CLSID newClassId() {
    static std::uint32_t s_Last = 0;
    return {++s_Last, 0x51C7, 0x4E0A, {0x9B, 0x6D, 0x2F, 0x84, 0xE3, 0x17, 0xA0, 0x5C}};
}

// A class keeps its entry, and with it its id, when it is revoked.
Class& entryFor(const char* progId) {
    if (Class* known = findClass(progId))
        return *known;
    Class added;
    added.progId = progId;
    added.id = newClassId();
    return classes().emplace_back(std::move(added));
}

bool isName(const char* name) { return name && *name != '\0'; }

// The old object goes last: its end may come back to the registry.
void replaceObject(IUnknown*& slot, IUnknown* object) {
    if (object)
        object->AddRef();
    IUnknown* old = std::exchange(slot, object);
    if (old)
        old->Release();
}

} // namespace

namespace automation {

bool RegisterClass(const char* progId, REFCLSID classId, Factory factory) {
    if (!isName(progId) || !factory)
        return false;
    try {
        Class& entry = entryFor(progId);
        entry.id = classId;
        entry.factory.swap(factory);
        return true;
    } catch (const std::exception&) { // no memory
        return false;
    }
}

bool RegisterClass(const char* progId, Factory factory) {
    if (!isName(progId) || !factory)
        return false;
    try {
        entryFor(progId).factory.swap(factory);
        return true;
    } catch (const std::exception&) { // no memory
        return false;
    }
}

bool RevokeClass(const char* progId) {
    Class* entry = isName(progId) ? findClass(progId) : nullptr;
    if (!entry || !entry->factory)
        return false;
    Factory old; // goes after the entry is in order again
    entry->factory.swap(old);
    return true;
}

bool RegisterActive(const char* progId, IUnknown* object) {
    if (!isName(progId) || !object)
        return false;
    try {
        replaceObject(entryFor(progId).active, object);
        return true;
    } catch (const std::exception&) { // no memory
        return false;
    }
}

bool RevokeActive(const char* progId) {
    Class* entry = isName(progId) ? findClass(progId) : nullptr;
    if (!entry || !entry->active)
        return false;
    replaceObject(entry->active, nullptr);
    return true;
}

} // namespace automation

HRESULT CLSIDFromProgID(LPCOLESTR progId, CLSID* classId) {
    if (!progId || !classId)
        return E_INVALIDARG;
    *classId = GUID_NULL;
    try {
        const Class* entry = findClass(kel_ns::SYS_FromUtf16(std::u16string_view(progId)));
        if (!entry || (!entry->factory && !entry->active))
            return CO_E_CLASSSTRING;
        *classId = entry->id;
        return S_OK;
    } catch (const std::exception&) { // no memory
        return E_OUTOFMEMORY;
    }
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid,
                         void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    if ((context & (CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER)) == 0)
        return REGDB_E_CLASSNOTREG;
    try {
        for (const Class& each : classes()) {
            if (!(each.id == classId) || !each.factory)
                continue;
            const automation::Factory factory = each.factory; // it may revoke its own class
            IUnknown* made = factory();
            if (!made)
                return E_FAIL;
            const HRESULT result = made->QueryInterface(iid, object);
            made->Release();
            return result;
        }
        return REGDB_E_CLASSNOTREG;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) { // a factory's failure is a failed creation to the caller, whatever its kind
        return E_FAIL;
    }
}

HRESULT GetActiveObject(REFCLSID classId, void*, IUnknown** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    for (const Class& each : classes()) {
        if (each.id == classId && each.active) {
            each.active->AddRef();
            *object = each.active;
            return S_OK;
        }
    }
    return MK_E_UNAVAILABLE;
}

namespace {

HRESULT failAll(HRESULT failure, DWORD count, MULTI_QI* results) {
    if (!results)
        return E_INVALIDARG;
    for (DWORD i = 0; i < count; ++i) {
        results[i].pItf = nullptr;
        results[i].hr = failure;
    }
    return failure;
}

} // namespace

HRESULT CoCreateInstanceEx(REFCLSID, IUnknown*, DWORD, COSERVERINFO*, DWORD count,
                           MULTI_QI* results) {
    return failAll(REGDB_E_CLASSNOTREG, count, results);
}

HRESULT CoGetInstanceFromFile(COSERVERINFO*, CLSID*, IUnknown*, DWORD, DWORD, LPOLESTR, DWORD count,
                              MULTI_QI* results) {
    return failAll(MK_E_CANTOPENFILE, count, results);
}

HRESULT LoadTypeLib(LPCOLESTR, ITypeLib** library) {
    if (!library)
        return E_INVALIDARG;
    *library = nullptr;
    return TYPE_E_CANTLOADLIBRARY;
}
