#pragma once

#include <chrono>

/// Instants, their ISO 8601 text, and clocks.
namespace norel::Desktop::DateTime {

/// An instant in UTC with a resolution of a nanosecond; a plain value. The default is the Unix epoch,
/// 1970-01-01T00:00:00 UTC. Different objects may be used in different threads.
class DateTime {
public:
    DateTime() = default;

    /// The instant `newFraction` after `newSeconds`; the fraction must be in [0 s, 1 s), which is not
    /// checked.
    explicit DateTime(std::chrono::sys_seconds newSeconds, std::chrono::nanoseconds newFraction = {})
        : seconds(newSeconds), fraction(newFraction) {}

    /// The whole seconds since the epoch, rounded down.
    std::chrono::sys_seconds getSeconds() const { return seconds; }

    /// The time from the whole seconds to the instant, in [0 s, 1 s).
    std::chrono::nanoseconds getFraction() const { return fraction; }

    bool operator==(const DateTime&) const = default;

private:
    std::chrono::sys_seconds seconds{};
    std::chrono::nanoseconds fraction{};
};

} // namespace norel::Desktop::DateTime
