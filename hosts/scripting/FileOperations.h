#pragma once

#include <Automation.h>

namespace scripting {

using kel_ns::SYS_String;

// What is done to files and folders as a whole. The last part of a source may be a pattern of * and
// ?; one that matches nothing is a failure. A target that ends in a separator, or that is a folder,
// is the folder that the sources go into under their own names. Links to folders are removed, not
// followed. All raise automation::Failure.

/// Whether * and ? in a source are a pattern, or belong to the name of one file or folder.
enum class Match { Pattern, Name };

void DeleteFiles(const SYS_String& source, Match match = Match::Pattern);
void DeleteFolders(const SYS_String& source, Match match = Match::Pattern);
void CopyFiles(const SYS_String& source, const SYS_String& target, bool overwrite,
               Match match = Match::Pattern);
void CopyFolders(const SYS_String& source, const SYS_String& target, bool overwrite,
                 Match match = Match::Pattern);
/// An existing target is a failure.
void MoveFiles(const SYS_String& source, const SYS_String& target, Match match = Match::Pattern);
void MoveFolders(const SYS_String& source, const SYS_String& target, Match match = Match::Pattern);

/// Bytes of all files in the folder and below it.
double SizeOfFolder(const SYS_String& path);

/// A time in seconds since 1970, UTC, as "2024-05-01 13:45:00" in local time.
SYS_String DateOf(LONGLONG seconds);

bool FileExists(const SYS_String& path);
bool FolderExists(const SYS_String& path);

} // namespace scripting
