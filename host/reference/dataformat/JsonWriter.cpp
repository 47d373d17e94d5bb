#include "norel/Desktop/DataFormat/JsonWriter.h"

#include "JsonCharacters.h"
#include "JsonErrors.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace norel::Desktop::DataFormat {

namespace {

constexpr int MAXIMUM_INDENTATION = 512;
constexpr std::size_t MAXIMUM_NUMBER_LENGTH = 64;

/// The escape of a character that is not plain.
std::string escapeOf(char character) {
    constexpr std::string_view escaped = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    if (const auto index = escaped.find(character); index != std::string_view::npos)
        return {'\\', letters[index]};
    const auto code = static_cast<unsigned char>(character);
    return {'\\', 'u', '0', '0', hexadecimal[code >> 4U], hexadecimal[code & 0xFU]};
}

/// Writes the number into the room that begins at `to`; returns its end. The digits are those of the JSON
/// library, which are not always the shortest that read back to the number: std::to_chars gives others for
/// one number in 700, 0.01207 among them, and documents must not change.
char* writeFloatingPoint(char* to, double number) {
    constexpr double limit = 1e15; // from which on the JSON library writes an exponent
    const std::int64_t whole = std::abs(number) < limit ? static_cast<std::int64_t>(number) : 0;
    if (whole != 0 && static_cast<double>(whole) == number) {
        to = std::to_chars(to, to + MAXIMUM_NUMBER_LENGTH, whole).ptr;
        *to++ = '.';
        *to++ = '0';
        return to;
    }
    return nlohmann::detail::to_chars(to, to + MAXIMUM_NUMBER_LENGTH, number);
}

template <typename Word>
Word copyWord(const char* from, char* to) {
    Word word{};
    std::memcpy(&word, from, sizeof word);
    std::memcpy(to, &word, sizeof word);
    return word;
}

/// Copies a text that is usually so short that a call would cost more. Calls `see` with all of its bytes,
/// eight at a time, some of them repeatedly. Returns the end of the copy.
template <typename See>
char* copyShort(std::string_view text, char* to, const See& see) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    if (size >= 8) {
        for (std::size_t i = 0; i < size - 8; i += 8)
            see(copyWord<std::uint64_t>(from + i, to + i));
        see(copyWord<std::uint64_t>(from + size - 8, to + size - 8));
    } else if (size >= 4) {
        const std::uint64_t first = copyWord<std::uint32_t>(from, to);
        see(first << 32U | copyWord<std::uint32_t>(from + size - 4, to + size - 4));
    } else {
        for (std::size_t i = 0; i < size; ++i)
            see(EVERY_BYTE * copyWord<unsigned char>(from + i, to + i));
    }
    return to + size;
}

char* copyShort(std::string_view text, char* to) {
    return copyShort(text, to, [](std::uint64_t /*bytes*/) {});
}

} // namespace

Json::Writer::Key::Key(std::string_view name) {
    Writer writer(0);
    writer.appendQuoted({}, name, 2);
    quoted = writer.takeText();
}

Json::Writer::Writer(int indent)
    : separator(indent < 0 ? "," : ",\n"),
      spacesPerLevel(static_cast<unsigned int>(std::clamp(indent, 0, MAXIMUM_INDENTATION))),
      isOneLine(indent < 0) {}

void Json::Writer::flush() {
    text.append(tail, 0, tailSize);
    tailSize = 0;
}

inline char* Json::Writer::makeRoom(std::size_t size) {
    constexpr std::size_t usualSize = 4096;
    if (tail.size() - tailSize < size) {
        flush();
        tail.resize(std::max({usualSize, tail.size(), size}));
    }
    return tail.data() + tailSize;
}

inline void Json::Writer::setEnd(const char* end) { tailSize = static_cast<std::size_t>(end - tail.data()); }

inline void Json::Writer::append(std::string_view piece) { setEnd(copyShort(piece, makeRoom(piece.size()))); }

