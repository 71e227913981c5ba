#include "CountAllocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t s_Count = 0;

} // namespace

std::size_t GetAllocationCount() { return s_Count; }

void* operator new(std::size_t size) {
    ++s_Count;
    if (void* block = std::malloc(size > 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }
