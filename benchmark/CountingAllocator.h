#pragma once

#include <cstddef>

namespace norel::Benchmark {

/// What the heap was used for since the counter was made. The program's operator new counts for all counters;
/// only one thread may allocate.
class HeapCounter {
public:
    HeapCounter();

    std::size_t allocations() const;
    std::size_t peakBytes() const; ///< the most that was held at once, above what was held at first

private:
    std::size_t allocationsBefore;
    std::size_t bytesBefore;
};

} // namespace norel::Benchmark
