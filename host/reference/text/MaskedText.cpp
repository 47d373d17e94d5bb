#include "MaskedText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

namespace norel::Desktop::Text {
namespace {

constexpr std::size_t MINIMUM_BEGINNING = 8;

/// A byte and the length of its spelling; 0 for none.
struct SpelledByte {
    char byte = 0;
    std::size_t length = 0;
};

/// A number between `prefix` and `suffix`, of `digits` digits or, when that is 0, of any number of them.
SpelledByte decodeNumber(std::string_view text, std::string_view prefix, int base, std::size_t digits,
                         std::string_view suffix) {
    if (!text.starts_with(prefix))
        return {};
    const std::string_view rest = text.substr(prefix.size(), digits == 0 ? std::string_view::npos : digits);
    unsigned value = 0;
    const char* const begin = rest.data();
    const auto [end, error] = std::from_chars(begin, begin + rest.size(), value, base);
    const auto length = static_cast<std::size_t>(end - begin);
    if (error != std::errc() || value > 0xFF || (digits != 0 && length != digits) ||
        !text.substr(prefix.size() + length).starts_with(suffix))
        return {};
    return {static_cast<char>(value), prefix.size() + length + suffix.size()};
}

/// The byte that begins the text in another spelling than its own.
SpelledByte decodeSpelling(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, char>, 5> entities{
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    for (const auto& [entity, byte] : entities)
        if (text.starts_with(entity))
            return {byte, entity.size()};
    for (const SpelledByte spelled :
         {decodeNumber(text, "%", 16, 2, ""), decodeNumber(text, "\\u", 16, 4, ""),
          decodeNumber(text, "&#x", 16, 0, ";"), decodeNumber(text, "&#", 10, 0, ";")})
        if (spelled.length != 0)
            return spelled;
    if (text.size() > 1 && text[0] == '\\')
        return {text[1], 2};
    return {};
}

/// How many bytes of `text` spell `secret` or a beginning of it that is masked; 0 when they do not.
std::size_t matchSecret(std::string_view text, std::string_view secret) {
    std::size_t position = 0;
    std::size_t matched = 0;
    for (; matched < secret.size() && position < text.size(); ++matched) {
        const char first = text[position];
        const SpelledByte spelled = first == '%' || first == '\\' || first == '&'
                                        ? decodeSpelling(text.substr(position))
                                        : SpelledByte{};
        if (spelled.length != 0 && spelled.byte == secret[matched])
            position += spelled.length;
        else if (first == secret[matched])
            ++position;
        else
            break;
    }
    return matched >= std::min(secret.size(), MINIMUM_BEGINNING) ? position : 0;
}

} // namespace

std::string masked(std::string_view text, std::string_view secret) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = matchSecret(text, secret);
        if (length == 0)
            result += text[0];
        else
            result += "***";
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

} // namespace norel::Desktop::Text
