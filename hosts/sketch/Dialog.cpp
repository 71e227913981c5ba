#include "Dialog.h"

#include "Refuse.h"

#include <UI_Macro.h>

#include <string>

/// The time for which a dialog is open. An error may end it, too.
class Dialog::Showing {
public:
    explicit Showing(Dialog& dialog) : m_Dialog(dialog) {
        m_Dialog.m_State = State::Open;
        MacroSupport::GetProcessor()->Register(m_Dialog, nullptr);
        if (m_IsRecorded)
            m_Dialog.m_Desk.recorder.BeginDialog(m_Dialog.GetName());
    }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    ~Showing() {
        if (m_IsRecorded)
            m_Dialog.m_Desk.recorder.EndDialog();
        if (m_Dialog.IsOpen())
            m_Dialog.m_State = State::Closed;
    }

private:
    Dialog& m_Dialog;
    const bool m_IsRecorded = UI_Macro::InRecordMode() && !UI_Macro::InPlaybackMode();
};

cMacroAppClass* Dialog::GetMacroClass() {
    static cMacroAppClass self("Dialog", MacroEval::GetMacroClass());
    static cMacroClassMethod<Dialog> ok(self, "OK", "", &Dialog::OK);
    static cMacroClassMethod<Dialog> cancel(self, "Cancel", "", &Dialog::Cancel);
    return &self;
}

bool Dialog::Run() {
    if (IsOpen())
        Refuse("The dialog " + std::string(GetName()) + " is open already");
    const Showing showing(*this);
    if (UI_Macro::InPlaybackMode())
        UI_Macro::ContinuePlayback(GetName());
    else if (m_Desk.user)
        m_Desk.user->Work(*this);
    return m_State == State::Confirmed;
}

void Dialog::RequireOpen() const {
    if (!IsOpen())
        Refuse("The dialog " + std::string(GetName()) + " is not open");
}

UI_MacroVariant Dialog::OK(int, UI_MacroVariant*) {
    RequireOpen();
    m_State = State::Confirmed;
    return UI_MacroVariant();
}

UI_MacroVariant Dialog::Cancel(int, UI_MacroVariant*) {
    RequireOpen();
    m_State = State::Closed;
    return UI_MacroVariant();
}
