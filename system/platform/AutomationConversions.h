#pragma once

#include <Automation.h>

namespace automation {

// What a value reads as, by the rules of the macro language: numbers of every width, truth values
// (-1 and 0), texts, and objects through their default member. False, with nothing written, for
// what has no such reading. Re-enters: objects that are read.

/// Rounded half away from zero; beyond 64 bits the smallest number. Empty is 0.
KEL_MCR_API bool ReadInteger(const VARIANT& value, LONGLONG& out);
/// Empty is 0.
KEL_MCR_API bool ReadReal(const VARIANT& value, double& out);
/// Empty is an empty text.
KEL_MCR_API bool ReadText(const VARIANT& value, kel_ns::SYS_String& out);

} // namespace automation
