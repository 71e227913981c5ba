#pragma once

// How values report what a macro did wrong.

#include <MacroException.h>
#include <UI_MacroVariant.h>

/// Reports to the current processor, which throws. Without a processor it asserts and gives Empty,
/// so a caller must go on safely behind it.
UI_MacroVariant Fail(MacroERR_Code code, const SYS_String& param = SYS_String());
UI_MacroVariant Fail(const SYS_String& message);

/// The failure of everything that would need more memory than a macro may have.
UI_MacroVariant FailOutOfMemory();
