#pragma once

#include "norel/Desktop/DateTime/ClockProvider.h"

namespace norel::Desktop::Test {

/// A clock that always shows the same time and counts how often it was asked.
struct FixedClockProvider : DateTime::ClockProvider {
    explicit FixedClockProvider(DateTime::DateTime time) : time(time) {}

    DateTime::DateTime now() override {
        ++calls;
        return time;
    }

    DateTime::DateTime time;
    int calls = 0;
};

} // namespace norel::Desktop::Test
