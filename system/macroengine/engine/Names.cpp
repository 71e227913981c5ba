#include "engine/Names.h"

#include <cstddef>
#include <vector>

#include "engine/FoldedText.h"

namespace {

class NameTable {
public:
    const MacroName* FindOrMake(std::string_view text) {
        std::uint32_t hash = FoldedHash(text);
        for (MacroName* name = m_Buckets[bucketOf(hash)]; name; name = name->next) {
            if (name->hash == hash && EqualFolded(name->text.View(), text))
                return name;
        }
        if (m_Count >= m_Buckets.size())
            grow();
        auto* name = new MacroName;
        name->text = SYS_StrNoCase(text);
        name->hash = hash;
        name->length = static_cast<std::uint32_t>(text.size());
        name->bit = std::uint64_t{1} << (hash >> 26);
        link(name);
        ++m_Count;
        return name;
    }

private:
    std::size_t bucketOf(std::uint32_t hash) const { return hash & (m_Buckets.size() - 1); }

    void link(MacroName* name) {
        MacroName*& bucket = m_Buckets[bucketOf(name->hash)];
        name->next = bucket;
        bucket = name;
    }

    void grow() {
        std::vector<MacroName*> old(m_Buckets.size() * 2);
        old.swap(m_Buckets);
        for (MacroName* name : old) {
            while (name) {
                MacroName* next = name->next;
                link(name);
                name = next;
            }
        }
    }

    std::vector<MacroName*> m_Buckets = std::vector<MacroName*>(256); // a power of two
    std::size_t m_Count = 0;
};

} // namespace

const MacroName* MacroName::Intern(std::string_view text) {
    static NameTable* const table = new NameTable; // names outlive every static object
    return table->FindOrMake(text);
}
