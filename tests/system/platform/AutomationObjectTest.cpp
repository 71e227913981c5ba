// The base of a host's automation objects: what reaches its members, and what callers get.

#include <AutomationObject.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using automation::Arguments;

class Shelf final : public automation::Object {
public:
    Shelf() { ++s_Alive; }

    const automation::Members& GetMembers() const override {
        using S = Shelf;
        static const automation::Members members(
            "Shelf",
            {
                automation::Property<&S::GetItem, &S::SetItem, &S::SetItemRef>("Item", 1, 1)
                    .Default(),
                automation::Property<&S::GetCount>("Count"),
                automation::Property<&S::GetItems>("Items"),
                automation::Property<&S::GetSelf>("Self"),
                automation::Method<&S::Join>("Join", 1, 2),
                automation::Method<&S::Raise>("Raise", 1),
                automation::Method<&S::LetGo>("LetGo"),
                automation::Enumerator<&S::NewEnum>(),
            });
        return members;
    }

    std::string log;

    static inline int s_Alive = 0;

private:
    ~Shelf() override { --s_Alive; }

    COleVariant GetItem(const Arguments& arguments) const {
        return COleVariant("item " + arguments.Text(0) + arguments.Text(1, ""));
    }
    void SetItem(const Arguments& arguments) {
        log += std::string("put ") + arguments.Text(0).c_str() + "=" + arguments.Text(1).c_str();
    }
    void SetItemRef(const Arguments& arguments) {
        log += arguments.Object(1) ? "set object" : "set nothing";
    }
    LONG GetCount() const { return 3; }
    COleVariant GetItems() const {
        std::vector<COleVariant> list;
        list.emplace_back("a");
        list.emplace_back(7.0);
        return automation::MakeList(std::move(list));
    }
    IDispatch* GetSelf() { return this; }
    kel_ns::SYS_String Join(const Arguments& arguments) {
        kel_ns::SYS_String text;
        text << arguments.Integer(0) << (arguments.IsGiven(1) ? "," : "-") << arguments.Real(1, 0.5)
             << (arguments.Truth(2, false) ? "!" : "?");
        return text;
    }
    void Raise(const Arguments& arguments) {
        switch (arguments.Integer(0)) {
        case 1:
            throw automation::Failure("no room", E_ACCESSDENIED);
        case 2:
            throw automation::Failure(DISP_E_OVERFLOW);
        case 3:
            throw std::runtime_error("broken");
        case 4:
            throw std::bad_alloc();
        default:
            throw 5;
        }
    }
    LONG LetGo() {
        Release();
        return GetCount(); // still there
    }
    IUnknown* NewEnum() const {
        std::vector<COleVariant> list;
        for (LONG i = 1; i <= 3; ++i)
            list.emplace_back(i);
        return automation::NewEnumerator(std::move(list));
    }
};

/// Calls a member by name; the result as text, or the code of the failure.
class AutomationObject : public testing::Test {
protected:
    ~AutomationObject() override {
        result.Clear();
        shelf->Release();
        EXPECT_EQ(Shelf::s_Alive, 0);
    }

    HRESULT invoke(const char16_t* name, WORD flags, std::vector<COleVariant> arguments) {
        std::u16string text = name;
        LPOLESTR names[] = {text.data()};
        DISPID id = DISPID_VALUE;
        if (const HRESULT found = shelf->GetIDsOfNames(IID_NULL, names, 1, 0, &id); FAILED(found))
            return found;
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr,
                              static_cast<UINT>(reversed.size()), isPut ? 1u : 0u};
        result.Clear();
        EXCEPINFO info{};
        const HRESULT outcome =
            shelf->Invoke(id, IID_NULL, 0, flags, &parameters, &result, &info, &wrongArgument);
        source = automation::TextOf(info.bstrSource).c_str();
        description = automation::TextOf(info.bstrDescription).c_str();
        code = info.scode;
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        return outcome;
    }
    std::string call(const char16_t* name, std::vector<COleVariant> arguments = {},
                     WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
        const HRESULT outcome = invoke(name, flags, std::move(arguments));
        if (FAILED(outcome))
            return "failed";
        return result.vt == VT_BSTR ? automation::TextOf(result.bstrVal).c_str()
               : result.vt == VT_I4 ? std::to_string(result.lVal)
               : result.vt == VT_R8 ? std::to_string(result.dblVal)
                                    : "type " + std::to_string(result.vt);
    }
    static COleVariant missing() {
        COleVariant value;
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        return value;
    }
    static COleVariant number(LONG value) { return COleVariant(value); }

    Shelf* shelf = new Shelf;
    COleVariant result;
    UINT wrongArgument = 99;
    std::string source, description;
    SCODE code = 0;
};

