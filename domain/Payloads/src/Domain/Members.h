#pragma once

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

namespace norel::Desktop::Domain::Payloads {
namespace Internal {

/// Converts to a member of any type, to count the members of a structure at compile time.
struct AnyMember {
    template <typename Member>
    operator Member() const;
};

template <typename Structure, std::size_t... I>
constexpr bool hasAtLeast(std::index_sequence<I...> /*members*/) {
    return requires { Structure{(static_cast<void>(I), AnyMember())...}; };
}

template <typename Structure, std::size_t Count = 0>
constexpr std::size_t countMembers() {
    if constexpr (hasAtLeast<Structure>(std::make_index_sequence<Count + 1>()))
        return countMembers<Structure, Count + 1>();
    else
        return Count;
}

} // namespace Internal

/// References to the members of a plain structure, in declaration order. It has as many members as `Similar`,
/// whose members can be default-initialized, as counting them requires.
template <typename Similar, typename Structure>
constexpr auto tieMembersLike(Structure& structure) {
    constexpr std::size_t count = Internal::countMembers<Similar>();
    static_assert(count <= 14, "add a case below");
    if constexpr (count == 1) {
        auto& [a] = structure;
        return std::tie(a);
    } else if constexpr (count == 2) {
        auto& [a, b] = structure;
        return std::tie(a, b);
    } else if constexpr (count == 3) {
        auto& [a, b, c] = structure;
        return std::tie(a, b, c);
    } else if constexpr (count == 4) {
        auto& [a, b, c, d] = structure;
        return std::tie(a, b, c, d);
    } else if constexpr (count == 5) {
        auto& [a, b, c, d, e] = structure;
        return std::tie(a, b, c, d, e);
    } else if constexpr (count == 6) {
        auto& [a, b, c, d, e, f] = structure;
        return std::tie(a, b, c, d, e, f);
    } else if constexpr (count == 7) {
        auto& [a, b, c, d, e, f, g] = structure;
        return std::tie(a, b, c, d, e, f, g);
    } else if constexpr (count == 8) {
        auto& [a, b, c, d, e, f, g, h] = structure;
        return std::tie(a, b, c, d, e, f, g, h);
    } else if constexpr (count == 9) {
        auto& [a, b, c, d, e, f, g, h, i] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i);
    } else if constexpr (count == 10) {
        auto& [a, b, c, d, e, f, g, h, i, j] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i, j);
    } else if constexpr (count == 11) {
        auto& [a, b, c, d, e, f, g, h, i, j, k] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i, j, k);
    } else if constexpr (count == 12) {
        auto& [a, b, c, d, e, f, g, h, i, j, k, l] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i, j, k, l);
    } else if constexpr (count == 13) {
        auto& [a, b, c, d, e, f, g, h, i, j, k, l, m] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i, j, k, l, m);
    } else {
        auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n] = structure;
        return std::tie(a, b, c, d, e, f, g, h, i, j, k, l, m, n);
    }
}

/// References to the members of a builder, in declaration order, so that no separate list of them is needed.
template <typename Builder>
constexpr auto tieMembers(Builder& builder) {
    return tieMembersLike<std::remove_const_t<Builder>>(builder);
}

} // namespace norel::Desktop::Domain::Payloads
