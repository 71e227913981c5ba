#include "engine/TypeLibrary.h"

#include <Automation.h>
#include <SYS_Unicode.h>
#include <UI_MacroProcessor.h>

namespace {

ITypeLib* hostLibrary() {
    const auto& hook = MacroSupport::GetHostHooks().typeLib;
    return hook ? hook() : nullptr;
}

} // namespace

bool HasTypeLibrary() { return static_cast<bool>(MacroSupport::GetHostHooks().typeLib); }

bool FindTypeLibraryConstant(const SYS_String& name, UI_MacroVariant& value) {
    ITypeLib* library = hostLibrary();
    if (!library)
        return false;
    ITypeComp* names = nullptr;
    if (FAILED(library->GetTypeComp(&names)) || !names)
        return false;
    std::u16string wide = SYS_ToUtf16(name.View());
    ITypeInfo* info = nullptr;
    DESCKIND kind = DESCKIND_NONE;
    BINDPTR found{};
    const HRESULT result = names->Bind(wide.data(), 0, INVOKE_PROPERTYGET, &info, &kind, &found);
    const bool isConstant = SUCCEEDED(result) && kind == DESCKIND_VARDESC && found.lpvardesc &&
                            found.lpvardesc->lpvarValue;
    if (isConstant)
        value.init(*found.lpvardesc->lpvarValue);
    names->Release();
    return isConstant;
}
