#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The process's standard streams and what stands behind them. All that the application needs of POSIX.
namespace norel::Desktop::PayloadProfiles::Terminal {

/// Makes a closed pipe a failed write instead of a signal, and keeps the place of a standard stream that is
/// closed from a file opened later. Called before anything else.
void prepareStandardStreams();

/// The columns of the terminal that shows the output; empty when the output goes elsewhere.
std::optional<std::size_t> getOutputWidth();

/// Whether the output goes to a terminal whose user has not refused colour (NO_COLOR, TERM=dumb).
bool takesColour();

/// The columns of the terminal that shows the messages; empty when they go elsewhere.
std::optional<std::size_t> getMessageWidth();

/// Writes all of the text to the standard output. Throws std::system_error.
void writeOutput(std::string_view text);

/// Ends the output; throws std::system_error for what only then turns out not to be written.
void closeOutput();

/// Writes to the standard error as much of the text as can be written.
void writeMessage(std::string_view text) noexcept;

/// The standard input up to its end. Throws std::system_error.
std::string readInput();

} // namespace norel::Desktop::PayloadProfiles::Terminal
