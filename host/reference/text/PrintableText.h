#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Makes untrusted text safe for messages and terminals. Internal to the reference host and the tools;
/// thread-safe.
namespace norel::Desktop::Text {

struct Character {
    char32_t code = 0;
    std::size_t length = 0; ///< in bytes; 0 for a byte that begins no UTF-8 character
};

/// The UTF-8 character at the beginning of `text`, which must not be empty.
Character decodeCharacter(std::string_view text);

/// `text` on one line with every control, every character that is invisible or changes the direction of
/// writing and every byte that is not UTF-8 escaped: "\n", "\r", "\t", "\u001b" as in JSON (a surrogate pair
/// beyond U+FFFF), and "\xff" for a byte. Joiners and variation selectors are kept: words and emoji need
/// them.
std::string printableText(std::string_view text);

/// The same for the first `maximumBytes` bytes of `text`, rounded down to whole characters; "..." stands for
/// the rest.
std::string printableText(std::string_view text, std::size_t maximumBytes);

/// A JSON text with the same value and layout: as printableText, with line feeds kept.
std::string printableJson(std::string_view text);

/// The number of terminal columns that a printable text takes.
std::size_t getDisplayWidth(std::string_view text);

/// `text`, which is printable, cut to `width` columns; "…" in the last column stands for what was cut off.
std::string shortened(const std::string& text, std::size_t width);

} // namespace norel::Desktop::Text
