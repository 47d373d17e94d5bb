#include "Fuzzing.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"

using norel::Desktop::DateTime::DateTimeConversion;
using norel::Fuzzing::require;

/// A date-time that was read is written as a text that reads back to an equal one.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    norel::Desktop::DateTime::DateTime read;
    try {
        read = DateTimeConversion::fromIso8601(norel::Fuzzing::toText(data, size));
    } catch (const DateTimeConversion::InvalidArgumentError&) {
        return 0;
    }
    const std::string written = DateTimeConversion::toIso8601(read);
    require(DateTimeConversion::fromIso8601(written) == read, "a written date reads back");
    return 0;
}
