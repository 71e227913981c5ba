#pragma once

#include <Platform.h>
#include <UI_ParserTree.h>

#include <memory>
#include <string>
#include <string_view>

/// One numbered stream of a macro. Text that is printed gets its line ends and its line breaks
/// here; it is collected until `EndPrint`, which writes it at once. Reading runs ahead of what the
/// macro asks for, but the place in the file is right again before anything is written.
class TextFile {
public:
    TextFile() = default;
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;
    /// Writes what is held back, and closes.
    ~TextFile();

    /// Closes first. False if the file cannot be had in this way; the stream is closed then.
    bool Open(const SYS_String& name, ParserTree::FileOpenMode mode,
              ParserTree::FileAccessMode access, ParserTree::FileLockMode lock, int recordLength);
    void Close();

    bool IsOpen() const { return m_File != nullptr; }
    bool CanPrint() const;
    bool CanInput() const;
    const SYS_String& GetName() const { return m_Name; }
    int GetWidth() const { return m_Width; }
    __int64 GetColumn() const { return m_Column; }
    /// Below 0 counts as 0, which is no width.
    void SetWidth(long width);

    // Printing. LF begins a new line.
    void Put(std::string_view text);
    void PutBlanks(__int64 count);
    /// Writes what was put. Failures of the system are ignored.
    void EndPrint();

    /// Reads up to the next separator; false if nothing is left or the file cannot be read.
    bool ReadField(SYS_String& field);
    bool IsAtEnd();

private:
    enum class Fill { Done, AtEnd, Failed };

    void layOut(std::string_view text);
    void layOutInWidth(std::string_view text);
    void flushRecord();
    Fill fill();
    bool dropReadAhead();
    void refreshReadAhead();

    SYS_String m_Name;
    ParserTree::FileOpenMode m_Mode = ParserTree::FileRandom;
    ParserTree::FileAccessMode m_Access = ParserTree::AccessReadWrite;
    std::unique_ptr<PlatformFile> m_File;
    int m_Width = 0;
    __int64 m_Column = 0;

    std::size_t m_RecordLength = 0; // 0: nothing is held back
    std::string m_Record;           // as printed
    std::string m_Pending;          // as it goes to the file

    std::unique_ptr<char[]> m_Read;
    std::size_t m_ReadAt = 0;
    std::size_t m_ReadEnd = 0;
    unsigned m_ReadState = 0; // of all files when the bytes were read
};
