#include "ClassDescriptors.h"

#include <SCC_Hash.h>
#include <SCL_Assert.h>

#include <algorithm>

// --- cMacroArgument ------------------------------------------------------------------------

cMacroArgument::cMacroArgument(const SYS_String& name, const SYS_String& type, bool byRef)
    : m_Name(name), m_Type(type), m_ByRef(byRef) {}

cMacroArgument& cMacroArgument::opt(int n) {
    m_OptionalCount = n > 0 ? static_cast<unsigned>(n) : 0;
    return *this;
}

SYS_String cMacroArgument::GetName() const { return m_Name; }

SYS_String cMacroArgument::GetType() const { return m_Type; }

bool cMacroArgument::ByRef() const { return m_ByRef; }

bool cMacroArgument::IsOptional() const { return m_OptionalCount != 0; }

unsigned cMacroArgument::GetCount() const { return m_OptionalCount ? m_OptionalCount : 1; }

cMacroArgumentList::cMacroArgumentList(std::initializer_list<cMacroArgument> arguments) {
    for (const cMacroArgument& argument : arguments) {
        if (!argument.is_valid())
            break;
        if (argument.IsOptional()) {
            ++m_OptionalArguments;
            m_OptionalPlaces += argument.GetCount();
        } else {
            SCL_ASSERT(m_OptionalArguments == 0, "A required argument follows an optional one");
            ++m_RequiredArguments;
            m_RequiredPlaces += argument.GetCount();
        }
        m_Arguments.push_back(argument);
    }
}

// --- cMacroAppClasses ----------------------------------------------------------------------

cMacroAppClasses::cMacroAppClasses() { m_Classes.reserve(100); }

// Never destroyed: classes of the host may still leave it while the process ends.
cMacroAppClasses& cMacroAppClasses::Instance() {
    static cMacroAppClasses& instance = *new cMacroAppClasses;
    return instance;
}

void cMacroAppClasses::AddClass(ScriptDebugger::iApplicationClass* appClass) {
    if (SCL_ASSERT(appClass, "cMacroAppClasses::AddClass: no class"))
        m_Classes.push_back(appClass);
}

void cMacroAppClasses::RemoveClass(ScriptDebugger::iApplicationClass* appClass) {
    std::erase(m_Classes, appClass);
}

SYS_String cMacroAppClasses::GetName() const { return "Macro Engine"; }

unsigned cMacroAppClasses::GetApplicationClassesCount() const {
    return static_cast<unsigned>(m_Classes.size());
}

const ScriptDebugger::iApplicationClass* cMacroAppClasses::GetApplicationClass(unsigned i) const {
    return i < m_Classes.size() ? m_Classes[i] : nullptr;
}

// --- cMacroAppClass ------------------------------------------------------------------------

cMacroAppClass::cMacroAppClass(const SYS_String& name,
                               const ScriptDebugger::iApplicationClass* parent)
    : m_Name(name), m_Parent(parent), m_ParentAppClass(dynamic_cast<const cMacroAppClass*>(parent)),
      m_InheritedDefault(parent ? parent->GetDefaultPropertyOrMethod() : nullptr) {
    cMacroAppClasses::Instance().AddClass(this);
}

cMacroAppClass::~cMacroAppClass() { cMacroAppClasses::Instance().RemoveClass(this); }

void cMacroAppClass::AddMethod(ScriptDebugger::iMethod* method, bool isDefault) {
    if (!SCL_ASSERT(method, "cMacroAppClass: no member"))
        return;
    m_Methods.push_back(method);
    reg(method, isDefault);
}

void cMacroAppClass::AddProperty(ScriptDebugger::iProperty* property, bool isDefault) {
    if (!SCL_ASSERT(property, "cMacroAppClass: no member"))
        return;
    m_Properties.push_back(property);
    reg(property, isDefault);
}

void cMacroAppClass::SetDefaultPropertyOrMethod(ScriptDebugger::iMethod* member) {
    if (SCL_ASSERT(!m_Default, "cMacroAppClass: a second default member"))
        m_Default = member;
}

void cMacroAppClass::reg(ScriptDebugger::iMethod* member, bool isDefault) {
    Entry entry;
    entry.name = member->GetName();
    entry.hash = SCC_HashBytesNoCase(entry.name.View()).hash;
    entry.requiredPlaces = member->GetRequiredPlaces();
    entry.optionalPlaces = member->GetOptionalPlaces();
    entry.member = member;
    entry.callable = dynamic_cast<const cMacroMember*>(member);
    if (Entry* known = find(entry.name, entry.hash)) {
        *known = entry;
    } else {
        m_Members.push_back(entry);
        rebuildIndex();
    }
    if (isDefault)
        SetDefaultPropertyOrMethod(member);
}

void cMacroAppClass::rebuildIndex() {
    std::size_t size = 8;
    while (size < 2 * m_Members.size())
        size *= 2;
    m_Index.assign(size, -1);
    for (std::size_t i = 0; i < m_Members.size(); ++i) {
        std::size_t slot = m_Members[i].hash & (size - 1);
        while (m_Index[slot] >= 0)
            slot = (slot + 1) & (size - 1);
        m_Index[slot] = static_cast<int>(i);
    }
}

cMacroAppClass::Entry* cMacroAppClass::find(const char* name, unsigned hash) const {
    if (m_Index.empty())
        return nullptr;
    const std::size_t mask = m_Index.size() - 1;
    for (std::size_t slot = hash & mask; m_Index[slot] >= 0; slot = (slot + 1) & mask) {
        const Entry& entry = m_Members[static_cast<std::size_t>(m_Index[slot])];
        if (entry.hash == hash && entry.name.CompareNoCase(name) == 0)
            return const_cast<Entry*>(&entry);
    }
    return nullptr;
}

const cMacroAppClass::Entry* cMacroAppClass::Find(const char* name) const {
    return name ? find(name, SCC_HashBytesNoCase(name).hash) : nullptr;
}

ScriptDebugger::iMethod* cMacroAppClass::GetPropertyOrMethod(const char* name, UI_MacroVariant*,
                                                             int) const {
    const Entry* entry = Find(name);
    return entry ? entry->member : nullptr;
}

SYS_String cMacroAppClass::GetName() const { return m_Name; }

bool cMacroAppClass::IsHidden() const { return m_Hidden; }

const ScriptDebugger::iApplicationClass* cMacroAppClass::GetParentClass() const { return m_Parent; }

unsigned cMacroAppClass::GetMethodsCount() const { return static_cast<unsigned>(m_Methods.size()); }

const ScriptDebugger::iMethod* cMacroAppClass::GetMethod(unsigned i) const {
    return i < m_Methods.size() ? m_Methods[i] : nullptr;
}

unsigned cMacroAppClass::GetPropertiesCount() const {
    return static_cast<unsigned>(m_Properties.size());
}

const ScriptDebugger::iProperty* cMacroAppClass::GetProperty(unsigned i) const {
    return i < m_Properties.size() ? m_Properties[i] : nullptr;
}

const ScriptDebugger::iMethod* cMacroAppClass::GetDefaultPropertyOrMethod() const {
    return m_Default ? m_Default : m_InheritedDefault;
}
