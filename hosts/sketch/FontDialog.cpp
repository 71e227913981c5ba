#include "FontDialog.h"

#include "Values.h"

cMacroAppClass* FontDialog::GetMacroClass() {
    using T = FontDialog;
    static cMacroAppClass self("FontDialog", Dialog::GetMacroClass());
    static cMacroClassProperty<T> family(self, "Family", TypeNameString, &T::GetFamily,
                                         &T::SetFamily);
    static cMacroClassProperty<T> size(self, "Size", TypeNameReal, &T::GetSize, &T::SetSize);
    static cMacroClassProperty<T> bold(self, "Bold", TypeNameBoolean, &T::GetBold, &T::SetBold);
    static cMacroClassProperty<T> italic(self, "Italic", TypeNameBoolean, &T::GetItalic,
                                         &T::SetItalic);
    return &self;
}

UI_MacroVariant FontDialog::GetFamily(int, UI_MacroVariant*) const {
    return FromText(m_Style.family);
}

UI_MacroVariant FontDialog::SetFamily(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Style.family = ToText(args[0], "Family");
    return UI_MacroVariant();
}

UI_MacroVariant FontDialog::GetSize(int, UI_MacroVariant*) const { return m_Style.size; }

UI_MacroVariant FontDialog::SetSize(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Style.size = ToSize(args[0], "Size");
    return UI_MacroVariant();
}

UI_MacroVariant FontDialog::GetBold(int, UI_MacroVariant*) const { return m_Style.bold; }

UI_MacroVariant FontDialog::SetBold(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Style.bold = ToFlag(args[0], "Bold");
    return UI_MacroVariant();
}

UI_MacroVariant FontDialog::GetItalic(int, UI_MacroVariant*) const { return m_Style.italic; }

UI_MacroVariant FontDialog::SetItalic(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Style.italic = ToFlag(args[0], "Italic");
    return UI_MacroVariant();
}
