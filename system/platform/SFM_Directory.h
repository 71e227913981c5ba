#pragma once

#include <SCL_Types.h>
#include <SYS_String.h>

#include <cstddef>
#include <vector>

namespace kel_ns {

/// What GetNextEntryWithAttr takes in besides plain files. Other bits have no effect.
enum SFM_EntryAttribute : unsigned {
    SFM_EntryPlain = 0,
    SFM_EntryHidden = 2,      ///< names that begin with a dot
    SFM_EntryVolumeLabel = 8, ///< alone: the label of a volume, which there is none of here
    SFM_EntryDirectory = 16   ///< but never "." and ".."
};

/// A directory and a search through its entries. Failures are empty strings or false.
class KEL_MCR_API SFM_Directory {
public:
    /// The current directory, whichever that is at the time.
    SFM_Directory() = default;
    /// Null or "" is the current directory too.
    explicit SFM_Directory(const char* path) : m_Path(path) {}
    /// Assigning a path ends a search.
    SFM_Directory& operator=(const char* path);

    const SYS_String& GetPath() const noexcept { return m_Path; }

    /// Drive 0 is the current one; no other exists here.
    static SYS_String GetCurDir(int drive);
    /// Makes a new empty file in this directory, its name beginning with the prefix and ending
    /// with ".tmp", and returns this directory's path as it was given, a separator and the name.
    SYS_String GetTempFileNameA(const char* prefix) const;
    /// Moves a file, also to another device, or renames a directory.
    static bool MoveFileA(const char* from, const char* to, int replace);
    static bool MakeDirectory(const SYS_String& path);

    /// The names of entries, one with each call, in the order of their bytes; "" at the end. A
    /// pattern begins a new search, in this directory unless it names another; null or "" goes on
    /// with the last. In the last part of a pattern * stands for any bytes and ? for one; a pattern
    /// that ends in a separator takes all.
    SYS_String GetNextEntryWithAttr(unsigned attributes, const char* pattern);

private:
    void search(unsigned attributes, const SYS_String& pattern);

    SYS_String m_Path;
    std::vector<SYS_String> m_Found;
    std::size_t m_Next = 0;
};

/// Whether the name fits the pattern of * and ? as a whole, by bytes.
KEL_MCR_API bool SFM_MatchName(const SYS_String& name, const SYS_String& pattern) noexcept;

} // namespace kel_ns
