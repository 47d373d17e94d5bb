#pragma once

#include <chrono>

namespace norel::Desktop::DateTime {

struct DateTime {
    DateTime() = default;
    explicit DateTime(std::chrono::sys_seconds seconds, std::chrono::nanoseconds fraction = {})
        : instant(seconds + fraction) {}
    bool operator==(const DateTime&) const = default;

    std::chrono::sys_time<std::chrono::nanoseconds> instant{};
};

} // namespace norel::Desktop::DateTime
