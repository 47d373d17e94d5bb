#include "norel/Desktop/DataFormat/JsonReader.h"

#include "JsonCharacters.h"

#include <cfloat>
#include <charconv>
#include <limits>

namespace norel::Desktop::DataFormat {

namespace {

[[noreturn]] void refuse() { throw Json::JsonError("the JSON text is not as expected"); }

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// The nearest double to a number token.
template <typename Number>
Number convertToFloatingPoint(const char* first, const char* last) {
    Number number = 0;
    if constexpr (requires { std::from_chars(first, last, number); }) {
        const auto [end, error] = std::from_chars(first, last, number);
        if (end != last || error != std::errc())
            refuse();
    } else { // not every standard library converts to floating-point numbers
        refuse();
    }
    return number;
}

void appendUtf8(std::string& text, unsigned int codePoint) {
    const auto append = [&](unsigned int byte) {
        text += static_cast<char>(static_cast<unsigned char>(byte));
    };
    if (codePoint < 0x80) {
        append(codePoint);
    } else {
        if (codePoint < 0x800) {
            append(0xC0U | codePoint >> 6U);
        } else {
            if (codePoint < 0x10000) {
                append(0xE0U | codePoint >> 12U);
            } else {
                append(0xF0U | codePoint >> 18U);
                append(0x80U | (codePoint >> 12U & 0x3FU));
            }
            append(0x80U | (codePoint >> 6U & 0x3FU));
        }
        append(0x80U | (codePoint & 0x3FU));
    }
}

} // namespace

inline void Json::Reader::skipWhiteSpace() {
    const char* next = position;
    while (next != textEnd && (*next == ' ' || *next == '\n' || *next == '\r' || *next == '\t')) {
        next = skipSpaces(next + 1, textEnd);
    }
    position = next;
}

inline char Json::Reader::peek() {
    skipWhiteSpace();
    return position != textEnd ? *position : '\0';
}

char Json::Reader::peekKind() { return peek(); }

inline void Json::Reader::take(char expected) {
    if (peek() != expected)
        refuse();
    ++position;
}

void Json::Reader::takeWord(std::string_view word) {
    const std::string_view rest(position, static_cast<std::size_t>(textEnd - position));
    if (rest.substr(0, word.size()) != word)
        refuse();
    position += word.size();
}

inline void Json::Reader::open(char opening) {
    take(opening);
    if (depth == MAXIMUM_DEPTH)
        refuse();
    ++depth;
    isFirst = true;
}

/// Moves to the next member or element. False at the end of the object or array, which is left.
inline bool Json::Reader::nextItem(char closing) {
    const char next = peek();
    if (next == closing) {
        ++position;
        --depth;
        isFirst = false;
        return false;
    }
    if (!isFirst)
        take(',');
    isFirst = false;
    return true;
}

void Json::Reader::beginObject() { open('{'); }

bool Json::Reader::nextMember(std::string_view& key) {
    if (!nextItem('}'))
        return false;
    key = readString();
    take(':');
    return true;
}

void Json::Reader::beginArray() { open('['); }

bool Json::Reader::nextElement() { return nextItem(']'); }

bool Json::Reader::takeNull() {
    if (peek() != 'n')
        return false;
    takeWord("null");
    return true;
}

void Json::Reader::read(bool& boolean) {
    boolean = peek() == 't';
    takeWord(boolean ? "true" : "false");
}

void Json::Reader::read(int& number) {
    const Number token = readNumber();
    const bool isNegative = token.kind == Number::Kind::NEGATIVE;
    constexpr std::uint64_t maximum = std::numeric_limits<int>::max();
    if (token.kind == Number::Kind::FLOATING_POINT || token.magnitude > maximum + (isNegative ? 1 : 0))
        refuse();
    const auto magnitude = static_cast<std::int64_t>(token.magnitude);
    number = static_cast<int>(isNegative ? -magnitude : magnitude);
}

void Json::Reader::read(unsigned int& number) {
    const Number token = readNumber();
    if (token.kind != Number::Kind::UNSIGNED || token.magnitude > std::numeric_limits<unsigned int>::max())
        refuse();
    number = static_cast<unsigned int>(token.magnitude);
}

void Json::Reader::read(double& number) {
    const Number token = readNumber();
    if (token.kind == Number::Kind::FLOATING_POINT)
        number = token.floatingPoint;
    else if (token.kind == Number::Kind::UNSIGNED)
        number = static_cast<double>(token.magnitude);
    else // through an integer, which has no negative zero: -0 reads as in the tree
        number = static_cast<double>(static_cast<std::int64_t>(0 - token.magnitude));
}

void Json::Reader::read(std::string& text) { text = readString(); }

void Json::Reader::skip() {
    std::string_view key;
    switch (peek()) {
    case '{':
        beginObject();
        while (nextMember(key))
            skip();
        break;
    case '[':
        beginArray();
        while (nextElement())
            skip();
        break;
    case '"':
        readString();
        break;
    case 't':
        takeWord("true");
        break;
    case 'f':
        takeWord("false");
        break;
    case 'n':
        takeWord("null");
        break;
    default:
        readNumber();
    }
}

void Json::Reader::end() {
    skipWhiteSpace();
    if (position != textEnd)
        refuse();
}

/// The string, which stays valid until the next call.
std::string_view Json::Reader::readString() {
    take('"');
    bool hasEscapes = false;
    const char* first = position;
    for (const char* next = position;;) {
        next = skipPlain(next, textEnd);
        if (next == textEnd)
            refuse();
        if (*next != '"' && *next != '\\') {
            next = skipMultibyteCharacter(next, textEnd);
            if (!next)
                refuse();
            continue;
        }
        position = next + 1;
        if (!hasEscapes && *next == '"')
            return {first, static_cast<std::size_t>(next - first)};
        if (!hasEscapes)
            unescaped.clear();
        hasEscapes = true;
        unescaped.append(first, next);
        if (*next == '"')
            return unescaped;
        readEscape();
        first = next = position;
    }
}

/// Appends the character that an escape stands for; the backslash was read.
void Json::Reader::readEscape() {
    constexpr std::string_view escapes = "\"\\/bfnrt";
    constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
    if (position == textEnd)
        refuse();
    const char escape = *position++;
    if (const auto index = escapes.find(escape); index != std::string_view::npos) {
        unescaped += characters[index];
        return;
    }
    if (escape != 'u')
        refuse();
    unsigned int codePoint = readHexadecimal();
    if (codePoint >= 0xD800 && codePoint < 0xDC00) { // the first half of a surrogate pair
        takeWord("\\u");
        const unsigned int second = readHexadecimal();
        if (second < 0xDC00 || second > 0xDFFF)
            refuse();
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (second - 0xDC00);
    } else if (codePoint >= 0xDC00 && codePoint <= 0xDFFF) {
        refuse();
    }
    appendUtf8(unescaped, codePoint);
}

unsigned int Json::Reader::readHexadecimal() {
    constexpr std::ptrdiff_t digits = 4;
    unsigned int number = 0;
    if (textEnd - position < digits ||
        std::from_chars(position, position + digits, number, 16).ptr != position + digits)
        refuse();
    position += digits;
    return number;
}

Json::Reader::Number Json::Reader::readNumber() {
    const char* const first = peek() == '-' ? position++ : position;
    std::uint64_t digits = 0; // all of them, modulo 2^64
    const auto readDigits = [&] {
        const char* const begin = position;
        for (; position != textEnd && isDigit(*position); ++position)
            digits = digits * 10 + static_cast<std::uint64_t>(*position - '0');
        if (position == begin)
            refuse();
        return position - begin;
    };
    const bool isNegative = position != first;
    const bool startsWithZero = position != textEnd && *position == '0';
    const std::ptrdiff_t wholeDigits = readDigits();
    if (startsWithZero && wholeDigits > 1)
        refuse();

    const bool hasFraction = position != textEnd && *position == '.';
    std::ptrdiff_t fractionDigits = 0;
    if (hasFraction) {
        ++position;
        fractionDigits = readDigits();
    }
    const bool hasExponent = position != textEnd && (*position == 'e' || *position == 'E');
    if (!hasFraction && !hasExponent) {
        constexpr std::uint64_t greatestNegative = std::uint64_t{1} << 63U;
        if (wholeDigits > 19 || (isNegative && digits > greatestNegative))
            refuse();
        return {isNegative ? Number::Kind::NEGATIVE : Number::Kind::UNSIGNED, digits, 0};
    }
    if (!hasExponent && wholeDigits + fractionDigits <= 15 && FLT_EVAL_METHOD == 0) {
        // A double holds both exactly, so their quotient is the nearest double to the number.
        constexpr double powersOfTen[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
        const double magnitude = static_cast<double>(digits) / powersOfTen[fractionDigits];
        return {Number::Kind::FLOATING_POINT, 0, isNegative ? -magnitude : magnitude};
    }
    if (hasExponent) {
        ++position;
        if (position != textEnd && (*position == '+' || *position == '-'))
            ++position;
        readDigits();
    }
    return {Number::Kind::FLOATING_POINT, 0, convertToFloatingPoint<double>(first, position)};
}

} // namespace norel::Desktop::DataFormat
