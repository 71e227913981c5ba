#pragma once

// Members of classes that macros can see: methods, properties, and the dispatch of a call to
// them. Users include <ClassDescriptors.h> or <UI_MacroEval.h>, which bring this along.

#include <UI_MacroEval.h>

#include <concepts>
#include <cstddef>
#include <type_traits>

/// A member function of T with the signature of all members:
/// `UI_MacroVariant T::Name(int argc, UI_MacroVariant* args)`, `const` or not. May be null.
template <class T> class cMacroMemberPointer {
public:
    using Plain = UI_MacroVariant (T::*)(int, UI_MacroVariant*);
    using Const = UI_MacroVariant (T::*)(int, UI_MacroVariant*) const;

    cMacroMemberPointer(std::nullptr_t = nullptr) {}
    cMacroMemberPointer(Plain function) : m_Plain(function) {}
    cMacroMemberPointer(Const function) : m_Const(function) {}

    explicit operator bool() const { return m_Plain || m_Const; }
    UI_MacroVariant operator()(T& object, int argc, UI_MacroVariant* args) const {
        return m_Plain ? (object.*m_Plain)(argc, args) : (object.*m_Const)(argc, args);
    }

private:
    Plain m_Plain = nullptr;
    Const m_Const = nullptr;
};

/// Whether an object is of class T.
template <class T> bool cMacroIsA(MacroEval& object) {
    if constexpr (std::is_same_v<T, MacroEval>)
        return true;
    else
        return dynamic_cast<T*>(&object) != nullptr;
}

/// The three ways to use a property.
enum class MacroPropertyAccess { Get, Set, SetRef };

/// One property of one object, with the arguments it was named with. Lives on the heap and goes
/// with the last Reference to it. Holds the object weakly: once that has gone, it is a plain value
/// that keeps what was read last.
///
/// Reading it (`InitRVal`, a conversion) calls the getter; assigning calls the setter, `Set` the
/// reference setter, each with the arguments and the new value behind them. A property without
/// the setter passes the write on to the default property of the object that it holds.
class KEL_MCR_API cMacroPropertyProxy : public UI_MacroVariant {
public:
    cMacroPropertyProxy(const cMacroPropertyProxy&) = delete;
    ~cMacroPropertyProxy() override;

    using UI_MacroVariant::operator=;
    cMacroPropertyProxy& operator=(const UI_MacroVariant& value) override;
    cMacroPropertyProxy& operator=(const cMacroPropertyProxy& value);
    void Assign(const UI_MacroVariant& src) override;
    void SetObjectRef(const UI_MacroVariant& src) override;
    void InitRVal() override;
    UI_MacroVariant* GetRVal() const override;
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;

    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);

protected:
    cMacroPropertyProxy(MacroEval& object, int argc, UI_MacroVariant* args);

    /// Runs the accessor; false if the property has none of that kind.
    virtual bool access(MacroPropertyAccess way, MacroEval& object, int argc, UI_MacroVariant* args,
                        UI_MacroVariant& result) const = 0;

private:
    enum class State { Unread, ReadAhead, Read };

    MacroEval* getObject() const;
    void read();
    void write(MacroPropertyAccess way, const UI_MacroVariant& value);
    void writeThroughValue(MacroPropertyAccess way, MacroEval& object,
                           const UI_MacroVariant& value);

    SCC_SafePointer<UI_MacroVariant> m_Object;
    UI_MacroArray m_Arguments;
    State m_State = State::Unread;
};

/// The proxy of a property that `P` describes.
template <class P> class cProxy final : public cMacroPropertyProxy {
public:
    cProxy(const P& property, MacroEval& object, int argc, UI_MacroVariant* args)
        : cMacroPropertyProxy(object, argc, args), m_Property(property) {}

    using cMacroPropertyProxy::operator=;

private:
    bool access(MacroPropertyAccess way, MacroEval& object, int argc, UI_MacroVariant* args,
                UI_MacroVariant& result) const override {
        return m_Property.Access(way, object, argc, args, result);
    }

    const P& m_Property;
};

/// A method of class T. Calls with too few or too many values raise 34 before it runs; a method
/// without arguments that is given some applies them to its result.
template <class T> class cMacroClassMethod : public cMacroClassMethodBase<ScriptDebugger::iMethod> {
public:
    template <std::convertible_to<cMacroArgument>... A>
    cMacroClassMethod(cMacroAppClass& owner, const SYS_String& name, const SYS_String& type,
                      cMacroMemberPointer<T> method, bool isDefault = false, const A&... arguments)
        : cMacroClassMethodBase(name, type, {arguments...}), m_Method(method) {
        owner.AddMethod(this, isDefault);
    }

    bool Fits(MacroEval& object) const override { return cMacroIsA<T>(object); }
    UI_MacroVariant Call(MacroEval& object, int argc, UI_MacroVariant* args) const override {
        return m_Method ? m_Method(static_cast<T&>(object), argc, args) : UI_MacroVariant();
    }
    UI_MacroVariant* MakeProxy(MacroEval&, int, UI_MacroVariant*) const override { return nullptr; }

private:
    cMacroMemberPointer<T> m_Method;
};

