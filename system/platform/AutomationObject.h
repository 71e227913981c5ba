#pragma once

// Automation objects made by a host. A class lists its members in a table; calls of macros reach
// its member functions with the arguments in order and converted, and failures go out as they
// should:
//
//     class Lamp : public automation::Object {
//     public:
//         const automation::Members& GetMembers() const override {
//             static const automation::Members members(
//                 "Lamp",
//                 {
//                     automation::Property<&Lamp::GetLevel, &Lamp::SetLevel>("Level").Default(),
//                     automation::Method<&Lamp::Dim>("Dim", 0, 1),
//                 });
//             return members;
//         }
//
//     private:
//         LONG GetLevel() const { return m_Level; }
//         void SetLevel(const automation::Arguments& arguments) {
//             const LONGLONG level = arguments.Integer(0);
//             if (level < 0 || level > 100)
//                 throw automation::Failure("A lamp has a level from 0 to 100");
//             m_Level = static_cast<LONG>(level);
//         }
//         LONG Dim(const automation::Arguments& arguments) {
//             const auto by = static_cast<LONG>(arguments.Integer(0, 10));
//             return m_Level = m_Level > by ? m_Level - by : 0;
//         }
//
//         LONG m_Level = 100;
//     };
//
//     automation::RegisterClass("House.Lamp", [] { return new Lamp; });
//
// A member function takes nothing or `const Arguments&`. It gives nothing or anything that a
// COleVariant is made from; a pointer to an object is counted anew (see `Own`). It may be const.

#include <Automation.h>

#include <exception>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace automation {

/// How a member says that it failed. With a text the caller gets DISP_E_EXCEPTION and the text;
/// with a result code alone, that code.
class KEL_MCR_API Failure : public std::exception {
public:
    explicit Failure(HRESULT code) : m_Code(code) {}
    explicit Failure(const kel_ns::SYS_String& text, HRESULT code = E_FAIL)
        : m_Text(text), m_Code(code) {}
    /// The argument at fault; see `Arguments` for the count.
    Failure(HRESULT code, UINT argument) : m_Code(code), m_Argument(argument) {}
    ~Failure() override;

    const char* what() const noexcept override { return m_Text.c_str(); }
    const kel_ns::SYS_String& GetText() const noexcept { return m_Text; }
    HRESULT GetCode() const noexcept { return m_Code; }
    /// Beyond all arguments if none is at fault.
    UINT GetArgument() const noexcept { return m_Argument; }

private:
    kel_ns::SYS_String m_Text;
    HRESULT m_Code;
    UINT m_Argument = 0xFFFFFFFF;
};

/// The arguments of one call, counted from 0 as they were written; in a put the new value is the
/// last one. Borrowed: valid while the member runs.
///
/// The conversions take what the macro language would take: numbers of every width, truth values,
/// texts that are numbers, and objects through their default member. They follow references. What
/// cannot be converted raises Failure(DISP_E_TYPEMISMATCH), a required argument that is missing
/// Failure(DISP_E_PARAMNOTOPTIONAL). Re-enters: objects that are read.
class KEL_MCR_API Arguments {
public:
    explicit Arguments(const DISPPARAMS& parameters) : m_Parameters(parameters) {}

    UINT GetCount() const noexcept { return m_Parameters.cArgs; }
    /// False behind the last argument and for one that was left out.
    bool IsGiven(UINT index) const noexcept;
    /// The argument behind any reference; empty unless it is given.
    const VARIANT& operator[](UINT index) const noexcept;

    LONGLONG Integer(UINT index) const;
    double Real(UINT index) const;
    bool Truth(UINT index) const;
    kel_ns::SYS_String Text(UINT index) const;
    /// Not counted; null for Nothing. Raises for anything that is no object.
    IDispatch* Object(UINT index) const;

    /// The same with a value for an argument that is not given.
    LONGLONG Integer(UINT index, LONGLONG fallback) const {
        return IsGiven(index) ? Integer(index) : fallback;
    }
    double Real(UINT index, double fallback) const {
        return IsGiven(index) ? Real(index) : fallback;
    }
    bool Truth(UINT index, bool fallback) const { return IsGiven(index) ? Truth(index) : fallback; }
    kel_ns::SYS_String Text(UINT index, const char* fallback) const {
        return IsGiven(index) ? Text(index) : kel_ns::SYS_String(fallback);
    }

private:
    const VARIANT& required(UINT index) const;

    const DISPPARAMS& m_Parameters;
};

class Object;

/// One row of a table of members; made by `Method`, `Property` and `Enumerator` below.
struct Member {
    using Run = COleVariant (*)(Object& object, const Arguments& arguments);

