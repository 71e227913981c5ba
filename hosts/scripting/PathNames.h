#pragma once

#include <SYS_String.h>

namespace scripting {

using kel_ns::SYS_String;

// Paths as text; nothing here asks the file system. Slash and backslash both separate, and
// separators at the end do not count.

SYS_String FileNameOf(const SYS_String& path);
/// Without the extension: "a.tar" of "x/a.tar.gz".
SYS_String BaseNameOf(const SYS_String& path);
/// Without its dot.
SYS_String ExtensionOf(const SYS_String& path);
/// As it is written; empty for a bare name and for the root.
SYS_String ParentOf(const SYS_String& path);
/// The two with one separator between them.
SYS_String JoinPath(const SYS_String& folder, const SYS_String& name);
/// Whether the last part has a * or a ?.
bool HasPattern(const SYS_String& path);
bool EndsInSeparator(const SYS_String& path);

} // namespace scripting
