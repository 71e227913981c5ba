#pragma once

#include "Dialog.h"
#include "SketchObject.h"

/// The page, and the dialog for it. While the dialog is open its fields are a draft, which `OK`
/// puts into effect as one step; otherwise each field takes effect by itself.
class Options : public SketchObject<Options, Dialog> {
public:
    explicit Options(Desk& desk) : SketchObject("Options", desk) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    void Show();

private:
    const PageOptions& current() const;
    template <class F> UI_MacroVariant change(F change);

    UI_MacroVariant GetTitle(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetTitle(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetWidth(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetWidth(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetHeight(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetHeight(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetGrid(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetGrid(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetBackground(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetBackground(int argc, UI_MacroVariant* args);
    UI_MacroVariant ChooseColor(int argc, UI_MacroVariant* args);

    PageOptions m_Draft;
};
