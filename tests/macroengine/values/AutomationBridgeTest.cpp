// Values and automation objects: calls, data both ways, enumerators, making and finding objects.

#include "macroengine/values/Thing.h"

#include <MacroException.h>
#include <UI_Macro.h>
#include <gtest/gtest.h>

#include <limits>

#include "system/AssertRecorder.h"
#include "values/Access.h"
#include "values/Enumerators.h"

namespace {

/// A host's object whose automation face is another object.
class Faced : public MacroEval {
public:
    explicit Faced(IDispatch* face) : MacroEval("Faced"), m_Face(face) {}
    using MacroEval::operator=;

private:
    bool GetDispatch(IDispatch** out) const override {
        m_Face->AddRef();
        *out = m_Face;
        return true;
    }
    IDispatch* m_Face;
};

UI_MacroVariant listOf(std::initializer_list<UI_MacroVariant> values) {
    UI_MacroArray array;
    for (const UI_MacroVariant& value : values)
        array.Append(value);
    return UI_MacroVariant(array);
}

UI_MacroVariant grid(std::initializer_list<_ArraySubscript> bounds) {
    SCC_Array<_ArraySubscript> subscripts;
    for (const _ArraySubscript& bound : bounds)
        subscripts.Append(bound);
    UI_MacroVariant array;
    MacroVariantArraySupport::CreateArray(&array, subscripts, true);
    return array;
}

/// The enumerator's remaining items, joined.
std::string rest(IUnknown& enumerator) {
    std::string text;
    for (UI_MacroVariant item; TakeNextItem(enumerator, item);)
        text += static_cast<SYS_String>(item).c_str() + std::string(" ");
    return text;
}

/// A macro run with `obj`, an automation object. Whatever happens, no object may be left over.
class AutomationBridgeTest : public ::testing::Test {
protected:
    AutomationBridgeTest() {
        thing = new Thing(log);
        macro.Register(entry, "obj");
        EXPECT_EQ(UI_Macro::EnableAutomation("obj", thing), 1);
    }
    void TearDown() override {
        thing->values.clear();
        thing->Release();
        EXPECT_EQ(Thing::s_Alive, 0);
    }

    /// "" or the text of the error.
    std::string run(const char* text) {
        try {
            macro.ExecuteMacroString(text);
        } catch (const MacroException& error) {
            return error.GetText().c_str();
        }
        return "";
    }
    Log callsOf(const char* text) {
        log.clear();
        EXPECT_EQ(run(text), "") << text;
        return log;
    }
    /// What the macro puts into obj.Name.
    std::string resultOf(const char* text) {
        EXPECT_EQ(run(text), "") << text;
        return TextOf(thing->values[Thing::Name]);
    }
    template <class F> std::string errorOf(F action) {
        try {
            action();
        } catch (const MacroException& error) {
            return error.GetText().c_str();
        }
        return "";
    }

