// A dialog of the host that a macro can drive: while the dialog is open, a block of the macro takes
// the place of the user.

#include <ClassDescriptors.h>
#include <UI_Macro.h>

#include <cstdio>
#include <memory>

namespace {

//! [open]
/// Stands for a modal dialog on the screen. Recorded lines belong to it while it lives, however it
/// ends: an error of the macro passes through it.
class OpenDialog {
public:
    explicit OpenDialog(const SYS_String& name) : m_Name(name) {
        std::printf("%s opens\n", m_Name.c_str());
        MacroSupport::GetProcessor()->PushModalContext(m_Name);
    }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;
    ~OpenDialog() {
        MacroSupport::GetProcessor()->PopModalContext();
        std::printf("%s closes\n", m_Name.c_str());
    }

    void LetTheUserWork() { std::printf("  the user works in %s\n", m_Name.c_str()); }

private:
    SYS_String m_Name;
};
//! [open]

/// `Show` opens the dialog, `Set` changes a field of it.
class Dialog : public MacroEval {
public:
    explicit Dialog(const char* name) : MacroEval(name) {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Dialog", MacroEval::GetMacroClass());
        static cMacroClassMethod<Dialog> show(self, "Show", TypeNameVariant, &Dialog::Show);
        static cMacroClassMethod<Dialog> set(self, "Set", TypeNameVariant, &Dialog::Set, false,
                                             cMacroArgument("field", TypeNameString),
                                             cMacroArgument("value", TypeNameString));
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

private:
    //! [show]
    UI_MacroVariant Show(int, UI_MacroVariant*) {
        OpenDialog dialog(GetName());
        if (UI_Macro::ContinuePlayback(GetName()) != UI_Macro::pbBlockDone)
            dialog.LetTheUserWork(); // no block waits for this dialog
        return UI_MacroVariant();
    }
    //! [show]
    UI_MacroVariant Set(int, UI_MacroVariant* args) {
        std::printf("  %s: %s is %s\n", GetName().c_str(), static_cast<SYS_String>(args[0]).c_str(),
                    static_cast<SYS_String>(args[1]).c_str());
        return UI_MacroVariant();
    }
};

void Play(UI_Macro& macro, const char* title, const char* text) {
    std::printf("-- %s\n", title);
    try {
        macro.ExecuteMacroString(text);
    } catch (const MacroException& error) {
        std::printf("line %d: %s\n", error.GetPosition() + 1, error.GetText().c_str());
    }
}

} // namespace

int main() {
    MacroEngineDllInitialize();
    {
        Dialog options("Options");
        auto colours = std::make_unique<Dialog>("Colours");
        UI_Macro macro(true);
        macro.Register(options, nullptr);
        macro.Register(*colours, nullptr);

        //! [play]
        Play(macro, "one dialog inside another",
             "Options.Show\n"
             "withDlg Options\n"
             "  .Set \"width\", 3\n"
             "  Colours.Show\n"
             "  withDlg Colours\n"
             "    .Set \"line\", \"red\"\n"
             "  end withDlg\n"
             "  .Set \"height\", 4\n"
             "end withDlg\n");
        //! [play]
        Play(macro, "no block for the dialog", "Colours.Show\nOptions.Set \"width\", 5\n");
        Play(macro, "an error in the block",
             "Options.Show\nwithDlg Options\n  .Set \"width\", 1\n  .Set \"width\"\nend withDlg\n");
    }
    MacroEngineDllTerminate();
}
