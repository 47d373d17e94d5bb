#include "norel/Desktop/DataFormat/JsonWriter.h"

#include "JsonCharacters.h"
#include "JsonErrors.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace norel::Desktop::DataFormat {

namespace {

constexpr int MAXIMUM_INDENTATION = 512;
constexpr std::size_t MAXIMUM_NUMBER_LENGTH = 32;

/// The escape of a character that is not plain.
void appendEscape(std::string& text, char character) {
    constexpr std::string_view escaped = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    text += '\\';
    if (const auto index = escaped.find(character); index != std::string_view::npos) {
        text += letters[index];
    } else {
        const auto code = static_cast<unsigned char>(character);
        text.append("u00").append({hexadecimal[code >> 4U], hexadecimal[code & 0xFU]});
    }
}

/// Appends the quoted string between two other texts.
void appendQuoted(std::string& text, std::string_view string, std::string_view before = {},
                  std::string_view after = {}) {
    const char* const end = string.data() + string.size();
    if (skipPlain(string.data(), end) == end) { // as nearly always: one call
        const std::size_t begin = text.size();
        text.append(before.size() + string.size() + after.size() + 2, '"');
        char* to = text.data() + begin;
        to += before.copy(to, before.size()) + 1;
        to += string.copy(to, string.size()) + 1;
        after.copy(to, after.size());
        return;
    }
    text.append(before) += '"';
    for (const char* next = string.data(); next != end;) {
        const char* const plain = next;
        next = skipPlain(next, end);
        text.append(plain, next);
        if (next == end)
            break;
        if (static_cast<signed char>(*next) >= 0) {
            appendEscape(text, *next++);
            continue;
        }
        const char* const character = next;
        next = skipMultibyteCharacter(next, end);
        if (!next) // throws the library's error
            translateErrors([&] { return nlohmann::json(string).dump(); });
        text.append(character, next);
    }
    (text += '"').append(after);
}

template <typename Integer>
void appendInteger(std::string& text, Integer number) {
    char digits[MAXIMUM_NUMBER_LENGTH];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, static_cast<std::size_t>(end - digits));
}

/// The digits are those of the JSON library, which are not always the shortest that read back to the number:
/// std::to_chars gives others for one number in 700, 0.01207 among them, and documents must not change.
void appendFloatingPoint(std::string& text, double number) {
    constexpr double limit = 1e15; // from which on the JSON library writes an exponent
    if (std::abs(number) < limit && std::trunc(number) == number && number != 0) {
        appendInteger(text, static_cast<std::int64_t>(number));
        text += ".0";
        return;
    }
    char digits[2 * MAXIMUM_NUMBER_LENGTH];
    const char* const end = nlohmann::detail::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, static_cast<std::size_t>(end - digits));
}

} // namespace

Json::Writer::Key::Key(std::string_view name) { appendQuoted(quoted, name, {}, ": "); }

Json::Writer::Writer(int indent)
    : separator(indent < 0 ? "," : ",\n"),
      spacesPerLevel(static_cast<unsigned int>(std::clamp(indent, 0, MAXIMUM_INDENTATION))),
      isOneLine(indent < 0) {}

inline void Json::Writer::beginItem() {
    text.append(separator, isFirst ? 1 : 0);
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
    text += opening;
    separator.append(spacesPerLevel, ' ');
    isFirst = true;
}

void Json::Writer::close(char closing) {
    --depth;
    separator.resize(separator.size() - spacesPerLevel);
    if (!isFirst)
        text.append(separator, 1);
    text += closing;
    isFirst = false;
}

void Json::Writer::tellProgress(std::size_t written, std::size_t count) {
    if (depth == 1 && written > 0 && written == count / 4)
        text.reserve(text.size() / 4 * 17);
}

void Json::Writer::key(const Key& prepared) {
    beginItem();
    text.append(prepared.quoted, 0, prepared.quoted.size() - (isOneLine ? 1 : 0));
    isKeyWritten = true;
}

void Json::Writer::key(std::string_view name) {
    appendQuoted(text, name, std::string_view(separator).substr(isFirst ? 1 : 0),
                 std::string_view(": ", isOneLine ? 1 : 2));
    isFirst = false;
    isKeyWritten = true;
}

void Json::Writer::write(std::nullptr_t) {
    beginValue();
    text += "null";
}

void Json::Writer::write(bool boolean) {
    beginValue();
    text += boolean ? "true" : "false";
}

void Json::Writer::writeInteger(std::int64_t number) {
    beginValue();
    appendInteger(text, number);
}

void Json::Writer::writeInteger(std::uint64_t number) {
    beginValue();
    appendInteger(text, number);
}

void Json::Writer::write(double number) {
    if (!std::isfinite(number))
        throw notFinite();
    beginValue();
    appendFloatingPoint(text, number);
}

void Json::Writer::write(std::string_view string) {
    beginValue();
    appendQuoted(text, string);
}

std::string Json::Writer::takeText() { return std::move(text); }

} // namespace norel::Desktop::DataFormat
