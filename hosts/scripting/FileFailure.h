#pragma once

#include <Platform.h>
#include <SYS_String.h>

namespace scripting {

using kel_ns::SYS_String;

/// Raises a Failure that tells what went wrong with a file or folder, unless all is well.
void CheckFile(kel_ns::PlatformStatus status, const SYS_String& path);

} // namespace scripting
