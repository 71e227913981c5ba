#include "PathNames.h"

#include <SCL_Path.h>

namespace scripting {

namespace {

constexpr std::string_view kSeparators = "/\\";

std::string_view withoutEnd(std::string_view path) {
    while (path.size() > 1 && kel_ns::SCL::IsPathSeparator(path.back()))
        path.remove_suffix(1);
    return path;
}

std::string_view fileName(std::string_view path) {
    path = withoutEnd(path);
    const std::size_t separator = path.find_last_of(kSeparators);
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

} // namespace

SYS_String FileNameOf(const SYS_String& path) { return SYS_String(fileName(path.View())); }

SYS_String BaseNameOf(const SYS_String& path) {
    const std::string_view name = fileName(path.View());
    return SYS_String(name.substr(0, name.rfind('.')));
}

SYS_String ExtensionOf(const SYS_String& path) {
    const std::string_view name = fileName(path.View());
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? SYS_String() : SYS_String(name.substr(dot + 1));
}

SYS_String ParentOf(const SYS_String& path) {
    const std::string_view all = withoutEnd(path.View());
    const std::size_t separator = all.find_last_of(kSeparators);
    if (separator == std::string_view::npos || all.size() == 1)
        return {};
    return SYS_String(withoutEnd(all.substr(0, separator + 1)));
}

SYS_String JoinPath(const SYS_String& folder, const SYS_String& name) {
    if (folder.IsEmpty() || name.IsEmpty())
        return folder.IsEmpty() ? name : folder;
    std::string_view rest = name.View();
    while (!rest.empty() && kel_ns::SCL::IsPathSeparator(rest.front()))
        rest.remove_prefix(1);
    SYS_String path = folder;
    if (!EndsInSeparator(folder))
        path += '/';
    return path.Append(rest);
}

bool HasPattern(const SYS_String& path) {
    return fileName(path.View()).find_first_of("*?") != std::string_view::npos;
}

bool EndsInSeparator(const SYS_String& path) {
    return !path.IsEmpty() && kel_ns::SCL::IsPathSeparator(path.View().back());
}

} // namespace scripting
