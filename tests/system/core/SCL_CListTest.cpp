#include "../AssertRecorder.h"

#include <SCL_CList.h>
#include <SCL_StaticAlloc.h>
#include <SYS_String.h>

#include <stdexcept>

using namespace kel_ns;

namespace {

std::string textOf(const SCL_CList<SYS_String>& list) {
    std::string text;
    for (const SYS_String& element : list)
        text += element.View();
    return text;
}

struct Thrower {
    explicit Thrower(bool fail) {
        if (fail)
            throw std::runtime_error("no");
    }
};

} // namespace

TEST(SCL_CList, KeepsOrderAndAddresses) {
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    {
        SCL_CList<SYS_String> list;
        SYS_String* b = list.Emplace("b");
        SYS_String* d = list.Emplace("d");
        SYS_String* a = list.EmplaceFront("a");
        SYS_String* c = list.EmplaceBefore(d, "c");
        EXPECT_EQ(textOf(list), "abcd");
        EXPECT_EQ(list.GetNext(b), c);
        EXPECT_EQ(list.GetPrevious(a), nullptr);
        EXPECT_EQ(list.GetNext(d), nullptr);
        list.Remove(b);
        EXPECT_EQ(list.GetNext(a), c);
        EXPECT_EQ(textOf(list), "acd");
        list.Remove(a);
        list.Remove(d);
        EXPECT_EQ(list.GetFirst(), c);
        EXPECT_EQ(list.GetLast(), c);
        list.Remove(c);
        EXPECT_EQ(list.GetFirst(), nullptr);
        EXPECT_EQ(list.begin(), list.end());
        list.Emplace("left for the destructor");
        EXPECT_EQ(list.GetCount(), 1);
    }
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}

TEST(SCL_CList, SurvivesAnElementThatCannotBeMade) {
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    SCL_CList<Thrower> list;
    list.Emplace(false);
    EXPECT_THROW(list.Emplace(true), std::runtime_error);
    EXPECT_EQ(list.GetCount(), 1);
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks + 1);
}
