#pragma once

// Classes that macros can see. A class describes itself once, one line for each member:
//
//     cMacroAppClass* Lamp::GetMacroClass() {
//         static cMacroAppClass self("Lamp", MacroEval::GetMacroClass());
//         static cMacroClassProperty<Lamp> level(self, "Level", TypeNameInt, &Lamp::GetLevel,
//                                                &Lamp::SetLevel, nullptr, true);
//         static cMacroClassMethod<Lamp> dim(self, "Dim", "Lamp", &Lamp::Dim, false,
//                                            cMacroArgument("steps", TypeNameInt).opt(1));
//         return &self;
//     }
//
// The same description runs member calls (`EvaluateMember`) and answers a script debugger or an
// editor that lists classes, members and argument names (namespace `ScriptDebugger`).
// Descriptions live to the end of the process, serve all processors and never change.

#include <SCL_Pointer.h>
#include <SCL_Vector.h>
#include <SYS_String.h>

#include <initializer_list>

struct IDispatch;
struct _GUID;
class MacroEval;
class UI_MacroVariant;

using namespace kel_ns;

namespace ScriptDebugger {

using kel_ns::SYS_String;
using kel_ns::SCL::iRefCounted;

/// What every object of the engine offers.
class iScriptObject : public iRefCounted {
public:
    /// The name that macros know it by; may be empty.
    virtual SYS_String GetName() const = 0;

private:
    virtual bool GetDispatch(IDispatch** out) const = 0;
    virtual const _GUID* GetIID() const = 0;
};

/// One argument of a member. `GetCount` places of a call belong to it.
class iArgument {
public:
    virtual ~iArgument() = default;
    virtual SYS_String GetName() const = 0;
    /// The name of a type or class, for people; calls do not check it.
    virtual SYS_String GetType() const = 0;
    virtual bool ByRef() const = 0;
    virtual bool IsOptional() const = 0;
    /// At least 1; more only for an optional argument.
    virtual unsigned GetCount() const = 0;
};

/// A member. "Places" count values of a call: an argument may take several of them.
class iMethod {
public:
    virtual ~iMethod() = default;
    virtual SYS_String GetName() const = 0;
    /// "" for none.
    virtual SYS_String GetResultType() const = 0;
    /// Not to be shown; it can be called all the same.
    virtual bool IsHidden() const = 0;
    virtual unsigned GetRequiredArguments() const = 0;
    virtual unsigned GetOptionalArguments() const = 0;
    virtual unsigned GetRequiredPlaces() const = 0;
    virtual unsigned GetOptionalPlaces() const = 0;
    /// Null beyond the last one.
    virtual const iArgument* GetArgument(unsigned i) const = 0;
};

class iProperty : public iMethod {
public:
    virtual bool IsReadOnly() const = 0;
};

/// A class with the members that it declares itself; those of its parents are asked there. The
/// default member stands for an object in an expression, and is inherited.
class iApplicationClass {
public:
    virtual ~iApplicationClass() = default;
    virtual SYS_String GetName() const = 0;
    virtual bool IsHidden() const = 0;
    /// Null for a root.
    virtual const iApplicationClass* GetParentClass() const = 0;
    virtual unsigned GetMethodsCount() const = 0;
    /// In the order of their declaration, from 0; null beyond the last one.
    virtual const iMethod* GetMethod(unsigned i) const = 0;
    virtual unsigned GetPropertiesCount() const = 0;
    virtual const iProperty* GetProperty(unsigned i) const = 0;
    /// Null if neither the class nor a parent has one.
    virtual const iMethod* GetDefaultPropertyOrMethod() const = 0;
};

/// All classes, hidden ones included.
class iApplicationClasses {
public:
    virtual ~iApplicationClasses() = default;
    virtual SYS_String GetName() const = 0;
    virtual unsigned GetApplicationClassesCount() const = 0;
    /// From 0, in the order in which they were made; null beyond the last one.
    virtual const iApplicationClass* GetApplicationClass(unsigned i) const = 0;
};

} // namespace ScriptDebugger

