// Properties in expressions: read when their value is needed, written when they are assigned.

#include <ClassDescriptors.h>
#include <MacroException.h>
#include <SCL_StaticAlloc.h>
#include <UI_MacroEval.h>

#include "values/CopyOut.h"

namespace {

const char* const kNoSuchProperty = "Object does not support this property or method";

} // namespace

void* cMacroPropertyProxy::operator new(std::size_t size) {
    return SCL::cStaticAlloc::allocate(size);
}

void cMacroPropertyProxy::operator delete(void* cell, std::size_t size) {
    SCL::cStaticAlloc::deallocate(cell, size);
}

cMacroPropertyProxy::cMacroPropertyProxy(MacroEval& object, int argc, UI_MacroVariant* args)
    : m_Object(&object) {
    m_IsProxy = true;
    SetDeletePending(true);
    if (argc <= 0)
        return;
    m_Arguments.SetSize(argc);
    UI_MacroVariant* cell = m_Arguments.WritableData();
    for (int i = 0; i < argc; ++i)
        cell[i] = args[i];
}

cMacroPropertyProxy::~cMacroPropertyProxy() = default;

MacroEval* cMacroPropertyProxy::getObject() const {
    UI_MacroVariant* object = m_Object;
    return static_cast<MacroEval*>(object);
}

// --- Reading -------------------------------------------------------------------------------

void cMacroPropertyProxy::read() {
    MacroEval* object = getObject();
    if (!object)
        return;
    SCC_SafePointer<UI_MacroVariant> self(this); // the getter may drop the last Reference
    const int argc = m_Arguments.GetCount();
    UI_MacroVariant* args = argc ? m_Arguments.WritableData() : nullptr;
    UI_MacroVariant value;
    if (!access(MacroPropertyAccess::Get, *object, argc, args, value)) {
        object->OnMacroError(kNoSuchProperty);
        return;
    }
    if (value.getRefVal() == this)
        return;
    Take(value);
}

void cMacroPropertyProxy::InitRVal() {
    // A look at the value on the way to this call has read it already.
    const bool isCurrent = m_State == State::ReadAhead;
    m_State = State::Read;
    if (!isCurrent)
        read();
}

UI_MacroVariant* cMacroPropertyProxy::GetRVal() const {
    auto* self = const_cast<cMacroPropertyProxy*>(this);
    if (m_State == State::Unread) {
        const SCC_SafePointer<UI_MacroVariant> alive(self); // the getter may let go of the proxy
        self->m_State = State::ReadAhead;
        self->read();
        if (GetLockCount() == 1)
            return nullptr;
    }
    return UI_MacroVariant::GetRVal();
}

UI_MacroVariant cMacroPropertyProxy::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    UI_MacroVariant value = CopyOut(GetRVal());
    if (UI_MacroVariant* object = value.getRefVal(); object && object->IsMacroEval())
        return object->Evaluate(name, args, argc);
    return value.Evaluate(name, args, argc);
}

// --- Writing -------------------------------------------------------------------------------

cMacroPropertyProxy& cMacroPropertyProxy::operator=(const UI_MacroVariant& value) {
    if (&value != this)
        write(MacroPropertyAccess::Set, value);
    return *this;
}

cMacroPropertyProxy& cMacroPropertyProxy::operator=(const cMacroPropertyProxy& value) {
    return *this = static_cast<const UI_MacroVariant&>(value);
}

void cMacroPropertyProxy::Assign(const UI_MacroVariant& src) {
    UI_MacroVariant temp;
    UI_MacroVariant* read = temp.derefObject(src).GetRVal();
    UI_MacroVariant value =
        read ? UI_MacroVariant(*read) : UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr));
    if (value.GetType() == vvtArray)
        MacroVariantArraySupport::SeparateBuffers(value);
    write(MacroPropertyAccess::Set, value);
}

void cMacroPropertyProxy::SetObjectRef(const UI_MacroVariant& src) {
    if (src.IsMacroEval())
        write(MacroPropertyAccess::SetRef, const_cast<UI_MacroVariant*>(&src));
    else
        write(MacroPropertyAccess::SetRef, src);
}

void cMacroPropertyProxy::write(MacroPropertyAccess way, const UI_MacroVariant& value) {
    MacroEval* object = getObject();
    if (!object) {
        UI_MacroVariant::operator=(value);
        return;
    }
    SCC_SafePointer<UI_MacroVariant> self(this); // the setter may drop the last Reference
    const int argc = m_Arguments.GetCount();
    UI_MacroVariant ignored;
    bool done;
    if (argc == 0) {
        UI_MacroVariant argument(value);
        done = access(way, *object, 1, &argument, ignored);
    } else {
        UI_MacroArray arguments(m_Arguments);
        arguments.Append(value);
        done = access(way, *object, argc + 1, arguments.WritableData(), ignored);
    }
    if (done)
        m_State = State::Unread; // the setter decides what the property reads as
    else
        writeThroughValue(way, *object, value);
}

/// Without a setter of its own the property can only pass the value on to what it holds.
void cMacroPropertyProxy::writeThroughValue(MacroPropertyAccess way, MacroEval& object,
                                            const UI_MacroVariant& value) {
    SCC_SafePointer<UI_MacroVariant> living(&object);
    const int argc = m_Arguments.GetCount();
    UI_MacroVariant held;
    UI_MacroVariant target;
    const bool hasValue = access(MacroPropertyAccess::Get, object, argc,
                                 argc ? m_Arguments.WritableData() : nullptr, held);
    if (!hasValue || !held.evaluateDereference(nullptr, 0, target, derefPropertyGet)) {
        if (living)
            static_cast<MacroEval*>(living.Get())->OnMacroError(kNoSuchProperty);
        return;
    }
    if (way == MacroPropertyAccess::Set)
        target.Assign(value);
    else
        target.SetObjectRef(value);
}

// --- UI_MacroProperty ----------------------------------------------------------------------

UI_MacroProperty::UI_MacroProperty(const char* name) : MacroEval(name) {}

UI_MacroProperty::UI_MacroProperty(const UI_MacroProperty& other) = default;

UI_MacroProperty::~UI_MacroProperty() = default;

UI_MacroProperty& UI_MacroProperty::operator=(const UI_MacroVariant& value) {
    const UI_MacroVariant* read = value.GetRVal();
    if (!read || read->IsEmpty())
        OnMacroError(errObjectIsNothing, SYS_String());
    else
        SetValue(value);
    return *this;
}

UI_MacroProperty& UI_MacroProperty::operator=(const UI_MacroProperty& value) {
    return *this = static_cast<const UI_MacroVariant&>(value);
}
