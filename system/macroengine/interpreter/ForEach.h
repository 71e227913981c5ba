#pragma once

#include <UI_MacroProcessor.h>

/// Puts an enumerator over a collection into `state`, as kind Unknown.
/// Raises: "Object required", "Object expected", "Object is not itarable".
void MakeEnumerator(MacroParser& processor, UI_MacroVariant& collection, UI_MacroVariant& state);
/// The next item; false at the end.
bool NextItem(UI_MacroVariant& state, UI_MacroVariant& item);
