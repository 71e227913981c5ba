#include <SFM_Directory.h>

#include <Platform.h>
#include <SCL_Path.h>
#include <SFM_FilePath.h>

namespace kel_ns {

bool SFM_MatchName(const SYS_String& name, const SYS_String& pattern) noexcept {
    const std::string_view text = name.View();
    const std::string_view wanted = pattern.View();
    std::size_t at = 0;
    std::size_t place = 0;
    // Where the last * stands, and the text it was last tried to end at.
    std::size_t star = std::string_view::npos;
    std::size_t retry = 0;
    while (at < text.size()) {
        if (place < wanted.size() && wanted[place] == '*') {
            star = place++;
            retry = at;
        } else if (place < wanted.size() && (wanted[place] == '?' || wanted[place] == text[at])) {
            ++place;
            ++at;
        } else if (star != std::string_view::npos) {
            place = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return wanted.find_first_not_of('*', place) == std::string_view::npos;
}

SFM_Directory& SFM_Directory::operator=(const char* path) {
    m_Path = path;
    m_Found.clear();
    m_Next = 0;
    return *this;
}

SYS_String SFM_Directory::GetCurDir(int drive) {
    return drive == 0 ? GetPlatform().CurrentDirectory() : SYS_String();
}

SYS_String SFM_Directory::GetTempFileNameA(const char* prefix) const {
    const SYS_String directory = m_Path.IsEmpty() ? SYS_String(".") : m_Path;
    SYS_String name;
    if (GetPlatform().CreateTempFile(directory, prefix, ".tmp", name) != PlatformStatus::Ok)
        return {};
    return SFM_FilePath(m_Path).AddSeparator().GetPath() + name;
}

bool SFM_Directory::MoveFileA(const char* from, const char* to, int replace) {
    return GetPlatform().Move(from, to, replace != 0) == PlatformStatus::Ok;
}

bool SFM_Directory::MakeDirectory(const SYS_String& path) {
    return GetPlatform().MakeDirectory(path) == PlatformStatus::Ok;
}

void SFM_Directory::search(unsigned attributes, const SYS_String& pattern) {
    m_Found.clear();
    m_Next = 0;
    const std::string_view directoryPart = SCL::PathParts(pattern.View()).directory;
    SYS_String directory = SCL::PathAppend(m_Path, SYS_String(directoryPart));
    if (directory.IsEmpty())
        directory = ".";
    SYS_String names(pattern.View().substr(directoryPart.size()));
    if (names.IsEmpty())
        names = "*";
    std::vector<PlatformDirectoryEntry> entries;
    if (GetPlatform().ListDirectory(directory, entries) != PlatformStatus::Ok)
        return;
    for (const PlatformDirectoryEntry& entry : entries) {
        const bool hidden = entry.name[0] == '.';
        if ((!hidden || (attributes & SFM_EntryHidden) != 0) &&
            (!entry.isDirectory || (attributes & SFM_EntryDirectory) != 0) &&
            SFM_MatchName(entry.name, names))
            m_Found.push_back(entry.name);
    }
}

SYS_String SFM_Directory::GetNextEntryWithAttr(unsigned attributes, const char* pattern) {
    if (attributes == SFM_EntryVolumeLabel)
        return {};
    if (pattern && *pattern != '\0')
        search(attributes, pattern);
    return m_Next < m_Found.size() ? m_Found[m_Next++] : SYS_String();
}

} // namespace kel_ns
