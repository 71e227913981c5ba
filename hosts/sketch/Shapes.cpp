#include "Shapes.h"

#include "Refuse.h"
#include "Values.h"

#include <AutomationFace.h>

cMacroAppClass* Shapes::GetMacroClass() {
    using T = Shapes;
    using Method = cMacroClassMethod<T>;
    const auto real = [](const char* name) { return cMacroArgument(name, TypeNameReal); };
    static cMacroAppClass self("Shapes", MacroEval::GetMacroClass());
    static cMacroClassProperty<T> count(self, "Count", TypeNameInt, &T::GetCount);
    static Method item(self, "Item", "Shape", &T::Item, true,
                       cMacroArgument("indexOrName", TypeNameVariant));
    static Method walk(self, "_NewEnum", TypeNameVariant, &T::Walk);
    static Method line(self, "AddLine", "Shape", &T::AddLine, false, real("x1"), real("y1"),
                       real("x2"), real("y2"));
    static Method rectangle(self, "AddRectangle", "Shape", &T::AddRectangle, false, real("x"),
                            real("y"), real("width"), real("height"));
    static Method circle(self, "AddCircle", "Shape", &T::AddCircle, false, real("x"), real("y"),
                         real("radius"));
    static Method text(self, "AddText", "Shape", &T::AddText, false, real("x"), real("y"),
                       cMacroArgument("text", TypeNameString), real("size").opt(1));
    return &self;
}

Shape& Shapes::GetShape(int number) {
    const auto [entry, isNew] = m_Shapes.try_emplace(number, m_Desk, number);
    if (isNew)
        entry->second.SetEvalParent(GetEvalParent()); // its name says that it is one of these
    return entry->second;
}

/// `For Each` walks over the shapes that are there when it begins.
UI_MacroVariant Shapes::Walk(int, UI_MacroVariant*) {
    std::vector<MacroEval*> shapes;
    for (int number : m_Desk.editor.GetDrawing().GetOrder())
        shapes.push_back(&GetShape(number));
    return WalkOver(shapes);
}

bool Shapes::GetDispatch(IDispatch** face) const {
    if (face)
        *face = ExposeToAutomation(const_cast<Shapes&>(*this));
    return true;
}

UI_MacroVariant Shapes::GetCount(int, UI_MacroVariant*) const {
    return static_cast<int>(m_Desk.editor.GetDrawing().GetOrder().size());
}

UI_MacroVariant Shapes::Item(int, UI_MacroVariant* args) {
    const Drawing& drawing = m_Desk.editor.GetDrawing();
    const UI_MacroVariant* read = args[0].GetRVal();
    int number = -1;
    if (read && read->GetType() == vvtString) {
        const std::string name = ToText(*read, "The name");
        number = drawing.Find(name);
        if (number < 0)
            Refuse("There is no shape \"" + name + "\"");
    } else {
        const int count = static_cast<int>(drawing.GetOrder().size());
        if (count == 0)
            Refuse("There are no shapes");
        const int index = ToWhole(args[0], "The index of a shape", 0, count - 1);
        number = drawing.GetOrder()[static_cast<std::size_t>(index)];
    }
    return static_cast<UI_MacroVariant*>(&GetShape(number));
}

UI_MacroVariant Shapes::add(const Figure& figure) {
    return static_cast<UI_MacroVariant*>(&GetShape(m_Desk.editor.Add(figure)));
}

UI_MacroVariant Shapes::AddLine(int, UI_MacroVariant* args) {
    Figure line;
    line.kind = FigureKind::Line;
    line.x = ToNumber(args[0], "x1");
    line.y = ToNumber(args[1], "y1");
    line.width = ToGrid(ToNumber(args[2], "x2") - line.x);
    line.height = ToGrid(ToNumber(args[3], "y2") - line.y);
    return add(line);
}

UI_MacroVariant Shapes::AddRectangle(int, UI_MacroVariant* args) {
    Figure rectangle;
    rectangle.kind = FigureKind::Rectangle;
    rectangle.x = ToNumber(args[0], "x");
    rectangle.y = ToNumber(args[1], "y");
    rectangle.width = ToSize(args[2], "width");
    rectangle.height = ToSize(args[3], "height");
    return add(rectangle);
}

UI_MacroVariant Shapes::AddCircle(int, UI_MacroVariant* args) {
    Figure circle;
    circle.kind = FigureKind::Circle;
    circle.x = ToNumber(args[0], "x");
    circle.y = ToNumber(args[1], "y");
    circle.width = ToSize(args[2], "radius");
    return add(circle);
}

UI_MacroVariant Shapes::AddText(int argc, UI_MacroVariant* args) {
    Figure text;
    text.kind = FigureKind::Text;
    text.x = ToNumber(args[0], "x");
    text.y = ToNumber(args[1], "y");
    text.text = ToText(args[2], "text");
    TextStyle style = m_Desk.editor.GetTextStyle();
    if (IsGiven(argc, args, 3))
        style.size = ToSize(args[3], "size");
    text.style = style;
    return add(text);
}
