#include "TemporaryName.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string_view>

namespace norel::Desktop::Storage {
namespace {

constexpr std::string_view SUFFIX = ".tmp";
constexpr std::size_t NUMBER_LENGTH = 16;

std::string toHexadecimal(std::uint64_t number) {
    std::array<char, NUMBER_LENGTH + 1> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return text.data();
}

/// FNV-1a: the same in every process, of whatever version.
std::uint64_t hash(std::string_view text) {
    std::uint64_t result = 14695981039346656037U;
    for (const char character : text)
        result = (result ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return result;
}

std::uint64_t makeRandomNumber() {
    std::random_device random;
    return (std::uint64_t{random()} << 32U) | random();
}

} // namespace

TemporaryName::TemporaryName(const std::string& target)
    : prefix(".norel-" + toHexadecimal(hash(target)) + '-'),
      name(prefix + toHexadecimal(makeRandomNumber()) + std::string(SUFFIX)) {}

bool TemporaryName::isSibling(const std::string& other) const {
    return other != name && other.size() == name.size() && other.starts_with(prefix) &&
           other.ends_with(SUFFIX) &&
           other.find_first_not_of("0123456789abcdef", prefix.size()) == prefix.size() + NUMBER_LENGTH;
}

} // namespace norel::Desktop::Storage
