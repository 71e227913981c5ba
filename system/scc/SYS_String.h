#pragma once

#include <SCL_StaticAlloc.h>
#include <SCL_Types.h>

#include <compare>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

namespace kel_ns {

/// Integers that are numbers to a string, never characters.
template <class I>
concept SYS_NumberLike = std::integral<I> && !std::same_as<I, char>;

/// A string of bytes with value semantics. Copies share their text until one of them is written
/// to; the empty string owns nothing. The length is stored, so NUL bytes may stand inside; every
/// operation works on the whole length, except where a `const char*` comes in or goes out. There
/// is always a NUL behind the last byte. Case and white space are those of ASCII, comparisons are
/// by unsigned bytes, and no operation depends on the process locale.
///
/// Text that would pass GetMaxBytes() is std::length_error and leaves the string as it was.
class KEL_MCR_API SYS_String {
public:
    SYS_String() noexcept = default;
    SYS_String(std::nullptr_t) noexcept {}
    SYS_String(const char* text) { assignNew(text, text ? std::strlen(text) : 0); }
    SYS_String(const wchar_t* text); // becomes UTF-8
    SYS_String(const char* text, std::size_t length) { assignNew(text, length); }
    SYS_String(char character, std::size_t count);
    explicit SYS_String(std::string_view text) { assignNew(text.data(), text.size()); }
    SYS_String(const SYS_String& other) noexcept : m_Text(other.m_Text) { share(); }
    SYS_String(SYS_String&& other) noexcept : m_Text(other.m_Text) { other.m_Text = nullptr; }
    ~SYS_String() { drop(m_Text); }

    SYS_String& operator=(const SYS_String& other) noexcept {
        SYS_String copy(other);
        Swap(copy);
        return *this;
    }
    SYS_String& operator=(SYS_String&& other) noexcept {
        SYS_String taken(std::move(other));
        Swap(taken);
        return *this;
    }
    SYS_String& operator=(const char* text);

    void Swap(SYS_String& other) noexcept { std::swap(m_Text, other.m_Text); }

    // --- reading -------------------------------------------------------------------------------

    int GetLength() const noexcept { return static_cast<int>(size()); }
    bool IsEmpty() const noexcept { return size() == 0; }
    const char* c_str() const noexcept { return m_Text ? m_Text : Nothing; }
    operator const char*() const noexcept { return c_str(); }
    explicit operator bool() const = delete; // would always be true; ask IsEmpty()
    std::string_view View() const noexcept { return {c_str(), size()}; }

    /// The byte at the index; NUL outside the string.
    template <std::integral I> char operator[](I index) const noexcept {
        return std::cmp_greater_equal(index, 0) && std::cmp_less(index, size())
                   ? m_Text[static_cast<std::size_t>(index)]
                   : '\0';
    }

    /// First index at or after `start`, else -1. Empty text is found at `start` if that lies within
    /// the length. A start below 0 counts as 0.
    int Find(char character, int start = 0) const noexcept;
    int Find(const char* text, int start = 0) const noexcept;
    int Find(const SYS_String& text, int start = 0) const noexcept;
    int FindOneOf(const char* characters, int start = 0) const noexcept;
    int ReverseFind(char character) const noexcept;

    /// Parts of the string, clipped to what there is.
    SYS_String Left(unsigned count) const;
    SYS_String Right(unsigned count) const;
    SYS_String Mid(unsigned first) const;
    SYS_String Mid(unsigned first, unsigned count) const;

    /// Below, equal to or above 0.
    int Compare(const SYS_String& other) const noexcept { return compareBytes(other.View()); }
    int Compare(const char* other) const noexcept { return compareBytes(viewOf(other)); }
    int CompareNoCase(const SYS_String& other) const noexcept {
        return compareNoCase(other.View());
    }
    int CompareNoCase(const char* other) const noexcept { return compareNoCase(viewOf(other)); }

    /// Parse the number at the front, behind white space. It is returned and written to `out`;
    /// `end` gets the place where parsing stopped, the front itself if there is no number. Integers
    /// saturate at the limits of their type; base 0 reads the base off the text (0x, leading 0).
    double Value(double* out, const char** end = nullptr) const;
    int Value(int* out, const char** end = nullptr, int base = 10) const;
    unsigned Value(unsigned* out, const char** end = nullptr, int base = 10) const;
    __int64 Value(__int64* out, const char** end = nullptr, int base = 10) const;

    // --- writing -------------------------------------------------------------------------------

    void Clear() noexcept { drop(std::exchange(m_Text, nullptr)); }

