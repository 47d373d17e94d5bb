#pragma once

#include "norel/Desktop/DateTime/ClockProvider.h"

namespace norel::Desktop::DateTime {

/// The system's clock, to the whole second. Several threads may share one.
class NOREL_DATETIME_EXPORT SystemClockProvider : public ClockProvider {
public:
    DateTime now() override;
};

} // namespace norel::Desktop::DateTime
