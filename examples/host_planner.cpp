// A small but whole host: a planner whose tasks come from a macro and from its user. What the user
// does is recorded as macro text.
//
//     host_planner [MACRO]     macros/plan.mcr if none is given; the switch -log keeps a log

#include <ClassDescriptors.h>
#include <UI_Macro.h>

#include <chrono>
#include <cstdio>
#include <vector>

namespace {

struct Task {
    SYS_String name;
    double hours;
};

/// How a macro writes this text: a quote in it stands twice.
SYS_String Quoted(const SYS_String& text) {
    SYS_String quoted = "\"";
    for (const char c : text.View()) {
        quoted += c;
        if (c == '"')
            quoted += c;
    }
    return quoted + "\"";
}

/// `Add`, `Count`, `Task(i)`, `Hours(i)`, `Total`, `Exit`. Tasks count from 0.
class Plan : public MacroEval {
public:
    Plan() : MacroEval("Plan") {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Plan", MacroEval::GetMacroClass());
        static const cMacroArgument index("index", TypeNameInt);
        static cMacroClassMethod<Plan> add(self, "Add", TypeNameInt, &Plan::Add, false,
                                           cMacroArgument("task", TypeNameString),
                                           cMacroArgument("hours", TypeNameReal));
        static cMacroClassProperty<Plan> count(self, "Count", TypeNameInt, &Plan::Count);
        static cMacroClassProperty<Plan> total(self, "Total", TypeNameReal, &Plan::Total);
        static cMacroClassProperty<Plan> task(self, "Task", TypeNameString, &Plan::GetTask, nullptr,
                                              nullptr, false, index);
        static cMacroClassProperty<Plan> hours(self, "Hours", TypeNameReal, &Plan::GetHours,
                                               &Plan::SetHours, nullptr, false, index);
        static cMacroClassMethod<Plan> exit(self, "Exit", TypeNameVariant, &Plan::Exit, false,
                                            cMacroArgument("code", TypeNameInt));
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

    /// What the user's hand and macros both end in.
    void AddTask(const SYS_String& name, double hours) {
        m_Tasks.push_back({name, hours});
        SYS_String line;
        line.Format("Plan.Add %s, %g", Quoted(name).c_str(), hours);
        Record(line, 0);
    }
    void Print() const {
        for (const Task& task : m_Tasks)
            std::printf("%5.1f  %s\n", task.hours, task.name.c_str());
    }

private:
    UI_MacroVariant Add(int, UI_MacroVariant* args) {
        AddTask(static_cast<SYS_String>(args[0]), static_cast<double>(args[1]));
        return static_cast<int>(m_Tasks.size());
    }
    UI_MacroVariant Count(int, UI_MacroVariant*) { return static_cast<int>(m_Tasks.size()); }
    UI_MacroVariant Total(int, UI_MacroVariant*) {
        double total = 0;
        for (const Task& task : m_Tasks)
            total += task.hours;
        return total;
    }
    UI_MacroVariant GetTask(int, UI_MacroVariant* args) { return at(args[0]).name; }
    UI_MacroVariant GetHours(int, UI_MacroVariant* args) { return at(args[0]).hours; }
    UI_MacroVariant SetHours(int, UI_MacroVariant* args) {
        at(args[0]).hours = static_cast<double>(args[1]); // the new value comes last
        return UI_MacroVariant();
    }
    UI_MacroVariant Exit(int, UI_MacroVariant* args) {
        UI_Macro::RequestExit(static_cast<int>(args[0]));
        return UI_MacroVariant();
    }

    Task& at(const UI_MacroVariant& index) {
        const int i = static_cast<int>(index);
        if (i < 0 || i >= static_cast<int>(m_Tasks.size()))
            OnMacroError("There is no such task"); // throws
        return m_Tasks.at(static_cast<std::size_t>(i));
    }

    std::vector<Task> m_Tasks;
};

/// Shows recorded lines; a real host would offer to save them.
class Screen : public MacroOutput {
public:
    int Record(char const* text) override {
        std::printf("recorded: %s\n", text);
        return 1;
    }
};

/// Ends a macro that runs for more than ten seconds, and answers its questions with Yes.
void SetHooks(UI_Macro& macro) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(10);
    MacroHostHooks hooks;
    hooks.statement = [&macro, end](long) {
        if (Clock::now() > end)
            macro.Stop();
    };
    hooks.messageBox = [](const SYS_String& text, int, const SYS_String& title) {
        std::printf("%s asks: %s\n", title.c_str(), text.c_str());
        return 6;
    };
    MacroSupport::SetHostHooks(hooks);
}

/// Gives the code that the macro asked for; 100 if it failed.
int Run(UI_Macro& macro, const char* file) {
    try {
        macro.ExecuteMacro(file, "", nullptr, 0);
    } catch (const MacroException& error) {
        std::printf("%s:%d: %s\n", error.GetFilePath().c_str(), error.GetPosition() + 1,
                    error.GetText().c_str());
        return 100;
    }
    // A loop that is never closed ends the macro without an exception.
    const MacroSupport& processor = *MacroSupport::GetProcessor();
    if (processor.GetLastErrorText().IsEmpty())
        return UI_Macro::GetReturnValue();
    std::printf("%s:%ld: %s\n", file, processor.GetLastErrorLine() + 1,
                processor.GetLastErrorText().c_str());
    return 100;
}

} // namespace

int main(int argc, char** argv) {
    const bool hasFile = argc > 1 && argv[1][0] != '-';
    MacroEngineDllInitialize();
    {
        Plan plan;
        UI_Macro macro(true);
        macro.Register(plan, nullptr);
        MacroSupport::GetProcessor()->InitBackgroundMode();
        SetHooks(macro);
        std::printf("the macro ends with %d\n", Run(macro, hasFile ? argv[1] : "macros/plan.mcr"));

        macro.StartRecording(new Screen);
        plan.AddTask("Admire the \"new\" room", 1);
        macro.StopRecording();
        plan.Print();
        MacroSupport::SetHostHooks(MacroHostHooks()); // they refer to what ends here
    }
    MacroEngineDllTerminate();
}
