// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace vorpel::bench {

namespace {

bool counts = false;
long allocationCount = 0;
long byteCount = 0;

void* take(std::size_t size, std::size_t alignment) {
    if (counts) {
        ++allocationCount;
        byteCount += static_cast<long>(size);
    }
    const std::size_t rounded = (size + alignment - 1) / alignment * alignment;
    void* const memory = std::aligned_alloc(alignment, rounded > 0 ? rounded : alignment);
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

AllocationCounter::AllocationCounter() {
    allocationCount = 0;
    byteCount = 0;
    counts = true;
}

AllocationCounter::~AllocationCounter() {
    counts = false;
}

long AllocationCounter::allocations() {
    return allocationCount;
}

long AllocationCounter::bytes() {
    return byteCount;
}

}  // namespace vorpel::bench

// The other forms of the operators end up in these.
void* operator new(std::size_t size) {
    return vorpel::bench::take(size, alignof(std::max_align_t));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return vorpel::bench::take(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
