#pragma once

#include "Drawing.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What the tools of the program do to a drawing: with the pen, the layers, the selection and the
/// pointer. A command that cannot be done is refused and leaves the drawing as it was.
class Editor {
public:
    struct Layer {
        std::string name;
        bool visible = true;
    };

    Drawing& GetDrawing() { return m_Drawing; }
    const Drawing& GetDrawing() const { return m_Drawing; }

    // Settings for what is drawn next. They are not undone.
    Pen& GetPen() { return m_Pen; }
    TextStyle& GetTextStyle() { return m_TextStyle; }
    const std::string& GetLayer() const { return m_Layer; }
    /// Draws on that layer from now on; a new name makes a layer above the others.
    void SetLayer(const std::string& name);
    const std::vector<Layer>& GetLayers() const { return m_Layers; }
    /// The layer of that name, refused if there is none.
    Layer& FindLayer(const std::string& name);
    /// Where something was drawn, picked or dropped last.
    Point GetPoint() const { return m_Point; }

    /// Gives the figure a name, the pen and the layer, and selects it.
    int Add(Figure figure);
    void SetOptions(const PageOptions& options);
    /// One change to one figure, as a step of its own.
    void Change(int number, const std::function<void(Figure&)>& change);
    void Rename(int number, const std::string& name);
    void Remove(int number);

    // The selection: living figures, in the order in which they were selected.
    std::vector<int> GetSelection() const;
    void Select(const std::vector<int>& numbers) { m_Selection = numbers; }
    /// The topmost visible figure at a place, or -1.
    int FindAt(Point at) const;
    /// Selects what is there, or nothing; false if nothing is.
    bool Pick(Point at);
    void MoveSelection(double dx, double dy);
    void PaintSelection(int stroke, std::optional<int> fill);
    void RemoveSelection();

    // A drag moves the selection, or what is under the pointer if that is not selected, by the way
    // from the press to the pointer. It is one step; every other command ends it.
    void BeginDrag(Point at);
    void DragTo(Point at);
    void EndDrag();
    bool IsDragging() const { return m_Drag.has_value(); }

    bool Undo();
    bool Redo();

private:
    struct Drag {
        explicit Drag(Drawing& drawing) : step(drawing) {}
        Drawing::Step step;
        Point press;
        Point pointer;
        std::vector<std::pair<int, Figure>> figures; // as they were at the press
    };

    std::string makeName(FigureKind kind);
    bool isVisible(const Figure& figure) const;
    void changeSelection(const std::function<void(Figure&)>& change);

    Drawing m_Drawing;
    Pen m_Pen;
    TextStyle m_TextStyle;
    std::string m_Layer = "Base";
    std::vector<Layer> m_Layers{{m_Layer, true}};
    Point m_Point;
    std::vector<int> m_Selection;
    std::map<FigureKind, int> m_LastNames;
    std::optional<Drag> m_Drag;
};