/// An argument as a member declares it. An argument without a name ends an argument list.
class KEL_MCR_API cMacroArgument : public ScriptDebugger::iArgument {
public:
    cMacroArgument() = default;
    cMacroArgument(const SYS_String& name, const SYS_String& type, bool byRef = false);

    /// Makes the argument optional, for up to n values of a call; 0 or less: required again.
    cMacroArgument& opt(int n);
    /// Whether it has a name.
    bool is_valid() const { return !m_Name.IsEmpty(); }

    SYS_String GetName() const override;
    SYS_String GetType() const override;
    bool ByRef() const override;
    bool IsOptional() const override;
    unsigned GetCount() const override;

private:
    SYS_String m_Name;
    SYS_String m_Type;
    unsigned m_OptionalCount = 0;
    bool m_ByRef = false;
};

/// What the dispatch of a call needs of a member; the class templates supply it.
class KEL_MCR_API cMacroMember {
public:
    virtual ~cMacroMember() = default;
    /// Whether the member can run on this object.
    virtual bool Fits(MacroEval& object) const = 0;
    /// The value of a method call, or of reading a property. Re-enters: the host's member.
    virtual UI_MacroVariant Call(MacroEval& object, int argc, UI_MacroVariant* args) const = 0;
    /// What stands for a property in an expression; null for a method. Owner: the References to
    /// it.
    virtual UI_MacroVariant* MakeProxy(MacroEval& object, int argc,
                                       UI_MacroVariant* args) const = 0;
};

/// All classes of the process.
class KEL_MCR_API cMacroAppClasses : public ScriptDebugger::iApplicationClasses {
public:
    /// Never destroyed.
    static cMacroAppClasses& Instance();

    /// Owner: the caller; the class must live as long as it is listed.
    void AddClass(ScriptDebugger::iApplicationClass* appClass);
    /// Nothing for a class that is not listed.
    void RemoveClass(ScriptDebugger::iApplicationClass* appClass);

    SYS_String GetName() const override;
    unsigned GetApplicationClassesCount() const override;
    const ScriptDebugger::iApplicationClass* GetApplicationClass(unsigned i) const override;

private:
    cMacroAppClasses();

    SCL_Vector<ScriptDebugger::iApplicationClass*> m_Classes;
};

/// The description of one class. Names of members ignore case.
class KEL_MCR_API cMacroAppClass : public ScriptDebugger::iApplicationClass {
public:
    /// Adds itself to all classes. The parent may be null and must outlive this class; its default
    /// member becomes the default of this class as well.
    cMacroAppClass(const SYS_String& name, const ScriptDebugger::iApplicationClass* parent);
    cMacroAppClass(const cMacroAppClass&) = delete;
    cMacroAppClass& operator=(const cMacroAppClass&) = delete;
    ~cMacroAppClass() override;

    /// Members add themselves when they are made. Owner: the caller. A later member of the same
    /// name replaces an earlier one in calls. A second default member is an assertion.
    void AddMethod(ScriptDebugger::iMethod* method, bool isDefault);
    void AddProperty(ScriptDebugger::iProperty* property, bool isDefault);
    /// Owner: the caller. A second one is an assertion and changes nothing.
    void SetDefaultPropertyOrMethod(ScriptDebugger::iMethod* member);
    /// Asks editors not to show the class.
    void Hide() { m_Hidden = true; }
    /// The member of this very class, null if there is none. The arguments are not looked at.
    ScriptDebugger::iMethod* GetPropertyOrMethod(const char* name, UI_MacroVariant* args,
                                                 int argc) const;

    SYS_String GetName() const override;
    bool IsHidden() const override;
    const ScriptDebugger::iApplicationClass* GetParentClass() const override;
    unsigned GetMethodsCount() const override;
    const ScriptDebugger::iMethod* GetMethod(unsigned i) const override;
    unsigned GetPropertiesCount() const override;
    const ScriptDebugger::iProperty* GetProperty(unsigned i) const override;
    const ScriptDebugger::iMethod* GetDefaultPropertyOrMethod() const override;

