#include "runtime/TextFile.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kReadSize = 65536;
constexpr std::size_t kMaxPending = 65536; // a longer statement is written in pieces
constexpr std::size_t kMaxField = 998;

// Changes whenever a stream may have replaced bytes that another one has read ahead. Streams that
// only make a file longer don't count: nobody can have read what was not there.
unsigned s_FilesState = 0;

unsigned accessFor(ParserTree::FileOpenMode mode) {
    switch (mode) {
    case ParserTree::FileAppend:
    case ParserTree::FileOutput:
        return PlatformAccessWrite;
    case ParserTree::FileInput:
        return PlatformAccessRead;
    case ParserTree::FileBinary:
    case ParserTree::FileRandom:
        break;
    }
    return PlatformAccessReadWrite;
}

unsigned shareFor(ParserTree::FileLockMode lock) {
    switch (lock) {
    case ParserTree::LockShared:
        break;
    case ParserTree::LockRead:
        return PlatformAccessWrite;
    case ParserTree::LockWrite:
        return PlatformAccessRead;
    case ParserTree::LockReadWrite:
        return PlatformAccessNone;
    }
    return PlatformAccessReadWrite;
}

} // namespace

TextFile::~TextFile() { Close(); }

bool TextFile::Open(const SYS_String& name, ParserTree::FileOpenMode mode,
                    ParserTree::FileAccessMode access, ParserTree::FileLockMode lock,
                    int recordLength) {
    Close();
    m_Name = name;
    m_Mode = mode;
    m_Access = access;
    m_Width = 0;
    m_Column = 0;
    m_RecordLength = mode != ParserTree::FileRandom && recordLength > 0
                         ? static_cast<std::size_t>(recordLength)
                         : 0;
    PlatformFileOptions options;
    options.access = accessFor(mode);
    options.share = shareFor(lock);
    options.creation = mode == ParserTree::FileOutput ? PlatformCreation::CreateAlways
                                                      : PlatformCreation::OpenAlways;
    if (GetPlatform().OpenFile(name, options, m_File) != PlatformStatus::Ok) {
        m_File.reset();
        return false;
    }
    if (mode == ParserTree::FileOutput)
        ++s_FilesState;
    if (mode == ParserTree::FileAppend)
        m_File->Seek(0, PlatformOrigin::End); // pipes have no place to go to
    return true;
}

void TextFile::Close() {
    if (!m_File)
        return;
    try {
        flushRecord();
        EndPrint();
    } catch (const std::bad_alloc&) {
        m_Record.clear(); // no memory for the line ends: the text is lost, the file is not
    }
    m_File->Close();
    m_File.reset();
    m_Pending = std::string();
    m_Record = std::string();
    m_Read.reset();
    m_ReadAt = m_ReadEnd = 0;
}

bool TextFile::CanPrint() const {
    return (m_Mode == ParserTree::FileOutput || m_Mode == ParserTree::FileAppend ||
            m_Mode == ParserTree::FileBinary) &&
           m_Access != ParserTree::AccessRead;
}

bool TextFile::CanInput() const {
    return (m_Mode == ParserTree::FileInput || m_Mode == ParserTree::FileBinary) &&
           m_Access != ParserTree::AccessWrite;
}

void TextFile::SetWidth(long width) { m_Width = static_cast<int>(std::max(width, 0L)); }

// --- Printing ----------------------------------------------------------------------------------

void TextFile::Put(std::string_view text) {
    if (!m_File)
        return;
    if (m_RecordLength == 0) {
        layOut(text);
        return;
    }
    while (!text.empty()) {
        const std::size_t part = std::min(m_RecordLength - m_Record.size(), text.size());
        m_Record.append(text, 0, part);
        text.remove_prefix(part);
        if (m_Record.size() == m_RecordLength)
            flushRecord();
    }
}

void TextFile::PutBlanks(__int64 count) {
    static constexpr char kBlanks[] = "                                                        ";
    constexpr __int64 kPart = sizeof kBlanks - 1;
    for (; count > 0; count -= kPart)
        Put({kBlanks, static_cast<std::size_t>(std::min(count, kPart))});
}

