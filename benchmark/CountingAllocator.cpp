#include "CountingAllocator.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

bool isCounting = false; // off while times are measured
std::size_t allocations = 0;
std::ptrdiff_t heldBytes = 0;
std::ptrdiff_t peakBytes = 0;

} // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(std::max<std::size_t>(size, 1));
    if (!memory)
        throw std::bad_alloc();
    if (isCounting) {
        ++allocations;
        heldBytes += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
        peakBytes = std::max(peakBytes, heldBytes);
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    if (isCounting)
        heldBytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }

namespace norel::Benchmark {

HeapCounter::HeapCounter() {
    ::allocations = 0;
    heldBytes = ::peakBytes = 0;
    isCounting = true;
}

HeapCounter::~HeapCounter() { isCounting = false; }

std::size_t HeapCounter::allocations() const { return ::allocations; }

std::size_t HeapCounter::peakBytes() const { return static_cast<std::size_t>(::peakBytes); }

} // namespace norel::Benchmark
