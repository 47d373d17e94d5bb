#include "Credentials.h"

#include "text/MaskedText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace norel::Desktop::Networking::Http {
namespace {

std::string toBase64(std::string_view text) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    for (std::size_t i = 0; i < text.size(); i += 3) {
        const auto byte = [&](std::size_t k) {
            return k < text.size() ? static_cast<unsigned char>(text[k]) : std::uint32_t(0);
        };
        const std::uint32_t bits = (byte(i) << 16U) | (byte(i + 1) << 8U) | byte(i + 2);
        for (std::size_t k = 0; k < 4; ++k)
            result += i + k > text.size() ? '=' : digits[(bits >> (18 - 6 * k)) & 0x3FU];
    }
    return result;
}

} // namespace

std::string Credentials::masked(std::string text) const {
    const bool hasUser = !user.empty() || !password.empty();
    for (const std::string& secret :
         {key, password.empty() ? user : password, hasUser ? toBase64(user + ':' + password) : std::string()})
        if (!secret.empty())
            text = Text::masked(text, secret);
    return text;
}

} // namespace norel::Desktop::Networking::Http
