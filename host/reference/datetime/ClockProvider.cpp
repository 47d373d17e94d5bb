#include "norel/Desktop/DateTime/ClockProvider.h"

#include "norel/Desktop/DateTime/SystemClockProvider.h"

namespace norel::Desktop::DateTime {

ClockProvider::~ClockProvider() = default;

DateTime SystemClockProvider::now() {
    using std::chrono::floor, std::chrono::seconds, std::chrono::system_clock;
    return DateTime(floor<seconds>(system_clock::now()));
}

} // namespace norel::Desktop::DateTime
