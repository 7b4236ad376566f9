#include "workstation/view/LiveBytes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

/// In front of each block, as large as blocks are aligned.
constexpr std::size_t kHead = alignof(std::max_align_t);

}  // namespace

void* operator new(std::size_t size) {
    auto* const block = static_cast<char*>(std::malloc(size + kHead));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(block, &size, sizeof size);
    liveBytes += size;
    peakBytes = std::max(peakBytes, liveBytes);
    return block + kHead;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) {
        return;
    }
    auto* const block = static_cast<char*>(memory) - kHead;
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    liveBytes -= size;
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

// Buffers for sorting are requested by this one.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    operator delete(memory);
}

namespace dorvik::test {

std::size_t LiveBytes() {
    return liveBytes;
}

std::size_t PeakBytes() {
    return peakBytes;
}

void ResetPeak() {
    peakBytes = liveBytes;
}

}  // namespace dorvik::test
