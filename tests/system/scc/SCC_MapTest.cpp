#include "../AssertRecorder.h"

#include <SCC_Map.h>
#include <SCC_Set.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <vector>

using namespace kel_ns;

using NameMap = SCC_Map<SYS_StrNoCase, int>;
static_assert(sizeof(NameMap) <= 48);

namespace {

std::string textOf(const NameMap& map) {
    SYS_String text;
    for (const auto& node : map)
        text << node.key << node.value << ' ';
    return text.c_str();
}

NameMap makeMap(const char* letters) {
    NameMap map;
    for (int i = 1; *letters; ++letters, ++i)
        map.Install(SYS_String(*letters, 1), i);
    return map;
}

// Notes the codes it hears.
class Codes : public SCC_EventNode<void*> {
public:
    int OnNotification(int code, void* data) override {
        text << code << (data ? "d " : " ");
        return 0;
    }
    SYS_String text;
};

} // namespace

TEST(SCC_Map, InstallsInOrderAndReplacesInPlace) {
    AssertRecorder asserts;
    NameMap map;
    EXPECT_EQ(map.Lookup("x"), nullptr);
    EXPECT_EQ(map.GetTableSize(), 0);
    auto* first = map.Install("Alpha", 1);
    map.Install("beta", 2);
    unsigned changes = map.GetChanges();
    EXPECT_EQ(map.Install("ALPHA", 3), first);
    EXPECT_EQ(map.Emplace("alpha", 9), first);
    EXPECT_EQ(map.GetChanges(), changes);
    EXPECT_EQ(textOf(map), "Alpha3 beta2 ");
    EXPECT_EQ(*std::as_const(map).Lookup("BETA"), 2);
    EXPECT_EQ(map.LookupNode("alpha", map.Hash("aLpHa")), first);
    EXPECT_TRUE(map.Remove("alpha"));
    EXPECT_FALSE(map.Remove("alpha"));
    EXPECT_NE(map.GetChanges(), changes);
    map.Install("Alpha", 4);
    EXPECT_EQ(textOf(map), "beta2 Alpha4 ");
    map.RemoveAll();
    EXPECT_EQ(map.GetTableSize(), 0);
    EXPECT_EQ(textOf(map), "");
}

// Against a plain list as the oracle.
TEST(SCC_Map, BehavesLikeAListUnderRandomUse) {
    AssertRecorder asserts;
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    {
        SCC_Map<int, int> map;
        std::vector<std::pair<int, int>> oracle;
        std::mt19937 random(1);
        for (int step = 0; step < 20000; ++step) {
            int key = static_cast<int>(random() % 300) - 150;
            auto place = std::find_if(oracle.begin(), oracle.end(),
                                      [&](const auto& item) { return item.first == key; });
            if (random() % 5 < 3) {
                map.Install(key, step);
                if (place == oracle.end())
                    oracle.emplace_back(key, step);
                else
                    place->second = step;
            } else {
                EXPECT_EQ(map.Remove(key), place != oracle.end());
                if (place != oracle.end())
                    oracle.erase(place);
            }
            if (step % 500 == 0) {
                std::vector<std::pair<int, int>> content;
                for (const auto& node : map)
                    content.emplace_back(node.key, node.value);
                ASSERT_EQ(content, oracle);
            }
        }
        for (const auto& [key, value] : oracle)
            EXPECT_EQ(*map.Lookup(key), value);
    }
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}

TEST(SCC_Map, NodesNeverMove) {
    AssertRecorder asserts;
    NameMap map;
    int* value = &map.Install("first", 1)->value;
    for (int i = 0; i < 5000; ++i)
        map.Install(SYS_String() << i, i);
    EXPECT_EQ(map.Lookup("FIRST"), value);
    EXPECT_EQ(map.GetFirst()->GetNext()->key, "0");
}

TEST(SCC_Map, CopiesItemsAndHashButNoListeners) {
    AssertRecorder asserts;
    NameMap map;
    map.SetHashFunction([](const SYS_StrNoCase&) { return SCC_HashValue{7, 0}; });
    for (const char* key : {"c", "a", "b"})
        map.Install(key, *key);
    Codes codes;
    map.GetNotifier().AddTail(codes);
    NameMap copy(map);
    copy.Install("A", 1);
    EXPECT_EQ(textOf(copy), "c99 a1 b98 ");
    EXPECT_EQ(textOf(map), "c99 a97 b98 ");
    EXPECT_EQ(copy.Hash("x").hash, 7u);
    EXPECT_EQ(codes.text, "");
    map = copy;
    EXPECT_EQ(textOf(map), textOf(copy));
    map = *&map;
    NameMap moved = std::move(copy);
    EXPECT_EQ(textOf(moved), "c99 a1 b98 ");
    EXPECT_TRUE(copy.IsEmpty());
    copy.Install("new", 1);
    map.SetHashFunction(nullptr);
    EXPECT_EQ(asserts.Take(), Messages{"In SCC_Map::SetHashFunction(), Map is not empty"});
    EXPECT_EQ(codes.text, "6 ");
}

TEST(SCC_Map, TellsItsListeners) {
    AssertRecorder asserts;
    Codes codes;
    {
        NameMap map;
        map.GetNotifier().AddTail(codes);
        map.Install("a", 1);
        map.Install("A", 2);
        map.Emplace("b", 3);
        map.Remove("a");
        map.Remove("a");
        map.RemoveAll();
        map.RemoveAll();
        map = makeMap("xy");
    }
    EXPECT_EQ(codes.text, "1d 1d 2d 7 6 2 ");
}

