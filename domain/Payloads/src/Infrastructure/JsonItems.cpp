#include "JsonItems.h"

#include "norel/Desktop/DataFormat/Json.h"

namespace norel::Desktop::Domain::Payloads {

bool JsonItems::next() {
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

std::string JsonItems::getKey() const {
    const bool hasEscapes = key.find('\\') != std::string_view::npos;
    return hasEscapes ? DataFormat::Json::fromString(std::string(key)).getAsString()
                      : std::string(key.substr(1, key.size() - 2));
}

std::size_t JsonItems::lengthOfByteOrderMark(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    return text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
}

std::string_view JsonItems::findValue(std::string_view text) {
    JsonItems items(text.substr(lengthOfByteOrderMark(text)), false);
    items.skipSeparators();
    return items.take();
}

void JsonItems::skipSeparators() {
    const std::size_t count = rest.find_first_not_of(" \t\r\n,:");
    rest.remove_prefix(count == std::string_view::npos ? rest.size() : count);
}

std::string_view JsonItems::take() {
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

std::size_t JsonItems::endOfString(std::size_t begin) const {
    std::size_t end = begin + 1;
    while (end < rest.size() && rest[end] != '"')
        end += rest[end] == '\\' ? 2U : 1U;
    return end + 1;
}

std::size_t JsonItems::endOfPlain(std::size_t begin) const {
    const std::size_t end = rest.find_first_of(" \t\r\n,:[]{}\"", begin + 1);
    return end == std::string_view::npos ? rest.size() : end;
}

} // namespace norel::Desktop::Domain::Payloads
