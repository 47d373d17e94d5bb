#pragma once

#include "norel/Desktop/DateTime/DateTime.h"

namespace norel::Desktop::DateTime {

struct ClockProvider {
    virtual ~ClockProvider() = default;
    virtual DateTime now() = 0;
};

} // namespace norel::Desktop::DateTime
