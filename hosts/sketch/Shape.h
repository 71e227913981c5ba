#pragma once

#include "Desk.h"
#include "SketchObject.h"

/// One shape, as macros see it. It stays for good: when its figure has been removed, its members
/// are refused until an undo brings the figure back.
class Shape : public SketchObject<Shape> {
public:
    Shape(Desk& desk, int number) : SketchObject(nullptr), m_Desk(desk), m_Number(number) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    /// `Shapes("NAME")`, so that recorded lines find the shape.
    SYS_String GetName() const override;

private:
    const Figure& figure() const;
    /// The same, of a shape that has a certain property.
    const Figure& figureWith(bool (*hasIt)(FigureKind), const char* property) const;
    template <class F> UI_MacroVariant change(F change);

    UI_MacroVariant GetShapeName(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetShapeName(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetKind(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetLayer(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetLayer(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetX(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetX(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetY(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetY(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetWidth(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetWidth(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetHeight(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetHeight(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetRadius(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetRadius(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetStroke(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetStroke(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetFill(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetFill(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetStrokeWidth(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetStrokeWidth(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetDashed(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetDashed(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetText(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetText(int argc, UI_MacroVariant* args);
    UI_MacroVariant Move(int argc, UI_MacroVariant* args);
    UI_MacroVariant Erase(int argc, UI_MacroVariant* args);

    Desk& m_Desk;
    const int m_Number;
};
