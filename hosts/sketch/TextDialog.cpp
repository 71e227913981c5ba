#include "TextDialog.h"

#include "ColorDialog.h"
#include "FontDialog.h"
#include "Values.h"

cMacroAppClass* TextDialog::GetMacroClass() {
    using T = TextDialog;
    static cMacroAppClass self("TextDialog", Dialog::GetMacroClass());
    static cMacroClassProperty<T> text(self, "Text", TypeNameString, &T::GetText, &T::SetText);
    static cMacroClassProperty<T> align(self, "Align", TypeNameString, &T::GetAlign, &T::SetAlign);
    static cMacroClassMethod<T> font(self, "ChooseFont", "", &T::ChooseFont);
    static cMacroClassMethod<T> color(self, "ChooseColor", "", &T::ChooseColor);
    return &self;
}

UI_MacroVariant TextDialog::GetText(int, UI_MacroVariant*) const { return FromText(m_Figure.text); }

UI_MacroVariant TextDialog::SetText(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Figure.text = ToText(args[0], "Text");
    return UI_MacroVariant();
}

UI_MacroVariant TextDialog::GetAlign(int, UI_MacroVariant*) const {
    return FromText(m_Figure.style.align);
}

UI_MacroVariant TextDialog::SetAlign(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Figure.style.align = ToAlign(args[0]);
    return UI_MacroVariant();
}

UI_MacroVariant TextDialog::ChooseFont(int, UI_MacroVariant*) {
    RequireOpen();
    FontDialog dialog(GetDesk(), m_Figure.style);
    if (dialog.Run())
        m_Figure.style = dialog.GetStyle();
    return UI_MacroVariant();
}

UI_MacroVariant TextDialog::ChooseColor(int, UI_MacroVariant*) {
    RequireOpen();
    ColorDialog dialog(GetDesk(), m_Figure.pen.stroke);
    if (dialog.Run())
        m_Figure.pen.stroke = dialog.GetColor();
    return UI_MacroVariant();
}
