#include "UI_MacroEval.h"

#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>

#include "objects/MemberDispatch.h"

const char* const MacroEval::TypeNameInt = "Integer";
const char* const MacroEval::TypeNameReal = "Real";
const char* const MacroEval::TypeNameString = "String";
const char* const MacroEval::TypeNameBoolean = "Boolean";
const char* const MacroEval::TypeNameVariant = "Variant";

MacroEval::MacroEval(const char* name) : UI_MacroVariant(Role::Object), m_Name(name) {
    DisableRefCount();
}

MacroEval::MacroEval(const MacroEval& other)
    : UI_MacroVariant(Role::Object), tRefCounted<ScriptDebugger::iScriptObject>(other),
      m_Map(other.m_Map), m_Name(other.m_Name), m_Parent(other.m_Parent) {
    DisableRefCount();
    UI_MacroVariant::operator=(other);
}

MacroEval& MacroEval::operator=(const MacroEval& other) {
    if (&other == this)
        return *this;
    m_Map = other.m_Map;
    m_Name = other.m_Name;
    m_Parent = other.m_Parent;
    UI_MacroVariant::operator=(other);
    return *this;
}

MacroEval::~MacroEval() {
    if (m_Map) {
        SCC_MapIterator<SYS_StrNoCase, UI_MacroVariant> it(*m_Map);
        for (bool more = it.GetFirst(); more; more = it.Next())
            flushParent(it.GetValue().getRefVal());
    }
    if (auto* parent = static_cast<MacroEval*>(m_Parent.Get()))
        parent->Remove(*this, nullptr);
    m_Map = nullptr;
}

MacroEval::Map& MacroEval::getMap() {
    if (!m_Map)
        m_Map = new Map;
    return *m_Map;
}

UI_MacroVariant MacroEval::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    if (name) {
        if (const UI_MacroVariant* entry = getMap().Lookup(SYS_StrNoCase(name))) {
            UI_MacroVariant* child = entry->getRefVal();
            return child ? child->Evaluate(nullptr, args, argc) : UI_MacroVariant(Null());
        }
    }
    UI_MacroVariant result;
    if (DispatchMacroEvalMember(*this, name, args, argc, result))
        return result;
    return UI_MacroVariant::Evaluate(name, args, argc);
}

void MacroEval::SetName(const SYS_String& name) { m_Name = name; }

SYS_String MacroEval::GetName() const { return m_Name; }

void MacroEval::Register(MacroEval& object, const char* name) {
    const SYS_String key = name ? SYS_String(name) : object.GetName();
    if (key.IsEmpty())
        return;
    getMap().Install(SYS_StrNoCase(key), UI_MacroVariant(static_cast<UI_MacroVariant*>(&object)));
    object.SetEvalParent(this);
}

void MacroEval::Remove(MacroEval& object, const char* name) {
    if (!m_Map)
        return;
    const SYS_String key = name ? SYS_String(name) : object.GetName();
    object.SetEvalParent(nullptr);
    if (key.IsEmpty())
        return;
    const SYS_StrNoCase folded(key);
    const UI_MacroVariant* entry = m_Map->Lookup(folded);
    if (entry && entry->getRefVal() == static_cast<UI_MacroVariant*>(&object))
        m_Map->Remove(folded);
}

UI_MacroVariant* MacroEval::Get(const char* name) const {
    if (!m_Map || !name)
        return nullptr;
    const UI_MacroVariant* entry = m_Map->Lookup(SYS_StrNoCase(name));
    return entry ? entry->getRefVal() : nullptr;
}

void MacroEval::RegisterWithMacroParent() {
    MacroEval* parent = GetEvalParent() ? GetEvalParent() : MacroSupport::s_Processor;
    if (parent)
        parent->Register(*this, nullptr);
}

void MacroEval::RemoveFromMacroParent() {
    MacroEval* parent = GetEvalParent() ? GetEvalParent() : MacroSupport::s_Processor;
    if (parent)
        parent->Remove(*this, nullptr);
}

MacroEval* MacroEval::GetEvalParent() { return static_cast<MacroEval*>(m_Parent.Get()); }

void MacroEval::SetEvalParent(MacroEval* parent) { m_Parent = parent; }

SYS_String MacroEval::GetEvalParentName() {
    SYS_String path;
    for (MacroEval* p = GetEvalParent(); p;) {
        MacroEval* next = p->GetEvalParent();
        SYS_String name = p->GetName();
        SCL_ASSERT(!name.IsEmpty() || !next, "Only root name must be empty");
        const bool nearRoot = !next || !next->GetEvalParent();
        const MacroSupport* processor = MacroSupport::GetProcessor();
        if (!name.IsEmpty() && nearRoot && processor && processor->GetModalContext() == name)
            name = SYS_String(' ', static_cast<unsigned>(2 * processor->GetModalContextLevel()));
        if (!name.IsEmpty()) {
            if (!path.IsEmpty() && path[0] != '(')
                name += ".";
            path.Insert(0, name);
        }
        p = next;
    }
    return path;
}

void MacroEval::OnMacroError(const SYS_String& message) const {
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(message);
}

void MacroEval::OnMacroError(int code, const SYS_String& param) const {
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(static_cast<MacroERR_Code>(code), param);
}

void MacroEval::CheckArguments(int expected, UI_MacroVariant* args, int& count) {
    while (args && count >= 1 && args[count - 1].GetType() == vvtMissing)
        --count;
    if (count == expected)
        return;
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(errIncorrectArgument, SYS_String());
}

void MacroEval::Record(const char* text, int id) {
    if (MacroSupport::GetProcessor())
        MacroSupport::Record(text, id, 0);
}

void MacroEval::OnParserReset(MacroSupport&) {}

UI_MacroVariant MacroEval::GetMacroName(int, UI_MacroVariant*) const { return GetName(); }

void MacroEval::flushParent(UI_MacroVariant* child) {
    if (!child || !child->IsMacroEval())
        return;
    auto* object = static_cast<MacroEval*>(child);
    if (object->GetEvalParent() == this)
        object->SetEvalParent(nullptr);
}

bool MacroEval::GetDispatch(IDispatch** out) const {
    if (out)
        *out = nullptr;
    return false;
}

const _GUID* MacroEval::GetIID() const { return nullptr; }
