#pragma once

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

/// Makes a value from a builder that is not needed afterwards: its members are moved, and built in place.
/// Checks the same rules as `build`, but of several violations it may report any.
template <typename Value>
Value buildMoving(typename Value::Builder&& builder);

template <typename Member>
auto buildMemberMoving(Member& member) {
    if constexpr (requires { member.build(); })
        return buildMoving<decltype(member.build())>(std::move(member));
    else
        return std::move(member);
}

template <typename Member>
auto buildMemberMoving(std::optional<Member>& member) {
    return member ? std::optional(buildMemberMoving(*member)) : std::nullopt;
}

template <typename Member>
requires requires(const Member& member) { member.build(); }
auto buildMemberMoving(std::vector<Member>& members) {
    std::vector<decltype(buildMember(members.front()))> items;
    items.reserve(members.size());
    for (Member& member : members)
        items.push_back(buildMemberMoving(member));
    return items;
}

template <typename Value>
Value buildMoving(typename Value::Builder&& builder) {
    using Fields = ValueAccess::Fields<Value>;
    RuleCheck check;
    checkFields(builder, check);
    checkRules(builder, check); // before its members are moved away
    if constexpr (std::is_same_v<Fields, typename Value::Builder>) {
        return ValueAccess::make<Value>([&] { return std::move(builder); });
    } else {
        const auto makeFields = [](auto&... members) { return Fields{buildMemberMoving(members)...}; };
        return ValueAccess::make<Value>([&] { return std::apply(makeFields, tieMembers(builder)); });
    }
}

} // namespace norel::Desktop::Domain::Payloads
