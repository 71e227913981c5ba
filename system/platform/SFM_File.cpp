#include <SFM_File.h>

#include <algorithm>
#include <cstring>

namespace kel_ns {

namespace {

bool parseMode(const SYS_String& mode, PlatformFileOptions& options) {
    SYS_String letters;
    for (char c : mode.View())
        if (c != 'b' && c != 't')
            letters += c;
    struct Mode {
        const char* letters;
        unsigned access;
        PlatformCreation creation;
        bool append;
    };
    static constexpr Mode Modes[] = {
        {"r", PlatformAccessRead, PlatformCreation::OpenExisting, false},
        {"r+", PlatformAccessReadWrite, PlatformCreation::OpenExisting, false},
        {"rw", PlatformAccessReadWrite, PlatformCreation::OpenAlways, false},
        {"w", PlatformAccessWrite, PlatformCreation::CreateAlways, false},
        {"w+", PlatformAccessReadWrite, PlatformCreation::CreateAlways, false},
        {"a", PlatformAccessWrite, PlatformCreation::OpenAlways, true},
        {"a+", PlatformAccessReadWrite, PlatformCreation::OpenAlways, true},
    };
    for (const Mode& each : Modes) {
        if (letters == each.letters) {
            options.access = each.access;
            options.creation = each.creation;
            options.append = each.append;
            return true;
        }
    }
    return false;
}

} // namespace

SFM_File::~SFM_File() { closeNow(); }

SFM_File& SFM_File::operator=(const SFM_File& other) {
    if (this != &other) {
        Close();
        m_Name = other.m_Name;
    }
    return *this;
}

SFM_File& SFM_File::operator=(const char* name) {
    SetName(name);
    return *this;
}

void SFM_File::SetName(const SYS_String& name) {
    if (!(name == m_Name))
        Close();
    m_Name = name;
}

bool SFM_File::Open(const SYS_String& mode) {
    Close();
    PlatformFileOptions options;
    if (!parseMode(mode, options))
        return false;
    std::unique_ptr<PlatformFile> file;
    if (GetPlatform().OpenFile(m_Name, options, file) != PlatformStatus::Ok)
        return false;
    __int64 start = 0;
    // What cannot be moved in, such as a pipe, counts its bytes from here.
    if (options.append && file->Seek(0, PlatformOrigin::End, &start) != PlatformStatus::Ok)
        start = 0;
    if (!m_Buffer)
        m_Buffer = std::make_unique<char[]>(BufferSize);
    m_File = std::move(file);
    m_Access = options.access;
    m_Append = options.append;
    m_Writing = false;
    m_Failed = false;
    m_BufferStart = start;
    m_Used = 0;
    m_Cursor = 0;
    return true;
}

bool SFM_File::Close() { return closeNow(); }

bool SFM_File::closeNow() {
    if (!m_File)
        return true;
    flushWrites();
    if (m_File->Close() != PlatformStatus::Ok)
        m_Failed = true;
    m_File.reset();
    m_BufferStart = 0;
    m_Used = 0;
    m_Cursor = 0;
    return !m_Failed;
}

// --- writing -----------------------------------------------------------------------------------

bool SFM_File::writeThrough(const char* bytes, std::size_t size) {
    if (m_File->Write(bytes, size) != PlatformStatus::Ok) {
        m_Failed = true;
        // Some of the bytes may have got through: the system's place must be ours again.
        m_File->Seek(m_BufferStart, PlatformOrigin::Begin);
        return false;
    }
    // Others may have written behind our place: then ours is where the bytes really went.
    if (!m_Append || m_File->Seek(0, PlatformOrigin::Current, &m_BufferStart) != PlatformStatus::Ok)
        m_BufferStart += static_cast<__int64>(size);
    return true;
}

// Leaves an empty buffer in any case: bytes that could not be written are lost, and told once.
bool SFM_File::flushWrites() {
    if (!m_Writing)
        return true;
    const int size = m_Used;
    m_Used = 0;
    m_Cursor = 0;
    m_Writing = false;
    return size == 0 || writeThrough(m_Buffer.get(), static_cast<std::size_t>(size));
}

bool SFM_File::startWriting() {
    if (!m_File || (m_Access & PlatformAccessWrite) == 0)
        return false;
    if (m_Writing)
        return true;
    // Read-ahead has moved the system's place past ours.
    const __int64 place = GetPosition();
    if (m_Cursor != m_Used && m_File->Seek(place, PlatformOrigin::Begin) != PlatformStatus::Ok)
        return false;
    m_BufferStart = place;
    m_Used = 0;
    m_Cursor = 0;
    m_Writing = true;
    return true;
}

bool SFM_File::Write(const void* bytes, std::size_t size) {
    if (!startWriting())
        return false;
    if (size > static_cast<std::size_t>(BufferSize - m_Used)) {
        if (!flushWrites() || !startWriting())
            return false;
        if (size >= static_cast<std::size_t>(BufferSize))
            return writeThrough(static_cast<const char*>(bytes), size);
    }
    if (size != 0)
        std::memcpy(m_Buffer.get() + m_Used, bytes, size);
    m_Used += static_cast<int>(size);
    m_Cursor = m_Used;
    return true;
}

bool SFM_File::Write(const SYS_String& text) { return Write(text.c_str(), text.View().size()); }

bool SFM_File::WriteLine(const SYS_String& text) { return Write(text) && Write("\n", 1); }

bool SFM_File::Flush() { return m_File && flushWrites(); }

// --- reading -----------------------------------------------------------------------------------

bool SFM_File::startReading() {
    return m_File && (m_Access & PlatformAccessRead) != 0 && flushWrites();
}

// Gets more bytes into a buffer that is read to its end; false at the end of the file and when
// reading fails.
bool SFM_File::fill() {
    m_BufferStart += m_Used;
    m_Used = 0;
    m_Cursor = 0;
    std::size_t got = 0;
    const PlatformStatus status = m_File->Read(m_Buffer.get(), BufferSize, got);
    m_Used = static_cast<int>(got);
    if (status != PlatformStatus::Ok)
        m_Failed = true;
    return got != 0;
}

std::size_t SFM_File::Read(void* buffer, std::size_t size) {
    if (!startReading())
        return 0;
    char* to = static_cast<char*>(buffer);
    std::size_t read = 0;
    while (read < size && (m_Cursor < m_Used || fill())) {
        const std::size_t part = std::min(size - read, static_cast<std::size_t>(m_Used - m_Cursor));
        std::memcpy(to + read, m_Buffer.get() + m_Cursor, part);
        m_Cursor += static_cast<int>(part);
        read += part;
    }
    return read;
}

bool SFM_File::ReadLine(SYS_String& line) {
    line.Clear();
    if (AtEnd())
        return false;
    while (m_Cursor < m_Used || fill()) {
        const char* from = m_Buffer.get() + m_Cursor;
        const std::size_t left = static_cast<std::size_t>(m_Used - m_Cursor);
        const void* end = std::memchr(from, '\n', left);
        const std::size_t part =
            end ? static_cast<std::size_t>(static_cast<const char*>(end) - from) : left;
        if (part > SYS_String::GetMaxBytes() - line.View().size())
            return false;
        line.Append(from, part);
        m_Cursor += static_cast<int>(part) + (end ? 1 : 0);
        if (end)
            break;
    }
    const int length = line.GetLength();
    if (length > 0 && line[length - 1] == '\r')
        line.Delete(length - 1);
    return true;
}

bool SFM_File::ReadAll(SYS_String& text) {
    text.Clear();
    if (!startReading())
        return false;
    const bool failedBefore = m_Failed;
    m_Failed = false;
    bool fits = true;
    while (fits && (m_Cursor < m_Used || fill())) {
        const std::size_t part = static_cast<std::size_t>(m_Used - m_Cursor);
        fits = part <= SYS_String::GetMaxBytes() - text.View().size();
        if (fits)
            text.Append(m_Buffer.get() + m_Cursor, part);
        m_Cursor = m_Used;
    }
    const bool complete = fits && !m_Failed;
    m_Failed = m_Failed || failedBefore;
    if (!complete)
        text.Clear();
    return complete;
}

bool SFM_File::AtEnd() { return !startReading() || !(m_Cursor < m_Used || fill()); }

// --- the file ----------------------------------------------------------------------------------

bool SFM_File::Seek(__int64 position) {
    if (!m_File || position < 0)
        return false;
    if (position == GetPosition())
        return true;
    if (!flushWrites())
        return false;
    if (position >= m_BufferStart && position <= m_BufferStart + m_Used) {
        m_Cursor = static_cast<int>(position - m_BufferStart);
        return true;
    }
    if (m_File->Seek(position, PlatformOrigin::Begin) != PlatformStatus::Ok)
        return false;
    m_BufferStart = position;
    m_Used = 0;
    m_Cursor = 0;
    return true;
}

__int64 SFM_File::GetLength() {
    if (m_File) {
        __int64 size = 0;
        if (m_File->GetSize(size) != PlatformStatus::Ok)
            return -1;
        if (!m_Writing)
            return size;
        return m_Append ? size + m_Used : std::max(size, GetPosition());
    }
    PlatformFileInfo info;
    if (GetPlatform().GetInfo(m_Name, info) != PlatformStatus::Ok || info.isDirectory)
        return -1;
    return info.size;
}

bool SFM_File::Exists() const { return GetPlatform().Exists(m_Name); }

bool SFM_File::Delete() {
    Close();
    return GetPlatform().DeleteFile(m_Name) == PlatformStatus::Ok;
}

} // namespace kel_ns
