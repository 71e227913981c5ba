#include "Document.h"

#include "Refuse.h"
#include "Values.h"

namespace {

constexpr int kMostNames = 64;

Point toPoint(const UI_MacroVariant* args) {
    return {ToNumber(args[0], "x"), ToNumber(args[1], "y")};
}

} // namespace

cMacroAppClass* Document::GetMacroClass() {
    using T = Document;
    using Property = cMacroClassProperty<T>;
    using Method = cMacroClassMethod<T>;
    const auto real = [](const char* name) { return cMacroArgument(name, TypeNameReal); };
    static cMacroAppClass self("Document", MacroEval::GetMacroClass());
    static Property shapes(self, "Shapes", "Shapes", &T::GetShapes);
    static Property selected(self, "Selected", TypeNameInt, &T::GetSelected);
    static Property x(self, "X", TypeNameReal, &T::GetX);
    static Property y(self, "Y", TypeNameReal, &T::GetY);
    static Property layer(self, "Layer", TypeNameString, &T::GetLayer, &T::SetLayer);
    static Property visible(self, "LayerVisible", TypeNameBoolean, &T::GetVisible, &T::SetVisible,
                            nullptr, false, cMacroArgument("layer", TypeNameString));
    static Property stroke(self, "Stroke", kTypeNameColor, &T::GetStroke, &T::SetStroke);
    static Property fill(self, "Fill", kTypeNameColor, &T::GetFill, &T::SetFill);
    static Property width(self, "StrokeWidth", TypeNameReal, &T::GetStrokeWidth,
                          &T::SetStrokeWidth);
    static Property dashed(self, "Dashed", TypeNameBoolean, &T::GetDashed, &T::SetDashed);
    static Property size(self, "TextSize", TypeNameReal, &T::GetTextSize, &T::SetTextSize);
    static Property align(self, "Align", TypeNameString, &T::GetAlign, &T::SetAlign);

    static Method select(self, "Select", "", &T::Select, false,
                         cMacroArgument("name", TypeNameString).opt(kMostNames));
    static Method selectAll(self, "SelectAll", "", &T::SelectAll);
    static Method selectNone(self, "SelectNone", "", &T::SelectNone);
    static Method pick(self, "Pick", TypeNameBoolean, &T::Pick, false, real("x"), real("y"));
    static Method move(self, "Move", "", &T::Move, false, real("dx"), real("dy"));
    static Method paint(self, "Paint", "", &T::Paint, false,
                        cMacroArgument("stroke", kTypeNameColor),
                        cMacroArgument("fill", kTypeNameColor).opt(1));
    static Method remove(self, "Delete", "", &T::Erase);
    static Method beginDrag(self, "BeginDrag", "", &T::BeginDrag, false, real("x"), real("y"));
    static Method dragTo(self, "DragTo", "", &T::DragTo, false, real("x"), real("y"));
    static Method endDrag(self, "EndDrag", "", &T::EndDrag);
    static Method undo(self, "Undo", TypeNameBoolean, &T::Undo);
    static Method redo(self, "Redo", TypeNameBoolean, &T::Redo);
    return &self;
}

// --- properties ------------------------------------------------------------------------------

UI_MacroVariant Document::GetShapes(int, UI_MacroVariant*) {
    return static_cast<UI_MacroVariant*>(&m_Shapes);
}

UI_MacroVariant Document::GetSelected(int, UI_MacroVariant*) const {
    return static_cast<int>(m_Desk.editor.GetSelection().size());
}

UI_MacroVariant Document::GetX(int, UI_MacroVariant*) const { return m_Desk.editor.GetPoint().x; }

UI_MacroVariant Document::GetY(int, UI_MacroVariant*) const { return m_Desk.editor.GetPoint().y; }

UI_MacroVariant Document::GetLayer(int, UI_MacroVariant*) const {
    return FromText(m_Desk.editor.GetLayer());
}

