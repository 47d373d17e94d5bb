#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/DateTime/Export.h"

namespace norel::Desktop::DateTime {

/// Where the library takes the current time from; implemented by the application. The library asks it from
/// the thread that calls the library.
class NOREL_DATETIME_EXPORT ClockProvider {
public:
    virtual ~ClockProvider();

    /// The current time.
    virtual DateTime now() = 0;

protected:
    ClockProvider() = default;
    ClockProvider(const ClockProvider&) = default;
    ClockProvider& operator=(const ClockProvider&) = default;
};

} // namespace norel::Desktop::DateTime
