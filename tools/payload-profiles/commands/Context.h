#pragma once

#include "documents/DocumentAccess.h"
#include "norel/Desktop/DateTime/SystemClockProvider.h"
#include "terminal/Console.h"

#include <memory>
#include <set>
#include <string>

namespace norel::Desktop::PayloadProfiles {

enum class ExitCode { Success = 0, FailuresFound = 1, DifferencesFound = 1, Error = 2 };

/// What every command works with.
struct Context {
    Context() = default;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    Console console;
    ExitCode exitCode = ExitCode::Success; ///< of a command that ends without an exception
    DocumentAccess documents{
        std::make_shared<Storage::DurableTextFileStorage>([this](const std::string& notice) {
            if (notices.insert(notice).second) // a file and its backup lose the same
                console.showMessage("", notice);
        })};
    std::shared_ptr<DateTime::ClockProvider> clock = std::make_shared<DateTime::SystemClockProvider>();
    std::set<std::string> notices; ///< that were shown
};

} // namespace norel::Desktop::PayloadProfiles
