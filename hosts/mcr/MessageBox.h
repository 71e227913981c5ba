#pragma once

#include <SYS_String.h>

/// Shows a message box on the terminal and gives the number of the button that was chosen. Without
/// a terminal, or at the end of its input, that is the default button.
int ShowMessageBox(const kel_ns::SYS_String& text, int flags, const kel_ns::SYS_String& title);
