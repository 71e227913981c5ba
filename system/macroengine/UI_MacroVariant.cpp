#include "UI_MacroVariant.h"

#include <Automation.h>
#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>

#include <utility>

#include "values/Parts.h"

namespace {

template <class T> T& immortal(T* object) { return *object; }

} // namespace

void* UI_MacroVariant::Parts::operator new(std::size_t size) {
    return SCL::cStaticAlloc().allocate(size);
}

void UI_MacroVariant::Parts::operator delete(void* cell, std::size_t size) {
    SCL::cStaticAlloc().deallocate(cell, size);
}

// --- Construction --------------------------------------------------------------------------

UI_MacroVariant::UI_MacroVariant(void* handle) noexcept : m_Type(vvtHandle) {
    m_Payload.pointer = handle;
}

UI_MacroVariant::UI_MacroVariant(const SYS_String& text) : m_Type(vvtString), m_Text(text) {}

UI_MacroVariant::UI_MacroVariant(const char* text) : m_Type(vvtString), m_Text(text) {}

UI_MacroVariant::UI_MacroVariant(UI_MacroVariant* const target)
    : m_Type(vvtReference), m_Target(target) {}

UI_MacroVariant::UI_MacroVariant(IDispatch* object) { SetObjectVal(object, true); }

UI_MacroVariant::UI_MacroVariant(IUnknown* object) { SetUnknownObjectVal(object); }

UI_MacroVariant::UI_MacroVariant(const SCC_Variant& value) { SetVariantVal(value); }

UI_MacroVariant::UI_MacroVariant(MacroFunctionHandler handler) noexcept : m_Type(vvtFunction) {
    m_Payload.handler = handler;
}

UI_MacroVariant::UI_MacroVariant(const UI_MacroArray& array)
    : m_Type(vvtArray), m_FlagsOrDims(1), m_IdOrArrayType(ArrayValue) {
    parts().array = array;
}

UI_MacroVariant::UI_MacroVariant(const UI_MacroVariant& other) : SCC_SafeBuffer() {
    copyFrom(other);
}

UI_MacroVariant::UI_MacroVariant(UI_MacroVariant&& other) noexcept : SCC_SafeBuffer() {
    moveFrom(other);
}

UI_MacroVariant::Parts& UI_MacroVariant::parts() {
    if (!m_Parts)
        m_Parts = new Parts;
    return *m_Parts;
}

// Elements may hold arrays of their own, to any depth: what a dying array gives up is put on a
// list and destroyed by the outermost call, so that no depth of nesting uses the native stack.
void UI_MacroVariant::releaseParts(Parts* mine) noexcept {
    static Parts* pending = nullptr;
    static bool destroying = false;

    mine->next = pending;
    pending = mine;
    if (destroying)
        return;
    destroying = true;
    while (Parts* dying = pending) {
        pending = dying->next;
        if (dying->counted)
            dying->counted->Release();
        delete dying;
    }
    destroying = false;
}

void UI_MacroVariant::setCounted(IUnknown* object) {
    if (object)
        object->AddRef();
    IUnknown* old = m_Parts ? m_Parts->counted : nullptr;
    if (object)
        parts().counted = object;
    else if (m_Parts)
        m_Parts->counted = nullptr;
    if (old)
        old->Release();
}

void UI_MacroVariant::clearRest() {
    // Letting go may run host code, even end this value: that comes last, from locals.
    SCC_SafePointer<UI_MacroVariant> target = std::move(m_Target);
    Parts* rest = std::exchange(m_Parts, nullptr);
    m_Text.Clear();
    m_Type = vvtEmpty;
    m_Payload.integer = 0;
    m_FlagsOrDims = 0;
    m_IdOrArrayType = 0;
    if (rest)
        releaseParts(rest);
}

void UI_MacroVariant::moveFrom(UI_MacroVariant& src) noexcept {
    m_Type = src.m_Type;
    m_FlagsOrDims = src.m_FlagsOrDims;
    m_IdOrArrayType = m_Type == vvtArray ? static_cast<int>(ArrayValue) : src.m_IdOrArrayType;
    m_Payload = src.m_Payload;
    m_Text = std::move(src.m_Text);
    m_Target = std::move(src.m_Target);
    m_Parts = src.m_Parts;
    src.m_Parts = nullptr;
    src.m_Type = vvtEmpty;
    src.m_Payload.integer = 0;
    src.m_FlagsOrDims = 0;
    src.m_IdOrArrayType = 0;
    if (m_Type == vvtObject && m_Payload.dispatch && !(m_Parts && m_Parts->counted))
        setCounted(m_Payload.dispatch);
    if (m_Type == vvtReference && m_Target.Get() == this) {
        SCL_ASSERT(false, "UI_MacroVariant: a value cannot refer to itself");
        m_Target = nullptr;
    }
}

void UI_MacroVariant::Take(UI_MacroVariant& src) noexcept {
    if (!hasRest()) {
        moveFrom(src);
        return;
    }
    UI_MacroVariant old; // its end may run host code: it goes last
    old.moveFrom(*this);
    moveFrom(src);
}

