#pragma once

/// Makes the engine's texts available. May be called any number of times.
void RegisterMacroErrorTexts();
/// The first row of their table.
const void* MacroErrorTexts();
