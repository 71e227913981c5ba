#pragma once

// Where scripts are found, and how the process was started.

#include <SYS_String.h>

using namespace kel_ns;

/// The process's arguments joined by one blank; one that holds a blank or nothing is in quotes.
SYS_String ProcessCommandLine();

/// The folder that a path lies in, without the separator at its end; empty if the path names none.
SYS_String FolderOf(const SYS_String& path);

/// The normalised path of a script: the path itself if it exists; a relative one is then looked
/// for in the folder, and in those of the environment variable TSN_MACRO_PATH. Empty if there is
/// no such file.
SYS_String FindScript(const SYS_String& path, const SYS_String& folder);
