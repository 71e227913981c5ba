#pragma once

#include "Shapes.h"

/// The drawing: what to draw with, what is selected, and the commands for the selection.
class Document : public SketchObject<Document> {
public:
    explicit Document(Desk& desk) : SketchObject("Document"), m_Desk(desk), m_Shapes(desk) {
        Register(m_Shapes, nullptr);
    }
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    Shapes& GetShapes() { return m_Shapes; }

private:
    UI_MacroVariant GetShapes(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetSelected(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetX(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetY(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetLayer(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant SetLayer(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetVisible(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetVisible(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetStroke(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetStroke(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetFill(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetFill(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetStrokeWidth(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetStrokeWidth(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetDashed(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetDashed(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetTextSize(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetTextSize(int argc, UI_MacroVariant* args);
    UI_MacroVariant GetAlign(int argc, UI_MacroVariant* args);
    UI_MacroVariant SetAlign(int argc, UI_MacroVariant* args);

    UI_MacroVariant Select(int argc, UI_MacroVariant* args);
    UI_MacroVariant SelectAll(int argc, UI_MacroVariant* args);
    UI_MacroVariant SelectNone(int argc, UI_MacroVariant* args);
    UI_MacroVariant Pick(int argc, UI_MacroVariant* args);
    UI_MacroVariant Move(int argc, UI_MacroVariant* args);
    UI_MacroVariant Paint(int argc, UI_MacroVariant* args);
    UI_MacroVariant Erase(int argc, UI_MacroVariant* args);
    UI_MacroVariant BeginDrag(int argc, UI_MacroVariant* args);
    UI_MacroVariant DragTo(int argc, UI_MacroVariant* args);
    UI_MacroVariant EndDrag(int argc, UI_MacroVariant* args);
    UI_MacroVariant Undo(int argc, UI_MacroVariant* args);
    UI_MacroVariant Redo(int argc, UI_MacroVariant* args);

    Desk& m_Desk;
    Shapes m_Shapes;
};
