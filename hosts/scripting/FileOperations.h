#pragma once

#include <SYS_String.h>

namespace scripting {

using kel_ns::SYS_String;

// What is done to files and folders as a whole. The last part of a source may be a pattern of * and
// ?; one that matches nothing is a failure. A target that ends in a separator, or that is a folder,
// is the folder that the sources go into under their own names. Links to folders are removed, not
// followed. All raise automation::Failure.

void DeleteFiles(const SYS_String& pattern);
void DeleteFolders(const SYS_String& pattern);
void CopyFiles(const SYS_String& pattern, const SYS_String& target, bool overwrite);
void CopyFolders(const SYS_String& pattern, const SYS_String& target, bool overwrite);
/// An existing target is a failure.
void MoveFiles(const SYS_String& pattern, const SYS_String& target);
void MoveFolders(const SYS_String& pattern, const SYS_String& target);

/// Bytes of all files in the folder and below it.
double SizeOfFolder(const SYS_String& path);

bool FileExists(const SYS_String& path);
bool FolderExists(const SYS_String& path);

} // namespace scripting
