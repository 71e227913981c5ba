#include "TestObjects.h"

#include <iterator>

namespace {

using AutomationValuesTest = ObjectTest;

TEST_F(AutomationValuesTest, TextKeepsItsLengthAndEveryByte) {
    const kel_ns::SYS_String texts[] = {"", "plain", "\xC3\xA9\xF0\x9F\x98\x80",
                                        "broken \xFF\xC3 end", kel_ns::SYS_String("a\0b", 3)};
    for (const kel_ns::SYS_String& text : texts) {
        BSTR wide = automation::NewText(text);
        ASSERT_NE(wide, nullptr);
        EXPECT_EQ(wide[SysStringLen(wide)], u'\0');
        EXPECT_TRUE(automation::TextOf(wide) == text) << text.c_str();
        SysFreeString(wide);
    }
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_TRUE(automation::TextOf(nullptr).IsEmpty());
    SysFreeString(nullptr);
    BSTR blank = SysAllocStringLen(nullptr, 3);
    EXPECT_EQ(std::u16string(blank, SysStringLen(blank)), std::u16string(3, u'\0'));
    SysFreeString(blank);
}

TEST_F(AutomationValuesTest, CopiesOwnWhatTheyHold) {
    COleVariant original("text");
    COleVariant copy(original);
    EXPECT_NE(copy.bstrVal, original.bstrVal);
    EXPECT_TRUE(automation::TextOf(copy.bstrVal) == "text");

    auto* object = new CountedObject;
    {
        COleVariant first(static_cast<IDispatch*>(object));
        COleVariant second(first);
        COleVariant moved(std::move(first));
        EXPECT_EQ(first.vt, VT_EMPTY);
        EXPECT_EQ(object->references, 3u);
        const COleVariant& itself = second;
        second = itself;
        VariantCopy(&second, &second);
        EXPECT_EQ(object->references, 3u);
        VARIANT away = moved.Detach();
        moved.Attach(away);
        EXPECT_EQ(object->references, 3u);
        second = original;
        EXPECT_EQ(object->references, 2u);
        COleVariant unknown(static_cast<IUnknown*>(object));
        EXPECT_EQ(unknown.vt, VT_UNKNOWN);
        EXPECT_EQ(object->references, 3u);
    }
    EXPECT_EQ(object->Release(), 0u);
}

TEST_F(AutomationValuesTest, ReferencesAreNeitherFreedNorCounted) {
    BSTR text = SysAllocString(u"kept");
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &text;
    COleVariant shallow(reference);
    EXPECT_EQ(shallow.pbstrVal, &text);
    EXPECT_EQ(VariantClear(&reference), S_OK);
    EXPECT_EQ(SysStringLen(text), 4u);

    COleVariant followed;
    EXPECT_EQ(VariantCopyInd(&followed, &shallow), S_OK);
    EXPECT_EQ(followed.vt, VT_BSTR);
    EXPECT_NE(followed.bstrVal, text);

    // Through a value that is a reference itself, but no further.
    VARIANT outer;
    VariantInit(&outer);
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &shallow;
    EXPECT_EQ(VariantCopyInd(&followed, &outer), S_OK);
    EXPECT_TRUE(automation::TextOf(followed.bstrVal) == "kept");
    VARIANT outermost = outer;
    outermost.pvarVal = &outer;
    EXPECT_EQ(VariantCopyInd(&followed, &outermost), E_INVALIDARG);
    outer.pvarVal = nullptr;
    EXPECT_EQ(VariantCopyInd(&followed, &outer), E_INVALIDARG);
    SysFreeString(text);

    std::int16_t number = -5;
    VARIANT small;
    VariantInit(&small);
    small.vt = VT_BYREF | VT_I2;
    small.piVal = &number;
    EXPECT_EQ(VariantCopyInd(&followed, &small), S_OK);
    EXPECT_EQ(followed.vt, VT_I2);
    EXPECT_EQ(followed.iVal, -5);
}

TEST_F(AutomationValuesTest, TagsThatMeanNothingAreRefused) {
    for (const int tag : {int{VT_VARIANT}, 14, 15, 24, 36, 0x1003, 0x8003, int{VT_ARRAY},
                          int{VT_BYREF}, VT_ARRAY | VT_NULL}) {
        VARIANT value;
        VariantInit(&value);
        value.vt = static_cast<VARTYPE>(tag);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE) << tag;
        COleVariant target(static_cast<LONG>(7));
        EXPECT_EQ(VariantCopy(&target, &value), DISP_E_BADVARTYPE) << tag;
        EXPECT_EQ(target.lVal, 7);
    }
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
}

