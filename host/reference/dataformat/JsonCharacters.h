#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace norel::Desktop::DataFormat {

inline constexpr std::uint64_t EVERY_BYTE = 0x0101010101010101U; // times n: the byte n eight times

inline std::uint64_t loadEightBytes(const char* position) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, position, sizeof bytes);
    return bytes;
}

/// The first byte that is not a space: indentation is half of a document.
inline const char* skipSpaces(const char* position, const char* end) {
    while (end - position >= 8 && loadEightBytes(position) == EVERY_BYTE * ' ')
        position += 8;
    while (position != end && *position == ' ')
        ++position;
    return position;
}

/// Whether a byte of a string is a character that JSON writes as it is: ASCII, no control character, no quote
/// and no backslash.
inline bool isPlain(char character) {
    return character >= ' ' && character != '"' && character != '\\' &&
           static_cast<signed char>(character) > 0;
}

/// 0 when eight bytes are plain. Otherwise, on a little-endian machine, the lowest bit that is set is the
/// highest of the first byte that is not plain.
inline std::uint64_t findNotPlain(std::uint64_t bytes) {
    // The highest bit of the lowest byte that is zero; higher bytes may be wrong.
    const auto zeroBytes = [](std::uint64_t value) { return (value - EVERY_BYTE) & ~value; };
    return (zeroBytes(bytes ^ EVERY_BYTE * '"') | zeroBytes(bytes ^ EVERY_BYTE * '\\') |
            (bytes - EVERY_BYTE * ' ') | bytes) &
           EVERY_BYTE * 0x80;
}

/// The first byte that is not plain.
inline const char* skipPlain(const char* position, const char* end) {
    if constexpr (std::endian::native == std::endian::little)
        for (; end - position >= 8; position += 8)
            if (const std::uint64_t found = findNotPlain(loadEightBytes(position)); found != 0)
                return position + std::countr_zero(found) / 8;
    while (position != end && isPlain(*position))
        ++position;
    return position;
}

/// The end of the UTF-8 character of several bytes at the position; null when there is none.
inline const char* skipMultibyteCharacter(const char* position, const char* end) {
    const auto at = [&](std::ptrdiff_t i) {
        return i < end - position ? static_cast<unsigned char>(position[i]) : static_cast<unsigned char>(0);
    };
    const auto continues = [&](std::ptrdiff_t i) { return (at(i) & 0xC0U) == 0x80; };
    const unsigned char first = at(0);
    const unsigned char second = at(1);
    if (!continues(1) || first < 0xC2)
        return nullptr;
    if (first < 0xE0)
        return position + 2;
    if (!continues(2))
        return nullptr;
    if (first < 0xF0) // neither overlong nor a surrogate
        return (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ? nullptr : position + 3;
    if (!continues(3) || first > 0xF4 || (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F))
        return nullptr;
    return position + 4;
}

} // namespace norel::Desktop::DataFormat
