#pragma once

#include <Platform.h>
#include <SCL_Types.h>
#include <SYS_String.h>

#include <memory>

namespace kel_ns {

/// A file by name, read and written through a buffer. Bytes pass unchanged. Failures are results:
/// false, 0 or an empty string; a write that fails late is told by Flush or Close.
class KEL_MCR_API SFM_File {
public:
    SFM_File() = default;
    explicit SFM_File(const char* name) : m_Name(name) {}
    /// Copies take over the name only; they are not open.
    SFM_File(const SFM_File& other) : m_Name(other.m_Name) {}
    SFM_File& operator=(const SFM_File& other);
    SFM_File& operator=(const char* name);
    virtual ~SFM_File();

    const SYS_String& GetName() const noexcept { return m_Name; }
    /// Closes the file if it is open under another name.
    void SetName(const SYS_String& name);

    /// Opens the file; one that is open is closed first. The mode is one of
    ///   r   read what is there           r+, rw  and write; "rw" makes a missing file
    ///   w   write, emptied or new        w+      and read
    ///   a   write behind what is there   a+      and read
    /// Letters b and t among them have no effect.
    virtual bool Open(const SYS_String& mode);
    /// Writes out what is buffered. False if that failed, now or before; true if nothing was open.
    virtual bool Close();
    bool IsOpen() const noexcept { return m_File != nullptr; }

    /// Writes the text and a newline.
    virtual bool WriteLine(const SYS_String& text);
    bool Write(const void* bytes, std::size_t size);
    bool Write(const SYS_String& text);
    bool Flush();

    /// Reads up to `size` bytes; fewer only at the end or on failure.
    std::size_t Read(void* buffer, std::size_t size);
    /// The next line without its end (LF or CR LF). False if there is none, or if it is longer
    /// than a string may be.
    bool ReadLine(SYS_String& line);
    /// From the place to the end. False, and no text, if reading fails or there is more than a
    /// string may hold.
    bool ReadAll(SYS_String& text);
    bool AtEnd();

    /// Moves to a place from the start of the file.
    bool Seek(__int64 position);
    __int64 GetPosition() const noexcept { return m_BufferStart + m_Cursor; }
    /// Bytes in the file, open or not; -1 if there is none.
    __int64 GetLength();

    bool Exists() const;
    /// Closes and deletes the file.
    bool Delete();

private:
    static constexpr int BufferSize = 16 * 1024;

    bool fill();
    bool flushWrites();
    bool startReading();
    bool startWriting();
    bool writeThrough(const char* bytes, std::size_t size);
    bool closeNow();

    SYS_String m_Name;
    std::unique_ptr<PlatformFile> m_File;
    unsigned m_Access = PlatformAccessNone;
    bool m_Append = false;
    bool m_Writing = false; // the buffer holds bytes that are still to be written
    bool m_Failed = false;  // a write got lost since the file was opened
    // The buffer holds m_Used bytes from m_BufferStart on; the place is at m_Cursor in it.
    std::unique_ptr<char[]> m_Buffer;
    __int64 m_BufferStart = 0;
    int m_Used = 0;
    int m_Cursor = 0;
};

} // namespace kel_ns
