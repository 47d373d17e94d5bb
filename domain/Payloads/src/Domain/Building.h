#pragma once

#include "ValueAccess.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Builds one member of a value; one that has no rule of its own, such as a string, is copied.
template <typename Member>
auto buildMember(const Member& member) {
    if constexpr (requires { member.build(); })
        return member.build();
    else
        return member;
}

template <typename Member>
auto buildMember(const std::optional<Member>& member) {
    return member ? std::optional(member->build()) : std::nullopt;
}

template <typename Member>
auto buildMember(const std::vector<Member>& members) {
    std::vector<decltype(buildMember(members.front()))> items;
    items.reserve(members.size());
    for (const Member& member : members)
        items.push_back(buildMember(member));
    return items;
}

/// Makes a value of members that are built in the order given. The order decides which message is reported
/// when several members are invalid.
template <typename Value, typename... Members>
Value buildFirstToLast(const Members&... members) {
    std::tuple built{buildMember(members)...}; // braces build from left to right
    return std::apply([](auto&... member) { return ValueAccess::make<Value>(std::move(member)...); }, built);
}

namespace Internal {

template <typename Value, std::size_t Remaining, typename Members, typename... Built>
Value buildRemaining(const Members& members, Built&... built) {
    if constexpr (Remaining == 0) {
        return ValueAccess::make<Value>(std::move(built)...);
    } else {
        auto last = buildMember(std::get<Remaining - 1>(members));
        return buildRemaining<Value, Remaining - 1>(members, last, built...);
    }
}

} // namespace Internal

/// Makes a value of members that are built from the last to the first.
template <typename Value, typename... Members>
Value buildLastToFirst(const Members&... members) {
    return Internal::buildRemaining<Value, sizeof...(Members)>(std::tie(members...));
}

/// Whether `text` is one of `list`, byte for byte.
template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace norel::Desktop::Domain::Payloads
