#include "Editor.h"

#include "Refuse.h"
#include "Values.h"

#include <algorithm>

namespace {

void move(Figure& figure, double dx, double dy) {
    figure.x = ToGrid(figure.x + dx);
    figure.y = ToGrid(figure.y + dy);
}

} // namespace

// --- layers ----------------------------------------------------------------------------------

void Editor::SetLayer(const std::string& name) {
    if (name.empty())
        Refuse("A layer needs a name");
    const bool isKnown = std::any_of(m_Layers.begin(), m_Layers.end(),
                                     [&](const Layer& layer) { return layer.name == name; });
    if (!isKnown)
        m_Layers.push_back({name, true});
    m_Layer = name;
}

Editor::Layer& Editor::FindLayer(const std::string& name) {
    for (Layer& layer : m_Layers)
        if (layer.name == name)
            return layer;
    Refuse("There is no layer \"" + name + "\"");
}

bool Editor::isVisible(const Figure& figure) const {
    return std::any_of(m_Layers.begin(), m_Layers.end(), [&](const Layer& layer) {
        return layer.visible && layer.name == figure.layer;
    });
}

// --- figures ---------------------------------------------------------------------------------

std::string Editor::makeName(FigureKind kind) {
    std::string name;
    do
        name = KindName(kind) + std::to_string(++m_LastNames[kind]);
    while (m_Drawing.Find(name) >= 0);
    return name;
}

int Editor::Add(Figure figure) {
    EndDrag();
    figure.name = makeName(figure.kind);
    figure.pen = m_Pen;
    figure.layer = m_Layer;
    Drawing::Step step(m_Drawing);
    const int number = m_Drawing.Add(figure);
    step.Commit();
    m_Point = {figure.x, figure.y};
    if (figure.kind == FigureKind::Line)
        m_Point = {ToGrid(figure.x + figure.width), ToGrid(figure.y + figure.height)};
    m_Selection = {number};
    return number;
}

void Editor::SetOptions(const PageOptions& options) {
    EndDrag();
    Drawing::Step step(m_Drawing);
    m_Drawing.SetOptions(options);
    step.Commit();
}

void Editor::Change(int number, const std::function<void(Figure&)>& change) {
    EndDrag();
    Figure figure = *m_Drawing.Get(number);
    change(figure);
    Drawing::Step step(m_Drawing);
    m_Drawing.Change(number, figure);
    step.Commit();
}

void Editor::Rename(int number, const std::string& name) {
    if (name.empty())
        Refuse("A shape needs a name");
    const int bearer = m_Drawing.Find(name);
    if (bearer >= 0 && bearer != number)
        Refuse("There is a shape \"" + name + "\" already");
    Change(number, [&](Figure& figure) { figure.name = name; });
}

void Editor::Remove(int number) {
    EndDrag();
    Drawing::Step step(m_Drawing);
    m_Drawing.Remove(number);
    step.Commit();
}

// --- selection -------------------------------------------------------------------------------

std::vector<int> Editor::GetSelection() const {
    std::vector<int> living = m_Selection;
    std::erase_if(living, [this](int number) { return !m_Drawing.Get(number); });
    return living;
}

int Editor::FindAt(Point at) const {
    const std::vector<int>& order = m_Drawing.GetOrder();
    for (auto number = order.rbegin(); number != order.rend(); ++number) {
        const Figure& figure = *m_Drawing.Get(*number);
        if (isVisible(figure) && figure.IsHit(at))
            return *number;
    }
    return -1;
}

bool Editor::Pick(Point at) {
    EndDrag();
    m_Point = at;
    m_Selection.clear();
    const int number = FindAt(at);
    if (number >= 0)
        m_Selection.push_back(number);
    return number >= 0;
}

void Editor::changeSelection(const std::function<void(Figure&)>& change) {
    EndDrag();
    const std::vector<int> selection = GetSelection();
    if (selection.empty())
        Refuse("Nothing is selected");
    Drawing::Step step(m_Drawing);
    for (int number : selection) {
        Figure figure = *m_Drawing.Get(number);
        change(figure);
        m_Drawing.Change(number, figure);
    }
    step.Commit();
}

void Editor::MoveSelection(double dx, double dy) {
    changeSelection([&](Figure& figure) { move(figure, dx, dy); });
}

void Editor::PaintSelection(int stroke, std::optional<int> fill) {
    changeSelection([&](Figure& figure) {
        figure.pen.stroke = stroke;
        if (fill)
            figure.pen.fill = *fill;
    });
}

void Editor::RemoveSelection() {
    EndDrag();
    const std::vector<int> selection = GetSelection();
    if (selection.empty())
        Refuse("Nothing is selected");
    Drawing::Step step(m_Drawing);
    for (int number : selection)
        m_Drawing.Remove(number);
    step.Commit();
}

// --- drags -----------------------------------------------------------------------------------

void Editor::BeginDrag(Point at) {
    EndDrag();
    const int number = FindAt(at);
    if (number < 0)
        Refuse("There is no shape at " + NumberText(at.x) + ", " + NumberText(at.y));
    const std::vector<int> selection = GetSelection();
    if (std::find(selection.begin(), selection.end(), number) == selection.end())
        m_Selection = {number};
    m_Point = at;
    m_Drag.emplace(m_Drawing);
    m_Drag->press = m_Drag->pointer = at;
    for (int dragged : GetSelection())
        m_Drag->figures.emplace_back(dragged, *m_Drawing.Get(dragged));
}

void Editor::DragTo(Point at) {
    if (!m_Drag)
        Refuse("Nothing is being dragged");
    m_Drag->pointer = at;
    for (const auto& [number, original] : m_Drag->figures) {
        Figure figure = original;
        move(figure, at.x - m_Drag->press.x, at.y - m_Drag->press.y);
        m_Drawing.Change(number, figure);
    }
}

void Editor::EndDrag() {
    if (!m_Drag)
        return;
    m_Point = m_Drag->pointer;
    m_Drag->step.Commit();
    m_Drag.reset();
}

// --- undo ------------------------------------------------------------------------------------

bool Editor::Undo() {
    EndDrag();
    return m_Drawing.Undo();
}

bool Editor::Redo() {
    EndDrag();
    return m_Drawing.Redo();
}
