#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <gtest/gtest.h>
#include <new>

namespace norel::Desktop::Test {

/// Makes one allocation of the program fail, or all from one on. One thread only.
class MemoryShortage {
public:
    /// The allocation number `firstFailure`, counted from 0, fails; and all after it when `failsFromThere`.
    MemoryShortage(std::size_t firstFailure, bool failsFromThere)
        : first(firstFailure), isLasting(failsFromThere) {}

    /// Runs `operation` short of memory and returns whether it succeeded; otherwise it threw std::bad_alloc,
    /// or the test has failed.
    bool allows(const std::function<void()>& operation);

    /// How many allocations were asked for.
    std::size_t allocations() const { return count; }

    /// Counts one more allocation; whether it succeeds.
    bool allocate() { return isLasting ? count++ < first : count++ != first; }

private:
    const std::size_t first;
    const bool isLasting;
    std::size_t count = 0;
};

/// Runs `scenario` with every allocation of it failing in turn, alone and with all that follow, until it asks
/// for less. Of more than a thousand allocations a sample fails.
template <typename Scenario>
void expectWholeWhateverAllocationFails(const Scenario& scenario) {
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
