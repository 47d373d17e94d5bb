#pragma once

#include <cstddef>

namespace norel::Benchmark {

/// Counts the use of the heap while it exists, through the program's operator new. There may be one counter
/// at a time, and while it exists only one thread may allocate.
class HeapCounter {
public:
    HeapCounter();
    HeapCounter(const HeapCounter&) = delete;
    HeapCounter& operator=(const HeapCounter&) = delete;
    ~HeapCounter();

    std::size_t allocations() const;
    std::size_t peakBytes() const; ///< the most held at once, beyond what was held at the beginning
};

} // namespace norel::Benchmark
