#pragma once

#include <cstddef>

/// How often this program has asked for memory: by operator new, or from the engine's pools when
/// they had to ask the system.
std::size_t GetAllocationCount();
