#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {

/// A command cannot do what it was asked for. `subject` is the file or address that the error is about; an
/// empty name is shown as a pair of quotation marks.
struct Failure : std::runtime_error {
    Failure(const std::string& nameOfSubject, const std::string& message)
        : std::runtime_error(message), subject(nameOfSubject.empty() ? "\"\"" : nameOfSubject) {}

    std::string subject;
};

/// Whether an error is std::bad_alloc or one of the storages' errors, which keep only the text of their
/// cause.
inline bool isOutOfMemory(const std::exception& error) {
    return std::string_view(error.what()) == std::bad_alloc().what();
}

/// Runs `work`; its exceptions become a Failure of `subject`.
template <typename Work>
auto about(const std::string& subject, const Work& work) {
    try {
        return work();
    } catch (const Failure&) {
        throw;
    } catch (const std::exception& error) {
        throw Failure(subject, isOutOfMemory(error) ? "out of memory" : error.what());
    }
}

} // namespace norel::Desktop::PayloadProfiles
