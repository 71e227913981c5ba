#include "objects/ScriptFiles.h"

#include <Platform.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace {

SYS_String withSlashes(const SYS_String& path) {
    std::string text(path.View());
    std::replace(text.begin(), text.end(), '\\', '/');
    return SYS_String(text);
}

SYS_String normalised(const SYS_String& path) {
    const std::string text(withSlashes(path).View());
    return SYS_String(std::filesystem::path(text).lexically_normal().string());
}

bool isRelative(const SYS_String& path) { return path[0] != '/' && path[1] != ':'; }

bool isFile(const SYS_String& path) {
    return GetPlatform().Exists(path) && !GetPlatform().IsDirectory(path);
}

/// The path of the file in the first folder of a list that has it.
SYS_String searchFolders(const SYS_String& folders, const SYS_String& file) {
    std::string_view rest = folders.View();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(";:"), rest.size());
        SYS_String candidate(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (candidate.IsEmpty())
            continue;
        candidate += "/";
        candidate += file;
        if (isFile(candidate))
            return normalised(candidate);
    }
    return SYS_String();
}

} // namespace

SYS_String ProcessCommandLine() { return GetPlatform().CommandLine(); }

SYS_String FolderOf(const SYS_String& path) {
    const SYS_String text = withSlashes(path);
    const int slash = text.ReverseFind('/');
    if (slash == 0)
        return "/";
    return slash < 0 ? SYS_String() : text.Left(static_cast<unsigned>(slash));
}

SYS_String FindScript(const SYS_String& path, const SYS_String& folder) {
    const SYS_String file = normalised(path);
    if (file.IsEmpty() || isFile(file))
        return file;
    if (!isRelative(file))
        return SYS_String();
    if (!folder.IsEmpty()) { // not searched as a list: its name may contain the separators
        const SYS_String beside = normalised(folder + "/" + file);
        if (isFile(beside))
            return beside;
    }
    SYS_String list;
    GetPlatform().GetEnvironment("TSN_MACRO_PATH", list);
    return searchFolders(withSlashes(list), file);
}
