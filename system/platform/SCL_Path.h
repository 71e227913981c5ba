#pragma once

#include <SCL_Pointer.h>
#include <SCL_Types.h>
#include <SYS_String.h>

#include <string_view>
#include <vector>

// Paths as text. Slash and backslash both separate; results are written with slashes. A path that
// begins with a separator or with a drive ("X:") is absolute. Names differ by case.

namespace kel_ns::SCL {

/// Views of the parts of a path; none of them touches the file system. The extension of "a.b.c" is
/// ".c", that of ".c" is ".c" with an empty name; "." and ".." are names without extension.
struct KEL_MCR_API PathParts {
    std::string_view directory; ///< with the separator that ends it
    std::string_view name;
    std::string_view extension; ///< with its dot

    explicit PathParts(std::string_view path) noexcept;
};

/// True for both separators.
constexpr bool IsPathSeparator(char c) noexcept { return c == '/' || c == '\\'; }

/// Path operations on plain text. Every `const char*` or `char*` that they hand out is a buffer
/// of the caller's, who gives it back with release_buffer. A null path counts as an empty one.
class KEL_MCR_API cPathProcessor {
public:
    /// `b` within `a`; `b` alone if it is absolute.
    static const char* append(const char* a, const char* b);
    /// Whether the paths are the same once they are normalised.
    static bool equal(const char* a, const char* b);
    static bool exists(const char* path);
    /// Replaces %NAME% and ${NAME} by the variables' values. A variable that does not exist stays
    /// as it is written. False, and no buffer, for a null path.
    static bool resolve_env_vars(const char* path, char** out);
    /// Turns backslashes into slashes, drops "." and doubled separators, lets ".." take away the
    /// directory before it. Makes the path absolute if asked to. An empty result is ".".
    static const char* normalize(const char* path, bool makeAbsolute);
    static bool is_relative(const char* path);
    /// The path without its last part; "" for a bare name, "/" for a name in the root.
    static const char* get_owning_directory(const char* path);
    /// With its dot; "" if there is none.
    static const char* get_extension(const char* path);
    static void release_buffer(const char* buffer);
};

/// The same as strings.
KEL_MCR_API SYS_String PathAppend(const SYS_String& a, const SYS_String& b);
KEL_MCR_API SYS_String PathNormalize(const SYS_String& path, bool makeAbsolute);
KEL_MCR_API SYS_String PathResolveVariables(const SYS_String& path);
KEL_MCR_API SYS_String PathDirectory(const SYS_String& path);
KEL_MCR_API bool PathIsRelative(std::string_view path) noexcept;

template <class String> struct basic_path_traits {
    static const char* text(const String& path) { return path; }
};

/// A path as a value.
template <class String, class Traits = basic_path_traits<String>> class basic_path {
public:
    basic_path() = default;
    basic_path(const char* path) : m_Path(path) {}
    basic_path(const String& path) : m_Path(path) {}
    basic_path(const basic_path&) = default;
    basic_path& operator=(const basic_path&) = default;
    virtual ~basic_path() = default;

    const String& string() const noexcept { return m_Path; }
    const char* c_str() const noexcept { return Traits::text(m_Path); }
    bool empty() const noexcept { return *c_str() == '\0'; }
    bool exists() const { return cPathProcessor::exists(c_str()); }
    bool is_relative() const { return cPathProcessor::is_relative(c_str()); }

    basic_path directory() const { return take(cPathProcessor::get_owning_directory(c_str())); }
    basic_path extension() const { return take(cPathProcessor::get_extension(c_str())); }
    basic_path normalized(bool makeAbsolute = false) const {
        return take(cPathProcessor::normalize(c_str(), makeAbsolute));
    }
    basic_path& operator/=(const basic_path& within) {
        *this = take(cPathProcessor::append(c_str(), within.c_str()));
        return *this;
    }
    friend bool operator==(const basic_path& a, const basic_path& b) {
        return cPathProcessor::equal(a.c_str(), b.c_str());
    }

private:
    static basic_path take(const char* buffer) {
        struct Owner {
            const char* text;
            ~Owner() { cPathProcessor::release_buffer(text); }
        } owner{buffer};
        return basic_path(owner.text);
    }

    String m_Path;
};

using file_path = basic_path<SYS_String, basic_path_traits<SYS_String>>;

/// A directory to look for files in.
class KEL_MCR_API directory {
public:
    /// An empty path stands for the current directory, whichever that is at the time.
    explicit directory(const SYS_String& path = SYS_String()) : m_Path(path) {}

    /// Whether there is a file or directory of that name, which may also be an absolute path.
    bool exists(const char* name) const;
    const SYS_String& get_path() const noexcept { return m_Path; }

private:
    SYS_String m_Path;
};

class KEL_MCR_API filesystem {
public:
    static directory& current_directory();
};

/// A list of directories to search, in order. Counted; a new one belongs to nobody yet.
class KEL_MCR_API cFilePathListImplBase : public tRefCounted<iRefCounted> {
public:
    /// From a list in one string, separated by ';' or ':'. Empty pieces are left out; null gives
    /// an empty list.
    static cFilePathListImplBase* create(const char* list);

    /// Adds a list of the same form behind what is there.
    void add_list(const char* list);
    /// Adds one directory, whatever bytes it has.
    void add_directory(const SYS_String& path);

    int count() const noexcept { return static_cast<int>(m_Paths.size()); }
    const SYS_String& at(int index) const { return m_Paths.at(static_cast<std::size_t>(index)); }

    /// The path of the file in the first directory that has it; "" if none has.
    SYS_String find(const char* file) const;

private:
    std::vector<SYS_String> m_Paths;
};

} // namespace kel_ns::SCL
