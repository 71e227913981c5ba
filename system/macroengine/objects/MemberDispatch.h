#pragma once

#include <UI_MacroVariant.h>

class MacroEval;

/// Runs a member of the class that all objects share, or applies arguments to the object when
/// there is no name. False for another name.
bool DispatchMacroEvalMember(MacroEval& object, const char* name, UI_MacroVariant* args, int argc,
                             UI_MacroVariant& result);