TEST_F(AutomationObject, GivesMembersTheirArgumentsInOrder) {
    EXPECT_EQ(call(u"COUNT"), "3");
    EXPECT_EQ(call(u"count", {}, DISPATCH_METHOD), "3") << "`shelf.Count()`";
    EXPECT_EQ(call(u"Item", {COleVariant("a"), number(2)}), "item a2");
    EXPECT_EQ(call(u"Join", {number(1), number(2), COleVariant(true)}), "1,2!");
    EXPECT_EQ(call(u"Join", {COleVariant(" 12 "), missing(), COleVariant("1")}), "12-0.5!");
    EXPECT_EQ(call(u"Join", {COleVariant(2.5)}), "3-0.5?");
    // Through the default member of an object, through a reference, and applied to the result.
    VARIANT value = number(5);
    COleVariant reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &value;
    EXPECT_EQ(call(u"Item", {reference}), "item 5");
    EXPECT_EQ(call(u"Items", {number(1)}), "7.000000");
    EXPECT_EQ(call(u"Self", {COleVariant("x")}), "item x");
    EXPECT_EQ(call(u"Self"), "type 9");
}

TEST_F(AutomationObject, MayReleaseItselfWhileItRuns) {
    EXPECT_EQ(call(u"LetGo"), "3");
    EXPECT_EQ(Shelf::s_Alive, 0);
    shelf = new Shelf;
}

