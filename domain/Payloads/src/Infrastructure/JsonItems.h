#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace norel::Desktop::Domain::Payloads {

/// Steps through the items of a JSON array or object where they are in the text, which must be valid JSON.
class JsonItems {
public:
    /// `text` begins with a bracket or brace.
    explicit JsonItems(std::string_view text) : JsonItems(text.substr(1), text.front() == '{') {}

    /// Moves to the next item. False at the end.
    bool next() {
        skipSeparators();
        if (rest.empty() || rest.front() == ']' || rest.front() == '}')
            return false;
        if (isObject) {
            key = take();
            skipSeparators();
        }
        value = take();
        return true;
    }

    /// Of an object's member: the string with its quotation marks.
    std::string_view getKeyText() const { return key; }
    std::string_view getValueText() const { return value; }

    std::string getKey() const {
        const bool hasEscapes = key.find('\\') != std::string_view::npos;
        return hasEscapes ? DataFormat::Json::fromString(std::string(key)).getAsString()
                          : std::string(key.substr(1, key.size() - 2));
    }

    /// 0 for a text that does not begin with one.
    static std::size_t lengthOfByteOrderMark(std::string_view text) {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        return text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    }

    /// The value of a whole text, without the white space and the byte order mark around it.
    static std::string_view findValue(std::string_view text) {
        JsonItems items(text.substr(lengthOfByteOrderMark(text)), false);
        items.skipSeparators();
        return items.take();
    }

private:
    JsonItems(std::string_view items, bool haveKeys) : rest(items), isObject(haveKeys) {}

    void skipSeparators() {
        const std::size_t count = rest.find_first_not_of(" \t\r\n,:");
        rest.remove_prefix(count == std::string_view::npos ? rest.size() : count);
    }

    /// The value at the beginning of the rest, which is left behind.
    std::string_view take() {
        std::size_t end = 0;
        std::size_t depth = 0;
        do {
            switch (rest[end]) {
            case '"':
                end = endOfString(end);
                break;
            case '[':
            case '{':
                ++depth;
                ++end;
                break;
            case ']':
            case '}':
                --depth;
                ++end;
                break;
            default:
                end = endOfPlain(end);
            }
        } while (depth > 0 && end < rest.size());
        const std::string_view taken = rest.substr(0, end);
        rest.remove_prefix(taken.size());
        return taken;
    }

    std::size_t endOfString(std::size_t begin) const {
        std::size_t end = begin + 1;
        while (end < rest.size() && rest[end] != '"')
            end += rest[end] == '\\' ? 2U : 1U;
        return end + 1;
    }

    /// The end of a number or word; the next character in the white space of a container.
    std::size_t endOfPlain(std::size_t begin) const {
        const std::size_t end = rest.find_first_of(" \t\r\n,:[]{}\"", begin + 1);
        return end == std::string_view::npos ? rest.size() : end;
    }

    std::string_view rest;
    bool isObject;
    std::string_view key;
    std::string_view value;
};

} // namespace norel::Desktop::Domain::Payloads
