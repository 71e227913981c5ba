#include <SFM_FilePath.h>

#include <Platform.h>
#include <SCL_Path.h>

namespace kel_ns {

using SCL::PathParts;

namespace {

using DefaultPathHook = std::function<SYS_String(const char*)>;
using ApplicationNameHook = std::function<SYS_String()>;

// Never destroyed: logs ask for their place until the very end.
DefaultPathHook& defaultPathHook() {
    static auto* const hook = new DefaultPathHook;
    return *hook;
}

ApplicationNameHook& applicationNameHook() {
    static auto* const hook = new ApplicationNameHook;
    return *hook;
}

} // namespace

SYS_String SFM_FilePath::GetFileDirectory(const char* path) const {
    return SCL::PathDirectory(path ? SYS_String(path) : m_Path);
}

SYS_String SFM_FilePath::GetFileName() const { return SYS_String(PathParts(m_Path.View()).name); }

SYS_String SFM_FilePath::GetFileExtension() const {
    return SYS_String(PathParts(m_Path.View()).extension);
}

SFM_FilePath& SFM_FilePath::AddSeparator() {
    if (!m_Path.IsEmpty() && !SCL::IsPathSeparator(m_Path[m_Path.GetLength() - 1]))
        m_Path += '/';
    return *this;
}

SFM_FilePath& SFM_FilePath::SetFileNameExt(const char* name) {
    m_Path = SYS_String(PathParts(m_Path.View()).directory) + name;
    return *this;
}

SFM_FilePath& SFM_FilePath::SetFileExtension(const char* extension) {
    const PathParts parts(m_Path.View());
    SYS_String path(parts.directory);
    path.Append(parts.name);
    if (extension && *extension != '\0' && *extension != '.')
        path += '.';
    m_Path = path + extension;
    return *this;
}

SFM_FilePath& SFM_FilePath::SetDefault(const char* pattern) {
    const SYS_String defaults(pattern);
    const PathParts missing(defaults.View());
    const PathParts present(m_Path.View());
    SYS_String path(present.directory.empty() ? missing.directory : present.directory);
    const std::string_view name =
        present.name.empty() && missing.name != "*" ? missing.name : present.name;
    path.Append(name);
    if (!present.extension.empty())
        path.Append(present.extension);
    else if (!name.empty() && name != "." && name != "..")
        path.Append(missing.extension);
    m_Path = path;
    return *this;
}

SYS_String SFM_FilePath::GetDefaultPath(const SYS_String& name) {
    if (defaultPathHook()) {
        const SYS_String answer = defaultPathHook()(name);
        if (!answer.IsEmpty())
            return answer;
    }
    const SYS_String program = SCL::PathDirectory(GetPlatform().ExecutablePath());
    return name == "Exec" ? program : SCL::PathAppend(program, name);
}

SYS_String SFM_FilePath::GetApplicationName() {
    if (applicationNameHook()) {
        const SYS_String answer = applicationNameHook()();
        if (!answer.IsEmpty())
            return answer;
    }
    const SYS_String program = GetPlatform().ExecutablePath();
    const PathParts parts(program.View());
    SYS_String name(parts.name);
    return name.Append(parts.extension);
}

void SFM_FilePath::SetDefaultPathHook(std::function<SYS_String(const char* name)> hook) {
    defaultPathHook() = std::move(hook);
}

void SFM_FilePath::SetApplicationNameHook(std::function<SYS_String()> hook) {
    applicationNameHook() = std::move(hook);
}

} // namespace kel_ns
