#include "FileOperations.h"

#include "FileFailure.h"
#include "PathNames.h"

#include <AutomationObject.h>
#include <SCL_Path.h>
#include <SFM_Directory.h>

#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace scripting {

using namespace kel_ns;
using automation::Failure;

namespace {

namespace fs = std::filesystem;

enum class Wanted { Files, Folders };

/// What the system's own functions understand.
fs::path systemPath(const SYS_String& path) {
    return fs::path(std::string(SCL::PathNormalize(path, false).View()));
}

/// The paths that a source stands for, at least one.
std::vector<SYS_String> sources(const SYS_String& pattern, Wanted wanted, Match match) {
    const bool wantFolders = wanted == Wanted::Folders;
    std::vector<SYS_String> found;
    if (match == Match::Pattern && HasPattern(pattern)) {
        const SYS_String folder = ParentOf(pattern);
        const SYS_String name = FileNameOf(pattern);
        std::vector<PlatformDirectoryEntry> entries;
        CheckFile(GetPlatform().ListDirectory(folder.IsEmpty() ? "." : folder.c_str(), entries),
                  folder);
        for (const PlatformDirectoryEntry& entry : entries)
            if (entry.isDirectory == wantFolders && SFM_MatchName(entry.name, name))
                found.push_back(JoinPath(folder, entry.name));
    } else if (wantFolders ? FolderExists(pattern) : FileExists(pattern)) {
        found.push_back(pattern);
    }
    if (found.empty())
        throw Failure(SYS_String(wantFolders ? "Folder not found: '" : "File not found: '") +
                      pattern + "'");
    return found;
}

bool isInto(const SYS_String& target) { return EndsInSeparator(target) || FolderExists(target); }

SYS_String targetFor(const SYS_String& source, const SYS_String& target, bool into) {
    return into ? JoinPath(target, FileNameOf(source)) : target;
}

void refuseSeveral(const std::vector<SYS_String>& found, const SYS_String& target, bool into) {
    if (found.size() > 1 && !into)
        throw Failure("Several files need a folder as their target: '" + target + "'");
}

void check(const std::error_code& error, const SYS_String& path) {
    if (error)
        throw Failure(SYS_String(error.message()) + ": '" + path + "'");
}

bool isLink(const SYS_String& path) {
    std::error_code ignored;
    return fs::is_symlink(systemPath(path), ignored);
}

/// Of the two paths the failure tells the one that it is about: the source only if it is missing.
void checkTransfer(PlatformStatus status, const SYS_String& from, const SYS_String& to) {
    CheckFile(status, status != PlatformStatus::Ok && GetPlatform().Exists(from) ? to : from);
}

void copyFolder(const SYS_String& from, const SYS_String& to, bool overwrite) {
    const SYS_String inner = SCL::PathNormalize(to, true) + "/";
    if (inner.View().starts_with((SCL::PathNormalize(from, true) + "/").View()))
        throw Failure("A folder does not go into itself: '" + from + "'");
    std::vector<std::pair<SYS_String, SYS_String>> waiting{{from, to}};
    while (!waiting.empty()) {
        const auto [source, target] = std::move(waiting.back());
        waiting.pop_back();
        if (!FolderExists(target))
            CheckFile(GetPlatform().MakeDirectory(target), target);
        std::vector<PlatformDirectoryEntry> entries;
        CheckFile(GetPlatform().ListDirectory(source, entries), source);
        for (const PlatformDirectoryEntry& entry : entries) {
            const SYS_String path = JoinPath(source, entry.name);
            const SYS_String copy = JoinPath(target, entry.name);
            if (!entry.isDirectory)
                checkTransfer(GetPlatform().CopyFile(path, copy, overwrite), path, copy);
            else if (!isLink(path)) // a link may lead back to where it stands
                waiting.emplace_back(path, copy);
        }
    }
}

void move(const std::vector<SYS_String>& found, const SYS_String& target) {
    const bool into = isInto(target);
    refuseSeveral(found, target, into);
    for (const SYS_String& path : found) {
        const SYS_String moved = targetFor(path, target, into);
        if (GetPlatform().Exists(moved))
            CheckFile(PlatformStatus::AlreadyExists, moved);
        checkTransfer(GetPlatform().Move(path, moved, false), path, moved);
    }
}

} // namespace

SYS_String DateOf(LONGLONG seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    char text[64] = "";
    if (const std::tm* local = std::localtime(&time))
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
    return text;
}

bool FileExists(const SYS_String& path) {
    return GetPlatform().Exists(path) && !GetPlatform().IsDirectory(path);
}

bool FolderExists(const SYS_String& path) { return GetPlatform().IsDirectory(path); }

void DeleteFiles(const SYS_String& source, Match match) {
    for (const SYS_String& path : sources(source, Wanted::Files, match))
        CheckFile(GetPlatform().DeleteFile(path), path);
}

void DeleteFolders(const SYS_String& source, Match match) {
    for (const SYS_String& path : sources(source, Wanted::Folders, match)) {
        std::error_code error;
        fs::remove_all(systemPath(path), error);
        check(error, path);
    }
}

void CopyFiles(const SYS_String& source, const SYS_String& target, bool overwrite, Match match) {
    const std::vector<SYS_String> found = sources(source, Wanted::Files, match);
    const bool into = isInto(target);
    refuseSeveral(found, target, into);
    for (const SYS_String& path : found) {
        const SYS_String copy = targetFor(path, target, into);
        if (!overwrite && GetPlatform().Exists(copy))
            CheckFile(PlatformStatus::AlreadyExists, copy);
        checkTransfer(GetPlatform().CopyFile(path, copy, overwrite), path, copy);
    }
}

void CopyFolders(const SYS_String& source, const SYS_String& target, bool overwrite, Match match) {
    // Without a pattern or a separator the copy becomes the target, merged with what is there.
    const bool into = (match == Match::Pattern && HasPattern(source)) || EndsInSeparator(target);
    for (const SYS_String& path : sources(source, Wanted::Folders, match))
        copyFolder(path, targetFor(path, target, into), overwrite);
}

void MoveFiles(const SYS_String& source, const SYS_String& target, Match match) {
    move(sources(source, Wanted::Files, match), target);
}

void MoveFolders(const SYS_String& source, const SYS_String& target, Match match) {
    move(sources(source, Wanted::Folders, match), target);
}

double SizeOfFolder(const SYS_String& path) {
    double size = 0;
    std::vector<SYS_String> waiting{path};
    while (!waiting.empty()) {
        const SYS_String folder = std::move(waiting.back());
        waiting.pop_back();
        std::vector<PlatformDirectoryEntry> entries;
        CheckFile(GetPlatform().ListDirectory(folder, entries), folder);
        for (const PlatformDirectoryEntry& entry : entries) {
            const SYS_String inner = JoinPath(folder, entry.name);
            PlatformFileInfo info;
            if (isLink(inner))
                continue;
            if (entry.isDirectory)
                waiting.push_back(inner);
            else if (GetPlatform().GetInfo(inner, info) == PlatformStatus::Ok)
                size += static_cast<double>(info.size);
        }
    }
    return size;
}

} // namespace scripting
