#include "AutomationObject.h"

#include "AutomationConversions.h"

#include <algorithm>
#include <new>
#include <utility>

namespace automation {

namespace {

constexpr char16_t fold(char16_t c) noexcept {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

std::size_t hashOf(LPCOLESTR name) noexcept {
    std::size_t hash = 14695981039346656037u;
    for (; *name; ++name)
        hash = (hash ^ fold(*name)) * 1099511628211u;
    return hash ^ (hash >> 32);
}

bool isSame(LPCOLESTR name, const std::u16string& folded) noexcept {
    for (const char16_t c : folded)
        if (fold(*name++) != c)
            return false;
    return *name == u'\0';
}

std::u16string foldedName(const char* name) {
    std::u16string folded;
    for (; *name; ++name)
        folded += fold(static_cast<unsigned char>(*name));
    return folded;
}

/// Keeps the object over a call that may release it.
class Held {
public:
    explicit Held(Object& object) : m_Object(object) { m_Object.AddRef(); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { m_Object.Release(); }

private:
    Object& m_Object;
};

Member::Run runFor(const Member& member, WORD flags) noexcept {
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0)
        return member.putRef ? member.putRef : member.put;
    if ((flags & DISPATCH_PROPERTYPUT) != 0)
        return member.put;
    if (member.call && (flags & DISPATCH_METHOD) != 0)
        return member.call;
    return member.get; // `object.Property()` asks for a method
}

bool fits(const Member& member, const DISPPARAMS& parameters, bool isPut) noexcept {
    const UINT extra = isPut ? 1 : 0;
    return parameters.cArgs >= member.required + extra &&
           parameters.cArgs <= member.required + member.optional + extra;
}

HRESULT tell(HRESULT code, const char* text, const char* source, EXCEPINFO* exception) {
    if (!exception)
        return DISP_E_EXCEPTION;
    *exception = EXCEPINFO{};
    exception->scode = code;
    exception->bstrSource = NewText(source);
    exception->bstrDescription = NewText(text);
    return DISP_E_EXCEPTION;
}

/// Runs a call and turns what it throws into a result.
template <class Call>
HRESULT guarded(Call call, const DISPPARAMS& parameters, const char* source, EXCEPINFO* exception,
                UINT* wrongArgument) {
    try {
        return call();
    } catch (const Failure& failure) {
        if (!failure.GetText().IsEmpty())
            return tell(failure.GetCode(), failure.what(), source, exception);
        if (wrongArgument && failure.GetArgument() < parameters.cArgs)
            *wrongArgument = parameters.cArgs - 1 - failure.GetArgument();
        return failure.GetCode();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return tell(E_FAIL, error.what(), source, exception);
    }
}

void give(COleVariant&& value, VARIANT* result) {
    if (result)
        *result = value.Detach();
}

HRESULT applyToResult(Member::Run run, Object& object, DISPPARAMS& parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* wrongArgument) {
    DISPPARAMS none{};
    const COleVariant holder = run(object, Arguments(none));
    if (holder.vt == VT_DISPATCH && holder.pdispVal)
        return holder.pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                       DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, result,
                                       exception, wrongArgument);
    if ((holder.vt & VT_ARRAY) == 0 || SafeArrayGetDim(holder.parray) != parameters.cArgs)
        return DISP_E_BADPARAMCOUNT;
    const Arguments arguments(parameters);
    std::vector<LONG> place;
    for (UINT i = 0; i < parameters.cArgs; ++i)
        place.push_back(static_cast<LONG>(arguments.Integer(i)));
    COleVariant element;
    const HRESULT outcome = SafeArrayGetElement(holder.parray, place.data(), &element);
    if (SUCCEEDED(outcome))
        give(std::move(element), result);
    return outcome;
}

} // namespace

Failure::~Failure() = default;

// --- Members -----------------------------------------------------------------------------------

Members::Members(const char* className, std::initializer_list<Member> members)
    : m_ClassName(className), m_Members(members) {
    std::size_t size = 8;
    while (size < 2 * m_Members.size())
        size *= 2;
    m_Index.assign(size, -1);
    for (std::size_t i = 0; i < m_Members.size(); ++i) {
        Member& member = m_Members[i];
        if (member.id == DISPID_VALUE)
            m_Default = &member;
        else if (member.id == DISPID_NEWENUM)
            m_Enumerator = &member;
        else
            member.id = static_cast<DISPID>(i + 1);
        m_Names.push_back(foldedName(member.name));
        std::size_t slot = hashOf(m_Names.back().c_str()) & (size - 1);
        while (m_Index[slot] >= 0)
            slot = (slot + 1) & (size - 1);
        m_Index[slot] = static_cast<int>(i);
    }
}

const Member* Members::Find(LPCOLESTR name) const noexcept {
    if (!name)
        return nullptr;
    const std::size_t mask = m_Index.size() - 1;
    for (std::size_t slot = hashOf(name) & mask; m_Index[slot] >= 0; slot = (slot + 1) & mask) {
        const auto place = static_cast<std::size_t>(m_Index[slot]);
        if (isSame(name, m_Names[place]))
            return &m_Members[place];
    }
    return nullptr;
}

const Member* Members::Find(DISPID id) const noexcept {
    if (id == DISPID_VALUE)
        return m_Default;
    if (id == DISPID_NEWENUM)
        return m_Enumerator;
    if (id < 1 || static_cast<std::size_t>(id) > m_Members.size())
        return nullptr;
    const Member& member = m_Members[static_cast<std::size_t>(id) - 1];
    return member.id == id ? &member : nullptr;
}

// --- Object ------------------------------------------------------------------------------------

HRESULT Object::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch)
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IDispatch*>(this);
    return S_OK;
}

