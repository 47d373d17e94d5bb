#pragma once

#include "Members.h"
#include "Rules.h"
#include "ValueAccess.h"

#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Builds one member of a value; one without a Builder, such as a string, is copied.
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

namespace Internal {

template <typename Value, std::size_t Remaining, typename Members, typename... Built>
Value buildRemaining(const Members& members, Built&... built) {
    if constexpr (Remaining == 0) {
        return ValueAccess::make<Value>([&] { return ValueAccess::Fields<Value>{std::move(built)...}; });
    } else {
        auto last = buildMember(std::get<Remaining - 1>(members));
        return buildRemaining<Value, Remaining - 1>(members, last, built...);
    }
}

} // namespace Internal

// The order in which members are built decides which message is reported when several are invalid.

/// Makes a value whose members are built from the last to the first.
template <typename Value>
Value buildLastToFirst(const typename Value::Builder& builder) {
    RuleCheck check;
    checkFields(builder, check);
    const auto members = tieMembers(builder);
    Value value = Internal::buildRemaining<Value, std::tuple_size_v<decltype(members)>>(members);
    checkRules(builder, check);
    return value;
}

/// Makes a value whose members are built in the order of their declaration.
template <typename Value>
Value buildFirstToLast(const typename Value::Builder& builder) {
    RuleCheck check;
    checkFields(builder, check);
    const auto makeFields = [](const auto&... members) {
        return ValueAccess::Fields<Value>{buildMember(members)...}; // braces evaluate from left to right
    };
    Value value = ValueAccess::make<Value>([&] { return std::apply(makeFields, tieMembers(builder)); });
    checkRules(builder, check);
    return value;
}

/// Makes a value whose fields are those of its builder.
template <typename Value>
Value buildPlain(const typename Value::Builder& builder) {
    RuleCheck check;
    checkFields(builder, check);
    return ValueAccess::make<Value>([&] { return builder; });
}

} // namespace norel::Desktop::Domain::Payloads
