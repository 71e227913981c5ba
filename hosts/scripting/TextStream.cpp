#include "TextStream.h"

#include "FileFailure.h"

#include <algorithm>
#include <limits>

namespace scripting {

using namespace kel_ns;
using automation::Arguments;
using automation::Failure;

namespace {

constexpr std::size_t kBlock = 65536;

LONGLONG countIn(const Arguments& arguments) {
    const LONGLONG count = arguments.Integer(0);
    if (count < 0)
        throw Failure("A count below 0 makes no sense");
    return count;
}

} // namespace

COleVariant TextStream::Open(const SYS_String& path, StreamMode mode, PlatformCreation creation,
                             TextFormat format) {
    PlatformFileOptions options;
    options.access = mode == StreamMode::Reading ? PlatformAccessRead : PlatformAccessWrite;
    options.creation = creation;
    options.append = mode == StreamMode::Appending;
    std::unique_ptr<PlatformFile> file;
    CheckFile(GetPlatform().OpenFile(path, options, file), path);
    auto* stream = new TextStream(path, mode, format, std::move(file));
    COleVariant result = automation::Own(static_cast<IDispatch*>(stream));
    stream->begin();
    return result;
}

TextFormat TextStream::FormatOf(const SYS_String& path) {
    std::unique_ptr<PlatformFile> file;
    char mark[kWideMark.size()] = {};
    std::size_t got = 0;
    if (GetPlatform().OpenFile(path, {}, file) != PlatformStatus::Ok ||
        file->Read(mark, sizeof mark, got) != PlatformStatus::Ok)
        return TextFormat::Bytes;
    return std::string_view(mark, got) == kWideMark ? TextFormat::Wide : TextFormat::Bytes;
}

void TextStream::begin() {
    if (m_Mode == StreamMode::Appending)
        CheckFile(m_File->GetSize(m_Before), m_Path);
    if (m_Mode != StreamMode::Reading && m_Format == TextFormat::Wide && m_Before == 0)
        CheckFile(m_File->Write(kWideMark.data(), kWideMark.size()), m_Path);
}

TextStream::~TextStream() {
    try {
        if (m_File)
            write(*m_File, true);
    } catch (const std::exception&) { // nobody is left to be told
    }
}

const automation::Members& TextStream::GetMembers() const {
    using T = TextStream;
    static const automation::Members members(
        "TextStream", {
                          automation::Method<&T::ReadLine>("ReadLine"),
                          automation::Method<&T::ReadAll>("ReadAll"),
                          automation::Method<&T::Read>("Read", 1),
                          automation::Method<&T::Skip>("Skip", 1),
                          automation::Method<&T::SkipLine>("SkipLine"),
                          automation::Method<&T::Write>("Write", 1),
                          automation::Method<&T::WriteLine>("WriteLine", 0, 1),
                          automation::Method<&T::WriteBlankLines>("WriteBlankLines", 1),
                          automation::Method<&T::Close>("Close"),
                          automation::Property<&T::IsAtEndOfStream>("AtEndOfStream"),
                          automation::Property<&T::IsAtEndOfLine>("AtEndOfLine"),
                          automation::Property<&T::GetLine>("Line"),
                          automation::Property<&T::GetColumn>("Column"),
                      });
    return members;
}

// --- reading -----------------------------------------------------------------------------------

void TextStream::needOpen() const {
    if (!m_File)
        throw Failure("The file is closed: '" + m_Path + "'");
}

void TextStream::needReadable() const {
    needOpen();
    if (m_Mode != StreamMode::Reading)
        throw Failure("The file is not open for reading: '" + m_Path + "'");
}

void TextStream::needReading() {
    needReadable();
    if (!fill())
        throw Failure("The end of the file has been reached: '" + m_Path + "'");
}

/// Makes sure that something can be taken from the buffer; false at the end of the file.
bool TextStream::fill() {
    for (std::size_t got = 1; got > 0 && m_Next == m_Buffer.size();) {
        m_Buffer.resize(static_cast<std::size_t>(std::min(m_Limit, LONGLONG{kBlock})));
        m_Next = 0;
        got = 0;
        const PlatformStatus status = m_File->Read(m_Buffer.data(), m_Buffer.size(), got);
        m_Buffer.resize(got);
        CheckFile(status, m_Path);
        m_Limit -= static_cast<LONGLONG>(got);
        if (m_Format == TextFormat::Wide)
            m_Buffer = m_Reader.Decode(m_Buffer, got == 0);
    }
    return m_Next < m_Buffer.size();
}

/// Keeps `Line` and `Column` at the place behind the text.
void TextStream::advance(std::string_view text) {
    const std::size_t last = text.rfind('\n');
    m_Line += static_cast<LONG>(std::count(text.begin(), text.end(), '\n'));
    if (last == std::string_view::npos)
        m_Column += static_cast<LONG>(text.size());
    else
        m_Column = static_cast<LONG>(text.size() - last);
}

SYS_String TextStream::take(LONGLONG count) {
    SYS_String text;
    while (count > 0 && fill()) {
        const auto left = static_cast<LONGLONG>(m_Buffer.size() - m_Next);
        const std::string_view piece(m_Buffer.data() + m_Next,
                                     static_cast<std::size_t>(std::min(count, left)));
        text.Append(piece);
        advance(piece);
        m_Next += piece.size();
        count -= static_cast<LONGLONG>(piece.size());
    }
    return text;
}

SYS_String TextStream::takeLine() {
    SYS_String line;
    while (fill()) {
        const std::size_t end = m_Buffer.find('\n', m_Next);
        const bool isWhole = end != std::string::npos;
        const std::size_t stop = isWhole ? end : m_Buffer.size();
        line.Append(m_Buffer.data() + m_Next, stop - m_Next);
        m_Next = isWhole ? stop + 1 : stop;
        if (isWhole)
            break;
    }
    if (line.View().ends_with('\r'))
        line.Delete(line.GetLength() - 1);
    ++m_Line;
    m_Column = 1;
    return line;
}

COleVariant TextStream::Read(const Arguments& arguments) {
    const LONGLONG count = countIn(arguments);
    needReading();
    return COleVariant(take(count));
}

COleVariant TextStream::ReadLine() {
    needReading();
    return COleVariant(takeLine());
}

COleVariant TextStream::ReadAll() {
    needReading();
    return COleVariant(take(std::numeric_limits<LONGLONG>::max()));
}

void TextStream::Skip(const Arguments& arguments) {
    LONGLONG count = countIn(arguments);
    needReading();
    while (count > 0 && fill()) {
        const LONGLONG step = std::min(count, static_cast<LONGLONG>(kBlock));
        static_cast<void>(take(step));
        count -= step;
    }
}

void TextStream::SkipLine() {
    needReading();
    static_cast<void>(takeLine());
}

bool TextStream::IsAtEndOfStream() {
    needReadable();
    return !fill();
}

bool TextStream::IsAtEndOfLine() {
    if (IsAtEndOfStream())
        return true;
    const char next = m_Buffer[m_Next];
    return next == '\n' || next == '\r';
}

// --- place -------------------------------------------------------------------------------------

/// The lines that an appended file began with are counted when somebody asks for the place.
void TextStream::countWhatWasThere() {
    if (m_Before == 0)
        return;
    std::unique_ptr<PlatformFile> file;
    CheckFile(GetPlatform().OpenFile(m_Path, {}, file), m_Path);
    const COleVariant owner = automation::Own(static_cast<IDispatch*>(
        new TextStream(m_Path, StreamMode::Reading, m_Format, std::move(file))));
    auto& before = static_cast<TextStream&>(*owner.pdispVal);
    before.m_Limit = m_Before;
    while (before.fill())
        static_cast<void>(before.take(kBlock));
    m_Before = 0;
    if (m_Line == 1)
        m_Column += before.m_Column - 1;
    m_Line += before.m_Line - 1;
}

LONG TextStream::GetLine() {
    countWhatWasThere();
    return m_Line;
}

LONG TextStream::GetColumn() {
    countWhatWasThere();
    return m_Column;
}

// --- writing -----------------------------------------------------------------------------------

void TextStream::needWriting() const {
    needOpen();
    if (m_Mode == StreamMode::Reading)
        throw Failure("The file is not open for writing: '" + m_Path + "'");
}

void TextStream::put(std::string_view text) {
    m_Buffer.append(text);
    advance(text);
    if (m_Buffer.size() >= kBlock)
        write(*m_File, false);
}

void TextStream::write(PlatformFile& file, bool isLast) {
    if (m_Mode == StreamMode::Reading)
        return;
    std::string text;
    text.swap(m_Buffer);
    if (m_Format == TextFormat::Wide)
        text = m_Writer.Encode(text, isLast);
    if (!text.empty())
        CheckFile(file.Write(text.data(), text.size()), m_Path);
}

void TextStream::Write(const Arguments& arguments) {
    needWriting();
    put(arguments.Text(0).View());
}

void TextStream::WriteLine(const Arguments& arguments) {
    needWriting();
    put(arguments.Text(0, "").View());
    put("\r\n");
}

void TextStream::WriteBlankLines(const Arguments& arguments) {
    LONGLONG count = countIn(arguments);
    needWriting();
    while (count-- > 0)
        put("\r\n");
}

void TextStream::Close() {
    if (!m_File)
        return;
    const std::unique_ptr<PlatformFile> file = std::move(m_File);
    write(*file, true);
    m_Buffer.clear();
    CheckFile(file->Close(), m_Path);
}

} // namespace scripting
