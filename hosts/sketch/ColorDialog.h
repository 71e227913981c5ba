#pragma once

#include "Dialog.h"
#include "SketchObject.h"

/// Chooses a colour, by itself or by its parts.
class ColorDialog : public SketchObject<ColorDialog, Dialog> {
public:
    ColorDialog(Desk& desk, int color) : SketchObject("ColorDialog", desk), m_Color(color) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    int GetColor() const { return m_Color; }

private:
    template <int Shift> UI_MacroVariant GetPart(int argc, UI_MacroVariant* args) const;
    template <int Shift> UI_MacroVariant SetPart(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetColor(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetColor(int argc, UI_MacroVariant* args);

    int m_Color;
};