void TextFile::flushRecord() {
    layOut(m_Record);
    m_Record.clear();
}

void TextFile::layOut(std::string_view text) {
    if (m_Width > 0) {
        layOutInWidth(text);
        return;
    }
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t part = std::min({end, text.size(), kMaxPending});
        m_Pending.append(text, 0, part);
        m_Column += static_cast<__int64>(part);
        text.remove_prefix(part);
        if (part == end) {
            m_Pending += "\r\n";
            m_Column = 0;
            text.remove_prefix(1);
        }
        if (m_Pending.size() > kMaxPending)
            EndPrint();
    }
}

void TextFile::layOutInWidth(std::string_view text) {
    for (const char c : text) {
        if (m_Column >= m_Width) {
            if (c != '\n')
                m_Pending += "\r\n";
            m_Column = 0;
        }
        if (c == '\n') {
            m_Pending += "\r\n";
            m_Column = 0;
        } else {
            m_Pending += c;
            ++m_Column;
        }
        if (m_Pending.size() > kMaxPending)
            EndPrint();
    }
}

void TextFile::EndPrint() {
    if (m_Pending.empty())
        return;
    if (m_File && dropReadAhead()) // elsewhere the text would replace what it should not
        m_File->Write(m_Pending.data(), m_Pending.size());
    if (m_Mode == ParserTree::FileBinary)
        ++s_FilesState;
    m_Pending.clear();
}

// --- Reading -----------------------------------------------------------------------------------

TextFile::Fill TextFile::fill() {
    if (!m_Read)
        m_Read = std::make_unique<char[]>(kReadSize);
    m_ReadAt = m_ReadEnd = 0;
    m_ReadState = s_FilesState;
    std::size_t read = 0;
    const PlatformStatus status = m_File->Read(m_Read.get(), kReadSize, read);
    m_ReadEnd = std::min(read, kReadSize);
    if (m_ReadEnd > 0)
        return Fill::Done;
    return status == PlatformStatus::Ok ? Fill::AtEnd : Fill::Failed;
}

/// False if the file is not at the place that reading has come to.
bool TextFile::dropReadAhead() {
    const auto ahead = static_cast<__int64>(m_ReadEnd - m_ReadAt);
    if (ahead == 0)
        return true;
    const PlatformStatus status = m_File->Seek(-ahead, PlatformOrigin::Current);
    if (status == PlatformStatus::Ok)
        m_ReadAt = m_ReadEnd = 0;
    // Pipes cannot go back and need not; what they gave is still to be read.
    return status == PlatformStatus::Ok || status == PlatformStatus::Invalid;
}

void TextFile::refreshReadAhead() {
    if (m_ReadState == s_FilesState)
        return;
    dropReadAhead();
    m_ReadState = s_FilesState;
}

bool TextFile::ReadField(SYS_String& field) {
    if (!m_File)
        return false;
    refreshReadAhead();
    char text[kMaxField];
    std::size_t count = 0;
    bool isInQuotes = false;
    bool isAtStart = true;
    while (count < kMaxField) {
        if (m_ReadAt == m_ReadEnd) {
            const Fill result = fill();
            if (result == Fill::Failed || (result == Fill::AtEnd && isAtStart))
                return false;
            if (result == Fill::AtEnd)
                break;
        }
        isAtStart = false;
        const char c = m_Read[m_ReadAt++];
        if (c == '\n' || (!isInQuotes && (c == ' ' || c == '\t')))
            break;
        if (c == '\r')
            continue;
        if (c != '"') {
            text[count++] = c;
            continue;
        }
        if (isInQuotes)
            break;
        isInQuotes = true;
    }
    field = SYS_String(text, count);
    return true;
}

bool TextFile::IsAtEnd() {
    if (!m_File)
        return false;
    if (m_Mode == ParserTree::FileOutput)
        return true;
    refreshReadAhead();
    return m_ReadAt == m_ReadEnd && fill() == Fill::AtEnd;
}
