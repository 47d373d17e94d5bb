#pragma once

#include "norel/Desktop/DateTime/SystemClockProvider.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "norel/Desktop/Storage/DurableTextFileStorage.h"
#include "terminal/Console.h"

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

namespace norel::Desktop::PayloadProfiles {

using namespace Domain::Payloads;

enum class ExitCode { Success = 0, FailuresFound = 1, Trouble = 2 };

/// What a command has to say and to work with.
struct Context {
    Console console;
    ExitCode exitCode = ExitCode::Success; ///< of a command that ends without an exception

    std::shared_ptr<Storage::TextFileStorage> textFiles = std::make_shared<Storage::DurableTextFileStorage>();
    std::shared_ptr<ProfileListSerializer> serializer = std::make_shared<JsonProfileListSerializer>();
    std::shared_ptr<DateTime::ClockProvider> clock = std::make_shared<DateTime::SystemClockProvider>();
};

/// A command cannot do what it was asked for; `subject` is the file or address that is to blame, in quotes
/// when its name is empty.
struct Failure : std::runtime_error {
    Failure(const std::string& subject, const std::string& message)
        : std::runtime_error(message), subject(subject.empty() ? "\"\"" : subject) {}

    std::string subject;
};

/// Runs `work`; what it throws leaves as a Failure of `subject`.
template <typename Work>
auto about(const std::string& subject, const Work& work) {
    try {
        return work();
    } catch (const Failure&) {
        throw;
    } catch (const std::exception& error) {
        throw Failure(subject, error.what());
    }
}

} // namespace norel::Desktop::PayloadProfiles