/// The colon after a key is alone or followed by a space; that after another string has the length 0.
inline void Json::Writer::appendQuoted(std::string_view before, std::string_view string,
                                       std::size_t lengthOfColon) {
    char* to = copyShort(before, makeRoom(before.size() + string.size() + 4));
    *to++ = '"';
    std::uint64_t notPlain = 0;
    char* end = copyShort(string, to, [&](std::uint64_t bytes) { notPlain |= findNotPlain(bytes); });
    if (notPlain != 0) { // which is rare: begins anew
        setEnd(to);
        appendEscaped(string);
        end = makeRoom(3);
    }
    *end++ = '"';
    end[0] = ':';
    end[1] = ' ';
    setEnd(end + lengthOfColon);
}

void Json::Writer::appendEscaped(std::string_view string) {
    const char* const end = string.data() + string.size();
    for (const char* next = string.data(); next != end;) {
        const char* const character = next;
        if (isPlain(*next)) {
            next = skipPlain(next, end);
            append({character, next});
        } else if (static_cast<signed char>(*next) >= 0) {
            append(escapeOf(*next++));
        } else {
            next = skipMultibyteCharacter(next, end);
            if (!next) // throws the library's error
                translateErrors([&] { return nlohmann::json(string).dump(); });
            append({character, next});
        }
    }
}

inline void Json::Writer::beginItem() {
    append(std::string_view(separator).substr(isFirst ? 1 : 0));
    isFirst = false;
}

inline void Json::Writer::beginValue() {
    if (!isKeyWritten)
        beginItem();
    isKeyWritten = false;
}

void Json::Writer::open(char opening) {
    beginValue();
    if (depth == MAXIMUM_DEPTH)
        throw tooDeep();
    ++depth;
    append({&opening, 1});
    separator.append(spacesPerLevel, ' ');
    isFirst = true;
}

void Json::Writer::close(char closing) {
    --depth;
    separator.resize(separator.size() - spacesPerLevel);
    if (!isFirst)
        append(std::string_view(separator).substr(1));
    append({&closing, 1});
    isFirst = false;
}

void Json::Writer::tellProgress(std::size_t written, std::size_t count) {
    if (depth == 1 && written > 0 && written == count / 4)
        text.reserve((text.size() + tailSize) / 4 * 17);
}

void Json::Writer::key(const Key& prepared) {
    beginItem();
    append(std::string_view(prepared.quoted).substr(0, prepared.quoted.size() - (isOneLine ? 1 : 0)));
    isKeyWritten = true;
}

void Json::Writer::key(std::string_view name) {
    appendQuoted(std::string_view(separator).substr(isFirst ? 1 : 0), name, isOneLine ? 1 : 2);
    isFirst = false;
    isKeyWritten = true;
}

void Json::Writer::write(std::nullptr_t) {
    beginValue();
    append("null");
}

void Json::Writer::write(bool boolean) {
    beginValue();
    append(boolean ? "true" : "false");
}

void Json::Writer::writeInteger(std::int64_t number) {
    beginValue();
    char* const to = makeRoom(MAXIMUM_NUMBER_LENGTH);
    setEnd(std::to_chars(to, to + MAXIMUM_NUMBER_LENGTH, number).ptr);
}

void Json::Writer::writeInteger(std::uint64_t number) {
    beginValue();
    char* const to = makeRoom(MAXIMUM_NUMBER_LENGTH);
    setEnd(std::to_chars(to, to + MAXIMUM_NUMBER_LENGTH, number).ptr);
}

void Json::Writer::write(double number) {
    if (!std::isfinite(number))
        throw notFinite();
    beginValue();
    setEnd(writeFloatingPoint(makeRoom(MAXIMUM_NUMBER_LENGTH), number));
}

void Json::Writer::write(std::string_view string) {
    beginValue();
    appendQuoted({}, string, 0);
}

std::string Json::Writer::takeText() {
    flush();
    return std::move(text);
}

} // namespace norel::Desktop::DataFormat
