// Colour names, and constants that host objects give to macros.

#include <SCC_Map.h>
#include <UI_MacroEval.h>
#include <UI_MacroProcessor.h>

namespace {

struct NamedColor {
    const char* name;
    int value;
};

constexpr NamedColor kColors[] = {
#define MACRO_COLOR(name, value) {"vbColor" #name, value},
#include "runtime/Colors.def"
#undef MACRO_COLOR
};

const SCC_Map<int, const char*>& namesByColor() {
    static const auto& names = *[] {
        auto* made = new SCC_Map<int, const char*>;
        for (const NamedColor& color : kColors)
            made->Install(color.value, color.name);
        return made;
    }();
    return names;
}

} // namespace

void MacroEval::regConstantInParser(MacroSupport& processor, const SYS_String& name,
                                    const UI_MacroVariant& value) {
    if (processor.LookupVar(name))
        return;
    if (UI_MacroVariant* constant = processor.RegisterVar(name)) {
        *constant = value;
        constant->SetConstant(true);
    }
}

void MacroEval::regColorConstantInParser(MacroSupport& processor) {
    if (processor.LookupVar("vbColorBlack"))
        return;
    for (const NamedColor& color : kColors)
        regConstantInParser(processor, color.name, color.value);
}

SYS_String MacroEval::getColorVarNameByRGB(int color) {
    if (const char* const* name = namesByColor().Lookup(color))
        return *name;
    SYS_String text;
    return text << color;
}