    Log log;
    Thing* thing = nullptr;
    MacroEval entry{"entry"};
    UI_Macro macro{true};
};

TEST_F(AutomationBridgeTest, AsksOnceForANameAndCallsOnceForARead) {
    thing->values[Thing::Child] = COleVariant(static_cast<IDispatch*>(thing));
    thing->values[Thing::Name] = COleVariant("n");
    const struct {
        const char* text;
        Log calls;
    } table[] = {
        {"x = obj.Name", {"Name?", "Name 3()"}},
        {"x = obj.Name & \"\"", {"Name?", "Name 3()"}},
        {"x = obj.Child.Name", {"Child?", "Child 3()", "Name?", "Name 3()"}},
        {"obj.Act 1, , \"a\"", {"Act?", "Act 3(I4 1, missing, BSTR a)"}},
        {"obj.Child.Act 1.5", {"Child?", "Child 3()", "Act?", "Act 3(R8 1.500000)"}},
        {"obj.Item(2) = 3", {"Item?", "Item 4(I4 2) = I4 3"}},
        {"obj.Name = \"x\"", {"Name?", "Name 4() = BSTR x"}},
        {"Set a = obj.Child", {"Child?", "Child 3()"}},
        {"Set obj.Item = obj.Child", {"Item?", "Child?", "Child 3()", "Item 8() = DISPATCH"}},
        {"Set obj.Item = Nothing", {"Item?", "Item 8() = empty"}},
        {"x = obj", {"Value 3()"}},
        {"x = obj.Name(4)", {"Name?", "Name 3(I4 4)"}},
        {"x = obj.Child", {"Child?", "Child 3()", "Value 3()"}},
    };
    for (const auto& row : table)
        EXPECT_EQ(callsOf(row.text), row.calls) << row.text;
}

TEST_F(AutomationBridgeTest, ReportsFailures) {
    const struct {
        HRESULT code;
        const char* text;
    } table[] = {
        {DISP_E_MEMBERNOTFOUND, "Error: Member not found: "},
        {DISP_E_BADPARAMCOUNT, "Error: Incorrect function argument(s): "},
        {DISP_E_TYPEMISMATCH, "Type mismatch"},
        {DISP_E_EXCEPTION, "Invoke failed"},
        {E_FAIL, "Invoke failed"},
    };
    for (const auto& row : table) {
        thing->failures[Thing::Bad] = row.code;
        EXPECT_EQ(run("x = obj.Bad(obj.Name)"), row.text);
        EXPECT_EQ(run("obj.Bad(1) = \"text\""), row.text);
    }
    log.clear();
    EXPECT_EQ(run("x = obj.Nowhere"), "Error: Member not found: ");
    EXPECT_EQ(log, Log{"Nowhere?"});
    EXPECT_EQ(run("x = obj.Unasked"), "GetIDsOfNames failed");
    EXPECT_EQ(errorOf([] {
                  UI_MacroVariant(static_cast<IDispatch*>(nullptr)).Evaluate("A", nullptr, 0);
              }),
              "Error: Object is nothing: ");
}

TEST_F(AutomationBridgeTest, TakesSixtyFourArguments) {
    UI_MacroVariant object(static_cast<IDispatch*>(thing));
    UI_MacroArray many(0, 64);
    auto call = [&](int count) {
        UI_MacroVariant pending = object.Evaluate("Act", many.WritableData(), count);
        MacroVariantAccess::Invoke(pending);
    };
    EXPECT_EQ(errorOf([&] { call(64); }), "");
    AssertRecorder assertions;
    EXPECT_EQ(errorOf([&] { call(65); }), "Error: Incorrect function argument(s): ");
    EXPECT_EQ(assertions.Take().size(), 1u);
}

TEST_F(AutomationBridgeTest, ReadsData) {
    VARIANT value{};
    auto read = [&](VARTYPE type, LONGLONG bits) {
        value.vt = type;
        value.llVal = bits;
        UI_MacroVariant result("old");
        result.init(value);
        return result;
    };
    for (VARTYPE type : {VT_I2, VT_I4, VT_I8}) {
        const UI_MacroVariant number = read(type, -2);
        EXPECT_EQ(number.GetType(), vvtInteger) << type;
        EXPECT_EQ(number.GetIntVal(), -2) << type;
    }
    EXPECT_EQ(read(VT_I8, __int64{1} << 40).GetIntVal(), __int64{1} << 40);
    const UI_MacroVariant truth = read(VT_BOOL, 1);
    EXPECT_EQ(truth.GetType(), vvtBoolean);
    EXPECT_EQ(truth.GetIntVal(), -1);
    EXPECT_EQ(read(VT_BOOL, 0).GetIntVal(), 0);
    const UI_MacroVariant handle = read(VT_UI8, 0x100000007);
    EXPECT_EQ(handle.GetType(), vvtHandle);
    EXPECT_EQ(handle.GetHandle(), reinterpret_cast<void*>(7));
    for (int type : {VT_EMPTY + 0, VT_NULL + 0, VT_CY + 0, VT_DISPATCH + 0, VT_UNKNOWN + 0,
                     VT_BYREF | VT_I4, VT_ARRAY | VT_VARIANT, VT_ARRAY | VT_BYREF | VT_I4})
        EXPECT_TRUE(read(static_cast<VARTYPE>(type), 0).IsEmpty()) << type;

    UI_MacroVariant other;
    other.Init(COleVariant(1.5));
    EXPECT_EQ(static_cast<double>(other), 1.5);
    other.Init(COleVariant("gr\xC3\xBC\xC3\x9F"));
    EXPECT_EQ(other.GetStringVal(), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(thing->references, 1u);
    other.Init(COleVariant(static_cast<IUnknown*>(thing)));
    EXPECT_EQ(other.GetType(), vvtObject);
    EXPECT_EQ(other.GetDispatchVal(), thing);
    EXPECT_EQ(thing->references, 2u);
    thing->isOpaque = true;
    other.Init(COleVariant(static_cast<IUnknown*>(thing)));
    EXPECT_EQ(other.GetType(), vvtUnknown);
    EXPECT_EQ(other.GetUnknownVal(), thing);
    EXPECT_EQ(thing->references, 2u);
}

TEST_F(AutomationBridgeTest, WritesData) {
    UI_MacroVariant number(7);
    UI_MacroVariant script;
    script.SetExecScriptVal("x = 1");
    UI_MacroVariant missing;
    missing.SetType(vvtMissing);
    Faced faced(thing);
    const struct {
        UI_MacroVariant value;
        const char* text;
    } table[] = {
        {UI_MacroVariant(), "empty"},
        {missing, "empty"},
        {UI_MacroVariant::Null(), "empty"},
        {UI_MacroVariant::Nothing(), "empty"},
        {2147483647, "I4 2147483647"},
        {std::numeric_limits<int>::min(), "I4 -2147483648"},
        {__int64{2147483648}, "I8 2147483648"},
        {0.5, "R8 0.500000"},
        {true, "BOOL -1"},
        {false, "BOOL 0"},
        {"a", "BSTR a"},
        {script, "BSTR x = 1"},
        {UI_MacroVariant(&number), "I4 7"},
        {reinterpret_cast<void*>(9), "UI8 9"},
        {static_cast<IDispatch*>(thing), "DISPATCH"},
        {static_cast<IUnknown*>(thing), "UNKNOWN"},
        {static_cast<UI_MacroVariant*>(&faced), "DISPATCH"},
        {static_cast<UI_MacroVariant*>(&entry), "DISPATCH"},
        {grid({}), "ARRAY of 1"},
        {grid({{0, 1}, {0, 1}, {0, 1}}), "ARRAY of 3"},
    };
    for (const auto& row : table)
        EXPECT_EQ(TextOf(static_cast<COleVariant>(row.value)), row.text);
}

TEST_F(AutomationBridgeTest, ArraysKeepTheirBoundsAndPlaces) {
    UI_MacroVariant array = grid({{3, 5}, {-1, 0}});
    long place[2];
    array.resetMultiArrayInx(place);
    for (int i = 0; UI_MacroVariant* element = array.nextMultiArrayVal(place); ++i)
        *element = UI_MacroVariant(i);
    const COleVariant data(array);
    LONG lower[2]{};
    LONG upper[2]{};
    for (UINT dimension : {1u, 2u}) {
        SafeArrayGetLBound(data.parray, dimension, &lower[dimension - 1]);
        SafeArrayGetUBound(data.parray, dimension, &upper[dimension - 1]);
    }
    EXPECT_EQ(Log({std::to_string(lower[0]), std::to_string(upper[0]), std::to_string(lower[1]),
                   std::to_string(upper[1])}),
              Log({"3", "5", "-1", "0"}));
    const LONG third[] = {3, 0};
    COleVariant element;
    ASSERT_EQ(SafeArrayGetElement(data.parray, third, &element), S_OK);
    EXPECT_EQ(TextOf(element), "I4 3");

    UI_MacroVariant back;
    back.Init(data);
    EXPECT_EQ(back.GetArrayType(), ArrayValue);
    ASSERT_EQ(back.GetArrNumDims(), 2);
    EXPECT_EQ(back.GetArrayLowerBound(1), 3);
    EXPECT_EQ(back.GetArrayUpperBound(1), 5);
    EXPECT_EQ(back.GetArrayLowerBound(2), -1);
    EXPECT_EQ(back.GetArrayUpperBound(2), 0);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(back[i / 3 - 1][3 + i % 3].GetIntVal(), i);
    EXPECT_EQ(
        resultOf("Dim a(1, 2) : a(1, 2) = 5 : obj.Item = a : b = obj.Item : obj.Name = b(1, 2)"),
        "I4 5");
}

TEST_F(AutomationBridgeTest, ReadsArraysOfEachElementType) {
    const SAFEARRAYBOUND two{2, 1};
    auto read = [](VARTYPE type, SAFEARRAY* array, bool byReference) {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type | (byReference ? VT_BYREF : 0));
        if (byReference)
            value.pparray = &array;
        else
            value.parray = array;
        UI_MacroVariant result;
        result.init(value);
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
        return result;
    };
    for (bool byReference : {false, true}) {
        for (VARTYPE type :
             {VT_I2, VT_I4, VT_R4, VT_R8, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT}) {
            SAFEARRAY* array = SafeArrayCreate(type, 1, &two);
            const LONG last = 2;
            SHORT small = -5;
            LONG whole = -5;
            FLOAT single = 2.5f;
            DOUBLE real = 2.5;
            COleVariant text("t");
            void* data = type == VT_I2        ? static_cast<void*>(&small)
                         : type == VT_I4      ? static_cast<void*>(&whole)
                         : type == VT_R4      ? static_cast<void*>(&single)
                         : type == VT_R8      ? static_cast<void*>(&real)
                         : type == VT_BSTR    ? static_cast<void*>(text.bstrVal)
                         : type == VT_VARIANT ? static_cast<void*>(&text)
                                              : static_cast<void*>(static_cast<IDispatch*>(thing));
            ASSERT_EQ(SafeArrayPutElement(array, &last, data), S_OK);
            UI_MacroVariant result = read(type, array, byReference);
            ASSERT_EQ(result.GetArrayUpperBound(1), 2) << type;
            const bool isObject = type == VT_DISPATCH || type == VT_UNKNOWN;
            EXPECT_EQ(result[2].GetDispatchVal(), isObject ? thing : nullptr) << type;
            const char* expected = type == VT_I2 || type == VT_I4   ? "-5"
                                   : type == VT_R4 || type == VT_R8 ? "2.5"
                                                                    : "t";
            if (!isObject) {
                EXPECT_EQ(static_cast<SYS_String>(result[2]), expected) << type;
            }
        }
        EXPECT_TRUE(read(VT_UI1, SafeArrayCreate(VT_UI1, 1, &two), byReference).IsEmpty());
    }
    EXPECT_EQ(thing->references, 1u);
}

TEST_F(AutomationBridgeTest, NestedArraysAreBounded) {
    auto nest = [](int depth) {
        UI_MacroVariant value(1);
        while (depth-- > 0)
            value = listOf({value});
        return value;
    };
    UI_MacroVariant back;
    back.Init(static_cast<COleVariant>(nest(900)));
    int depth = 0;
    for (UI_MacroVariant* value = &back; value->GetType() == vvtArray; value = &(*value)[0])
        ++depth;
    EXPECT_EQ(depth, 900);
    EXPECT_EQ(errorOf([&] { static_cast<void>(static_cast<COleVariant>(nest(1001))); }),
              "Error: Illegal nesting: ");

    const SAFEARRAYBOUND one{1, 0};
    SAFEARRAY* loop = SafeArrayCreate(VT_VARIANT, 1, &one);
    VARIANT self{};
    self.vt = VT_ARRAY | VT_VARIANT | VT_BYREF;
    self.pparray = &loop;
    *static_cast<VARIANT*>(loop->pvData) = self;
    EXPECT_EQ(errorOf([&] { back.init(self); }), "Error: Illegal nesting: ");
    EXPECT_EQ(SafeArrayDestroy(loop), S_OK);

    UI_MacroVariant wide = listOf({static_cast<IDispatch*>(thing), 1});
    for (int i = 0; i < 40; ++i)
        wide = listOf({wide, wide});
    const MacroLimits usual = MacroSupport::GetLimits();
    MacroLimits small = usual;
    small.arrayElements = 1000;
    MacroSupport::SetLimits(small);
    EXPECT_EQ(errorOf([&] { static_cast<void>(static_cast<COleVariant>(wide)); }),
              "Error: Unknown error: out of memory");
    MacroSupport::SetLimits(usual);
}

TEST_F(AutomationBridgeTest, EnumeratesArrays) {
    UI_MacroVariant array = grid({{0, 1}, {5, 6}});
    for (int outer : {5, 6})
        for (int inner : {0, 1})
            array[outer][inner] = UI_MacroVariant(outer * 10 + inner);
    const Counted<IUnknown> walk(MakeArrayEnumerator(array));
    walk->Release();
    UI_MacroVariant item;
    ASSERT_TRUE(TakeNextItem(*walk.Get(), item));
    array.Clear();
    EXPECT_EQ(rest(*walk.Get()), "51 60 61 ");
    EXPECT_FALSE(TakeNextItem(*walk.Get(), item));
    const auto plain = QueryFor<IEnumVARIANT>(walk.Get(), IID_IEnumVARIANT);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->Reset(), E_POINTER);

