#pragma once

#include "Desk.h"

#include <UI_MacroEval.h>

/// A modal dialog. It is a macro object under its own name as long as it is open, so that the
/// block `withDlg NAME` of a macro can work it.
class Dialog : public MacroEval {
public:
    Dialog(const char* name, Desk& desk) : MacroEval(name), m_Desk(desk) {}
    using MacroEval::operator=;

    /// Members that all dialogs have: `OK` and `Cancel`.
    static cMacroAppClass* GetMacroClass();

    /// Shows the dialog until it is closed; true if that was by `OK`. A macro that runs works it
    /// by the block behind the statement that opened it, else the user does. A dialog that is
    /// left open counts as cancelled.
    bool Run();
    bool IsOpen() const { return m_State == State::Open; }

protected:
    Desk& GetDesk() const { return m_Desk; }
    void RequireOpen() const;

private:
    enum class State { Closed, Open, Confirmed };
    class Showing;

    UI_MacroVariant OK(int argc, UI_MacroVariant* args);
    UI_MacroVariant Cancel(int argc, UI_MacroVariant* args);

    Desk& m_Desk;
    State m_State = State::Closed;
};
