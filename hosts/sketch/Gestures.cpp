#include "Gestures.h"

#include "GestureValues.h"
#include "Values.h"

#include <UI_Macro.h>

#include <algorithm>
#include <iostream>
#include <utility>

struct Gestures::Gesture {
    const char* word;
    const char* arguments;
    std::size_t least;
    std::size_t most;
    Place place;
    void (Gestures::*perform)(const Words&);
    const char* meaning;
};

const Gestures::Gesture Gestures::s_Gestures[] = {
    {"line", "X1 Y1 X2 Y2", 4, 4, OnPage, &Gestures::line, "draw a line"},
    {"rectangle", "X Y WIDTH HEIGHT", 4, 4, OnPage, &Gestures::rectangle, "draw a rectangle"},
    {"circle", "X Y RADIUS", 3, 3, OnPage, &Gestures::circle, "draw a circle"},
    {"text", "X Y TEXT", 3, 3, OnPage, &Gestures::text, "write a text"},
    {"set", "FIELD VALUE", 2, 2, Anywhere, &Gestures::set,
     "fill in a field: of the open dialog, else of the document"},
    {"layer", "NAME", 1, 1, OnPage, &Gestures::layer, "draw on that layer"},
    {"show", "NAME on|off", 2, 2, OnPage, &Gestures::show, "show or hide a layer"},
    {"select", "NAME...|all|none", 1, 64, OnPage, &Gestures::select, "select shapes"},
    {"click", "X Y", 2, 2, OnPage, &Gestures::click, "select what is there"},
    {"change", "FIELD VALUE", 2, 2, OnPage, &Gestures::change, "change the selected shape"},
    {"move", "DX DY", 2, 2, OnPage, &Gestures::move, "move what is selected"},
    {"paint", "STROKE [FILL]", 1, 2, OnPage, &Gestures::paint, "colour what is selected"},
    {"delete", "", 0, 0, OnPage, &Gestures::remove, "delete what is selected"},
    {"press", "X Y", 2, 2, OnPage, &Gestures::press, "press the button of the mouse on a shape"},
    {"drag", "X Y", 2, 2, InDrag, &Gestures::drag, "move the mouse with the button down"},
    {"release", "", 0, 0, InDrag, &Gestures::release, "release the button"},
    {"undo", "", 0, 0, OnPage, &Gestures::undo, "take the last step back"},
    {"redo", "", 0, 0, OnPage, &Gestures::redo, "take the last undo back"},
    {"relative", "on|off", 1, 1, OnPage, &Gestures::relative,
     "record places by their distance from the last one"},
    {"open", "options|text|font|color", 1, 1, Anywhere, &Gestures::open, "open a dialog"},
    {"ok", "", 0, 0, InDialog, &Gestures::ok, "close the dialog"},
    {"cancel", "", 0, 0, InDialog, &Gestures::cancel, "close the dialog without effect"},
    {"help", "", 0, 0, Anywhere, &Gestures::help, "list the gestures"},
    {"quit", "", 0, 0, Anywhere, &Gestures::quit, "end"},
};

std::string Gestures::Describe() {
    constexpr std::size_t kColumn = 32;
    std::string text;
    for (const Gesture& gesture : s_Gestures) {
        std::string usage = std::string("  ") + gesture.word + " " + gesture.arguments;
        usage.resize(std::max(usage.size() + 1, kColumn), ' ');
        text += usage + gesture.meaning + "\n";
    }
    return text;
}

// --- the work --------------------------------------------------------------------------------

Gestures::Gestures(Desk& desk, App& app, Lines& lines, bool goesOn, Report report)
    : m_Desk(desk), m_App(app), m_Lines(lines), m_GoesOn(goesOn), m_Report(std::move(report)) {
    m_Desk.user = this;
}

bool Gestures::Run() {
    while (performNext()) {
    }
    if (m_IsPressed) {
        if (m_GoesOn || !m_HasFailed)
            fail("the button is still pressed at the end");
        release({});
    }
    return !m_HasFailed;
}

void Gestures::Work(Dialog& dialog) {
    Dialog* const outer = std::exchange(m_Dialog, &dialog);
    while (dialog.IsOpen() && performNext()) {
    }
    m_Dialog = outer;
    if (dialog.IsOpen() && (m_GoesOn || !m_HasFailed))
        fail("the dialog " + std::string(dialog.GetName()) + " is still open at the end");
}

