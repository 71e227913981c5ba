#pragma once

/// Makes the engine's texts available. May be called any number of times.
void RegisterMacroErrorTexts();
