// Runs macros in all the ways that a host can, and tells what came of each.

#include <UI_Macro.h>

#include <cstdio>

namespace {

//! [report]
/// Runs something of a macro and prints how it failed, if it did.
template <class Work> void Report(Work work) {
    try {
        work();
        const MacroSupport* processor = MacroSupport::GetProcessor();
        if (!processor->GetLastErrorText().IsEmpty())
            std::printf("line %ld: %s\n", processor->GetLastErrorLine() + 1,
                        processor->GetLastErrorText().c_str());
    } catch (const MacroException& error) {
        std::printf("line %d: %s\n", error.GetPosition() + 1, error.GetText().c_str());
    }
}
//! [report]

//! [source]
/// Macro text from memory, given as a whole.
class TextSource : public MacroSource {
public:
    explicit TextSource(const char* text) : m_Text(text) {}

    void Reset() override { SetPosition(0); }
    int GetNextLine(SYS_String& text, bool) override {
        if (GetPosition() != 0)
            return 0;
        SetPosition(1);
        text = m_Text;
        return 1;
    }
    SYS_String GetFileName() override { return "<memory>"; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    SYS_String m_Text;
};
//! [source]

/// `Out.Line` prints values, `Out.Run` runs macro text from inside a macro.
class Out : public MacroEval {
public:
    Out() : MacroEval("Out") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        const SYS_StrNoCase member(name);
        if (member == "Line") {
            for (int i = 0; i < argc; ++i)
                std::printf("%s ", static_cast<SYS_String>(args[i]).c_str());
            std::printf("\n");
            return UI_MacroVariant();
        }
        if (member == "Run" && argc == 1)
            return RunInside(static_cast<SYS_String>(args[0]));
        return MacroEval::Evaluate(name, args, argc);
    }

private:
    //! [inside]
    /// A running processor is busy: what a macro starts runs in a processor of its own.
    UI_MacroVariant RunInside(const SYS_String& text) {
        UI_Macro inner(true);
        return inner.ExecuteMacroString(text);
    }
    //! [inside]
};

void RunEverything(UI_Macro& macro) {
    //! [text]
    Report([&] { macro.ExecuteMacroString("Out.Line 6 * 7, \"from a text\""); });
    //! [text]

    //! [procedure]
    Report([&] {
        UI_MacroVariant size[] = {3, 2.5};
        const UI_MacroVariant area = macro.ExecuteMacro("macros/area.mcr", "Area", size, 2);
        std::printf("area %g\n", static_cast<double>(area));

        UI_MacroVariant width = 3;
        UI_MacroVariant growth[] = {UI_MacroVariant(&width), 4}; // the first one by reference
        macro.ExecuteMacro("macros/area.mcr", "Grow", growth, 2);
        std::printf("width %d\n", static_cast<int>(width));
    });
    //! [procedure]

    //! [memory]
    Report(
        [&] { macro.Execute(new TextSource("For i = 1 To 2\nOut.Line i\nNext"), "", nullptr, 0); });
    //! [memory]
    Report([&] { macro.ExecuteMacroString("Out.Run \"Out.Line \"\"inside\"\"\""); });

    //! [failures]
    Report([&] { macro.Execute(new TextSource("x = 1\ny = = 2"), "", nullptr, 0); });
    Report([&] { macro.Execute(new TextSource("x = Null\nx = x + 1"), "", nullptr, 0); });
    Report([&] { macro.Execute(new TextSource("For i = 1 To 2\nOut.Line i"), "", nullptr, 0); });
    Report([&] { macro.ExecuteMacro("macros/none.mcr", "", nullptr, 0); });
    //! [failures]
}

void RunWithinBounds(UI_Macro& macro) {
    //! [hooks]
    long statements = 0;
    MacroHostHooks hooks;
    hooks.statement = [&](long) {
        if (++statements > 100000)
            macro.Stop();
    };
    hooks.messageBox = [](const SYS_String& text, int, const SYS_String& title) {
        std::printf("[%s] %s\n", title.c_str(), text.c_str());
        return 6; // Yes
    };
    MacroSupport::SetHostHooks(hooks);
    //! [hooks]
    Report([&] { macro.ExecuteMacroString("Out.Line MsgBox(\"Go on?\", mbYesNo, \"Plan\")"); });
    Report([&] { macro.ExecuteMacroString("Do\nx = x + 1\nLoop"); });
    std::printf("stopped: %s\n",
                MacroSupport::GetProcessor()->GetExecutionMode() == MacroSupport::emStopped ? "yes"
                                                                                            : "no");
    MacroSupport::SetHostHooks(MacroHostHooks());

    //! [limits]
    MacroLimits limits = MacroSupport::GetLimits();
    limits.frames = 1000;
    limits.arrayElements = 100000;
    MacroSupport::SetLimits(limits);
    //! [limits]
    Report([&] { macro.Execute(new TextSource("Sub s\ns\nEnd Sub\ns"), "", nullptr, 0); });
    Report([&] { macro.Execute(new TextSource("Dim a(1000, 1000)"), "", nullptr, 0); });
}

} // namespace

int main() {
    //! [start]
    MacroEngineDllInitialize();
    {
        Out out;
        UI_Macro macro(true);
        macro.Register(out, nullptr);
        //! [start]
        RunEverything(macro);
        RunWithinBounds(macro);
    }
    MacroEngineDllTerminate();
}
