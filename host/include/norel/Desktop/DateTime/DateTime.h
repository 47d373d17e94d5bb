#pragma once

#include <chrono>

namespace norel::Desktop::DateTime {

/// An instant in UTC, to the nanosecond; a plain value. A default-constructed one is the Unix epoch,
/// 1970-01-01T00:00:00 UTC. Distinct objects may be used from distinct threads.
class DateTime {
public:
    DateTime() = default;

    /// The instant `fraction` after `seconds`; `fraction` lies in [0 s, 1 s).
    explicit DateTime(std::chrono::sys_seconds seconds, std::chrono::nanoseconds fraction = {})
        : seconds(seconds), fraction(fraction) {}

    /// The whole seconds since the epoch, rounded towards the past.
    std::chrono::sys_seconds getSeconds() const { return seconds; }

    /// What the instant adds to the whole seconds, in [0 s, 1 s).
    std::chrono::nanoseconds getFraction() const { return fraction; }

    bool operator==(const DateTime&) const = default;

private:
    std::chrono::sys_seconds seconds{};
    std::chrono::nanoseconds fraction{};
};

} // namespace norel::Desktop::DateTime
