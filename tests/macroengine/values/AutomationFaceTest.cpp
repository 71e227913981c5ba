// Objects of the host on their way out of the engine, and back.

#include <AutomationFace.h>
#include <ClassDescriptors.h>

#include <AutomationObject.h>

#include "macroengine/EngineFixture.h"
#include "macroengine/values/Thing.h"

namespace {

/// A class with a read-only and a writable property, a default and a method.
class Lamp : public MacroEval {
public:
    explicit Lamp(const char* name) : MacroEval(name) {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        using L = Lamp;
        static cMacroAppClass self("Lamp", MacroEval::GetMacroClass());
        static cMacroClassProperty<L> level(self, "Level", TypeNameInt, &L::GetLevel, &L::SetLevel,
                                            &L::SetTwin, true);
        static cMacroClassMethod<L> dim(self, "Dim", TypeNameInt, &L::Dim, false,
                                        cMacroArgument("by", TypeNameInt).opt(1));
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

    int level = 10;
    UI_MacroVariant twin;

private:
    UI_MacroVariant GetLevel(int, UI_MacroVariant*) { return level; }
    UI_MacroVariant SetLevel(int, UI_MacroVariant* args) {
        level = static_cast<int>(args[0]);
        return level;
    }
    UI_MacroVariant SetTwin(int, UI_MacroVariant* args) {
        twin = args[0];
        return UI_MacroVariant();
    }
    UI_MacroVariant Dim(int argc, UI_MacroVariant* args) {
        if (level == 0)
            OnMacroError("The lamp is out");
        level -= argc > 0 && args[0].GetType() != vvtMissing ? static_cast<int>(args[0]) : 1;
        return level;
    }
};

class AutomationFace : public EngineTest {
protected:
    AutomationFace() {
        macro.Register(lamp, "lamp");
        lamp.Register(bulb, "bulb");
        face = ExposeToAutomation(lamp);
    }
    ~AutomationFace() override { EXPECT_EQ(face->Release(), 0u); }

    HRESULT call(const char16_t* name, WORD flags, std::vector<COleVariant> arguments = {}) {
        std::u16string text = name;
        LPOLESTR names[] = {text.data()};
        DISPID id = DISPID_VALUE;
        if (!text.empty()) {
            EXPECT_EQ(face->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
        }
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = flags >= DISPATCH_PROPERTYPUT;
        DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr,
                              static_cast<UINT>(reversed.size()), isPut ? 1u : 0u};
        result.Clear();
        EXCEPINFO info{};
        const HRESULT outcome =
            face->Invoke(id, IID_NULL, 0, flags, &parameters, &result, &info, nullptr);
        description = automation::TextOf(info.bstrDescription).c_str();
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        return outcome;
    }
    std::string read(const char16_t* name, std::vector<COleVariant> arguments = {}) {
        EXPECT_EQ(call(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments)), S_OK);
        return TextOf(result);
    }