/// False when there is nothing more to do.
bool Gestures::performNext() {
    std::string line;
    if (m_IsDone || (m_HasFailed && !m_GoesOn))
        return false;
    if (!m_Lines.Read(line)) {
        m_IsDone = true; // a terminal would be asked again once the dialogs are closed
        return false;
    }
    ++m_Line;
    try {
        perform(line);
    } catch (const GestureError& error) {
        fail(error.what());
    } catch (const MacroException& error) {
        fail(std::string(error.GetText().View()));
    }
    return true;
}

void Gestures::fail(const std::string& message) {
    m_HasFailed = true;
    m_Report(m_Line, message);
}

void Gestures::perform(const std::string& line) {
    Words words = SplitGesture(line);
    if (words.empty())
        return;
    const GestureWord first = words.front();
    words.erase(words.begin());
    for (const Gesture& gesture : s_Gestures) {
        if (!first.Is(gesture.word))
            continue;
        if (words.size() < gesture.least || words.size() > gesture.most)
            throw GestureError(std::string("it is: ") + gesture.word +
                               (*gesture.arguments ? " " : "") + gesture.arguments);
        if (gesture.place == InDialog && !m_Dialog)
            throw GestureError("no dialog is open");
        if (gesture.place == InDrag && !m_IsPressed)
            throw GestureError("the button is not pressed");
        if (gesture.place == OnPage && m_Dialog)
            throw GestureError("close the dialog " + std::string(m_Dialog->GetName()) + " first");
        if (gesture.place != InDrag && m_IsPressed && gesture.perform != &Gestures::help)
            throw GestureError("release the button first");
        (this->*gesture.perform)(words);
        return;
    }
    throw GestureError("there is no gesture '" + first.text + "'");
}

// --- drawing ---------------------------------------------------------------------------------

RecordedValue Gestures::coordinate(const GestureWord& word, bool isX) const {
    RecordedValue value = NumberValue(word);
    if (!UI_Macro::GetRelativeMode())
        return value;
    const Point point = m_Desk.editor.GetPoint();
    const double way = ToGrid(ToNumber(value.value, isX ? "x" : "y") - (isX ? point.x : point.y));
    value.text = isX ? "Document.X" : "Document.Y";
    if (way != 0)
        value.text += way > 0 ? " + " + NumberText(way) : " - " + NumberText(-way);
    return value;
}

/// The first words are places; others that follow are numbers.
void Gestures::add(const char* member, const Words& words, std::size_t coordinates) {
    std::vector<RecordedValue> values;
    for (std::size_t i = 0; i < words.size(); ++i)
        values.push_back(i < coordinates ? coordinate(words[i], i % 2 == 0)
                                         : NumberValue(words[i]));
    m_Desk.recorder.Call(m_App.GetDocument().GetShapes(), member, std::move(values));
}

void Gestures::line(const Words& words) { add("AddLine", words, 4); }

void Gestures::rectangle(const Words& words) { add("AddRectangle", words, 2); }

void Gestures::circle(const Words& words) { add("AddCircle", words, 2); }

void Gestures::text(const Words& words) {
    m_Desk.recorder.Call(
        m_App.GetDocument().GetShapes(), "AddText",
        {coordinate(words[0], true), coordinate(words[1], false), TextValue(words[2])});
}

void Gestures::set(const Words& words) {
    MacroEval& target = m_Dialog ? static_cast<MacroEval&>(*m_Dialog) : m_App.GetDocument();
    const FieldInfo field = FindField(target, words[0].text);
    m_Desk.recorder.Set(target, field.name.c_str(), FieldValue(field, words[1]));
}

void Gestures::layer(const Words& words) {
    m_Desk.recorder.Set(m_App.GetDocument(), "Layer", TextValue(words[0]));
}

void Gestures::show(const Words& words) {
    m_Desk.recorder.SetItem(m_App.GetDocument(), "LayerVisible", TextValue(words[0]),
                            FlagValue(words[1]));
}

// --- what is selected ------------------------------------------------------------------------

void Gestures::select(const Words& words) {
    if (words[0].Is("all") || words[0].Is("none")) {
        if (words.size() > 1)
            throw GestureError("nothing may follow '" + words[0].text + "'");
        m_Desk.recorder.Call(m_App.GetDocument(), words[0].Is("all") ? "SelectAll" : "SelectNone",
                             {});
        return;
    }
    std::vector<RecordedValue> names;
    for (const GestureWord& word : words)
        names.push_back(TextValue(word));
    m_Desk.recorder.Call(m_App.GetDocument(), "Select", std::move(names));
}

