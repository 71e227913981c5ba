#pragma once

#include <Automation.h>

namespace automation {

// Bytes of one element of this type in an array, or of what a VT_BYREF of it points at; 0 for a
// tag that stands for no such thing.
UINT SizeOfElement(VARTYPE type) noexcept;

} // namespace automation
