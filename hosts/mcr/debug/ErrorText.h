#pragma once

#include <SYS_String.h>

#include <string>

/// The text of an error on one line: further lines repeat the place, and many texts end where a
/// parameter would follow.
std::string ShortErrorText(const kel_ns::SYS_String& text);
