#pragma once

#include "norel/Desktop/DateTime/ClockProvider.h"

namespace norel::Desktop::DateTime {

/// The system clock, rounded down to a second. Thread-safe.
class NOREL_DATETIME_EXPORT SystemClockProvider : public ClockProvider {
public:
    DateTime now() override;
};

} // namespace norel::Desktop::DateTime