    Lamp lamp{"lamp"};
    Lamp bulb{"bulb"};
    IDispatch* face;
    COleVariant result;
    std::string description;
};

TEST_F(AutomationFace, GivesMembersChildrenAndTheDefault) {
    EXPECT_EQ(read(u"LEVEL"), "I4 10");
    EXPECT_EQ(read(u""), "I4 10");
    EXPECT_EQ(read(u"dim"), "I4 9");
    EXPECT_EQ(read(u"Dim", {COleVariant(LONG{4})}), "I4 5");
    EXPECT_EQ(read(u"MacroName"), "BSTR lamp");
    EXPECT_EQ(call(u"Level", DISPATCH_PROPERTYPUT, {COleVariant(LONG{7})}), S_OK);
    EXPECT_EQ(lamp.level, 7);
    EXPECT_EQ(call(u"Level", DISPATCH_PROPERTYPUTREF, {COleVariant(face)}), S_OK);
    EXPECT_EQ(lamp.twin.getRefVal(), &lamp);
    lamp.twin.Clear();

    EXPECT_EQ(read(u"bulb"), "DISPATCH");
    MacroEval* behind = nullptr;
    ASSERT_TRUE(IsExposedObject(result.pdispVal, behind));
    EXPECT_EQ(behind, &bulb);
    IDispatch* again = ExposeToAutomation(lamp);
    EXPECT_EQ(again, face) << "an object has one face at a time";
    EXPECT_EQ(again->Release(), 1u);
}

TEST_F(AutomationFace, RefusesWhatTheObjectRefuses) {
    EXPECT_EQ(call(u"Nowhere", 3), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(u"Dim", DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND) << "for watches";
    EXPECT_EQ(call(u"Dim", DISPATCH_PROPERTYPUT, {COleVariant(LONG{1})}), DISP_E_MEMBERNOTFOUND);
    lamp.level = 0;
    EXPECT_EQ(call(u"Dim", 3), DISP_E_EXCEPTION);
    EXPECT_EQ(description, "The lamp is out");
    EXPECT_TRUE(processor().GetLastErrorText().IsEmpty()) << "no macro has failed";
    EXPECT_EQ(call(u"Dim", 3, {COleVariant(LONG{1}), COleVariant(LONG{1})}), DISP_E_EXCEPTION);
    EXPECT_EQ(face->Invoke(999999, IID_NULL, 0, 3, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(face->Invoke(DISPID_NEWENUM, IID_NULL, 0, 3, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);

    auto* brief = new Lamp("brief");
    IDispatch* left = ExposeToAutomation(*brief);
    delete brief;
    std::u16string name = u"Level";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    EXPECT_EQ(left->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    EXPECT_EQ(left->Invoke(id, IID_NULL, 0, 3, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    UI_MacroVariant back;
    back.Init(COleVariant(left));
    EXPECT_EQ(back.GetType(), vvtReference);
    EXPECT_EQ(back.getRefVal(), nullptr) << "an object that has gone is Null";
    EXPECT_EQ(left->Release(), 0u);
}

TEST_F(AutomationFace, IsLeftBehindOnTheWayBack) {
    Log calls;
    auto* thing = new Thing(calls);
    MacroEval entry("entry");
    macro.Register(entry, "obj");
    UI_Macro::EnableAutomation("obj", thing);
    EXPECT_EQ(runText("Set obj.Child = lamp\nobj.Child.Level = 3\nSet l = obj.Child\n"
                      "Log.Add l Is lamp, lamp.Level, obj.Child.Dim(2)\n"
                      "obj.Act lamp, lamp.bulb\n"
                      "obj.Item = Array(Log, 1)\nlist = obj.Item\n"
                      "Log.Add list(0) Is Log\nlist(0).Add list(1)"),
              (Lines{"True", "3", "1", "True", "1"}));
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Act 3(DISPATCH, DISPATCH)"), 1);
    thing->values.clear();
    EXPECT_EQ(thing->Release(), 0u);
}

/// Lamps for `For Each`.
class Row : public Recorder {
public:
    Row() : Recorder("row") {
        On("_NewEnum", [this] {
            std::vector<MacroEval*> walked;
            for (const auto& lamp : lamps)
                walked.push_back(lamp.get());
            return WalkOver(walked);
        });
        On("Drop", [this] { lamps.erase(lamps.begin() + 1); });
        for (const char* name : {"first", "second", "third"})
            lamps.push_back(std::make_unique<Lamp>(name));
    }

    std::vector<std::unique_ptr<Lamp>> lamps;
    bool isCollection = true;

private:
    bool GetDispatch(IDispatch** out) const override {
        if (out)
            *out = isCollection ? ExposeToAutomation(const_cast<Row&>(*this)) : nullptr;
        return isCollection;
    }
};

TEST_F(AutomationFace, MakesACollectionOfAnObject) {
    Row row;
    macro.Register(row, nullptr);
    EXPECT_EQ(runText("For Each l In row\nl.Dim 3\nLog.Add l.MacroName & l\nSet last = l\nNext\n"
                      "Log.Add last.Level"),
              (Lines{"first7", "second7", "third7", "7"}));
    EXPECT_EQ(row.lamps[2]->level, 7);
    EXPECT_EQ(runText("For Each l In row\nIf n = 0 Then row.Drop\nn = n + 1\n"
                      "Log.Add IsNull(l)\nNext"),
              (Lines{"False", "True", "False"}));
    EXPECT_EQ(runText("For Each l In lamp\nNext"), Lines{"Object expected"}) << "has no face";
    row.isCollection = false;
    EXPECT_EQ(runText("For Each l In row\nNext"), Lines{"Object expected"});
}

/// A library that calls what it is given, as those of other makers do.
class Caller final : public automation::Object {
public:
    const automation::Members& GetMembers() const override {
        static const automation::Members members("Caller",
                                                 {automation::Method<&Caller::Call>("Call", 2)});
        return members;
    }

private:
    COleVariant Call(const automation::Arguments& arguments) {
        std::u16string name = SYS_ToUtf16(arguments.Text(1).View());
        LPOLESTR names[] = {name.data()};
        DISPID id = 0;
        arguments.Object(0)->GetIDsOfNames(IID_NULL, names, 1, 0, &id);
        DISPPARAMS none{};
        COleVariant result;
        EXCEPINFO info{};
        const HRESULT outcome = arguments.Object(0)->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none,
                                                            &result, &info, nullptr);
        const SYS_String text = automation::TextOf(info.bstrDescription);
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        if (FAILED(outcome))
            throw automation::Failure("passed on: " + text);
        return result;
    }
};

TEST_F(AutomationFace, CarriesFailuresAndTheEndOfTheMacroThrough) {
    automation::RegisterClass("Test.Caller", [] { return new Caller; });
    log.On("Halt", [this] {
        macro.Stop();
        throw MacroStopException();
    });
    const std::string make = "Set c = CreateObject(\"Test.Caller\")\n";
    EXPECT_EQ(runText(make + "Log.Add c.Call(lamp, \"Dim\"), c.Call(lamp, \"Level\")"),
              (Lines{"9", "9"}));
    lamp.level = 0;
    try {
        execute(textSource(make + "c.Call lamp, \"Dim\""));
        ADD_FAILURE() << "no error";
    } catch (const MacroException& error) {
        EXPECT_EQ(error.GetText(), "Invoke failed");
        EXPECT_EQ(error.GetDetail(), "Caller: passed on: The lamp is out");
        EXPECT_EQ(error.GetPosition(), 1);
    }
    runText(make + "c.Call Log, \"Halt\"\nLog.Add \"never\"");
    EXPECT_TRUE(log.lines.empty());
    automation::RevokeClass("Test.Caller");
}

} // namespace
