#pragma once

#include "norel/Desktop/DateTime/ClockProvider.h"

namespace norel::Desktop::Test {

/// A clock that always shows the same time and counts the calls.
struct FixedClockProvider : DateTime::ClockProvider {
    explicit FixedClockProvider(DateTime::DateTime fixedTime) : time(fixedTime) {}

    DateTime::DateTime now() override {
        ++calls;
        return time;
    }

    DateTime::DateTime time;
    int calls = 0;
};

} // namespace norel::Desktop::Test
