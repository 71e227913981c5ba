#include "Options.h"

#include "ColorDialog.h"
#include "Refuse.h"
#include "Values.h"

namespace {

constexpr double kLargestPage = 10000;

double toLength(const UI_MacroVariant& value, const char* what) {
    const double length = ToNumber(value, what);
    if (length < 1 || length > kLargestPage)
        Refuse(std::string(what) + " must be between 1 and " + NumberText(kLargestPage));
    return length;
}

} // namespace

cMacroAppClass* Options::GetMacroClass() {
    using T = Options;
    static cMacroAppClass self("Options", Dialog::GetMacroClass());
    static cMacroClassProperty<T> title(self, "Title", TypeNameString, &T::GetTitle, &T::SetTitle);
    static cMacroClassProperty<T> width(self, "Width", TypeNameReal, &T::GetWidth, &T::SetWidth);
    static cMacroClassProperty<T> height(self, "Height", TypeNameReal, &T::GetHeight,
                                         &T::SetHeight);
    static cMacroClassProperty<T> grid(self, "Grid", TypeNameReal, &T::GetGrid, &T::SetGrid);
    static cMacroClassProperty<T> background(self, "Background", kTypeNameColor, &T::GetBackground,
                                             &T::SetBackground);
    static cMacroClassMethod<T> color(self, "ChooseColor", "", &T::ChooseColor);
    return &self;
}

void Options::Show() {
    if (!IsOpen())
        m_Draft = GetDesk().editor.GetDrawing().GetOptions();
    if (Run())
        GetDesk().editor.SetOptions(m_Draft);
}

const PageOptions& Options::current() const {
    return IsOpen() ? m_Draft : GetDesk().editor.GetDrawing().GetOptions();
}

template <class F> UI_MacroVariant Options::change(F change) {
    PageOptions options = current();
    change(options);
    if (IsOpen())
        m_Draft = options;
    else
        GetDesk().editor.SetOptions(options);
    return UI_MacroVariant();
}

UI_MacroVariant Options::GetTitle(int, UI_MacroVariant*) const { return FromText(current().title); }

UI_MacroVariant Options::SetTitle(int, UI_MacroVariant* args) {
    return change([&](PageOptions& page) { page.title = ToText(args[0], "Title"); });
}

UI_MacroVariant Options::GetWidth(int, UI_MacroVariant*) const { return current().width; }

UI_MacroVariant Options::SetWidth(int, UI_MacroVariant* args) {
    return change([&](PageOptions& page) { page.width = toLength(args[0], "Width"); });
}

UI_MacroVariant Options::GetHeight(int, UI_MacroVariant*) const { return current().height; }

UI_MacroVariant Options::SetHeight(int, UI_MacroVariant* args) {
    return change([&](PageOptions& page) { page.height = toLength(args[0], "Height"); });
}

UI_MacroVariant Options::GetGrid(int, UI_MacroVariant*) const { return current().grid; }

UI_MacroVariant Options::SetGrid(int, UI_MacroVariant* args) {
    return change([&](PageOptions& page) {
        const bool isOff = ToNumber(args[0], "Grid") == 0;
        page.grid = isOff ? 0 : toLength(args[0], "Grid");
    });
}

UI_MacroVariant Options::GetBackground(int, UI_MacroVariant*) const { return current().background; }

UI_MacroVariant Options::SetBackground(int, UI_MacroVariant* args) {
    return change([&](PageOptions& page) { page.background = ToColor(args[0], "Background"); });
}

UI_MacroVariant Options::ChooseColor(int, UI_MacroVariant*) {
    RequireOpen();
    ColorDialog dialog(GetDesk(), m_Draft.background);
    if (dialog.Run())
        m_Draft.background = dialog.GetColor();
    return UI_MacroVariant();
}