// The end of a value may look into the map that is being emptied.
TEST(SCC_Map, IsEmptyWhileItsValuesEnd) {
    AssertRecorder asserts;
    struct Value {
        std::function<void()> atEnd;
        ~Value() { atEnd(); }
    };
    SCC_Map<int, Value> map;
    int found = 0;
    for (int key = 0; key < 3; ++key)
        map.Emplace(key)->value.atEnd = [&] { found += map.Lookup(1) != nullptr; };
    map.RemoveAll();
    EXPECT_EQ(found, 0);
}

TEST(SCC_MapIterator, SurvivesEveryRemoval) {
    AssertRecorder asserts;
    // While standing on "c" of "abcde" the given keys go; the rest of the walk follows.
    const std::pair<const char*, const char*> cases[] = {
        {"", "abcde"},  {"c", "abcde"},   {"cd", "abce"}, {"dc", "abce"}, {"d", "abce"},
        {"b", "abcde"}, {"abcde", "abc"}, {"cde", "abc"}, {"edc", "abc"},
    };
    for (const auto& [removed, want] : cases) {
        NameMap map = makeMap("abcde");
        std::string seen;
        for (SCC_MapIterator<SYS_StrNoCase, int> it(map); it.IsValid(); it.Next()) {
            seen += it.GetKey();
            if (it.GetKey() == "c")
                for (const char* key = removed; *key; ++key)
                    map.Remove(SYS_String(*key, 1));
        }
        EXPECT_EQ(seen, want) << removed;
    }
}

TEST(SCC_MapIterator, MovesBothWaysAndAsserts) {
    AssertRecorder asserts;
    auto map = std::make_unique<NameMap>(makeMap("abc"));
    SCC_MapIterator<SYS_StrNoCase, int> it(*map);
    EXPECT_TRUE(it.GetLast());
    EXPECT_EQ(*it, 3);
    EXPECT_TRUE(it.Previous());
    map->Remove("b");
    EXPECT_FALSE(it.IsValid());
    EXPECT_TRUE(it.Previous());
    EXPECT_EQ(it.GetKey(), "a");
    EXPECT_TRUE(it.Next());
    EXPECT_FALSE(it.Next());
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(asserts.Take(), Messages{});
    it.GetValue() = 5;
    EXPECT_EQ(it.GetKey(), "");
    *it.operator->() = 5;
    EXPECT_EQ(asserts.Take(), (Messages{"In SCC_MapIteratorFast::GetValue, Invalid iterator",
                                        "In SCC_MapIteratorFast::GetKey, Invalid iterator",
                                        "In SCC_MapIteratorFast::operator ->, Invalid iterator"}));
    it.Reset();
    *map = makeMap("xyz");
    EXPECT_FALSE(it.IsValid());
    it.Reset();
    EXPECT_EQ(it.GetKey(), "x");
    map->RemoveAll();
    EXPECT_FALSE(it.IsValid());
    map.reset();
    EXPECT_FALSE(it.GetFirst());
}

TEST(SCC_Set, AddsOnceAndSurvivesRemoval) {
    AssertRecorder asserts;
    int things[4] = {};
    SCC_Set<int*> set;
    for (int& thing : things)
        EXPECT_TRUE(set.Add(&thing));
    EXPECT_FALSE(set.Add(&things[2]));
    EXPECT_EQ(set.GetCount(), 4);
    std::vector<std::ptrdiff_t> seen;
    for (SCC_SetIterator<int*> it(set); it.IsValid(); it.Next()) {
        seen.push_back(*it - things);
        set.Remove(*it);
    }
    EXPECT_EQ(seen, (std::vector<std::ptrdiff_t>{0, 1, 2, 3}));
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_FALSE(set.Contains(&things[0]));
    EXPECT_EQ(set.begin(), set.end());
}

TEST(SCC_Hash, FoldsCaseOfAsciiLettersOnly) {
    // All bytes at every place of a word, so that folding eight at once cannot spill over.
    for (int c = 0; c < 256; ++c)
        for (std::size_t place = 0; place < 17; ++place) {
            SYS_String text('q', 17);
            text.GetBuffer(17)[place] = static_cast<char>(c);
            SYS_String other(text);
            other.MakeUpper();
            ASSERT_EQ(SCC_Hash(SYS_StrNoCase(text)).hash, SCC_Hash(SYS_StrNoCase(other)).hash)
                << c << " at " << place;
            other.GetBuffer(17)[place] = static_cast<char>(c ^ 0x20);
            bool letter = (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
            ASSERT_EQ(SYS_StrNoCase(text) == SYS_StrNoCase(other), letter) << c << " at " << place;
            ASSERT_EQ(SCC_Hash(SYS_StrNoCase(text)).hash == SCC_Hash(SYS_StrNoCase(other)).hash,
                      letter)
                << c << " at " << place;
        }
    EXPECT_EQ(SCC_Hash("abc").hash, SCC_Hash(SYS_String("abc")).hash);
    EXPECT_NE(SCC_Hash("abc").hash, SCC_Hash("Abc").hash);
}

TEST(SCC_Hash, SpreadsOverSmallTables) {
    NameMap names;
    SCC_Map<int, int> numbers;
    int used[2] = {};
    std::vector<bool> taken[2] = {std::vector<bool>(1024), std::vector<bool>(1024)};
    for (int i = 0; i < 1024; ++i) {
        unsigned hashes[2] = {names.Hash(SYS_String("item") << i).hash,
                              numbers.Hash(i * 1024).hash};
        for (int kind = 0; kind < 2; ++kind) {
            auto bucket = taken[kind][hashes[kind] % 1024];
            used[kind] += !bucket;
            bucket = true;
        }
    }
    // Chance alone fills 63 in 100.
    EXPECT_GT(used[0], 600);
    EXPECT_GT(used[1], 600);
}
