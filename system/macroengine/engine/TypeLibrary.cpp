#include "engine/TypeLibrary.h"

#include <Automation.h>
#include <SYS_Unicode.h>
#include <UI_MacroProcessor.h>

namespace {

ITypeLib* hostLibrary() {
    const auto& hook = MacroSupport::GetHostHooks().typeLib;
    return hook ? hook() : nullptr;
}

/// What a name is bound to. Gives everything back at its end.
class Binding {
public:
    Binding(ITypeLib& library, const SYS_String& name) {
        if (FAILED(library.GetTypeComp(&m_Names)) || !m_Names)
            return;
        std::u16string wide = SYS_ToUtf16(name.View());
        if (FAILED(m_Names->Bind(wide.data(), 0, INVOKE_PROPERTYGET, &m_Info, &m_Kind, &m_Found)))
            m_Kind = DESCKIND_NONE;
    }
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;
    ~Binding() {
        if (m_Kind == DESCKIND_TYPECOMP && m_Found.lptcomp)
            m_Found.lptcomp->Release();
        else if (m_Info && isVariable() && m_Found.lpvardesc)
            m_Info->ReleaseVarDesc(m_Found.lpvardesc);
        else if (m_Info && m_Kind == DESCKIND_FUNCDESC && m_Found.lpfuncdesc)
            m_Info->ReleaseFuncDesc(m_Found.lpfuncdesc);
        if (m_Info)
            m_Info->Release();
        if (m_Names)
            m_Names->Release();
    }

    /// Null if the name is no constant.
    const VARIANT* GetConstant() const {
        const bool isConstant = m_Kind == DESCKIND_VARDESC && m_Found.lpvardesc &&
                                m_Found.lpvardesc->varkind == VAR_CONST;
        return isConstant ? m_Found.lpvardesc->lpvarValue : nullptr;
    }

private:
    bool isVariable() const {
        return m_Kind == DESCKIND_VARDESC || m_Kind == DESCKIND_IMPLICITAPPOBJ;
    }

    ITypeComp* m_Names = nullptr;
    ITypeInfo* m_Info = nullptr;
    DESCKIND m_Kind = DESCKIND_NONE;
    BINDPTR m_Found{};
};

} // namespace

bool HasTypeLibrary() { return static_cast<bool>(MacroSupport::GetHostHooks().typeLib); }

bool FindTypeLibraryConstant(const SYS_String& name, UI_MacroVariant& value) {
    ITypeLib* library = hostLibrary();
    if (!library)
        return false;
    Binding binding(*library, name);
    const VARIANT* constant = binding.GetConstant();
    if (constant)
        value.init(*constant);
    return constant != nullptr;
}
