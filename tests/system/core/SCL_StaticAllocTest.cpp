#include "../AssertRecorder.h"

#include <SCL_StaticAlloc.h>

#include <cstdint>
#include <cstring>
#include <set>

using kel_ns::SCL::cStaticAlloc;

TEST(SCL_StaticAlloc, BlocksAreAlignedDistinctAndCounted) {
    std::size_t before = cStaticAlloc::GetLiveBlocks();
    struct Block {
        unsigned char* memory;
        std::size_t size;
    };
    std::vector<Block> blocks;
    for (std::size_t round = 0; round < 20; ++round)
        for (std::size_t size : {0u, 1u, 15u, 16u, 17u, 200u, 511u, 512u, 513u, 5000u}) {
            auto* memory = static_cast<unsigned char*>(cStaticAlloc::allocate(size));
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % 16, 0u);
            std::memset(memory, static_cast<int>(blocks.size() & 0xFF), size);
            blocks.push_back({memory, size});
        }
    EXPECT_EQ(cStaticAlloc::GetLiveBlocks(), before + blocks.size());
    for (std::size_t i = 0; i < blocks.size(); ++i)
        for (std::size_t j = 0; j < blocks[i].size; ++j)
            ASSERT_EQ(blocks[i].memory[j], i & 0xFF) << "block " << i << " was overwritten";
    for (const Block& block : blocks)
        cStaticAlloc::deallocate(block.memory, block.size);
    EXPECT_EQ(cStaticAlloc::GetLiveBlocks(), before);
}

#if SCL_STATIC_ALLOC_POOLED
TEST(SCL_StaticAlloc, UsesGivenBackBlocksAgain) {
    void* first = cStaticAlloc::allocate(40);
    cStaticAlloc::deallocate(first, 40);
    EXPECT_EQ(cStaticAlloc::allocate(48), first);
    cStaticAlloc::deallocate(first, 48);
    std::size_t bytes = cStaticAlloc::GetPoolBytes();
    for (int i = 0; i < 100000; ++i)
        cStaticAlloc::deallocate(cStaticAlloc::allocate(48), 48);
    EXPECT_EQ(cStaticAlloc::GetPoolBytes(), bytes);
}
#endif
