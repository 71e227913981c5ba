#include "language/Dictionary.h"

namespace {

std::uint32_t hashOf(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash ^ (hash >> 15);
}

} // namespace

DictionaryEntry& MacroDictionary::FindOrInsert(std::string_view text) {
    std::uint32_t hash = hashOf(text);
    if (!m_Buckets.empty()) {
        DictionaryEntry* entry = m_Buckets[hash & (m_Buckets.size() - 1)];
        for (; entry; entry = entry->next) {
            if (entry->hash == hash && entry->text.View() == text)
                return *entry;
        }
    }
    return insert(text, hash);
}

DictionaryEntry& MacroDictionary::insert(std::string_view text, std::uint32_t hash) {
    SYS_String copy(text); // may throw, so before anything changes
    if (m_Count >= m_Buckets.size())
        grow();
    if (m_Count % kChunk == 0 && m_Count / kChunk == m_Chunks.size())
        m_Chunks.push_back(std::make_unique<DictionaryEntry[]>(kChunk));
    DictionaryEntry& entry = m_Chunks.back()[m_Count % kChunk];
    entry.text.Swap(copy);
    entry.hash = hash;
    DictionaryEntry*& bucket = m_Buckets[hash & (m_Buckets.size() - 1)];
    entry.next = bucket;
    bucket = &entry;
    ++m_Count;
    return entry;
}

void MacroDictionary::grow() {
    std::vector<DictionaryEntry*> old(m_Buckets.empty() ? kChunk : m_Buckets.size() * 2);
    old.swap(m_Buckets);
    for (DictionaryEntry* entry : old) {
        while (entry) {
            DictionaryEntry* next = entry->next;
            DictionaryEntry*& bucket = m_Buckets[entry->hash & (m_Buckets.size() - 1)];
            entry->next = bucket;
            bucket = entry;
            entry = next;
        }
    }
}

void MacroDictionary::Clear() {
    m_Buckets.clear();
    m_Chunks.clear();
    m_Count = 0;
}