/// A property of class T. Any accessor may be null: without a setter it is read-only. All three
/// have the signature of a method; a setter gets the property's arguments and then the new value.
template <class T>
class cMacroClassProperty : public cMacroClassMethodBase<ScriptDebugger::iProperty> {
public:
    template <std::convertible_to<cMacroArgument>... A>
    cMacroClassProperty(cMacroAppClass& owner, const SYS_String& name, const SYS_String& type,
                        cMacroMemberPointer<T> getter, cMacroMemberPointer<T> setter = nullptr,
                        cMacroMemberPointer<T> refSetter = nullptr, bool isDefault = false,
                        const A&... arguments)
        : cMacroClassMethodBase(name, type, {arguments...}), m_Getter(getter), m_Setter(setter),
          m_RefSetter(refSetter) {
        owner.AddProperty(this, isDefault);
    }

    bool IsReadOnly() const override { return !m_Setter && !m_RefSetter; }

    bool Fits(MacroEval& object) const override { return cMacroIsA<T>(object); }
    UI_MacroVariant Call(MacroEval& object, int argc, UI_MacroVariant* args) const override {
        return m_Getter ? m_Getter(static_cast<T&>(object), argc, args) : UI_MacroVariant();
    }
    UI_MacroVariant* MakeProxy(MacroEval& object, int argc, UI_MacroVariant* args) const override {
        return new cProxy<cMacroClassProperty>(*this, object, argc, args);
    }

    /// Runs one accessor; false if there is none.
    bool Access(MacroPropertyAccess way, MacroEval& object, int argc, UI_MacroVariant* args,
                UI_MacroVariant& result) const {
        const cMacroMemberPointer<T>& accessor = way == MacroPropertyAccess::Get   ? m_Getter
                                                 : way == MacroPropertyAccess::Set ? m_Setter
                                                                                   : m_RefSetter;
        if (!accessor)
            return false;
        UI_MacroVariant value = accessor(static_cast<T&>(object), argc, args);
        result.Take(value);
        return true;
    }

private:
    cMacroMemberPointer<T> m_Getter;
    cMacroMemberPointer<T> m_Setter;
    cMacroMemberPointer<T> m_RefSetter;
};

/// Runs a member of `appClass` or of its parents, `MacroEval` itself left out unless it is the
/// class that was asked for. See `EvaluateMember`.
KEL_MCR_API bool EvaluateClassMember(const cMacroAppClass& appClass, MacroEval& object,
                                     const char* name, UI_MacroVariant* args, int argc,
                                     UI_MacroVariant& result);

/// Runs the member of that name of the class of T. A host class forwards `Evaluate` to it:
///
///     UI_MacroVariant result;
///     if (EvaluateMember(*this, name, args, argc, result))
///         return result;
///     return MacroEval::Evaluate(name, args, argc);
///
/// Without a name the object itself is meant: a Reference to it, or, with arguments, what its
/// default member makes of them. A property gives a Reference to its proxy. False, with nothing
/// done, for a name that is not in the class. The object may end while its member runs.
/// Raises: 34 for a wrong number of values; whatever the member raises. Re-enters: the member.
template <class T>
bool EvaluateMember(T& object, const char* name, UI_MacroVariant* args, int argc,
                    UI_MacroVariant& result) {
    static const cMacroAppClass& appClass = *T::GetMacroClass();
    return EvaluateClassMember(appClass, object, name, args, argc, result);
}

/// A property that is an object of its own, for hosts that hand out properties.
class KEL_MCR_API UI_MacroProperty : public MacroEval {
public:
    explicit UI_MacroProperty(const char* name);
    UI_MacroProperty(const UI_MacroProperty& other);
    ~UI_MacroProperty() override;

    using MacroEval::operator=;
    /// Hands the value to `SetValue`. Raises: 14 if it reads as Null or Empty.
    UI_MacroProperty& operator=(const UI_MacroVariant& value) override;
    /// Assigning one property to another assigns its value.
    UI_MacroProperty& operator=(const UI_MacroProperty& value);

    virtual void SetValue(const UI_MacroVariant& value) = 0;
};