TEST_F(AutomationValuesTest, AnObjectMayReachItsValueWhileItIsReleased) {
    VARIANT value;
    VariantInit(&value);
    auto* object = new CountedObject;
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    int calls = 0;
    object->onRelease = [&] {
        ++calls;
        EXPECT_EQ(VariantClear(&value), S_OK);
    };
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(calls, 1);
}

TEST_F(AutomationValuesTest, PublishedNumbers) {
    const GUID dispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_TRUE(IID_IDispatch == dispatch);
    EXPECT_FALSE(IID_IDispatch == IID_IEnumVARIANT);
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, -2147352572);
    EXPECT_EQ(offsetof(VARIANT, llVal), 8u);
    EXPECT_EQ(sizeof(VARIANT), 16u);
    COleVariant yes(true);
    EXPECT_EQ(yes.boolVal, -1);
}

// --- classes and running objects ---------------------------------------------------------------

using AutomationClassesTest = ObjectTest;

TEST_F(AutomationClassesTest, ClassesAreMadeByProgramName) {
    CLSID id = IID_IUnknown;
    EXPECT_EQ(CLSIDFromProgID(u"Test.Counted", &id), CO_E_CLASSSTRING);
    EXPECT_TRUE(id == GUID_NULL);
    EXPECT_FALSE(automation::RegisterClass("", [] { return new CountedObject; }));
    EXPECT_FALSE(automation::RegisterClass("Test.Counted", nullptr));

    ASSERT_TRUE(automation::RegisterClass("Test.Counted", [] { return new CountedObject; }));
    ASSERT_EQ(CLSIDFromProgID(u"test.COUNTED", &id), S_OK);
    void* object = nullptr;
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object), S_OK);
    EXPECT_EQ(static_cast<CountedObject*>(static_cast<IDispatch*>(object))->references, 1u);
    static_cast<IDispatch*>(object)->Release();

    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_ITypeLib, &object), E_NOINTERFACE);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_REMOTE_SERVER, IID_IDispatch, &object),
              REGDB_E_CLASSNOTREG);
    CountedObject outer;
    EXPECT_EQ(CoCreateInstance(id, &outer, CLSCTX_ALL, IID_IDispatch, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);

    // A class keeps its id for when it comes back.
    EXPECT_TRUE(automation::RevokeClass("TEST.counted"));
    EXPECT_FALSE(automation::RevokeClass("Test.Counted"));
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object),
              REGDB_E_CLASSNOTREG);
    CLSID again = GUID_NULL;
    automation::RegisterClass("Test.Counted", [] { return new CountedObject; });
    EXPECT_EQ(CLSIDFromProgID(u"Test.Counted", &again), S_OK);
    EXPECT_TRUE(id == again);
    automation::RevokeClass("Test.Counted");
}

TEST_F(AutomationClassesTest, FactoriesMayFailOrRevokeThemselves) {
    const CLSID id = {0x1234, 1, 2, {3}};
    void* object = nullptr;
    automation::RegisterClass("Test.Odd", id, []() -> IUnknown* { return nullptr; });
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object), E_FAIL);
    automation::RegisterClass("Test.Odd", []() -> IUnknown* { throw 5; });
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object), E_FAIL);
    const std::string kept(100, 'x');
    automation::RegisterClass("Test.Odd", [kept] {
        automation::RevokeClass("Test.Odd");
        EXPECT_EQ(kept.size(), 100u);
        return new CountedObject;
    });
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IUnknown, &object), S_OK);
    static_cast<IUnknown*>(object)->Release();
}

