// What a host may do in the middle of a call from a macro: take objects away, end the run, run
// other macros, and throw.

#include "macroengine/objects/Library.h"

#include <UI_Macro.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Action = std::function<UI_MacroVariant(int, UI_MacroVariant*)>;

/// `Act` takes up to three arguments, `Value` is a property; the test says what they do.
class Gadget : public MacroEval {
public:
    explicit Gadget(const char* name) : MacroEval(name) {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Gadget", MacroEval::GetMacroClass());
        static cMacroClassMethod<Gadget> act(self, "Act", TypeNameVariant, &Gadget::Act, false,
                                             cMacroArgument("any", TypeNameVariant).opt(3));
        static cMacroClassProperty<Gadget> value(self, "Value", TypeNameVariant, &Gadget::Read,
                                                 &Gadget::Write);
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

    Action onAct, onGet, onSet;

private:
    // The action may destroy this object, so it is called as a copy.
    static UI_MacroVariant call(Action action, int argc, UI_MacroVariant* args) {
        return action ? action(argc, args) : UI_MacroVariant();
    }
    UI_MacroVariant Act(int argc, UI_MacroVariant* args) { return call(onAct, argc, args); }
    UI_MacroVariant Read(int argc, UI_MacroVariant* args) { return call(onGet, argc, args); }
    UI_MacroVariant Write(int argc, UI_MacroVariant* args) { return call(onSet, argc, args); }
};

class HostCallbacksTest : public ::testing::Test {
protected:
    void SetUp() override {
        gadget = std::make_unique<Gadget>("Gadget");
        other = std::make_unique<Gadget>("Other");
        log.onAct = [this](int argc, UI_MacroVariant* args) {
            for (int i = 0; i < argc; ++i)
                text += TextOf(args[i]) + " ";
            return UI_MacroVariant();
        };
        macro.Register(log, "Log");
        macro.Register(*gadget, nullptr);
        macro.Register(*other, nullptr);
    }

    /// What the macro logs, then its error if there is one. The next macro must run.
    std::string run(const std::string& source) {
        text.clear();
        const std::string error = ErrorOf([&] { macro.ExecuteMacroString(source.c_str()); });
        const std::string result = text + (error == "no error" ? "" : error);
        text.clear();
        EXPECT_EQ(ErrorOf([&] { macro.ExecuteMacroString("Log.Act 1 + 1"); }), "no error");
        EXPECT_EQ(text, "2 ");
        return result;
    }
    UI_MacroVariant drop() {
        gadget.reset();
        return "dropped";
    }

    std::string text;
    Gadget log{"Log"};
    std::unique_ptr<Gadget> gadget, other;
    UI_Macro macro{true};
};

TEST_F(HostCallbacksTest, AnObjectUnregistersItselfInItsGetter) {
    gadget->onGet = [this](int, UI_MacroVariant*) {
        macro.Remove(*gadget);
        return UI_MacroVariant(20);
    };
    EXPECT_EQ(run("Log.Act Gadget.Value + 1\nLog.Act Gadget.Value"),
              "21 Object required: '[undefined]'");
    EXPECT_EQ(gadget->GetEvalParent(), nullptr);
}

TEST_F(HostCallbacksTest, AnObjectIsDestroyedInItsOwnMember) {
    gadget->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Set g = Gadget\nLog.Act g.Act(g, 2)\ng.Act"), "dropped Object required");
    SetUp();
    gadget->onGet = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Set g = Gadget\nx = g.Value & \"!\"\nLog.Act x\nx = g.Value"),
              "dropped! Object required");
    SetUp();
    gadget->onSet = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Set g = Gadget\ng.Value = 3\nLog.Act 1\ng.Value = 4"), "1 Object required");
}

