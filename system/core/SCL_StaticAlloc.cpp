#include <SCL_StaticAlloc.h>

#include <new>

namespace kel_ns::SCL {

// Plain data without destructors: blocks may come back while statics of others are torn down.
cStaticAlloc::FreeCell* cStaticAlloc::s_Free[cStaticAlloc::ClassCount];
std::size_t cStaticAlloc::s_LiveBlocks = 0;
std::size_t cStaticAlloc::s_PoolBytes = 0;

namespace {

constexpr std::size_t ChunkBytes = 64 * 1024;

// The part of the newest chunk that no size class has taken yet.
char* s_ChunkPosition = nullptr;
char* s_ChunkEnd = nullptr;

} // namespace

// Takes a run of cells at once, so that cells made after one another lie beside one another.
void* cStaticAlloc::refill(std::size_t index) {
    const std::size_t cellSize = index * Granularity;
    constexpr std::size_t CellsPerRun = 16;
    if (static_cast<std::size_t>(s_ChunkEnd - s_ChunkPosition) < cellSize) {
        char* chunk = nullptr;
        try {
            chunk = static_cast<char*>(::operator new(ChunkBytes));
        } catch (...) {
            --s_LiveBlocks;
            throw;
        }
        s_ChunkPosition = chunk;
        s_ChunkEnd = chunk + ChunkBytes;
        s_PoolBytes += ChunkBytes;
    }
    char* result = s_ChunkPosition;
    s_ChunkPosition += cellSize;

    FreeCell** tail = &s_Free[index];
    for (std::size_t i = 1; i < CellsPerRun; ++i) {
        if (static_cast<std::size_t>(s_ChunkEnd - s_ChunkPosition) < cellSize)
            break;
        FreeCell* cell = ::new (s_ChunkPosition) FreeCell{nullptr};
        s_ChunkPosition += cellSize;
        *tail = cell;
        tail = &cell->next;
    }
    return result;
}

void* cStaticAlloc::allocateLarge(std::size_t size) {
    try {
        return ::operator new(size);
    } catch (...) {
        --s_LiveBlocks;
        throw;
    }
}

void cStaticAlloc::deallocateLarge(void* block) { ::operator delete(block); }

} // namespace kel_ns::SCL