    /// Appending to a string that nobody shares is amortised constant time per byte. The text may
    /// lie within this string.
    SYS_String& Append(const char* text, std::size_t length);
    SYS_String& Append(std::string_view text) { return Append(text.data(), text.size()); }
    SYS_String& Append(char character) {
        if (m_Text && header()->refs == 1 && header()->length < header()->capacity &&
            header()->length < s_MaxBytes) [[likely]] {
            m_Text[header()->length++] = character;
            m_Text[header()->length] = '\0';
            return *this;
        }
        return Append(&character, 1);
    }

    SYS_String& operator+=(const SYS_String& text) { return Append(text.View()); }
    SYS_String& operator+=(const char* text) { return Append(viewOf(text)); }
    SYS_String& operator+=(char character) { return Append(character); }
    template <SYS_NumberLike I> SYS_String& operator+=(I) = delete; // use << for numbers

    /// Append text, or a number as decimal text (reals as "%g" writes them).
    SYS_String& operator<<(const SYS_String& text) { return Append(text.View()); }
    SYS_String& operator<<(const char* text) { return Append(viewOf(text)); }
    SYS_String& operator<<(char character) { return Append(character); }
    SYS_String& operator<<(double value);
    SYS_String& operator<<(int value) { return appendSigned(value); }
    SYS_String& operator<<(long value) { return appendSigned(value); }
    SYS_String& operator<<(__int64 value) { return appendSigned(value); }
    SYS_String& operator<<(unsigned value) { return Add(value, 10); }
    SYS_String& operator<<(unsigned long value) { return Add(value, 10); }
    SYS_String& operator<<(unsigned long long value) { return Add(value, 10); }

    /// Appends the value in a base from 2 to 36, lower-case, without prefix.
    SYS_String& Add(unsigned long long value, int base);

    /// Replaces a range, clipped to the string, by the text; returns this string.
    SYS_String& Replace(int start, int count, const SYS_String& text);

    /// Both clip the index to the string and return the new length.
    int Insert(int index, const SYS_String& text);
    int Insert(int index, char character) { return Insert(index, SYS_String(character, 1)); }
    int Delete(int index, int count = 1);

    SYS_String& MakeLower();
    SYS_String& MakeUpper();
    SYS_String& MakeReverse(); // bytewise
    SYS_String& TrimLeft();
    SYS_String& TrimRight();

    /// printf formatting in the C locale. Replaces the content, which may be among the arguments.
    SYS_String& Format(const char* format, ...) KEL_PRINTF_LIKE(2, 3);
    SYS_String& FormatV(const char* format, va_list arguments) KEL_PRINTF_LIKE(2, 0);

    /// Takes the text of a string resource; false if there is none.
    bool LoadString(int id);

    /// A buffer of this string alone with room for `size` bytes and a NUL, the content in front.
    /// Valid until the next other operation. ReleaseBuffer states how much of it is text (-1: up to
    /// the first NUL).
    char* GetBuffer(unsigned size);
    void ReleaseBuffer(int length = -1);

    /// Makes room for appending up to this length without further allocation.
    void Reserve(std::size_t length);

    /// The most bytes that any string of the process may hold; 0x3FFFFFFF from the start, which is
    /// also the upper limit.
    static void SetMaxBytes(std::size_t bytes);
    static std::size_t GetMaxBytes() noexcept { return s_MaxBytes; }

    /// True if both read the same memory.
    bool SharesTextWith(const SYS_String& other) const noexcept { return m_Text == other.m_Text; }

