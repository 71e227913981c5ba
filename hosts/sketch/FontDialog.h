#pragma once

#include "Dialog.h"
#include "SketchObject.h"

/// Chooses the look of a text.
class FontDialog : public SketchObject<FontDialog, Dialog> {
public:
    FontDialog(Desk& desk, const TextStyle& style)
        : SketchObject("FontDialog", desk), m_Style(style) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    const TextStyle& GetStyle() const { return m_Style; }

private:
    UI_MacroVariant GetFamily(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetFamily(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetSize(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetSize(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetBold(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetBold(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetItalic(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetItalic(int argc, UI_MacroVariant* args);

    TextStyle m_Style;
};
