#include "Shape.h"

#include "Refuse.h"
#include "Values.h"

namespace {

bool hasExtent(FigureKind kind) {
    return kind == FigureKind::Line || kind == FigureKind::Rectangle;
}
bool hasRadius(FigureKind kind) { return kind == FigureKind::Circle; }
bool hasText(FigureKind kind) { return kind == FigureKind::Text; }

/// Lines may go either way; the sides of a rectangle have a length.
double toExtent(const Figure& figure, const UI_MacroVariant& value, const char* what) {
    return figure.kind == FigureKind::Line ? ToNumber(value, what) : ToSize(value, what);
}

} // namespace

cMacroAppClass* Shape::GetMacroClass() {
    using T = Shape;
    using Property = cMacroClassProperty<T>;
    static cMacroAppClass self("Shape", MacroEval::GetMacroClass());
    static Property name(self, "Name", TypeNameString, &T::GetShapeName, &T::SetShapeName);
    static Property kind(self, "Kind", TypeNameString, &T::GetKind);
    static Property layer(self, "Layer", TypeNameString, &T::GetLayer, &T::SetLayer);
    static Property x(self, "X", TypeNameReal, &T::GetX, &T::SetX);
    static Property y(self, "Y", TypeNameReal, &T::GetY, &T::SetY);
    static Property width(self, "Width", TypeNameReal, &T::GetWidth, &T::SetWidth);
    static Property height(self, "Height", TypeNameReal, &T::GetHeight, &T::SetHeight);
    static Property radius(self, "Radius", TypeNameReal, &T::GetRadius, &T::SetRadius);
    static Property stroke(self, "Stroke", kTypeNameColor, &T::GetStroke, &T::SetStroke);
    static Property fill(self, "Fill", kTypeNameColor, &T::GetFill, &T::SetFill);
    static Property strokeWidth(self, "StrokeWidth", TypeNameReal, &T::GetStrokeWidth,
                                &T::SetStrokeWidth);
    static Property dashed(self, "Dashed", TypeNameBoolean, &T::GetDashed, &T::SetDashed);
    static Property text(self, "Text", TypeNameString, &T::GetText, &T::SetText);
    static cMacroClassMethod<T> move(self, "Move", "Shape", &T::Move, false,
                                     cMacroArgument("dx", TypeNameReal),
                                     cMacroArgument("dy", TypeNameReal));
    static cMacroClassMethod<T> remove(self, "Delete", "", &T::Erase);
    return &self;
}

SYS_String Shape::GetName() const {
    const Figure* living = m_Desk.editor.GetDrawing().Get(m_Number);
    return living ? ("Shapes(" + Quoted(living->name) + ")").c_str() : "";
}

const Figure& Shape::figure() const {
    const Figure* living = m_Desk.editor.GetDrawing().Get(m_Number);
    if (!living)
        Refuse("The shape has been deleted");
    return *living;
}

const Figure& Shape::figureWith(bool (*hasIt)(FigureKind), const char* property) const {
    const Figure& living = figure();
    if (!hasIt(living.kind))
        Refuse("A shape of kind " + std::string(KindName(living.kind)) + " has no " + property);
    return living;
}

template <class F> UI_MacroVariant Shape::change(F change) {
    figure();
    m_Desk.editor.Change(m_Number, change);
    return UI_MacroVariant();
}

// --- properties ------------------------------------------------------------------------------

UI_MacroVariant Shape::GetShapeName(int, UI_MacroVariant*) const { return FromText(figure().name); }

UI_MacroVariant Shape::SetShapeName(int, UI_MacroVariant* args) {
    figure();
    m_Desk.editor.Rename(m_Number, ToText(args[0], "Name"));
    return UI_MacroVariant();
}

UI_MacroVariant Shape::GetKind(int, UI_MacroVariant*) const { return KindName(figure().kind); }

UI_MacroVariant Shape::GetLayer(int, UI_MacroVariant*) const { return FromText(figure().layer); }

UI_MacroVariant Shape::SetLayer(int, UI_MacroVariant* args) {
    const std::string layer = m_Desk.editor.FindLayer(ToText(args[0], "Layer")).name;
    return change([&](Figure& f) { f.layer = layer; });
}

UI_MacroVariant Shape::GetX(int, UI_MacroVariant*) const { return figure().x; }

UI_MacroVariant Shape::SetX(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.x = ToNumber(args[0], "X"); });
}

UI_MacroVariant Shape::GetY(int, UI_MacroVariant*) const { return figure().y; }

UI_MacroVariant Shape::SetY(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.y = ToNumber(args[0], "Y"); });
}

UI_MacroVariant Shape::GetWidth(int, UI_MacroVariant*) const {
    return figureWith(hasExtent, "width").width;
}

UI_MacroVariant Shape::SetWidth(int, UI_MacroVariant* args) {
    figureWith(hasExtent, "width");
    return change([&](Figure& f) { f.width = toExtent(f, args[0], "Width"); });
}

UI_MacroVariant Shape::GetHeight(int, UI_MacroVariant*) const {
    return figureWith(hasExtent, "height").height;
}

UI_MacroVariant Shape::SetHeight(int, UI_MacroVariant* args) {
    figureWith(hasExtent, "height");
    return change([&](Figure& f) { f.height = toExtent(f, args[0], "Height"); });
}

UI_MacroVariant Shape::GetRadius(int, UI_MacroVariant*) const {
    return figureWith(hasRadius, "radius").width;
}

UI_MacroVariant Shape::SetRadius(int, UI_MacroVariant* args) {
    figureWith(hasRadius, "radius");
    return change([&](Figure& f) { f.width = ToSize(args[0], "Radius"); });
}

UI_MacroVariant Shape::GetStroke(int, UI_MacroVariant*) const { return figure().pen.stroke; }

UI_MacroVariant Shape::SetStroke(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.pen.stroke = ToColor(args[0], "Stroke"); });
}

UI_MacroVariant Shape::GetFill(int, UI_MacroVariant*) const { return figure().pen.fill; }

UI_MacroVariant Shape::SetFill(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.pen.fill = ToColor(args[0], "Fill"); });
}

UI_MacroVariant Shape::GetStrokeWidth(int, UI_MacroVariant*) const { return figure().pen.width; }

UI_MacroVariant Shape::SetStrokeWidth(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.pen.width = ToSize(args[0], "StrokeWidth"); });
}

UI_MacroVariant Shape::GetDashed(int, UI_MacroVariant*) const { return figure().pen.dashed; }

UI_MacroVariant Shape::SetDashed(int, UI_MacroVariant* args) {
    return change([&](Figure& f) { f.pen.dashed = ToFlag(args[0], "Dashed"); });
}

UI_MacroVariant Shape::GetText(int, UI_MacroVariant*) const {
    return FromText(figureWith(hasText, "text").text);
}

UI_MacroVariant Shape::SetText(int, UI_MacroVariant* args) {
    figureWith(hasText, "text");
    return change([&](Figure& f) { f.text = ToText(args[0], "Text"); });
}

// --- methods ---------------------------------------------------------------------------------

UI_MacroVariant Shape::Move(int, UI_MacroVariant* args) {
    const double dx = ToNumber(args[0], "dx");
    const double dy = ToNumber(args[1], "dy");
    change([&](Figure& f) {
        f.x = ToGrid(f.x + dx);
        f.y = ToGrid(f.y + dy);
    });
    return static_cast<UI_MacroVariant*>(this);
}

UI_MacroVariant Shape::Erase(int, UI_MacroVariant*) {
    figure();
    m_Desk.editor.Remove(m_Number);
    return UI_MacroVariant();
}