    friend bool operator==(const SYS_String& a, const SYS_String& b) noexcept {
        return a.m_Text == b.m_Text || a.View() == b.View();
    }
    friend bool operator==(const SYS_String& a, const char* b) noexcept {
        return a.View() == viewOf(b);
    }
    friend std::strong_ordering operator<=>(const SYS_String& a, const SYS_String& b) noexcept {
        return a.Compare(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const SYS_String& a, const char* b) noexcept {
        return a.Compare(b) <=> 0;
    }

protected:
    static std::string_view viewOf(const char* text) noexcept {
        return text ? std::string_view(text) : std::string_view();
    }
    int compareBytes(std::string_view other) const noexcept;
    int compareNoCase(std::string_view other) const noexcept;

private:
    // Stands directly in front of the text in one block.
    struct Header {
        unsigned refs;
        unsigned length;
        unsigned capacity; // bytes of text without the NUL
    };

    static Header* headerOf(char* text) noexcept {
        return reinterpret_cast<Header*>(text - sizeof(Header));
    }
    Header* header() const noexcept { return headerOf(m_Text); }
    std::size_t size() const noexcept { return m_Text ? header()->length : 0; }

    void share() const noexcept {
        if (m_Text)
            ++header()->refs;
    }
    static void drop(char* text) noexcept {
        if (text && --headerOf(text)->refs == 0)
            release(text);
    }

    static void release(char* text) noexcept;
    static char* allocate(std::size_t capacity);
    void assignNew(const char* text, std::size_t length);
    void makeWritable(std::size_t capacity);
    void setLength(std::size_t length) noexcept;
    SYS_String part(std::size_t first, std::size_t count) const;
    SYS_String& appendSigned(__int64 value);

    char* m_Text = nullptr;

    // One empty text for all, since callers measure from c_str() to where a parse has stopped.
    static constexpr char Nothing[1] = {};
    static std::size_t s_MaxBytes;
};

static_assert(sizeof(SYS_String) == sizeof(void*));

using CStringA = SYS_String;
using CStringT = SYS_String;

/// Joining. The forms that get a temporary on the left append to it.
inline SYS_String operator+(const SYS_String& a, const SYS_String& b) {
    SYS_String result(a);
    result.Append(b.View());
    return result;
}
inline SYS_String operator+(SYS_String&& a, const SYS_String& b) {
    return std::move(a.Append(b.View()));
}
inline SYS_String operator+(const SYS_String& a, const char* b) {
    SYS_String result(a);
    result += b;
    return result;
}
inline SYS_String operator+(SYS_String&& a, const char* b) { return std::move(a += b); }
inline SYS_String operator+(const SYS_String& a, char b) {
    SYS_String result(a);
    result += b;
    return result;
}
inline SYS_String operator+(SYS_String&& a, char b) { return std::move(a += b); }
inline SYS_String operator+(const char* a, const SYS_String& b) {
    SYS_String result(a);
    result.Append(b.View());
    return result;
}
inline SYS_String operator+(char a, const SYS_String& b) {
    SYS_String result(a, 1);
    result.Append(b.View());
    return result;
}
/// Would move along the text instead of joining.
template <SYS_NumberLike I> SYS_String operator+(const SYS_String&, I) = delete;
template <SYS_NumberLike I> SYS_String operator+(I, const SYS_String&) = delete;

/// A string used as a name: the same text, but equal, ordered and hashed without regard to the
/// case of ASCII letters.
class KEL_MCR_API SYS_StrNoCase : public SYS_String {
public:
    using SYS_String::SYS_String;
    using SYS_String::operator=;
    SYS_StrNoCase() noexcept = default;
    SYS_StrNoCase(const SYS_String& text) noexcept : SYS_String(text) {}
    SYS_StrNoCase(SYS_String&& text) noexcept : SYS_String(std::move(text)) {}

    friend bool operator==(const SYS_StrNoCase& a, const SYS_StrNoCase& b) noexcept {
        return a.equals(b.View());
    }
    friend bool operator==(const SYS_StrNoCase& a, const SYS_String& b) noexcept {
        return a.equals(b.View());
    }
    friend bool operator==(const SYS_StrNoCase& a, const char* b) noexcept {
        return a.equals(viewOf(b));
    }
    friend std::strong_ordering operator<=>(const SYS_StrNoCase& a,
                                            const SYS_StrNoCase& b) noexcept {
        return a.CompareNoCase(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const SYS_StrNoCase& a, const SYS_String& b) noexcept {
        return a.CompareNoCase(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const SYS_StrNoCase& a, const char* b) noexcept {
        return a.CompareNoCase(b) <=> 0;
    }

private:
    bool equals(std::string_view other) const noexcept;
};

static_assert(sizeof(SYS_StrNoCase) == sizeof(SYS_String));

/// ASCII case folding and white space, whatever the locale.
constexpr char SYS_ToLower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr char SYS_ToUpper(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
constexpr bool SYS_IsSpace(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// Lower-cases eight ASCII bytes at once; bytes from 0x80 on stay.
constexpr std::uint64_t SYS_FoldCase(std::uint64_t bytes) noexcept {
    constexpr std::uint64_t EachByte = 0x0101010101010101u;
    std::uint64_t low7 = bytes & (0x7F * EachByte);
    std::uint64_t fromA = low7 + (0x80 - 'A') * EachByte;
    std::uint64_t pastZ = low7 + (0x7F - 'Z') * EachByte;
    std::uint64_t upper = (fromA ^ pastZ) & ~bytes & (0x80 * EachByte);
    return bytes | upper >> 2;
}

} // namespace kel_ns