TEST_F(HostCallbacksTest, AnObjectIsDestroyedWhileTheMacroUsesIt) {
    other->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("With Gadget\nOther.Act\nLog.Act 1\n.Act\nEnd With"), "1 Error: Unknown error: ");
    SetUp();
    other->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Log.Act Other.Act(Gadget, 1), Other.Act(Gadget, 2)"), "dropped dropped ");
    SetUp();
    other->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Sub s(g)\nOther.Act\nLog.Act 1\ng.Act\nEnd Sub\ns Gadget"), "1 Object required");
    SetUp();
    other->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Dim list(1)\nSet list(0) = Gadget\nSet list(1) = Other\n"
                  "Log.Act list(0) Is Gadget\nOther.Act\nLog.Act list(1) Is Other\n"
                  "list(0) = 5\nLog.Act list(0)\nSet list(0) = Other\nlist(0).Act.Act"),
              "True True 5 Object required: '[string: \"dropped\"]'");
    SetUp();
    gadget->onGet = [](int, UI_MacroVariant*) { return UI_MacroVariant(5); };
    other->onAct = [this](int, UI_MacroVariant*) { return drop(); };
    EXPECT_EQ(run("Log.Act Gadget.Value + (Len(Other.Act()) - 7)"), "5 ");
}

TEST_F(HostCallbacksTest, ObjectsComeAndGoDuringACall) {
    std::vector<std::unique_ptr<Gadget>> made;
    gadget->onAct = [&](int, UI_MacroVariant* args) {
        made.push_back(std::make_unique<Gadget>(TextOf(args[0]).c_str()));
        made.back()->onGet = [](int, UI_MacroVariant*) { return UI_MacroVariant("made"); };
        macro.Register(*made.back(), nullptr);
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(made.back().get()));
    };
    other->onAct = [&](int, UI_MacroVariant*) {
        made.clear();
        return UI_MacroVariant();
    };
    // The same line sees a variable, then an object, then nothing.
    EXPECT_EQ(run("Fresh = 1\nFor i = 1 To 3\nIf i = 2 Then Gadget.Act \"Fresh\"\n"
                  "If i = 3 Then Other.Act\nLog.Act TypeName(Fresh)\nNext"),
              "Integer Macro object Integer ");
    EXPECT_EQ(run("Log.Act Gadget.Act(\"A\").Value & A.Value\nOther.Act"), "mademade ");
}

TEST_F(HostCallbacksTest, AForeignExceptionPassesUnchanged) {
    gadget->onAct = [](int, UI_MacroVariant*) -> UI_MacroVariant {
        throw std::runtime_error("the host's own");
    };
    gadget->onGet = gadget->onSet = gadget->onAct;
    for (const char* source :
         {"Sub s(n)\nIf n = 0 Then Gadget.Act\ns n - 1\nEnd Sub\ns 3", "x = 1 + Gadget.Value",
          "Gadget.Value = 1", "Dim a(1)\na(0) = Gadget.Act(a(1))",
          "For i = 1 To 2\nWith Gadget\nSelect Case .Value\nCase 1\nEnd Select\nEnd With\nNext"}) {
        std::string what;
        try {
            macro.ExecuteMacroString(source);
        } catch (const std::runtime_error& error) {
            what = error.what();
        }
        EXPECT_EQ(what, "the host's own") << source;
        EXPECT_EQ(run("Log.Act 7"), "7 ");
    }
}

TEST_F(HostCallbacksTest, HostAndMacroCallEachOther) {
    gadget->onAct = [](int argc, UI_MacroVariant* args) {
        return MacroSupport::GetProcessor()->Call("down", args, argc);
    };
    const std::string down = "Function down(ByVal n)\n"
                             "If n > 0 Then down = n + Gadget.Act(n - 1) Else down = 0\n"
                             "End Function\n";
    EXPECT_EQ(run(down + "Log.Act down(100)"), "5050 ");
    EXPECT_EQ(run(down + "Log.Act down(1000)"), "Error: Illegal nesting: ");
}

} // namespace