TEST_F(AutomationClassesTest, RunningAndActiveObjectsAreHeldOnce) {
    auto* object = new CountedObject;
    EXPECT_EQ(automation::FindRunning("drawing.skd"), nullptr);
    EXPECT_TRUE(automation::RegisterRunning("/tmp/Drawing.skd", object));
    EXPECT_TRUE(automation::RegisterRunning("/TMP/drawing.skd", object));
    EXPECT_EQ(object->references, 2u);
    IUnknown* found = automation::FindRunning("/tmp/DRAWING.SKD");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->Release(), 2u);

    CLSID id = GUID_NULL;
    EXPECT_TRUE(automation::RegisterActive("Test.Active", object));
    ASSERT_EQ(CLSIDFromProgID(u"Test.Active", &id), S_OK);
    EXPECT_EQ(GetActiveObject(id, nullptr, &found), S_OK);
    EXPECT_EQ(found->Release(), 3u);
    auto* next = new CountedObject;
    EXPECT_TRUE(automation::RegisterActive("test.active", next));
    EXPECT_EQ(object->references, 2u);
    EXPECT_TRUE(automation::RevokeActive("Test.Active"));
    EXPECT_FALSE(automation::RevokeActive("Test.Active"));
    EXPECT_EQ(GetActiveObject(id, nullptr, &found), MK_E_UNAVAILABLE);
    EXPECT_EQ(found, nullptr);
    EXPECT_TRUE(automation::RevokeRunning("/tmp/drawing.skd"));
    EXPECT_FALSE(automation::RevokeRunning("/tmp/drawing.skd"));
    EXPECT_EQ(object->Release(), 0u);
    EXPECT_EQ(next->Release(), 0u);
}

TEST_F(AutomationClassesTest, RunningObjectsAreListedByTheirNames) {
    auto* object = new CountedObject;
    automation::RegisterRunning("/tmp/gr\xC3\xBC\xC3\x9F.skd", object);
    automation::RegisterRunning("second", object);
    IBindCtx* context = nullptr;
    IRunningObjectTable* table = nullptr;
    IEnumMoniker* monikers = nullptr;
    ASSERT_EQ(CreateBindCtx(0, &context), S_OK);
    ASSERT_EQ(context->GetRunningObjectTable(&table), S_OK);
    ASSERT_EQ(table->EnumRunning(&monikers), S_OK);
    automation::RevokeRunning("second"); // the list is that of its making

    IMoniker* found[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(monikers->Next(3, found, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    LPOLESTR name = nullptr;
    EXPECT_EQ(found[0]->GetDisplayName(context, nullptr, &name), S_OK);
    EXPECT_EQ(std::u16string(name), u"/tmp/gr\u00FC\u00DF.skd");
    CoTaskMemFree(name);
    IUnknown* running = nullptr;
    EXPECT_EQ(table->GetObject(found[0], &running), S_OK);
    EXPECT_EQ(running, object);
    EXPECT_EQ(object->references, 3u);
    running->Release();
    EXPECT_EQ(table->GetObject(found[1], &running), MK_E_UNAVAILABLE);
    EXPECT_EQ(running, nullptr);
    void* other = nullptr;
    EXPECT_EQ(found[0]->QueryInterface(IID_IDispatch, &other), E_NOINTERFACE);
    EXPECT_EQ(found[0]->QueryInterface(IID_IMoniker, &other), S_OK);
    EXPECT_EQ(found[0]->Release(), 1u);

    EXPECT_EQ(monikers->Reset(), S_OK);
    EXPECT_EQ(monikers->Skip(1), S_OK);
    IEnumMoniker* copy = nullptr;
    EXPECT_EQ(monikers->Clone(&copy), S_OK);
    EXPECT_EQ(monikers->Skip(2), S_FALSE);
    IMoniker* last = nullptr;
    EXPECT_EQ(copy->Next(1, &last, nullptr), S_OK);
    for (IUnknown* each :
         std::initializer_list<IUnknown*>{found[0], found[1], last, copy, monikers, table, context})
        EXPECT_EQ(each->Release(), 0u);
    automation::RevokeRunning("/tmp/gr\xC3\xBC\xC3\x9F.skd");
    EXPECT_EQ(object->Release(), 0u);
}

TEST_F(AutomationClassesTest, WhatLiesOutsideTheProcessFails) {
    CountedObject object;
    MULTI_QI wanted[2] = {{&IID_IDispatch, &object, S_OK}, {&IID_IUnknown, &object, S_OK}};
    EXPECT_TRUE(
        FAILED(CoCreateInstanceEx(GUID_NULL, nullptr, CLSCTX_REMOTE_SERVER, nullptr, 2, wanted)));
    EXPECT_EQ(wanted[1].pItf, nullptr);
    EXPECT_TRUE(FAILED(wanted[1].hr));
    EXPECT_TRUE(FAILED(CoGetInstanceFromFile(nullptr, nullptr, nullptr, CLSCTX_LOCAL_SERVER,
                                             STGM_READWRITE, nullptr, 1, wanted)));
    ITypeLib* library = nullptr;
    EXPECT_TRUE(FAILED(LoadTypeLib(u"any.tlb", &library)));
}

} // namespace
