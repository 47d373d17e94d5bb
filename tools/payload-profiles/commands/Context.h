#pragma once

#include "documents/DocumentAccess.h"
#include "norel/Desktop/DateTime/SystemClockProvider.h"
#include "terminal/Console.h"

#include <memory>

namespace norel::Desktop::PayloadProfiles {

enum class ExitCode { Success = 0, FailuresFound = 1, Error = 2 };

/// What every command works with.
struct Context {
    Console console;
    ExitCode exitCode = ExitCode::Success; ///< of a command that ends without an exception
    DocumentAccess documents;
    std::shared_ptr<DateTime::ClockProvider> clock = std::make_shared<DateTime::SystemClockProvider>();
};

} // namespace norel::Desktop::PayloadProfiles
