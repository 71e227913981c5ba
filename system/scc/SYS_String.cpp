#include <SYS_String.h>

#include <SYS_Resources.h>
#include <SYS_Unicode.h>

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

namespace kel_ns {

namespace {

constexpr std::size_t HardMaxBytes = 0x3FFFFFFF;

} // namespace

std::size_t SYS_String::s_MaxBytes = HardMaxBytes;

// --- storage ---------------------------------------------------------------------------------

// Makes an empty text with room for at least `capacity` bytes, more if the block has slack.
char* SYS_String::allocate(std::size_t capacity) {
    if (capacity > s_MaxBytes)
        throw std::length_error("string too long");
    std::size_t bytes = SCL::cStaticAlloc::GoodSize(sizeof(Header) + capacity + 1);
    void* block = SCL::cStaticAlloc::allocate(bytes);
    std::size_t slack = std::min(bytes - sizeof(Header) - 1, s_MaxBytes);
    ::new (block) Header{1, 0, static_cast<unsigned>(slack)};
    char* text = static_cast<char*>(block) + sizeof(Header);
    text[0] = '\0';
    return text;
}

void SYS_String::release(char* text) noexcept {
    Header* header = headerOf(text);
    std::size_t bytes = SCL::cStaticAlloc::GoodSize(sizeof(Header) + header->capacity + 1);
    SCL::cStaticAlloc::deallocate(header, bytes);
}

// For constructors: nothing is held yet.
void SYS_String::assignNew(const char* text, std::size_t length) {
    if (!text || length == 0)
        return;
    m_Text = allocate(length);
    std::memcpy(m_Text, text, length);
    setLength(length);
}

// Makes the text this string's own, with room for at least `capacity` bytes, content kept.
// Beyond the present room it grows by half as much again, so that appending stays cheap.
void SYS_String::makeWritable(std::size_t capacity) {
    std::size_t length = size();
    if (m_Text && header()->refs == 1 && header()->capacity >= capacity)
        return;
    std::size_t wanted = std::max(capacity, length);
    if (m_Text && capacity > header()->capacity)
        wanted = std::max(wanted, std::min(s_MaxBytes, length + length / 2));
    char* text = allocate(wanted);
    if (length)
        std::memcpy(text, m_Text, length);
    drop(m_Text);
    m_Text = text;
    setLength(length);
}

void SYS_String::setLength(std::size_t length) noexcept {
    header()->length = static_cast<unsigned>(length);
    m_Text[length] = '\0';
}

void SYS_String::SetMaxBytes(std::size_t bytes) { s_MaxBytes = std::min(bytes, HardMaxBytes); }

SYS_String::SYS_String(const wchar_t* text) {
    if (text)
        *this = SYS_FromWide(text);
}

SYS_String::SYS_String(char character, std::size_t count) {
    if (count == 0)
        return;
    m_Text = allocate(count);
    std::memset(m_Text, character, count);
    setLength(count);
}

SYS_String& SYS_String::operator=(const char* text) {
    SYS_String copy(text);
    Swap(copy);
    return *this;
}

char* SYS_String::GetBuffer(unsigned size) {
    makeWritable(size);
    return m_Text;
}

void SYS_String::ReleaseBuffer(int length) {
    if (!m_Text)
        return;
    std::size_t capacity = header()->capacity;
    if (length >= 0) {
        setLength(std::min(static_cast<std::size_t>(length), capacity));
    } else {
        const void* end = std::memchr(m_Text, '\0', capacity);
        setLength(end ? static_cast<std::size_t>(static_cast<const char*>(end) - m_Text)
                      : capacity);
    }
    if (header()->length == 0)
        Clear();
}

void SYS_String::Reserve(std::size_t length) {
    if (length > 0)
        makeWritable(length);
}

// --- searching and parts ---------------------------------------------------------------------

namespace {

int toIndex(std::size_t position) {
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

std::size_t fromIndex(int index) { return index < 0 ? 0 : static_cast<std::size_t>(index); }

} // namespace

int SYS_String::Find(char character, int start) const noexcept {
    return toIndex(View().find(character, fromIndex(start)));
}

int SYS_String::Find(const char* text, int start) const noexcept {
    return toIndex(View().find(viewOf(text), fromIndex(start)));
}

int SYS_String::Find(const SYS_String& text, int start) const noexcept {
    return toIndex(View().find(text.View(), fromIndex(start)));
}

int SYS_String::FindOneOf(const char* characters, int start) const noexcept {
    return toIndex(View().find_first_of(viewOf(characters), fromIndex(start)));
}

int SYS_String::ReverseFind(char character) const noexcept {
    return toIndex(View().rfind(character));
}

SYS_String SYS_String::part(std::size_t first, std::size_t count) const {
    std::size_t length = size();
    if (first >= length)
        return SYS_String();
    count = std::min(count, length - first);
    return count == length ? *this : SYS_String(m_Text + first, count);
}

SYS_String SYS_String::Left(unsigned count) const { return part(0, count); }

SYS_String SYS_String::Right(unsigned count) const {
    std::size_t length = size();
    return part(count < length ? length - count : 0, count);
}

SYS_String SYS_String::Mid(unsigned first) const { return part(first, size()); }

SYS_String SYS_String::Mid(unsigned first, unsigned count) const { return part(first, count); }

int SYS_String::compareBytes(std::string_view other) const noexcept {
    return View().compare(other);
}

int SYS_String::compareNoCase(std::string_view other) const noexcept {
    std::string_view own = View();
    std::size_t common = std::min(own.size(), other.size());
    for (std::size_t i = 0; i < common; ++i) {
        auto a = static_cast<unsigned char>(SYS_ToLower(own[i]));
        auto b = static_cast<unsigned char>(SYS_ToLower(other[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return own.size() == other.size() ? 0 : own.size() < other.size() ? -1 : 1;
}

// Names are compared at every look-up, so this goes by words, not by bytes.
bool SYS_StrNoCase::equals(std::string_view other) const noexcept {
    std::string_view own = View();
    if (own.size() != other.size())
        return false;
    if (own.data() == other.data())
        return true;
    std::uint64_t a = 0;
    std::uint64_t b = 0;
    std::size_t i = 0;
    for (; i + sizeof a <= own.size(); i += sizeof a) {
        std::memcpy(&a, own.data() + i, sizeof a);
        std::memcpy(&b, other.data() + i, sizeof b);
        if (SYS_FoldCase(a) != SYS_FoldCase(b))
            return false;
    }
    for (; i < own.size(); ++i)
        if (SYS_ToLower(own[i]) != SYS_ToLower(other[i]))
            return false;
    return true;
}

// --- changing --------------------------------------------------------------------------------

SYS_String& SYS_String::Append(const char* text, std::size_t length) {
    if (!text || length == 0)
        return *this;
    std::size_t old = size();
    if (length > HardMaxBytes || old + length > s_MaxBytes)
        throw std::length_error("string too long");
    // Keeps the old text alive across the growth, for it may be what is appended.
    SYS_String keep;
    if (!m_Text || header()->refs > 1 || header()->capacity < old + length) {
        std::size_t room = old + length;
        if (m_Text)
            room = std::max(room, std::min(s_MaxBytes, old + old / 2));
        char* grown = allocate(room);
        if (old)
            std::memcpy(grown, m_Text, old);
        keep.m_Text = std::exchange(m_Text, grown);
    }
    std::memmove(m_Text + old, text, length);
    setLength(old + length);
    return *this;
}

SYS_String& SYS_String::Replace(int start, int count, const SYS_String& text) {
    std::size_t length = size();
    std::size_t first = std::min(fromIndex(start), length);
    std::size_t removed = std::min(fromIndex(count), length - first);
    std::size_t added = text.size();
    if (removed == 0 && added == 0)
        return *this;
    std::size_t result = length - removed + added;
    if (result == 0) {
        Clear();
        return *this;
    }
    if (result > s_MaxBytes)
        throw std::length_error("string too long");
    // Shares the text, so that the change below cannot pull it away if it is this string's.
    SYS_String source(text);
    makeWritable(result);
    std::size_t tail = length - first - removed;
    std::memmove(m_Text + first + added, m_Text + first + removed, tail);
    if (added)
        std::memcpy(m_Text + first, source.m_Text, added);
    setLength(result);
    return *this;
}

int SYS_String::Insert(int index, const SYS_String& text) {
    Replace(index, 0, text);
    return GetLength();
}

int SYS_String::Delete(int index, int count) {
    if (index >= 0)
        Replace(index, count, SYS_String());
    return GetLength();
}

SYS_String& SYS_String::MakeLower() {
    if (m_Text) {
        makeWritable(size());
        std::transform(m_Text, m_Text + size(), m_Text, SYS_ToLower);
    }
    return *this;
}

SYS_String& SYS_String::MakeUpper() {
    if (m_Text) {
        makeWritable(size());
        std::transform(m_Text, m_Text + size(), m_Text, SYS_ToUpper);
    }
    return *this;
}

SYS_String& SYS_String::MakeReverse() {
    if (m_Text) {
        makeWritable(size());
        std::reverse(m_Text, m_Text + size());
    }
    return *this;
}

SYS_String& SYS_String::TrimLeft() {
    std::string_view text = View();
    std::size_t blanks = 0;
    while (blanks < text.size() && SYS_IsSpace(text[blanks]))
        ++blanks;
    return Replace(0, static_cast<int>(blanks), SYS_String());
}

SYS_String& SYS_String::TrimRight() {
    std::string_view text = View();
    std::size_t length = text.size();
    while (length > 0 && SYS_IsSpace(text[length - 1]))
        --length;
    return Replace(static_cast<int>(length), GetLength(), SYS_String());
}

bool SYS_String::LoadString(int id) {
    *this = TR(id);
    return !IsEmpty();
}

} // namespace kel_ns
