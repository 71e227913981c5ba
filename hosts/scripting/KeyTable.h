#pragma once

#include <Automation.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace scripting {

/// What two keys are compared by. Numbers and truth values are the same key if they are equal,
/// whatever their types; texts are compared by their code units, objects by identity. Lives no
/// longer than the value it was made of.
class Key {
public:
    /// Null if the value is none that can be a key: an array, say.
    static bool Make(const VARIANT& value, bool ignoreCase, Key& key);

    std::size_t GetHash() const noexcept { return m_Hash; }
    bool IsSameAs(const Key& other, bool ignoreCase) const noexcept;

private:
    enum class Kind : unsigned char { Empty, Whole, Real, Text, Object };

    void setNumber(double value) noexcept;
    void setObject(IUnknown* object);
    void computeHash(bool ignoreCase) noexcept;

    Kind m_Kind = Kind::Empty;
    LONGLONG m_Whole = 0; // a real by its bits, an object by its address
    std::u16string_view m_Text;
    std::size_t m_Hash = 0;
};

/// Keys with their items in the order in which they were added. Looking up, adding and removing
/// take constant time.
///
/// Items and keys may be objects whose end comes back to the table; nothing is released before the
/// table is in order.
class KeyTable {
public:
    struct Entry {
        COleVariant key;
        COleVariant item;
        Key compared; // a view of `key`
        bool isLive = true;
    };

    /// Null if the key is not there; valid until the table changes.
    Entry* Find(const Key& key) noexcept;
    /// Adds a key that is not there, with an empty item.
    Entry& Add(const VARIANT& value);
    void Remove(Entry& entry);
    /// Gives a key that is not there to the item of another one, in the same place.
    void Rename(const Key& from, const VARIANT& to);
    void Clear();

    std::size_t GetCount() const noexcept { return m_Count; }
    bool IgnoresCase() const noexcept { return m_IgnoreCase; }
    /// Only while the table is empty.
    void SetIgnoreCase(bool ignore) noexcept { m_IgnoreCase = ignore; }

    std::vector<COleVariant> GetKeys() const;
    std::vector<COleVariant> GetItems() const;

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    std::size_t firstSlot(const Key& key) const noexcept {
        return key.GetHash() & (m_Slots.size() - 1);
    }
    void place(std::uint32_t entry) noexcept;
    void makeRoom();
    std::vector<COleVariant> collect(COleVariant Entry::*part) const;

    std::vector<Entry> m_Entries;       // removed ones stay until the table is rebuilt
    std::vector<std::uint32_t> m_Slots; // hash table of places in m_Entries; a power of two
    std::size_t m_UsedSlots = 0;
    std::size_t m_Count = 0;
    bool m_IgnoreCase = false;
};

} // namespace scripting