TEST_F(AutomationObject, PutsByValueAndByReference) {
    const COleVariant self(static_cast<IDispatch*>(shelf));
    EXPECT_EQ(invoke(u"Item", DISPATCH_PROPERTYPUT, {COleVariant("k"), number(4)}), S_OK);
    EXPECT_EQ(invoke(u"Item", DISPATCH_PROPERTYPUTREF, {COleVariant("k"), self}), S_OK);
    EXPECT_EQ(invoke(u"Item", DISPATCH_PROPERTYPUTREF, {COleVariant("k"), COleVariant()}), S_OK);
    EXPECT_EQ(shelf->log, "put k=4set objectset nothing");
    EXPECT_EQ(invoke(u"Count", DISPATCH_PROPERTYPUT, {number(4)}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(u"Item", DISPATCH_PROPERTYPUT, {number(4)}), DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationObject, RefusesWhatDoesNotFit) {
    const COleVariant list = automation::MakeList({});
    const struct {
        const char16_t* name;
        WORD flags;
        std::vector<COleVariant> arguments;
        HRESULT expected;
    } table[] = {
        {u"Nothing", 3, {}, DISP_E_UNKNOWNNAME},
        {u"Coun", 3, {}, DISP_E_UNKNOWNNAME},
        {u"Join", 3, {}, DISP_E_BADPARAMCOUNT},
        {u"Join", 3, {number(1), number(1), number(1), number(1)}, DISP_E_BADPARAMCOUNT},
        {u"Join", 3, {missing(), number(1)}, DISP_E_PARAMNOTOPTIONAL},
        {u"Join", DISPATCH_PROPERTYGET, {number(1)}, DISP_E_MEMBERNOTFOUND},
        {u"Join", 3, {number(1), COleVariant("one")}, DISP_E_TYPEMISMATCH},
        {u"Join", 3, {list}, DISP_E_TYPEMISMATCH},
        {u"Item", DISPATCH_PROPERTYPUTREF, {number(1), number(2)}, DISP_E_TYPEMISMATCH},
        {u"Items", 3, {number(2)}, DISP_E_BADINDEX},
        {u"Items", 3, {number(0), number(0)}, DISP_E_BADPARAMCOUNT},
        {u"Count", 3, {number(0)}, DISP_E_BADPARAMCOUNT},
        {u"Raise", 3, {number(2)}, DISP_E_OVERFLOW},
        {u"Raise", 3, {number(4)}, E_OUTOFMEMORY},
    };
    for (const auto& row : table)
        EXPECT_EQ(invoke(row.name, row.flags, row.arguments), row.expected)
            << std::string(row.name, row.name + 4) << " " << row.arguments.size();
    invoke(u"Join", 3, {number(1), COleVariant("one"), number(1)});
    EXPECT_EQ(wrongArgument, 1u);
    EXPECT_EQ(shelf->Invoke(77, IID_NULL, 0, 3, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationObject, TellsWhyItFailed) {
    EXPECT_EQ(invoke(u"Raise", 3, {number(1)}), DISP_E_EXCEPTION);
    EXPECT_EQ(source + ": " + description, "Shelf: no room");
    EXPECT_EQ(code, E_ACCESSDENIED);
    EXPECT_EQ(invoke(u"Raise", 3, {number(3)}), DISP_E_EXCEPTION);
    EXPECT_EQ(description, "broken");
    EXPECT_THROW(invoke(u"Raise", 3, {number(5)}), int);
}

TEST_F(AutomationObject, GivesEnumerators) {
    ASSERT_EQ(shelf->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, &result,
                            nullptr, nullptr),
              S_OK);
    void* found = nullptr;
    ASSERT_EQ(result.punkVal->QueryInterface(IID_IEnumVARIANT, &found), S_OK);
    auto* items = static_cast<IEnumVARIANT*>(found);
    VARIANT values[4]{};
    ULONG fetched = 0;
    EXPECT_EQ(items->Skip(1), S_OK);
    IEnumVARIANT* copy = nullptr;
    ASSERT_EQ(items->Clone(&copy), S_OK);
    EXPECT_EQ(items->Next(4, values, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(values[1].lVal, 3);
    EXPECT_EQ(items->Skip(1), S_FALSE);
    EXPECT_EQ(copy->Next(1, values, nullptr), S_OK);
    EXPECT_EQ(values[0].lVal, 2);
    EXPECT_EQ(copy->Reset(), S_OK);
    EXPECT_EQ(copy->Next(1, values, nullptr), S_OK);
    EXPECT_EQ(values[0].lVal, 1);
    EXPECT_EQ(copy->Release(), 0u);
    items->Release();
}

/// Holds another object, as itself or in an array.
class Link final : public automation::Object {
public:
    explicit Link(COleVariant next) : m_Next(std::move(next)) { ++s_Alive; }

    const automation::Members& GetMembers() const override {
        static const automation::Members members("Link", {});
        return members;
    }

    static inline int s_Alive = 0;
    static inline int s_Immediate = 0; // ended others before they went on

private:
    ~Link() override {
        const int before = s_Alive;
        m_Next.Clear();
        s_Immediate += s_Alive < before ? 1 : 0;
        --s_Alive;
    }

    COleVariant m_Next;
};

TEST(AutomationChain, OfAnyLengthEndsWithItsFirstObject) {
    const auto chain = [](int length) {
        COleVariant first;
        for (int i = 0; i < length; ++i) {
            if (i % 2 == 0) {
                std::vector<COleVariant> list;
                list.push_back(std::move(first));
                first = automation::MakeList(std::move(list));
            }
            first = automation::Own(new Link(std::move(first)));
        }
        return first;
    };
    COleVariant brief = chain(20);
    brief.Clear();
    EXPECT_EQ(Link::s_Alive, 0);
    EXPECT_EQ(Link::s_Immediate, 19);
    COleVariant endless = chain(1000000);
    EXPECT_EQ(Link::s_Alive, 1000000);
    endless.Clear();
    EXPECT_EQ(Link::s_Alive, 0);
}

} // namespace