    const char* name = "";
    DISPID id = DISPID_UNKNOWN; ///< unless it has a fixed one, a number of its table
    Run call = nullptr;         ///< of a method
    Run get = nullptr;
    Run put = nullptr;
    Run putRef = nullptr; ///< `Set object.Member = ...`; without it `put` runs
    UINT required = 0;    ///< arguments, the new value of a put not counted
    UINT optional = 0;

    /// Makes it the member that stands for the object itself.
    Member& Default() {
        id = DISPID_VALUE;
        return *this;
    }
};

/// The members of one class. Names ignore ASCII case. Made once and kept to the end of the
/// process.
class KEL_MCR_API Members {
public:
    /// The names are borrowed. `className` is what failures give as their source.
    Members(const char* className, std::initializer_list<Member> members);
    Members(const Members&) = delete;
    Members& operator=(const Members&) = delete;

    const char* GetClassName() const noexcept { return m_ClassName; }
    /// Null if there is none.
    const Member* Find(LPCOLESTR name) const noexcept;
    const Member* Find(DISPID id) const noexcept;

private:
    const char* m_ClassName;
    std::vector<Member> m_Members;
    std::vector<std::u16string> m_Names; // folded, in the order of the members
    std::vector<int> m_Index;            // hash table: places in m_Members, -1 where free
    const Member* m_Default = nullptr;
    const Member* m_Enumerator = nullptr;
};

/// The base of a host's automation objects. Made with `new` and one reference for the maker; the
/// last release deletes it. A member may release any object, this one included, and may run macros.
/// Objects that end by the end of others end at once, but wait for the outermost one when some
/// fifty of them stand inside each other: macros make chains of any length.
///
/// A call with arguments of a member that takes none applies them to what the member gives: to the
/// default member of an object, to the elements of an array.
///
/// A std::exception out of a member becomes a failure of the call. Other exceptions pass through:
/// those of a macro that the member has run, so that its end also ends the macro around it.
class KEL_MCR_API Object : public IDispatch {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    virtual const Members& GetMembers() const = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

protected:
    virtual ~Object() = default;

private:
    static void end(Object* object) noexcept;

    ULONG m_References = 1;
    Object* m_NextToEnd = nullptr;
};

/// A value that takes over the reference of a new object: `return Own(new Lamp);`
KEL_MCR_API COleVariant Own(IDispatch* object);
KEL_MCR_API COleVariant Own(IUnknown* object);

/// A value that is a list with lower bound 0. Raises: std::bad_alloc.
KEL_MCR_API COleVariant MakeList(std::vector<COleVariant> values);

/// An enumerator over these values, to be given by an `Enumerator` member.
KEL_MCR_API IUnknown* NewEnumerator(std::vector<COleVariant> values);

namespace detail {

template <class F> struct ClassOf;
template <class R, class T, class... A> struct ClassOf<R (T::*)(A...)> { using Type = T; };
template <class R, class T, class... A> struct ClassOf<R (T::*)(A...) const> { using Type = T; };

template <auto function> COleVariant run(Object& object, const Arguments& arguments) {
    using F = decltype(function);
    using T = typename ClassOf<F>::Type;
    auto call = [&]() -> decltype(auto) {
        if constexpr (std::is_invocable_v<F, T&, const Arguments&>)
            return (static_cast<T&>(object).*function)(arguments);
        else
            return (static_cast<T&>(object).*function)();
    };
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        return COleVariant();
    } else {
        return COleVariant(call());
    }
}

template <auto function> constexpr Member::Run runner() {
    if constexpr (std::is_same_v<decltype(function), std::nullptr_t>)
        return nullptr;
    else
        return &run<function>;
}

} // namespace detail

/// A method with that many arguments.
template <auto function> Member Method(const char* name, UINT required = 0, UINT optional = 0) {
    Member member;
    member.name = name;
    member.call = detail::runner<function>();
    member.required = required;
    member.optional = optional;
    return member;
}

/// A property; each of the functions may be null. Watches of a debugger read it, so `get` should
/// change nothing that matters.
template <auto get, auto put = nullptr, auto putRef = nullptr>
Member Property(const char* name, UINT required = 0, UINT optional = 0) {
    Member member;
    member.name = name;
    member.get = detail::runner<get>();
    member.put = detail::runner<put>();
    member.putRef = detail::runner<putRef>();
    member.required = required;
    member.optional = optional;
    return member;
}

/// What `For Each` asks for; the function gives a new enumerator, whose reference goes along.
template <auto function> Member Enumerator() {
    Member member;
    member.name = "_NewEnum";
    member.id = DISPID_NEWENUM;
    member.get = [](Object& object, const Arguments&) {
        using T = typename detail::ClassOf<decltype(function)>::Type;
        return Own((static_cast<T&>(object).*function)());
    };
    return member;
}

} // namespace automation
