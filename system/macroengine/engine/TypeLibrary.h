#pragma once

#include <UI_MacroVariant.h>

/// The value of a constant of the host's type library; false if there is none of that name.
bool FindTypeLibraryConstant(const SYS_String& name, UI_MacroVariant& value);
/// Whether the host has a type library at all.
bool HasTypeLibrary();
