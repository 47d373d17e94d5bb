#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {

/// A text of foreign origin on one line, with nothing in it that steers a terminal: control characters, marks
/// that turn the direction of writing or cannot be seen, and bytes that are not UTF-8 become "\n", "\u001b"
/// or "\xff".
std::string printable(std::string_view text);

/// A JSON text of the same value and layout with nothing in it that steers a terminal.
std::string printableJson(std::string_view text);

/// `text`, printable, between quotation marks.
std::string inQuotes(std::string_view text);

/// The columns that a printable text takes on a terminal.
std::size_t getDisplayWidth(std::string_view text);

/// The text cut to so many columns, with "…" for what was cut off.
std::string shortened(const std::string& text, std::size_t width);

/// "1 profile", "3 profiles".
std::string counted(std::size_t number, const std::string& noun);

} // namespace norel::Desktop::PayloadProfiles
