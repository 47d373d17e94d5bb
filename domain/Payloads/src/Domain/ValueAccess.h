#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"

#include <cstddef>
#include <type_traits>
#include <utility>

namespace norel::Desktop::Domain::Payloads {

struct ValueAccess {
    /// The fields by reference; a getter would copy them.
    template <typename Value>
    static const auto& fieldsOf(const Value& value) {
        return value.fields;
    }

    /// The type of the fields of a value.
    template <typename Value>
    using Fields = std::remove_cvref_t<decltype(fieldsOf(std::declval<const Value&>()))>;

    template <typename List>
    static const auto& profilesOf(const List& list) {
        return list.profiles;
    }

    template <typename List>
    static void reserve(List& list, std::size_t profiles) {
        list.profiles.reserve(list.profiles.size() + profiles);
    }

    /// Adds a profile without copying it.
    template <typename List, typename Profile>
    static void append(List& list, Profile&& profile) {
        list.append(std::forward<Profile>(profile));
    }

    /// A value with the fields that `makeFields` returns, constructed in place.
    template <typename Value, typename MakeFields>
    static Value make(const MakeFields& makeFields) {
        return Value(makeFields);
    }
};

} // namespace norel::Desktop::Domain::Payloads