    /// A member with what a call has to know of it.
    struct Entry {
        SYS_StrNoCase name;
        unsigned hash = 0;
        unsigned requiredPlaces = 0;
        unsigned optionalPlaces = 0;
        ScriptDebugger::iMethod* member = nullptr;
        const cMacroMember* callable = nullptr; // null for a member that is listed only
    };
    /// Null for a null name, or one that this very class does not declare. Owner: the class, until
    /// the next member is added.
    const Entry* Find(const char* name) const;
    /// The parent if it is described by this class too, else null.
    const cMacroAppClass* GetParentAppClass() const { return m_ParentAppClass; }

private:
    void reg(ScriptDebugger::iMethod* member, bool isDefault);
    Entry* find(const char* name, unsigned hash) const;
    void rebuildIndex();

    SYS_String m_Name;
    const ScriptDebugger::iApplicationClass* m_Parent;
    const cMacroAppClass* m_ParentAppClass;
    SCL_Vector<Entry> m_Members;
    SCL_Vector<int> m_Index; // hash table: positions in m_Members, -1 where free
    SCL_Vector<ScriptDebugger::iMethod*> m_Methods;
    SCL_Vector<ScriptDebugger::iProperty*> m_Properties;
    ScriptDebugger::iMethod* m_Default = nullptr;
    const ScriptDebugger::iMethod* m_InheritedDefault;
    bool m_Hidden = false;
};

/// The arguments of a member, counted. A required argument after an optional one is an assertion.
class KEL_MCR_API cMacroArgumentList {
public:
    /// Takes copies up to the first argument without a name.
    cMacroArgumentList(std::initializer_list<cMacroArgument> arguments);

    /// From 0; null beyond the last one.
    const cMacroArgument* Get(unsigned i) const {
        return i < m_Arguments.size() ? &m_Arguments[i] : nullptr;
    }
    unsigned GetRequiredArguments() const { return m_RequiredArguments; }
    unsigned GetOptionalArguments() const { return m_OptionalArguments; }
    unsigned GetRequiredPlaces() const { return m_RequiredPlaces; }
    unsigned GetOptionalPlaces() const { return m_OptionalPlaces; }

private:
    SCL_Vector<cMacroArgument> m_Arguments;
    unsigned m_RequiredArguments = 0;
    unsigned m_OptionalArguments = 0;
    unsigned m_RequiredPlaces = 0;
    unsigned m_OptionalPlaces = 0;
};

/// What methods and properties have in common; `I` is `iMethod` or `iProperty`.
template <class I> class cMacroClassMethodBase : public I, public cMacroMember {
public:
    cMacroClassMethodBase(const SYS_String& name, const SYS_String& type,
                          std::initializer_list<cMacroArgument> arguments)
        : m_Name(name), m_Type(type), m_Arguments(arguments) {}
    cMacroClassMethodBase(const cMacroClassMethodBase&) = delete;
    cMacroClassMethodBase& operator=(const cMacroClassMethodBase&) = delete;

    /// Asks editors not to show the member.
    void Hide() { m_Hidden = true; }

    SYS_String GetName() const override { return m_Name; }
    SYS_String GetResultType() const override { return m_Type; }
    bool IsHidden() const override { return m_Hidden; }
    unsigned GetRequiredArguments() const override { return m_Arguments.GetRequiredArguments(); }
    unsigned GetOptionalArguments() const override { return m_Arguments.GetOptionalArguments(); }
    unsigned GetRequiredPlaces() const override { return m_Arguments.GetRequiredPlaces(); }
    unsigned GetOptionalPlaces() const override { return m_Arguments.GetOptionalPlaces(); }
    const ScriptDebugger::iArgument* GetArgument(unsigned i) const override {
        return m_Arguments.Get(i);
    }

private:
    SYS_String m_Name;
    SYS_String m_Type;
    cMacroArgumentList m_Arguments;
    bool m_Hidden = false;
};

// Completes what stands above for users of this header, whichever of the two they include first.
#include <UI_MacroEval.h>
