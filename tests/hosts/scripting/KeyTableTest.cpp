// The table behind the dictionary, beside a plain list, and with items that come back to it.

#include "../../../hosts/scripting/KeyTable.h"
#include "system/platform/TestObjects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using scripting::Key;
using scripting::KeyTable;

Key keyOf(const VARIANT& value, bool ignoreCase = false) {
    Key key;
    EXPECT_TRUE(Key::Make(value, ignoreCase, key));
    return key;
}

TEST(KeyTable, AgreesWithAListOfPairs) {
    std::mt19937 random(7);
    KeyTable table;
    std::vector<std::pair<LONG, LONG>> list;
    for (int step = 0; step < 60000; ++step) {
        // Few keys first, so that they come and go often; then many.
        const LONG number = static_cast<LONG>(random() % (step < 30000 ? 40 : 2000)) * 4096;
        const COleVariant value(number);
        const Key key = keyOf(value);
        const auto found = std::find_if(list.begin(), list.end(),
                                        [=](const auto& pair) { return pair.first == number; });
        KeyTable::Entry* entry = table.Find(key);
        ASSERT_EQ(entry != nullptr, found != list.end()) << step;
        const unsigned action = random() % 10;
        if (!entry) {
            table.Add(value).item = COleVariant(static_cast<LONG>(step));
            list.emplace_back(number, step);
        } else if (action < 5) {
            ASSERT_EQ(entry->item.lVal, found->second);
            table.Remove(*entry);
            list.erase(found);
        } else if (action < 9) {
            const LONG other = -number - 1 - static_cast<LONG>(random() % 3);
            const COleVariant renamed(other);
            if (table.Find(keyOf(renamed)))
                continue;
            table.Rename(key, renamed);
            found->first = other;
        }
        ASSERT_EQ(table.GetCount(), list.size());
        if (step % 5000 == 0) {
            table.Clear();
            list.clear();
        }
    }
    const std::vector<COleVariant> keys = table.GetKeys();
    const std::vector<COleVariant> items = table.GetItems();
    ASSERT_EQ(keys.size(), list.size());
    for (std::size_t i = 0; i < list.size(); ++i)
        EXPECT_EQ(std::pair(keys[i].lVal, items[i].lVal), list[i]) << i;
}

TEST(KeyTable, ComparesKeysByWhatTheyAre) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto isSame = [](const COleVariant& a, const COleVariant& b, bool ignoreCase = false) {
        return keyOf(a, ignoreCase).IsSameAs(keyOf(b, ignoreCase), ignoreCase);
    };
    EXPECT_TRUE(isSame(COleVariant(static_cast<SHORT>(3)), COleVariant(3.0)));
    EXPECT_TRUE(isSame(COleVariant(0.0), COleVariant(-0.0)));
    EXPECT_TRUE(isSame(COleVariant(nan), COleVariant(-nan)));
    EXPECT_TRUE(isSame(COleVariant("\xC3\xBC"
                                   "Ab"),
                       COleVariant("\xC3\xBC"
                                   "aB"),
                       true));
    EXPECT_FALSE(isSame(COleVariant("Ab"), COleVariant("aB")));
    EXPECT_FALSE(isSame(COleVariant(), COleVariant("")));
    EXPECT_FALSE(isSame(COleVariant(1e300), COleVariant(2e300)));
    EXPECT_FALSE(isSame(COleVariant(LONGLONG{1} << 53), COleVariant((LONGLONG{1} << 53) + 1)));
}

class KeyTableObjects : public ObjectTest {};

TEST_F(KeyTableObjects, MayUseTheTableWhenTheyEnd) {
    KeyTable table;
    const auto put = [&](const char* key, bool makesMore) {
        auto* object = new CountedObject;
        table.Add(COleVariant(key)).item = COleVariant(static_cast<IDispatch*>(object));
        object->Release();
        if (makesMore)
            object->onRelease = [&table] {
                table.Add(COleVariant(static_cast<LONG>(table.GetCount()) + 100));
            };
    };
    put("a", true);
    put("b", false);
    put("c", true);
    table.Remove(*table.Find(keyOf(COleVariant("a"))));
    EXPECT_EQ(table.GetCount(), 3u);
    EXPECT_TRUE(table.Find(keyOf(COleVariant("b"))));
    table.Clear();
    EXPECT_EQ(table.GetCount(), 1u) << "what the end of \"c\" has added";
}

} // namespace