    const Counted<cArrayEnum> list(new cArrayEnum(listOf({1, "b"})));
    list->Release();
    VARIANT values[3]{};
    ULONG fetched = 9;
    EXPECT_EQ(list->Next(3, values, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(TextOf(values[1]), "BSTR b");
    VariantClear(&values[1]);
    EXPECT_EQ(list->Next(1, values, &fetched), S_FALSE);
    EXPECT_EQ(list->Reset(), S_OK);
    EXPECT_EQ(list->Skip(1), S_OK);
    EXPECT_EQ(list->Next(1, values, &fetched), S_OK);
    EXPECT_EQ(TextOf(values[0]), "I4 1");
    EXPECT_FALSE(QueryFor<IDispatch>(list.Get(), IID_IDispatch));
}

TEST_F(AutomationBridgeTest, ForEachRunsOverCollections) {
    const char* const loop = "s = \"\" : For Each e In obj\n s = s & e & \" \"\n Next\n"
                             "obj.Name = s";
    thing->items = listOf({1, "b", 2.5});
    EXPECT_EQ(run(loop), "Object is not itarable");
    thing->isCollection = true;
    EXPECT_EQ(resultOf(loop), "BSTR 1 b 2.5 ");
    thing->isCollection = false;
    thing->isEnumerator = true;
    EXPECT_EQ(resultOf(loop), "BSTR 1 b 2.5 ");

    Faced faced(thing);
    macro.Register(faced, "faced");
    EXPECT_EQ(resultOf("n = 0 : For Each e In faced\n n = n + 1\n Next\n obj.Name = n"), "I4 3");
    MacroEval plain("plain");
    macro.Register(plain, "plain");
    EXPECT_EQ(run("For Each e In plain\n Next"), "Object expected");
    EXPECT_EQ(run("For Each e In Nothing\n Next"), "Error: Object is nothing: ");

    // Items that are objects are bound, not read.
    thing->items = listOf({static_cast<IDispatch*>(thing)});
    EXPECT_EQ(callsOf("For Each e In obj\n x = e.Item\n Next"), Log({"Item?", "Item 3()"}));
    thing->items.Clear();

    thing->values[Thing::Item] = static_cast<COleVariant>(listOf({4, 5}));
    EXPECT_EQ(resultOf("n = 0 : For Each e In obj.Item\n n = n + e\n Next\n obj.Name = n"), "I4 9");
    EXPECT_EQ(resultOf("Dim a() : ReDim a(2) : n = 0\nFor Each e In a\n ReDim a(9)\n n = n + 1\n"
                       "Next\nobj.Name = n"),
              "I4 3");
    EXPECT_EQ(resultOf("Dim b() : n = 0\nFor Each e In b\n n = n + 1\nNext\nobj.Name = n"), "I4 0");
}

TEST_F(AutomationBridgeTest, EnableAutomationDoesNotCount) {
    EXPECT_EQ(UI_Macro::EnableAutomation("nobody", thing), 0);
    EXPECT_EQ(thing->references, 1u);
    {
        MacroEval brief("brief");
        macro.Register(brief, "brief");
        EXPECT_EQ(UI_Macro::EnableAutomation("BRIEF", thing), 1);
        UI_MacroVariant copy(static_cast<UI_MacroVariant&>(brief));
        EXPECT_EQ(thing->references, 2u);
    }
    EXPECT_EQ(UI_Macro::EnableAutomation("brief", thing), 0);
    EXPECT_EQ(thing->references, 1u);
}

TEST_F(AutomationBridgeTest, ObjectsAreTheSameByIdentity) {
    thing->values[Thing::Child] = COleVariant(static_cast<IDispatch*>(thing));
    MacroEval plain("plain");
    macro.Register(plain, "plain");
    MacroEval unset("unset");
    macro.Register(unset, "unset");
    EXPECT_EQ(UI_Macro::EnableAutomation("unset", nullptr), 1);
    EXPECT_EQ(resultOf("Set a = obj : Set b = obj.Child\n"
                       "obj.Name = (a Is obj) & (b Is obj) & (obj Is b) & (a Is b) & (b Is plain) "
                       "& (plain Is obj) & (plain Is plain) & (unset Is Nothing)"),
              "BSTR TrueTrueTrueTrueFalseFalseTrueTrue");
    run(""); // lets go of the variables
}

// A name that a built-in function has may stand for an object, in every macro from then on.
TEST_F(AutomationBridgeTest, EnableAutomationReplacesABuiltInFunction) {
    struct Functions : MacroSupport { // the table outlives the test
        using MacroSupport::functionsMap;
    };
    UI_MacroVariant& row = *Functions::functionsMap()->Lookup(SYS_StrNoCase("ScriptEngine"));
    const UI_MacroVariant function = row;
    thing->values[Thing::Child] = COleVariant("c");
    EXPECT_EQ(UI_Macro::EnableAutomation("ScriptEngine", thing), 1);
    EXPECT_EQ(thing->references, 1u);
    EXPECT_EQ(callsOf("x = SCRIPTENGINE.Child"), Log({"Child?", "Child 3()"}));
    EXPECT_EQ(callsOf("ScriptEngine.Item(1) = 2"), Log({"Item?", "Item 4(I4 1) = I4 2"}));
    EXPECT_EQ(resultOf("With ScriptEngine\n obj.Name = .Child & (ScriptEngine Is obj)\nEnd With"),
              "BSTR cTrue");
    thing->isEnumerator = true;
    thing->items = listOf({1, 2});
    EXPECT_EQ(resultOf("For Each e In ScriptEngine\n s = s & e\nNext\nobj.Name = s"), "BSTR 12");
    EXPECT_EQ(UI_Macro::EnableAutomation("ScriptEngine", nullptr), 1);
    EXPECT_EQ(run("x = ScriptEngine.Child"), "Error: Object is nothing: ");
    row = function;
}

TEST_F(AutomationBridgeTest, MakesAndFindsObjects) {
    UI_MacroVariant value("old");
    EXPECT_EQ(value.CreateObject("Test.Thing"), 0);
    EXPECT_EQ(value.GetActiveObject("Test.Thing"), 0);
    EXPECT_EQ(value.GetObject("thing.doc", "Test.Thing"), 0);
    EXPECT_EQ(value.GetObject(nullptr, nullptr), 0);
    EXPECT_EQ(value.GetStringVal(), "old");

    automation::RegisterClass("Test.Thing", [&] { return static_cast<IUnknown*>(new Thing(log)); });
    EXPECT_EQ(value.CreateObject("test.thing"), 1);
    EXPECT_EQ(value.GetType(), vvtObject);
    EXPECT_EQ(static_cast<Thing*>(value.GetDispatchVal())->references, 1u);
    value.Clear();
    EXPECT_EQ(value.CreateObject("Test.Thing", ""), 1);
    EXPECT_EQ(value.GetObject("", "Test.Thing"), 1);
    EXPECT_EQ(Thing::s_Alive, 2);
    value.Clear();
    EXPECT_EQ(value.CreateObject("Test.Thing", "elsewhere"), 0);
    EXPECT_EQ(Thing::s_Alive, 1);

    automation::RegisterActive("Test.Thing", thing);
    automation::RegisterRunning("thing.doc", thing);
    EXPECT_EQ(value.GetActiveObject("Test.Thing"), 1);
    EXPECT_EQ(value.GetDispatchVal(), thing);
    value.Clear();
    EXPECT_EQ(value.GetObject("Thing.DOC", nullptr), 1);
    EXPECT_EQ(value.GetDispatchVal(), thing);
    thing->isOpaque = true;
    EXPECT_EQ(UI_MacroVariant().GetObject("thing.doc", ""), 0);
    automation::RevokeClass("Test.Thing");
    automation::RevokeActive("Test.Thing");
    automation::RevokeRunning("thing.doc");
}

} // namespace
