#pragma once

#include <cstddef>

/// How often this program has asked the system for memory by operator new. The engine's pools of
/// small blocks ask in this way, too, whenever they run dry.
std::size_t GetAllocationCount();
