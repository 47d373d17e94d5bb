#pragma once

#include <cstddef>

namespace norel::Benchmark {

/// What the heap was used for since the counter was made. The program's operator new counts, and only while
/// there is a counter; there may be one at a time, and only one thread may allocate.
class HeapCounter {
public:
    HeapCounter();
    HeapCounter(const HeapCounter&) = delete;
    HeapCounter& operator=(const HeapCounter&) = delete;
    ~HeapCounter();

    std::size_t allocations() const;
    std::size_t peakBytes() const; ///< the most that was held at once, above what was held at first
};

} // namespace norel::Benchmark