void Gestures::click(const Words& words) {
    m_Desk.recorder.Call(m_App.GetDocument(), "Pick",
                         {coordinate(words[0], true), coordinate(words[1], false)});
}

void Gestures::change(const Words& words) {
    const std::vector<int> selection = m_Desk.editor.GetSelection();
    if (selection.size() != 1)
        throw GestureError("select one shape first");
    Shape& shape = m_App.GetDocument().GetShapes().GetShape(selection.front());
    const FieldInfo field = FindField(shape, words[0].text);
    m_Desk.recorder.Set(shape, field.name.c_str(), FieldValue(field, words[1]));
}

void Gestures::move(const Words& words) {
    m_Desk.recorder.Call(m_App.GetDocument(), "Move",
                         {NumberValue(words[0]), NumberValue(words[1])});
}

void Gestures::paint(const Words& words) {
    std::vector<RecordedValue> colors;
    for (const GestureWord& word : words)
        colors.push_back(ColorValue(word));
    m_Desk.recorder.Call(m_App.GetDocument(), "Paint", std::move(colors));
}

void Gestures::remove(const Words&) { m_Desk.recorder.Call(m_App.GetDocument(), "Delete", {}); }

void Gestures::undo(const Words&) { m_Desk.recorder.Call(m_App.GetDocument(), "Undo", {}); }

void Gestures::redo(const Words&) { m_Desk.recorder.Call(m_App.GetDocument(), "Redo", {}); }

void Gestures::relative(const Words& words) {
    MacroSupport::GetProcessor()->SetRelativeMode(static_cast<bool>(FlagValue(words[0]).value));
}

// --- drags -----------------------------------------------------------------------------------

// Nothing is recorded before it is clear whether this becomes a click or a drag.
void Gestures::press(const Words& words) {
    const Point at = {ToNumber(NumberValue(words[0]).value, "x"),
                      ToNumber(NumberValue(words[1]).value, "y")};
    if (m_Desk.editor.FindAt(at) < 0)
        throw GestureError("there is no shape at " + words[0].text + ", " + words[1].text);
    m_PressX = words[0];
    m_PressY = words[1];
    m_IsPressed = true;
    m_DragId = 0;
}

void Gestures::drag(const Words& words) {
    Document& document = m_App.GetDocument();
    NumberValue(words[0]); // a faulty gesture begins no drag
    NumberValue(words[1]);
    if (m_DragId == 0) {
        m_DragId = UI_Macro::GetCompressID();
        m_Desk.recorder.Call(document, "BeginDrag",
                             {coordinate(m_PressX, true), coordinate(m_PressY, false)}, m_DragId);
    }
    m_Desk.recorder.Call(document, "DragTo",
                         {coordinate(words[0], true), coordinate(words[1], false)}, m_DragId);
}

void Gestures::release(const Words&) {
    Document& document = m_App.GetDocument();
    m_IsPressed = false;
    if (m_DragId != 0)
        m_Desk.recorder.Call(document, "EndDrag", {});
    else
        m_Desk.recorder.Call(document, "Pick",
                             {coordinate(m_PressX, true), coordinate(m_PressY, false)});
}

// --- dialogs ---------------------------------------------------------------------------------

void Gestures::open(const Words& words) {
    static constexpr std::pair<const char*, const char*> kOnPage[] = {{"options", "ShowOptions"},
                                                                      {"text", "ShowText"}};
    static constexpr std::pair<const char*, const char*> kInDialog[] = {{"font", "ChooseFont"},
                                                                        {"color", "ChooseColor"}};
    MacroEval& target = m_Dialog ? static_cast<MacroEval&>(*m_Dialog) : m_App;
    for (const auto& [word, member] : m_Dialog ? kInDialog : kOnPage) {
        if (words[0].Is(word) && HasMethod(target, member)) {
            m_Desk.recorder.Call(target, member, {});
            return;
        }
    }
    throw GestureError("there is no dialog '" + words[0].text + "' to open here");
}

void Gestures::ok(const Words&) { m_Desk.recorder.Call(*m_Dialog, "OK", {}); }

void Gestures::cancel(const Words&) { m_Desk.recorder.Call(*m_Dialog, "Cancel", {}); }

// --- the rest --------------------------------------------------------------------------------

// Standard output may be where the macro goes.
void Gestures::help(const Words&) { std::cerr << Describe(); }

void Gestures::quit(const Words&) { m_IsDone = true; }