// --- Accessors -----------------------------------------------------------------------------

UI_MacroVariant* UI_MacroVariant::operator->() const { return m_Target; }

bool UI_MacroVariant::IsPropertyGet(const char*) { return false; }

const ScriptDebugger::iApplicationClass* UI_MacroVariant::GetMacroDescriptor() const {
    return nullptr;
}

void UI_MacroVariant::SetConstant(bool) {}

bool UI_MacroVariant::isConstant() const { return false; }

UI_MacroVariantParam& UI_MacroVariant::Empty() {
    static UI_MacroVariantParam& value = immortal(new UI_MacroVariantParam(true));
    return value;
}

UI_MacroVariantParam& UI_MacroVariant::Null() {
    static UI_MacroVariantParam& value = immortal(
        new UI_MacroVariantParam(UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr)), true));
    return value;
}

UI_MacroVariantParam& UI_MacroVariant::Nothing() {
    static UI_MacroVariantParam& value =
        immortal(new UI_MacroVariantParam(UI_MacroVariant(static_cast<IDispatch*>(nullptr)), true));
    return value;
}

UI_MacroArray& UI_MacroVariant::Arrval() { return parts().array; }

const UI_MacroArray& UI_MacroVariant::Arrval() const {
    static const UI_MacroArray& none = immortal(new UI_MacroArray);
    return m_Parts ? m_Parts->array : none;
}

const SYS_String& UI_MacroVariant::GetStringVal() const {
    SCL_ASSERT(m_Type == vvtString, "UI_MacroVariant::GetStringVal: not a string");
    return m_Text;
}

const SYS_String& UI_MacroVariant::GetExecScriptVal() const {
    SCL_ASSERT(m_Type == vvtScript, "UI_MacroVariant::GetExecScriptVal: not a script");
    return m_Text;
}

void* UI_MacroVariant::GetHandle() const {
    SCL_ASSERT(m_Type == vvtHandle, "UI_MacroVariant::GetHandle: not a handle");
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(static_cast<int>(m_Payload.integer)));
}

IDispatch* UI_MacroVariant::GetDispatchVal() const {
    return m_Type == vvtObject ? m_Payload.dispatch : nullptr;
}

IUnknown* UI_MacroVariant::GetUnknownVal() const { return m_Parts ? m_Parts->counted : nullptr; }

void UI_MacroVariant::SetIntVal(__int64 value) {
    m_Payload.integer = value;
    m_Type = vvtInteger;
}

void UI_MacroVariant::SetBoolVal(bool value) {
    m_Payload.integer = value ? -1 : 0;
    m_Type = vvtBoolean;
}

void UI_MacroVariant::SetRealVal(double value) {
    m_Payload.real = value;
    m_Type = vvtDouble;
}

void UI_MacroVariant::SetStringVal(const SYS_String& text) {
    m_Text = text;
    m_Type = vvtString;
}

void UI_MacroVariant::SetExecScriptVal(const SYS_String& text) {
    m_Text = text;
    m_Type = vvtScript;
}

void UI_MacroVariant::SetHandleVal(void* handle) {
    m_Payload.integer = 0;
    m_Payload.pointer = handle;
    m_Type = vvtHandle;
}

void UI_MacroVariant::SetFunctionRefVal(const SYS_String& name, UI_MacroVariant* owner) {
    m_Text = name;
    m_Type = vvtFunction;
    m_Payload.integer = 0; // a stale number would be called as a handler
    m_Target = owner;
}

void UI_MacroVariant::SetLValueVal(UI_MacroVariant* const target) {
    SCL_ASSERT(target != this, "UI_MacroVariant::SetLValueVal: a value cannot refer to itself");
    if (target == this)
        return;
    m_Target = target;
    m_Type = vvtReference;
}

void UI_MacroVariant::SetObjectVal(IDispatch* object, bool addRef) {
    m_Type = vvtObject;
    attachDispatchVal(object, addRef);
}

void UI_MacroVariant::attachDispatchVal(IDispatch* object, bool addRef) {
    m_Payload.integer = 0;
    m_Payload.dispatch = object;
    setCounted(addRef ? object : nullptr);
}

void UI_MacroVariant::SetUnknownObjectVal(IUnknown* object) {
    m_Type = vvtUnknown;
    setCounted(object);
}

bool UI_MacroVariant::SetToPropertyGet() {
    if (m_Type != vvtObject)
        return false;
    if (GetWFlags() != 0)
        m_FlagsOrDims = DISPATCH_PROPERTYGET;
    return true;
}

void UI_MacroVariant::copyAgr(UI_MacroVariant* args, int n) {
    SCL_ASSERT(args || n == 0, "UI_MacroVariant::copyAgr: arguments are missing");
    if (!args)
        n = 0;
    if (n == 0 && !m_Parts)
        return;
    UI_MacroArray& stored = parts().array;
    stored.SetSize(n);
    UI_MacroVariant* cell = stored.WritableData();
    for (int i = 0; i < n; ++i)
        cell[i] = args[i];
}
