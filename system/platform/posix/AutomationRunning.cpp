// The objects that are running under a name, as the host has registered them, and the interfaces
// that look through them.

#include <Automation.h>
#include <AutomationCounted.h>

#include <SYS_Unicode.h>

#include <cstdlib>
#include <cstring>
#include <list>
#include <new>
#include <utility>
#include <vector>

using automation::CountedInterface;
using automation::MakeInterface;
using kel_ns::SYS_String;
using kel_ns::SYS_StrNoCase;

namespace {

struct Running {
    SYS_StrNoCase name;
    IUnknown* object = nullptr;
};

// Never destroyed: at the end of the process the objects' own libraries may have gone.
std::list<Running>& runningObjects() {
    static auto* const all = new std::list<Running>;
    return *all;
}

std::list<Running>::iterator findRunning(const char* name) {
    std::list<Running>& all = runningObjects();
    auto each = all.begin();
    while (each != all.end() && !(each->name == name))
        ++each;
    return each;
}

bool isName(const char* name) { return name && *name != '\0'; }

class Moniker final : public CountedInterface<IMoniker, IID_IMoniker> {
public:
    explicit Moniker(const SYS_String& name) : m_Name(name) {}

    HRESULT STDMETHODCALLTYPE GetDisplayName(IBindCtx*, IMoniker*, LPOLESTR* name) override {
        if (!name)
            return E_POINTER;
        *name = nullptr;
        try {
            const std::u16string wide = kel_ns::SYS_ToUtf16(m_Name.View());
            const std::size_t size = (wide.size() + 1) * sizeof(OLECHAR);
            void* copy = std::malloc(size);
            if (!copy)
                return E_OUTOFMEMORY;
            std::memcpy(copy, wide.c_str(), size);
            *name = static_cast<LPOLESTR>(copy);
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

private:
    const SYS_String m_Name;
};

/// Over the names that were running when it was made.
class MonikerEnumerator final : public CountedInterface<IEnumMoniker, IID_IEnumMoniker> {
public:
    explicit MonikerEnumerator(std::vector<SYS_String> names, std::size_t next = 0)
        : m_Names(std::move(names)), m_Next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, IMoniker** monikers, ULONG* fetched) override {
        if (fetched)
            *fetched = 0;
        if (!monikers)
            return E_POINTER;
        ULONG given = 0;
        for (; given < count && m_Next < m_Names.size(); ++given, ++m_Next) {
            const HRESULT made = MakeInterface<Moniker>(&monikers[given], m_Names[m_Next]);
            if (SUCCEEDED(made))
                continue;
            m_Next -= given;
            while (given > 0)
                std::exchange(monikers[--given], nullptr)->Release();
            return made;
        }
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = m_Names.size() - m_Next;
        m_Next += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        m_Next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumMoniker** copy) override {
        return MakeInterface<MonikerEnumerator>(copy, m_Names, m_Next);
    }

private:
    const std::vector<SYS_String> m_Names;
    std::size_t m_Next;
};

class RunningObjectTable final
    : public CountedInterface<IRunningObjectTable, IID_IRunningObjectTable> {
public:
    HRESULT STDMETHODCALLTYPE GetObject(IMoniker* moniker, IUnknown** object) override {
        if (!moniker || !object)
            return E_POINTER;
        *object = nullptr;
        LPOLESTR wide = nullptr;
        const HRESULT named = moniker->GetDisplayName(nullptr, nullptr, &wide);
        if (FAILED(named))
            return named;
        try {
            *object = automation::FindRunning(kel_ns::SYS_FromUtf16(wide).c_str());
        } catch (const std::bad_alloc&) { // the object stays null
        }
        CoTaskMemFree(wide);
        return *object ? S_OK : MK_E_UNAVAILABLE;
    }
    HRESULT STDMETHODCALLTYPE EnumRunning(IEnumMoniker** monikers) override {
        if (!monikers)
            return E_POINTER;
        *monikers = nullptr;
        try {
            std::vector<SYS_String> names;
            for (const Running& each : runningObjects())
                names.push_back(each.name);
            return MakeInterface<MonikerEnumerator>(monikers, std::move(names));
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }
};

class BindContext final : public CountedInterface<IBindCtx, IID_IBindCtx> {
public:
    HRESULT STDMETHODCALLTYPE GetRunningObjectTable(IRunningObjectTable** table) override {
        return MakeInterface<RunningObjectTable>(table);
    }
};

} // namespace

namespace automation {

bool RegisterRunning(const char* displayName, IUnknown* object) {
    if (!isName(displayName) || !object)
        return false;
    try {
        const auto known = findRunning(displayName);
        if (known == runningObjects().end()) {
            runningObjects().push_back({SYS_StrNoCase(displayName), object});
            object->AddRef();
            return true;
        }
        object->AddRef();
        // The old object goes last: its end may come back to the registry.
        std::exchange(known->object, object)->Release();
        return true;
    } catch (const std::exception&) { // no memory
        return false;
    }
}

bool RevokeRunning(const char* displayName) {
    if (!isName(displayName))
        return false;
    const auto known = findRunning(displayName);
    if (known == runningObjects().end())
        return false;
    IUnknown* object = known->object;
    runningObjects().erase(known);
    object->Release();
    return true;
}

IUnknown* FindRunning(const char* displayName) {
    if (!isName(displayName))
        return nullptr;
    const auto known = findRunning(displayName);
    if (known == runningObjects().end())
        return nullptr;
    known->object->AddRef();
    return known->object;
}

} // namespace automation

HRESULT CreateBindCtx(DWORD, IBindCtx** context) { return MakeInterface<BindContext>(context); }

void CoTaskMemFree(void* memory) { std::free(memory); }
