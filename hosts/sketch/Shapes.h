#pragma once

#include "Shape.h"

#include <map>

/// The shapes of the document: `Shapes(0)`, `Shapes("Line1")`, `For Each`, and how to add more.
class Shapes : public SketchObject<Shapes> {
public:
    explicit Shapes(Desk& desk) : SketchObject("Shapes"), m_Desk(desk) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    Shape& GetShape(int number);

private:
    bool GetDispatch(IDispatch** face) const override;
    UI_MacroVariant add(const Figure& figure);

    UI_MacroVariant GetCount(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant Item(int argc, UI_MacroVariant* args);
    UI_MacroVariant Walk(int argc, UI_MacroVariant* args);
    UI_MacroVariant AddLine(int argc, UI_MacroVariant* args);
    UI_MacroVariant AddRectangle(int argc, UI_MacroVariant* args);
    UI_MacroVariant AddCircle(int argc, UI_MacroVariant* args);
    UI_MacroVariant AddText(int argc, UI_MacroVariant* args);

    Desk& m_Desk;
    std::map<int, Shape> m_Shapes; // by the numbers of their figures; made when asked for
};
