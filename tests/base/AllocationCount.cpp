#include "base/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t allocationCount = 0;
}

void* operator new(std::size_t size) {
    ++allocationCount;
    if (void* block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace dorvik {

std::size_t AllocationCount() {
    return allocationCount;
}

}  // namespace dorvik
