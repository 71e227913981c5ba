#include "ColorDialog.h"

#include "Values.h"

#include <algorithm>

cMacroAppClass* ColorDialog::GetMacroClass() {
    using T = ColorDialog;
    static cMacroAppClass self("ColorDialog", Dialog::GetMacroClass());
    static cMacroClassProperty<T> red(self, "Red", TypeNameInt, &T::GetPart<0>, &T::SetPart<0>);
    static cMacroClassProperty<T> green(self, "Green", TypeNameInt, &T::GetPart<8>, &T::SetPart<8>);
    static cMacroClassProperty<T> blue(self, "Blue", TypeNameInt, &T::GetPart<16>, &T::SetPart<16>);
    static cMacroClassProperty<T> color(self, "Color", kTypeNameColor, &T::GetColor, &T::SetColor);
    return &self;
}

template <int Shift> UI_MacroVariant ColorDialog::GetPart(int, UI_MacroVariant*) const {
    return std::max(m_Color, 0) >> Shift & 0xFF; // no colour reads as black
}

template <int Shift> UI_MacroVariant ColorDialog::SetPart(int, UI_MacroVariant* args) {
    RequireOpen();
    const int part = ToWhole(args[0], "A part of a colour", 0, 255);
    m_Color = (std::max(m_Color, 0) & ~(0xFF << Shift)) | part << Shift;
    return UI_MacroVariant();
}

UI_MacroVariant ColorDialog::GetColor(int, UI_MacroVariant*) const { return m_Color; }

UI_MacroVariant ColorDialog::SetColor(int, UI_MacroVariant* args) {
    RequireOpen();
    m_Color = ToColor(args[0], "Color");
    return UI_MacroVariant();
}
