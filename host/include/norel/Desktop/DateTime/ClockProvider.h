#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/DateTime/Export.h"

namespace norel::Desktop::DateTime {

/// The source of the current time; implemented by the application. The library calls it in the thread in
/// which the library itself is called.
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
