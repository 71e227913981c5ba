#pragma once

#include <AutomationObject.h>
#include <Platform.h>

#include <limits>
#include <memory>
#include <string>

#include "WideText.h"

namespace scripting {

using kel_ns::SYS_String;

/// How a file is opened, by the numbers that macros give.
enum class StreamMode { Reading = 1, Writing = 2, Appending = 8 };

/// How text stands in a file: by its bytes, or in units of 16 bits behind a mark.
enum class TextFormat { Bytes, Wide };

/// A text file that is read or written from front to end. Lines end in CR LF when written and in
/// LF, with or without a CR, when read; counts are in bytes of the text. What is written waits in a
/// buffer until `Close` or the last release.
class TextStream final : public automation::Object {
public:
    /// The value is the stream. Raises: Failure if the file cannot be had.
    static COleVariant Open(const SYS_String& path, StreamMode mode,
                            kel_ns::PlatformCreation creation, TextFormat format);
    /// What the beginning of a file tells; one that cannot be read has its text by bytes.
    static TextFormat FormatOf(const SYS_String& path);

    const automation::Members& GetMembers() const override;

private:
    TextStream(const SYS_String& path, StreamMode mode, TextFormat format,
               std::unique_ptr<kel_ns::PlatformFile> file)
        : m_Path(path), m_Mode(mode), m_Format(format), m_File(std::move(file)) {}
    ~TextStream() override;

    COleVariant Read(const automation::Arguments& arguments);
    COleVariant ReadLine();
    COleVariant ReadAll();
    void Skip(const automation::Arguments& arguments);
    void SkipLine();
    void Write(const automation::Arguments& arguments);
    void WriteLine(const automation::Arguments& arguments);
    void WriteBlankLines(const automation::Arguments& arguments);
    void Close();
    bool IsAtEndOfStream();
    bool IsAtEndOfLine();
    LONG GetLine();
    LONG GetColumn();

    void begin();
    void countWhatWasThere();
    void needOpen() const;
    void needReadable() const;
    void needReading();
    void needWriting() const;
    bool fill();
    SYS_String takeLine();
    SYS_String take(LONGLONG count);
    void advance(std::string_view text);
    void put(std::string_view text);
    void write(kel_ns::PlatformFile& file, bool isLast);

    const SYS_String m_Path;
    const StreamMode m_Mode;
    const TextFormat m_Format;
    std::unique_ptr<kel_ns::PlatformFile> m_File; // null once it is closed
    std::string m_Buffer;                         // read ahead, or not yet written
    std::size_t m_Next = 0;                       // what of it was read
    WideReader m_Reader;
    WideWriter m_Writer;
    LONGLONG m_Limit = std::numeric_limits<LONGLONG>::max(); // of bytes yet to be read
    LONGLONG m_Before = 0; // bytes of a file that is appended to, until their lines are counted
    LONG m_Line = 1;
    LONG m_Column = 1;
};

} // namespace scripting
