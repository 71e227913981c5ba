#pragma once

// The words of a Print list. A list holds them as function values; Print knows them by address.

#include <UI_MacroVariant.h>

UI_MacroVariant PrintItemTab(int argc, UI_MacroVariant* argv);
UI_MacroVariant PrintItemSpc(int argc, UI_MacroVariant* argv);
UI_MacroVariant PrintItemSemicolon(int argc, UI_MacroVariant* argv);
