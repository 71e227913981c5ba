#pragma once

#include <SYS_String.h>

using namespace kel_ns;

/// The normalised path of a script: the path itself if it exists; a relative one is then looked
/// for in the folder, and in those of the environment variable TSN_MACRO_PATH. Empty if there is
/// no such file.
SYS_String FindScript(const SYS_String& path, const SYS_String& folder);
