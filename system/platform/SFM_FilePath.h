#pragma once

#include <SCL_Types.h>
#include <SYS_String.h>

#include <functional>

namespace kel_ns {

/// The name of a file, taken apart and put together. Nothing here touches the file system.
class KEL_MCR_API SFM_FilePath {
public:
    SFM_FilePath() = default;
    SFM_FilePath(const char* path) : m_Path(path) {}
    SFM_FilePath(const SYS_String& path) : m_Path(path) {}

    operator SYS_String() const { return m_Path; }
    const SYS_String& GetPath() const noexcept { return m_Path; }

    /// The directory of the given path, or of this one if that is null, without a separator at its
    /// end: "" for a bare name.
    SYS_String GetFileDirectory(const char* path = nullptr) const;
    /// The last part without its extension, and the extension with its dot.
    SYS_String GetFileName() const;
    SYS_String GetFileExtension() const;

    /// Ends the path with a separator; an empty one stays empty.
    SFM_FilePath& AddSeparator();
    /// Puts a name with its extension in the place of the last part.
    SFM_FilePath& SetFileNameExt(const char* name);
    /// Puts an extension, with or without its dot, in the place of the present one; "" drops it.
    SFM_FilePath& SetFileExtension(const char* extension);
    /// Takes from the pattern what this path lacks: directory, name, extension. A name "*" in the
    /// pattern is none. A path that stays without a name gets no extension.
    SFM_FilePath& SetDefault(const char* pattern);

    /// A directory of the application: "Exec" is where its program lies, any other name is a
    /// directory of that name in there. It need not exist.
    static SYS_String GetDefaultPath(const SYS_String& name);
    /// The name of the program file.
    static SYS_String GetApplicationName();

    /// Let a host answer in the place of the two above; null, or an empty answer, leaves it to
    /// them.
    static void SetDefaultPathHook(std::function<SYS_String(const char* name)> hook);
    static void SetApplicationNameHook(std::function<SYS_String()> hook);

private:
    SYS_String m_Path;
};

} // namespace kel_ns
