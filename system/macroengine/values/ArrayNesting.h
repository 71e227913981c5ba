#pragma once

/// Arrays nested deeper than this are not walked: such a nest is the work of a runaway loop, and
/// may contain itself.
inline constexpr int MaxArrayNesting = 1000;
