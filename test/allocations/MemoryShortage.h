#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <gtest/gtest.h>
#include <new>

namespace norel::Desktop::Test {

/// The memory in use, in bytes with the overhead of common allocators.
struct Heap {
    std::size_t used = 0;
    std::size_t peak = 0;
};
extern Heap heap;

/// Makes one allocation of the program fail, or all from a given one on. For single-threaded tests.
class MemoryShortage {
public:
    /// Allocation number `firstFailure`, counted from 0, fails, and with `failsFromThere` all later ones do
    /// too.
    MemoryShortage(std::size_t firstFailure, bool failsFromThere)
        : first(firstFailure), isLasting(failsFromThere) {}

    /// Runs `operation` short of memory and returns whether it succeeded; otherwise it threw std::bad_alloc,
    /// or the test has failed.
    bool allows(const std::function<void()>& operation);

    /// The number of allocations requested.
    std::size_t allocations() const { return count; }

    /// Counts an allocation and returns whether it may succeed.
    bool allocate() { return isLasting ? count++ < first : count++ != first; }

private:
    const std::size_t first;
    const bool isLasting;
    std::size_t count = 0;
};

/// Runs `scenario` once for each of its allocations, which fails alone, and once more for each, which fails
/// together with all later ones. Of more than a thousand allocations only a sample is tried.
template <typename Scenario>
void runWithEachAllocationFailing(const Scenario& scenario) {
    constexpr std::size_t SAMPLES = 1000;
    MemoryShortage none(static_cast<std::size_t>(-1), false);
    scenario(none);
    ASSERT_GT(none.allocations(), 0U);
    const std::size_t step = none.allocations() / SAMPLES + 1;
    for (const bool isLasting : {false, true})
        for (std::size_t first = 0; first < none.allocations() && !testing::Test::HasFailure();
             first += step) {
            SCOPED_TRACE((isLasting ? "all allocations from number " : "allocation number ") +
                         std::to_string(first));
            MemoryShortage shortage(first, isLasting);
            scenario(shortage);
        }
}

} // namespace norel::Desktop::Test
