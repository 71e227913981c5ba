#pragma once

#include <UI_MacroVariant.h>

// The built-in functions. Each tests its argument count and raises 34 for any other.

UI_MacroVariant MacroAbs(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCStr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLen(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroTypeName(int argc, UI_MacroVariant* argv);
