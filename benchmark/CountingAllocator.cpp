#include "CountingAllocator.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t allocations = 0;
std::size_t heldBytes = 0;
std::size_t peakBytes = 0;

} // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(std::max<std::size_t>(size, 1));
    if (!memory)
        throw std::bad_alloc();
    ++allocations;
    heldBytes += malloc_usable_size(memory);
    peakBytes = std::max(peakBytes, heldBytes);
    return memory;
}

void operator delete(void* memory) noexcept {
    heldBytes -= memory ? malloc_usable_size(memory) : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }

namespace norel::Benchmark {

HeapCounter::HeapCounter() : allocationsBefore(::allocations), bytesBefore(heldBytes) {
    ::peakBytes = heldBytes;
}

std::size_t HeapCounter::allocations() const { return ::allocations - allocationsBefore; }

std::size_t HeapCounter::peakBytes() const { return ::peakBytes - bytesBefore; }

} // namespace norel::Benchmark