UI_MacroVariant Document::SetLayer(int, UI_MacroVariant* args) {
    m_Desk.editor.SetLayer(ToText(args[0], "Layer"));
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetVisible(int, UI_MacroVariant* args) {
    return m_Desk.editor.FindLayer(ToText(args[0], "The layer")).visible;
}

UI_MacroVariant Document::SetVisible(int, UI_MacroVariant* args) {
    m_Desk.editor.FindLayer(ToText(args[0], "The layer")).visible = ToFlag(args[1], "LayerVisible");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetStroke(int, UI_MacroVariant*) { return m_Desk.editor.GetPen().stroke; }

UI_MacroVariant Document::SetStroke(int, UI_MacroVariant* args) {
    m_Desk.editor.GetPen().stroke = ToColor(args[0], "Stroke");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetFill(int, UI_MacroVariant*) { return m_Desk.editor.GetPen().fill; }

UI_MacroVariant Document::SetFill(int, UI_MacroVariant* args) {
    m_Desk.editor.GetPen().fill = ToColor(args[0], "Fill");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetStrokeWidth(int, UI_MacroVariant*) {
    return m_Desk.editor.GetPen().width;
}

UI_MacroVariant Document::SetStrokeWidth(int, UI_MacroVariant* args) {
    m_Desk.editor.GetPen().width = ToSize(args[0], "StrokeWidth");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetDashed(int, UI_MacroVariant*) { return m_Desk.editor.GetPen().dashed; }

UI_MacroVariant Document::SetDashed(int, UI_MacroVariant* args) {
    m_Desk.editor.GetPen().dashed = ToFlag(args[0], "Dashed");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetTextSize(int, UI_MacroVariant*) {
    return m_Desk.editor.GetTextStyle().size;
}

UI_MacroVariant Document::SetTextSize(int, UI_MacroVariant* args) {
    m_Desk.editor.GetTextStyle().size = ToSize(args[0], "TextSize");
    return UI_MacroVariant();
}

UI_MacroVariant Document::GetAlign(int, UI_MacroVariant*) {
    return FromText(m_Desk.editor.GetTextStyle().align);
}

UI_MacroVariant Document::SetAlign(int, UI_MacroVariant* args) {
    m_Desk.editor.GetTextStyle().align = ToAlign(args[0]);
    return UI_MacroVariant();
}

// --- commands --------------------------------------------------------------------------------

UI_MacroVariant Document::Select(int argc, UI_MacroVariant* args) {
    std::vector<int> selection;
    for (int i = 0; i < argc; ++i) {
        const std::string name = ToText(args[i], "The name of a shape");
        const int number = m_Desk.editor.GetDrawing().Find(name);
        if (number < 0)
            Refuse("There is no shape \"" + name + "\"");
        selection.push_back(number);
    }
    m_Desk.editor.Select(selection);
    return UI_MacroVariant();
}

UI_MacroVariant Document::SelectAll(int, UI_MacroVariant*) {
    m_Desk.editor.Select(m_Desk.editor.GetDrawing().GetOrder());
    return UI_MacroVariant();
}

UI_MacroVariant Document::SelectNone(int, UI_MacroVariant*) {
    m_Desk.editor.Select({});
    return UI_MacroVariant();
}

UI_MacroVariant Document::Pick(int, UI_MacroVariant* args) {
    return m_Desk.editor.Pick(toPoint(args));
}

UI_MacroVariant Document::Move(int, UI_MacroVariant* args) {
    m_Desk.editor.MoveSelection(ToNumber(args[0], "dx"), ToNumber(args[1], "dy"));
    return UI_MacroVariant();
}

UI_MacroVariant Document::Paint(int argc, UI_MacroVariant* args) {
    const int stroke = ToColor(args[0], "stroke");
    std::optional<int> fill;
    if (IsGiven(argc, args, 1))
        fill = ToColor(args[1], "fill");
    m_Desk.editor.PaintSelection(stroke, fill);
    return UI_MacroVariant();
}

UI_MacroVariant Document::Erase(int, UI_MacroVariant*) {
    m_Desk.editor.RemoveSelection();
    return UI_MacroVariant();
}

UI_MacroVariant Document::BeginDrag(int, UI_MacroVariant* args) {
    m_Desk.editor.BeginDrag(toPoint(args));
    return UI_MacroVariant();
}

UI_MacroVariant Document::DragTo(int, UI_MacroVariant* args) {
    m_Desk.editor.DragTo(toPoint(args));
    return UI_MacroVariant();
}

UI_MacroVariant Document::EndDrag(int, UI_MacroVariant*) {
    m_Desk.editor.EndDrag();
    return UI_MacroVariant();
}

UI_MacroVariant Document::Undo(int, UI_MacroVariant*) { return m_Desk.editor.Undo(); }

UI_MacroVariant Document::Redo(int, UI_MacroVariant*) { return m_Desk.editor.Redo(); }
