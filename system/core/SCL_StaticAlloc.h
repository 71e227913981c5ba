#pragma once

#include <SCL_Types.h>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define SCL_STATIC_ALLOC_POOLED 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SCL_STATIC_ALLOC_POOLED 0
#endif
#endif
#ifndef SCL_STATIC_ALLOC_POOLED
#define SCL_STATIC_ALLOC_POOLED 1
#endif

namespace kel_ns::SCL {

/// The process-wide allocator of small blocks. Blocks of up to MaxPooled bytes come from free
/// lists, one for each multiple of 16 bytes, and go back there; their memory stays with the
/// process. Larger ones are handed to operator new. All blocks are aligned to 16 bytes. Exhausted
/// memory is std::bad_alloc. Not for use by several threads.
///
/// Under the address sanitizer nothing is pooled, so that misuse of a block is found.
class KEL_MCR_API cStaticAlloc {
public:
    static constexpr std::size_t Granularity = 16;
    static constexpr std::size_t MaxPooled = 512;

    /// The size that allocate() would really reserve: a container may use the slack.
    static constexpr std::size_t GoodSize(std::size_t size) {
        return size == 0 ? Granularity : (size + Granularity - 1) & ~(Granularity - 1);
    }

    /// `hint` is taken for the sake of allocator conventions and not used.
    static void* allocate(std::size_t size, const void* hint = nullptr) {
        static_cast<void>(hint);
        ++s_LiveBlocks;
        if (SCL_STATIC_ALLOC_POOLED && size <= MaxPooled) {
            std::size_t index = classOf(size);
            if (FreeCell* cell = s_Free[index]) {
                s_Free[index] = cell->next;
                return cell;
            }
            return refill(index);
        }
        return allocateLarge(size);
    }

    /// `size` must be the size the block was asked for. Null is allowed.
    static void deallocate(void* block, std::size_t size) {
        if (!block)
            return;
        --s_LiveBlocks;
        if (SCL_STATIC_ALLOC_POOLED && size <= MaxPooled) {
            FreeCell* cell = static_cast<FreeCell*>(block);
            std::size_t index = classOf(size);
            cell->next = s_Free[index];
            s_Free[index] = cell;
            return;
        }
        deallocateLarge(block);
    }

    /// Blocks handed out and not yet given back: what tests compare before and after.
    static std::size_t GetLiveBlocks() { return s_LiveBlocks; }

    /// Memory taken from the system for the pools.
    static std::size_t GetPoolBytes() { return s_PoolBytes; }

private:
    struct FreeCell {
        FreeCell* next;
    };

    static constexpr std::size_t ClassCount = MaxPooled / Granularity + 1;

    static std::size_t classOf(std::size_t size) {
        return size == 0 ? 1 : (size + Granularity - 1) / Granularity;
    }

    static void* refill(std::size_t index);
    static void* allocateLarge(std::size_t size);
    static void deallocateLarge(void* block);

    static FreeCell* s_Free[ClassCount];
    static std::size_t s_LiveBlocks;
    static std::size_t s_PoolBytes;
};

} // namespace kel_ns::SCL