ULONG Object::Release() {
    const ULONG left = --m_References;
    if (left == 0)
        end(this);
    return left;
}

void Object::end(Object* object) noexcept {
    constexpr int mostNested = 50;
    static int s_Depth = 0;
    static Object* s_Waiting = nullptr;
    if (s_Depth == mostNested) {
        object->m_NextToEnd = std::exchange(s_Waiting, object);
        return;
    }
    ++s_Depth;
    delete object;
    while (s_Depth == 1 && s_Waiting)
        delete std::exchange(s_Waiting, s_Waiting->m_NextToEnd);
    --s_Depth;
}

HRESULT Object::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Object::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0)
        return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const Member* member = GetMembers().Find(names[0]);
    if (!member)
        return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // arguments have no names
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                       EXCEPINFO* exception, UINT* wrongArgument) {
    DISPPARAMS none{};
    DISPPARAMS& parameters = arguments ? *arguments : none;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (parameters.cArgs > 0 && !parameters.rgvarg)
        return E_INVALIDARG;
    if (parameters.cNamedArgs != (isPut ? 1u : 0u) ||
        (isPut && parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return DISP_E_NONAMEDARGS;
    const Members& members = GetMembers();
    const Member* member = members.Find(id);
    const Member::Run run = member ? runFor(*member, flags) : nullptr;
    if (!run)
        return DISP_E_MEMBERNOTFOUND;
    const bool applies = !isPut && member->required + member->optional == 0 && parameters.cArgs > 0;
    if (!applies && !fits(*member, parameters, isPut))
        return DISP_E_BADPARAMCOUNT;
    const Held held(*this);
    const auto call = [&] {
        if (applies)
            return applyToResult(run, *this, parameters, result, exception, wrongArgument);
        give(run(*this, Arguments(parameters)), result);
        return S_OK;
    };
    return guarded(call, parameters, members.GetClassName(), exception, wrongArgument);
}

// --- Arguments ---------------------------------------------------------------------------------

namespace {

const VARIANT& behindReference(const VARIANT& argument) noexcept {
    return argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal ? *argument.pvarVal
                                                                      : argument;
}

bool isOmitted(const VARIANT& argument) noexcept {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

} // namespace

bool Arguments::IsGiven(UINT index) const noexcept {
    return index < m_Parameters.cArgs &&
           !isOmitted(m_Parameters.rgvarg[m_Parameters.cArgs - 1 - index]);
}

const VARIANT& Arguments::operator[](UINT index) const noexcept {
    static const VARIANT none{};
    return IsGiven(index) ? behindReference(m_Parameters.rgvarg[m_Parameters.cArgs - 1 - index])
                          : none;
}

const VARIANT& Arguments::required(UINT index) const {
    if (!IsGiven(index))
        throw Failure(DISP_E_PARAMNOTOPTIONAL, index);
    return (*this)[index];
}

LONGLONG Arguments::Integer(UINT index) const {
    LONGLONG value = 0;
    if (!ReadInteger(required(index), value))
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return value;
}

double Arguments::Real(UINT index) const {
    double value = 0;
    if (!ReadReal(required(index), value))
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return value;
}

bool Arguments::Truth(UINT index) const {
    double value = 0;
    if (!ReadReal(required(index), value))
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return value != 0;
}

kel_ns::SYS_String Arguments::Text(UINT index) const {
    kel_ns::SYS_String value;
    if (!ReadText(required(index), value))
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return value;
}

IDispatch* Arguments::Object(UINT index) const {
    const VARIANT& value = required(index);
    if (value.vt == VT_EMPTY) // how Nothing comes out of the engine
        return nullptr;
    if (value.vt != VT_DISPATCH)
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return value.pdispVal;
}

} // namespace automation
