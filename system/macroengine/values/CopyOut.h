#pragma once

#include <UI_MacroVariant.h>

/// What a value reads as, fit to be kept: null gives Null, an object gives a Reference to it.
UI_MacroVariant CopyOut(UI_MacroVariant* value);

/// Whether a write through the value would end at a constant.
bool LeadsToConstant(const UI_MacroVariant& value);
