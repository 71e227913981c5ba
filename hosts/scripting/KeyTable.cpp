#include "KeyTable.h"

#include <bit>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace scripting {

namespace {

constexpr char16_t fold(char16_t c) noexcept {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

constexpr std::uint64_t mix(std::uint64_t value) noexcept {
    value *= 0x9E3779B97F4A7C15u;
    return value ^ (value >> 32);
}

bool isSameText(std::u16string_view a, std::u16string_view b, bool ignoreCase) noexcept {
    if (!ignoreCase || a.size() != b.size())
        return a == b;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (fold(a[i]) != fold(b[i]))
            return false;
    return true;
}

void copyInto(COleVariant& target, const VARIANT& source) {
    const HRESULT outcome = VariantCopy(&target, &source);
    if (outcome == E_OUTOFMEMORY)
        throw std::bad_alloc();
}

} // namespace

// --- Key ---------------------------------------------------------------------------------------

bool Key::Make(const VARIANT& value, bool ignoreCase, Key& key) {
    key = Key();
    switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
        break;
    case VT_I2:
        key.m_Kind = Kind::Whole;
        key.m_Whole = value.iVal;
        break;
    case VT_I4:
    case VT_INT:
        key.m_Kind = Kind::Whole;
        key.m_Whole = value.lVal;
        break;
    case VT_I8:
    case VT_UI8:
        key.m_Kind = Kind::Whole;
        key.m_Whole = value.llVal;
        break;
    case VT_BOOL:
        key.m_Kind = Kind::Whole;
        key.m_Whole = value.boolVal != VARIANT_FALSE ? -1 : 0;
        break;
    case VT_R4:
        key.setNumber(static_cast<double>(value.fltVal));
        break;
    case VT_R8:
        key.setNumber(value.dblVal);
        break;
    case VT_BSTR:
        key.m_Kind = Kind::Text;
        if (value.bstrVal)
            key.m_Text = {value.bstrVal, SysStringLen(value.bstrVal)};
        break;
    case VT_DISPATCH:
        key.setObject(value.pdispVal);
        break;
    case VT_UNKNOWN:
        key.setObject(value.punkVal);
        break;
    default:
        return false;
    }
    key.computeHash(ignoreCase);
    return true;
}

void Key::setNumber(double value) noexcept {
    constexpr double limit = 9223372036854775808.0;
    if (value >= -limit && value < limit && value == std::trunc(value)) {
        m_Kind = Kind::Whole;
        m_Whole = static_cast<LONGLONG>(value);
        return;
    }
    m_Kind = Kind::Real;
    // Every NaN is one key; else a key that was added could never be found again.
    m_Whole = std::isnan(value) ? -1 : std::bit_cast<LONGLONG>(value);
}

/// Two pointers may belong to one object: its identity is the address of its IUnknown.
void Key::setObject(IUnknown* object) {
    m_Kind = Kind::Object;
    void* identity = object;
    if (object && SUCCEEDED(object->QueryInterface(IID_IUnknown, &identity)) && identity)
        static_cast<IUnknown*>(identity)->Release();
    m_Whole = static_cast<LONGLONG>(reinterpret_cast<std::uintptr_t>(identity));
}

void Key::computeHash(bool ignoreCase) noexcept {
    std::uint64_t hash = static_cast<std::uint64_t>(m_Whole);
    if (m_Kind == Kind::Text) {
        hash = 14695981039346656037u;
        for (const char16_t c : m_Text)
            hash = (hash ^ (ignoreCase ? fold(c) : c)) * 1099511628211u;
    }
    m_Hash = mix(hash);
}

bool Key::IsSameAs(const Key& other, bool ignoreCase) const noexcept {
    return m_Hash == other.m_Hash && m_Kind == other.m_Kind && m_Whole == other.m_Whole &&
           isSameText(m_Text, other.m_Text, ignoreCase);
}

// --- KeyTable ----------------------------------------------------------------------------------

KeyTable::Entry* KeyTable::Find(const Key& key) noexcept {
    if (m_Count == 0)
        return nullptr;
    for (std::size_t slot = firstSlot(key); m_Slots[slot] != kFree;
         slot = (slot + 1) & (m_Slots.size() - 1)) {
        Entry& entry = m_Entries[m_Slots[slot]];
        if (entry.isLive && entry.compared.IsSameAs(key, m_IgnoreCase))
            return &entry;
    }
    return nullptr;
}

void KeyTable::place(std::uint32_t entry) noexcept {
    std::size_t slot = firstSlot(m_Entries[entry].compared);
    while (m_Slots[slot] != kFree)
        slot = (slot + 1) & (m_Slots.size() - 1);
    m_Slots[slot] = entry;
    ++m_UsedSlots;
}

/// Makes room for one more entry; a third of the slots stays free. Removed entries go.
void KeyTable::makeRoom() {
    if (3 * (m_UsedSlots + 1) <= 2 * m_Slots.size())
        return;
    std::size_t size = 8;
    while (size < 3 * (m_Count + 1))
        size *= 2;
    if (m_Count + 1 >= kFree)
        throw std::length_error("The dictionary is full");
    std::vector<std::uint32_t> slots(size, kFree);
    if (m_Count != m_Entries.size())
        std::erase_if(m_Entries, [](const Entry& entry) { return !entry.isLive; });
    m_Slots.swap(slots);
    m_UsedSlots = 0;
    for (std::uint32_t i = 0; i < m_Entries.size(); ++i)
        place(i);
}

KeyTable::Entry& KeyTable::Add(const VARIANT& value) {
    Entry made;
    copyInto(made.key, value);
    Key::Make(made.key, m_IgnoreCase, made.compared);
    makeRoom();
    m_Entries.push_back(std::move(made));
    place(static_cast<std::uint32_t>(m_Entries.size() - 1));
    ++m_Count;
    return m_Entries.back();
}

void KeyTable::Remove(Entry& entry) {
    const COleVariant key = std::move(entry.key);
    const COleVariant item = std::move(entry.item);
    entry.isLive = false;
    --m_Count;
    if (m_Count == 0)
        Clear();
}

void KeyTable::Rename(const Key& from, const VARIANT& to) {
    COleVariant key;
    copyInto(key, to);
    Key compared;
    Key::Make(key, m_IgnoreCase, compared);
    makeRoom();
    Entry* entry = Find(from);
    if (!entry)
        return;
    entry->compared = compared;
    std::swap(static_cast<VARIANT&>(key), static_cast<VARIANT&>(entry->key));
    // The old slot stays: whoever meets it finds another key there and goes on.
    place(static_cast<std::uint32_t>(entry - m_Entries.data()));
}

void KeyTable::Clear() {
    std::vector<Entry> old;
    old.swap(m_Entries);
    m_Slots.clear();
    m_UsedSlots = 0;
    m_Count = 0;
}

std::vector<COleVariant> KeyTable::collect(COleVariant Entry::*part) const {
    std::vector<COleVariant> values;
    values.reserve(m_Count);
    for (std::size_t i = 0; i < m_Entries.size(); ++i) // copying may come back to the table
        if (m_Entries[i].isLive)
            values.push_back(m_Entries[i].*part);
    return values;
}

std::vector<COleVariant> KeyTable::GetKeys() const { return collect(&Entry::key); }

std::vector<COleVariant> KeyTable::GetItems() const { return collect(&Entry::item); }

} // namespace scripting
