#pragma once

// The bounds on arrays.

#include <SCL_Types.h>

/// Arrays nested deeper than this are not walked: such a nest is the work of a runaway loop, and
/// may contain itself.
inline constexpr int MaxArrayNesting = 1000;

/// Index lists up to this length are handled without taking memory.
inline constexpr int MacroShortIndexList = 8;

/// True if one array may have so many elements, over all its levels; else fails.
bool MacroArrayFits(__int64 elements);
