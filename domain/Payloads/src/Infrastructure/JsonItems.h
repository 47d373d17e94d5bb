#pragma once

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
    bool next();

    /// Of an object's member: the string with its quotation marks.
    std::string_view getKeyText() const { return key; }
    std::string_view getValueText() const { return value; }

    std::string getKey() const;

    /// 0 for a text that does not begin with one.
    static std::size_t lengthOfByteOrderMark(std::string_view text);

    /// The value of a whole text, without the white space and the byte order mark around it.
    static std::string_view findValue(std::string_view text);

private:
    JsonItems(std::string_view items, bool haveKeys) : rest(items), isObject(haveKeys) {}

    void skipSeparators();

    /// The value at the beginning of the rest, which is left behind.
    std::string_view take();
    std::size_t endOfString(std::size_t begin) const;
    /// The end of a number or word; the next character in the white space of a container.
    std::size_t endOfPlain(std::size_t begin) const;

    std::string_view rest;
    bool isObject;
    std::string_view key;
    std::string_view value;
};

} // namespace norel::Desktop::Domain::Payloads
