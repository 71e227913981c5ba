#include "runtime/PrintItems.h"

// Print never calls these; different results keep a linker from giving them one address.

UI_MacroVariant PrintItemTab(int, UI_MacroVariant*) { return UI_MacroVariant("Tab"); }

UI_MacroVariant PrintItemSpc(int, UI_MacroVariant*) { return UI_MacroVariant("Spc"); }

UI_MacroVariant PrintItemSemicolon(int, UI_MacroVariant*) { return UI_MacroVariant(";"); }
