#include <SCL_Path.h>

#include <Platform.h>

#include <algorithm>
#include <memory>

namespace kel_ns::SCL {

namespace {

std::string_view viewOf(const char* text) noexcept {
    return text ? std::string_view(text) : std::string_view();
}

char* newBuffer(std::string_view text) {
    char* buffer = new char[text.size() + 1];
    std::copy(text.begin(), text.end(), buffer);
    buffer[text.size()] = '\0';
    return buffer;
}

bool hasDrive(std::string_view path) noexcept {
    if (path.size() < 2 || path[1] != ':')
        return false;
    const char letter = SYS_ToLower(path[0]);
    return letter >= 'a' && letter <= 'z';
}

// What stands before the first name and cannot be taken away by "..".
std::string_view rootOf(std::string_view path) noexcept {
    std::size_t length = hasDrive(path) ? 2 : 0;
    if (length < path.size() && IsPathSeparator(path[length]))
        ++length;
    return path.substr(0, length);
}

bool takeVariable(std::string_view text, std::size_t& length, SYS_String& value) {
    std::string_view name;
    if (text.starts_with("${")) {
        const std::size_t end = text.find('}');
        if (end == std::string_view::npos)
            return false;
        name = text.substr(2, end - 2);
        length = end + 1;
    } else if (text.starts_with('%')) {
        const std::size_t end = text.find('%', 1);
        if (end == std::string_view::npos)
            return false;
        name = text.substr(1, end - 1);
        length = end + 1;
    }
    return !name.empty() && GetPlatform().GetEnvironment(SYS_String(name), value);
}

} // namespace

PathParts::PathParts(std::string_view path) noexcept {
    std::size_t start = path.size();
    while (start > 0 && !IsPathSeparator(path[start - 1]))
        --start;
    if (start == 0 && hasDrive(path))
        start = 2;
    directory = path.substr(0, start);
    name = path.substr(start);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || name == "." || name == "..")
        return;
    extension = name.substr(dot);
    name = name.substr(0, dot);
}

bool PathIsRelative(std::string_view path) noexcept {
    return !(hasDrive(path) || (!path.empty() && IsPathSeparator(path.front())));
}

SYS_String PathAppend(const SYS_String& a, const SYS_String& b) {
    if (a.IsEmpty() || !PathIsRelative(b.View()))
        return b;
    SYS_String joined(a);
    if (!IsPathSeparator(a[a.GetLength() - 1]))
        joined += '/';
    return joined += b;
}

SYS_String PathNormalize(const SYS_String& path, bool makeAbsolute) {
    SYS_String whole(path);
    if (makeAbsolute && PathIsRelative(path.View()))
        whole = PathAppend(GetPlatform().CurrentDirectory(), path);
    const std::string_view text = whole.View();
    const std::string_view root = rootOf(text);
    std::vector<std::string_view> parts;
    for (std::size_t start = root.size(); start < text.size();) {
        std::size_t end = start;
        while (end < text.size() && !IsPathSeparator(text[end]))
            ++end;
        const std::string_view part = text.substr(start, end - start);
        if (part == ".." && !parts.empty() && parts.back() != "..")
            parts.pop_back();
        else if (part != "" && part != "." && (part != ".." || root.empty()))
            parts.push_back(part);
        start = end + 1;
    }
    SYS_String result(root);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            result += '/';
        result.Append(parts[i]);
    }
    if (!root.empty() && IsPathSeparator(root.back()))
        result.Replace(static_cast<int>(root.size()) - 1, 1, "/");
    return result.IsEmpty() ? SYS_String(".") : result;
}

SYS_String PathResolveVariables(const SYS_String& path) {
    SYS_String result;
    const std::string_view text = path.View();
    for (std::size_t i = 0; i < text.size();) {
        std::size_t length = 0;
        SYS_String value;
        if (takeVariable(text.substr(i), length, value)) {
            result += value;
            i += length;
        } else {
            result += text[i++];
        }
    }
    return result;
}

SYS_String PathDirectory(const SYS_String& path) {
    std::string_view directory = PathParts(path.View()).directory;
    const std::size_t root = rootOf(directory).size();
    while (directory.size() > root && IsPathSeparator(directory.back()))
        directory.remove_suffix(1);
    return SYS_String(directory);
}

const char* cPathProcessor::append(const char* a, const char* b) {
    return newBuffer(PathAppend(a, b).View());
}

bool cPathProcessor::equal(const char* a, const char* b) {
    return PathNormalize(a, false) == PathNormalize(b, false);
}

bool cPathProcessor::exists(const char* path) { return GetPlatform().Exists(path); }

bool cPathProcessor::resolve_env_vars(const char* path, char** out) {
    if (!path || !out)
        return false;
    *out = newBuffer(PathResolveVariables(path).View());
    return true;
}

const char* cPathProcessor::normalize(const char* path, bool makeAbsolute) {
    return newBuffer(PathNormalize(path, makeAbsolute).View());
}

bool cPathProcessor::is_relative(const char* path) { return PathIsRelative(viewOf(path)); }

const char* cPathProcessor::get_owning_directory(const char* path) {
    return newBuffer(PathDirectory(path).View());
}

const char* cPathProcessor::get_extension(const char* path) {
    return newBuffer(PathParts(viewOf(path)).extension);
}

void cPathProcessor::release_buffer(const char* buffer) { delete[] buffer; }

bool directory::exists(const char* name) const {
    if (!name || *name == '\0')
        return false;
    return GetPlatform().Exists(PathAppend(m_Path, name));
}

directory& filesystem::current_directory() {
    static auto* const current = new directory; // its path stays empty, so it follows the process
    return *current;
}

cFilePathListImplBase* cFilePathListImplBase::create(const char* list) {
    auto made = std::make_unique<cFilePathListImplBase>();
    made->add_list(list);
    return made.release();
}

void cFilePathListImplBase::add_list(const char* list) {
    const std::string_view text = viewOf(list);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of(";:", start), text.size());
        if (end > start)
            m_Paths.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
}

void cFilePathListImplBase::add_directory(const SYS_String& path) { m_Paths.push_back(path); }

SYS_String cFilePathListImplBase::find(const char* file) const {
    for (const SYS_String& each : m_Paths)
        if (directory(each).exists(file))
            return PathAppend(each, file);
    return {};
}

} // namespace kel_ns::SCL
