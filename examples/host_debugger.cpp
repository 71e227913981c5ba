// A debugger for macros, without a screen: it has a list of what the user would do at each pause.

#include <UI_Macro.h>

#include <cstdio>
#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace {

/// `Shop.Say` prints values.
class Shop : public MacroEval {
public:
    Shop() : MacroEval("Shop") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        if (SYS_StrNoCase(name) != "Say")
            return MacroEval::Evaluate(name, args, argc);
        std::printf("said:");
        for (int i = 0; i < argc; ++i)
            std::printf(" %s", static_cast<SYS_String>(args[i]).c_str());
        std::printf("\n");
        return UI_MacroVariant();
    }
};

//! [text]
/// A text to evaluate.
class Expression : public MacroSource {
public:
    explicit Expression(const char* text) : m_Text(text) {}

    void Reset() override { SetPosition(0); }
    int GetNextLine(SYS_String& text, bool) override {
        if (GetPosition() != 0)
            return 0;
        SetPosition(1);
        text = m_Text;
        return 1;
    }
    SYS_String GetFileName() override { return ""; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    SYS_String m_Text;
};
//! [text]

using Mode = MacroSupport::ExecutionMode;

//! [debugger]
/// A macro file under a debugger.
class Debugger : public MacroSourceFile {
public:
    using User = std::function<Mode()>;

    /// `user` is asked at each pause how to go on.
    Debugger(const char* file, User user) : MacroSourceFile(file), m_User(std::move(user)) {}

    void ToggleBreakpoint(long line) {
        if (!m_Breakpoints.insert(line).second)
            m_Breakpoints.erase(line);
    }

    /// Asked for every statement that is about to run, also for the one at which the run goes on.
    bool IsBreakPoint(long line) override {
        const bool goesOn = line == std::exchange(m_PausedLine, -1);
        if (goesOn || !m_Breakpoints.contains(line))
            return false;
        MacroSupport::GetProcessor()->SetExecutionMode(MacroSupport::emPaused);
        return true;
    }
    /// The run is paused until the mode is another. Here the user gets the floor.
    void OnPause() override {
        MacroSupport& processor = *MacroSupport::GetProcessor();
        m_PausedLine = processor.GetCurrentLine();
        processor.SetExecutionMode(m_User());
    }
    /// Pauses at the failing statement, which runs again when the run goes on.
    bool BreakOnError(MacroException& error) override {
        std::printf("error: %s\n", error.GetText().c_str());
        MacroSupport::GetProcessor()->SetExecutionMode(MacroSupport::emPaused);
        return true;
    }

private:
    User m_User;
    std::set<long> m_Breakpoints;
    long m_PausedLine = -1;
};
//! [debugger]

//! [frames]
void ListFrames(UI_Macro& macro) {
    for (int frame = 0; frame < macro.GetFramesCount(); ++frame) {
        std::printf("  %s, line %d:", macro.GetContext(frame).c_str(),
                    macro.GetPosition(frame) + 1);
        for (const MacroVariableInfo& variable : macro.GetVariables(frame))
            std::printf(" %s %s", variable.name.c_str(), variable.description.c_str());
        std::printf("\n");
    }
}
//! [frames]

//! [parts]
void Open(UI_Macro& macro, const char* name) {
    UI_MacroVariant value;
    if (!macro.GetVariable(0, name, value))
        return;
    std::printf("  %s has %d parts:", name, CountMacroParts(value));
    for (const MacroPartInfo& part : ListMacroParts(value, 0, 10))
        std::printf(" %s %s", part.name.c_str(), part.description.c_str());
    std::printf("\n");
}
//! [parts]

//! [eval]
void Watch(UI_Macro& macro, const char* expression) {
    try {
        const UI_MacroVariant value = macro.Eval(new Expression(expression), false);
        std::printf("  %s: %s\n", expression, static_cast<SYS_String>(value).c_str());
    } catch (const MacroException& error) {
        std::printf("  %s: %s\n", expression, error.GetText().c_str());
    }
}
//! [eval]

} // namespace

int main() {
    MacroEngineDllInitialize();
    {
        Shop shop;
        UI_Macro macro(true);
        macro.Register(shop, nullptr);

        int pauses = 0;
        const auto user = [&] {
            std::printf("pause %d\n", ++pauses);
            ListFrames(macro);
            switch (pauses) {
            case 1:
                Watch(macro, "price * 2");
                Watch(macro, "Discount(1, 2)");
                return MacroSupport::emStepOver;
            case 2:
                return MacroSupport::emStepOut;
            case 3:
                Open(macro, "list");
                static_cast<Debugger*>(macro.GetSource(0))->ToggleBreakpoint(10);
                return MacroSupport::emRun;
            default:
                //! [mend]
                macro.Eval(new Expression("list(2) = 20"), true);
                //! [mend]
                return MacroSupport::emRun;
            }
        };
        //! [run]
        const SCL_Pointer<Debugger> source(new Debugger("macros/prices.mcr", user));
        source->ToggleBreakpoint(10); // lines count from 0
        try {
            macro.Execute(source, "", nullptr, 0);
        } catch (const MacroException& error) {
            std::printf("line %d: %s\n", error.GetPosition() + 1, error.GetText().c_str());
        }
        //! [run]
    }
    MacroEngineDllTerminate();
}
