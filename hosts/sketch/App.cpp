#include "App.h"

#include "Refuse.h"
#include "TextDialog.h"
#include "Values.h"

#include <UI_Macro.h>

cMacroAppClass* App::GetMacroClass() {
    using T = App;
    static cMacroAppClass self("App", MacroEval::GetMacroClass());
    static cMacroClassProperty<T> name(self, "Name", TypeNameString, &T::GetAppName);
    static cMacroClassProperty<T> version(self, "Version", TypeNameString, &T::GetVersion);
    static cMacroClassProperty<T> document(self, "Document", "Document", &T::GetDocument);
    static cMacroClassMethod<T> options(self, "ShowOptions", "", &T::ShowOptions);
    static cMacroClassMethod<T> text(self, "ShowText", "", &T::ShowText);
    static cMacroClassMethod<T> quit(self, "Quit", "", &T::Quit, false,
                                     cMacroArgument("status", TypeNameInt).opt(1));
    return &self;
}

void App::OnParserReset(MacroSupport& processor) {
    regColorConstantInParser(processor);
    regConstantInParser(processor, "vbNoColor", kNoColor);
}

std::string App::ColorText(int color) {
    if (color == kNoColor)
        return "vbNoColor";
    const std::string name = getColorVarNameByRGB(color).c_str();
    if (name.starts_with("vb"))
        return name;
    return "Rgb(" + std::to_string(color & 0xFF) + ", " + std::to_string(color >> 8 & 0xFF) + ", " +
           std::to_string(color >> 16 & 0xFF) + ")";
}

UI_MacroVariant App::GetAppName(int, UI_MacroVariant*) const { return "Sketch"; }

UI_MacroVariant App::GetVersion(int, UI_MacroVariant*) const { return SKETCH_VERSION; }

UI_MacroVariant App::GetDocument(int, UI_MacroVariant*) {
    return static_cast<UI_MacroVariant*>(&m_Document);
}

UI_MacroVariant App::ShowOptions(int, UI_MacroVariant*) {
    m_Options.Show();
    return UI_MacroVariant();
}

UI_MacroVariant App::ShowText(int, UI_MacroVariant*) {
    const Drawing& drawing = m_Desk.editor.GetDrawing();
    const std::vector<int> selection = m_Desk.editor.GetSelection();
    if (selection.size() != 1 || drawing.Get(selection.front())->kind != FigureKind::Text)
        Refuse("Select one text first");
    const int number = selection.front();
    TextDialog dialog(m_Desk, *drawing.Get(number));
    if (!dialog.Run())
        return UI_MacroVariant();
    if (!drawing.Get(number)) // a macro may do anything while the dialog is open
        Refuse("The text has been deleted");
    m_Desk.editor.Change(number, [&](Figure& figure) {
        figure.text = dialog.GetFigure().text;
        figure.style = dialog.GetFigure().style;
        figure.pen.stroke = dialog.GetFigure().pen.stroke;
    });
    return UI_MacroVariant();
}

UI_MacroVariant App::Quit(int argc, UI_MacroVariant* args) {
    UI_Macro::RequestExit(IsGiven(argc, args, 0) ? ToWhole(args[0], "The status", 0, 255) : 0);
    MacroSupport::GetProcessor()->RequestStop(); // the code alone would let the macro go on
    return UI_MacroVariant();
}
