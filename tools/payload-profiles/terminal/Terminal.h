#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The standard streams of the process and the terminals behind them.
namespace norel::Desktop::PayloadProfiles::Terminal {

/// Makes writing to a closed pipe, or beyond the limit on a file's size, fail instead of ending the process
/// with a signal. Prevents files from getting the descriptor of a closed standard stream. Must be called
/// before anything else.
void prepareStandardStreams();

/// The width in columns of the terminal that shows the output; empty when the output is no terminal.
std::optional<std::size_t> getOutputWidth();

/// Whether the output is a terminal and the user has not turned colour off (NO_COLOR, TERM=dumb).
bool takesColour();

/// The width in columns of the terminal that shows the messages; empty when they go to no terminal.
std::optional<std::size_t> getMessageWidth();

/// Writes all of the text to the standard output. Throws std::system_error.
void writeOutput(std::string_view text);

/// Closes the output. Throws std::system_error for a write error that is reported only now.
void closeOutput();

/// Writes the text to the standard error; a write error is ignored.
void writeMessage(std::string_view text) noexcept;

/// Reads the standard input to its end. Throws std::system_error.
std::string readInput();

} // namespace norel::Desktop::PayloadProfiles::Terminal
