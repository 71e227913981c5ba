#pragma once

#include "Dialog.h"
#include "SketchObject.h"

/// Edits a text shape. Its colour and its font have dialogs of their own.
class TextDialog : public SketchObject<TextDialog, Dialog> {
public:
    TextDialog(Desk& desk, const Figure& figure)
        : SketchObject("TextDialog", desk), m_Figure(figure) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    const Figure& GetFigure() const { return m_Figure; }

private:
    UI_MacroVariant GetText(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetText(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetAlign(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetAlign(int argc, UI_MacroVariant* args);
    UI_MacroVariant ChooseFont(int argc, UI_MacroVariant* args);
    UI_MacroVariant ChooseColor(int argc, UI_MacroVariant* args);

    Figure m_Figure;
};
