#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"

#include <cstddef>
#include <utility>

namespace norel::Desktop::Domain::Payloads {

struct ValueAccess {
    /// The fields in place, where a getter would copy them.
    template <typename Value>
    static const auto& fieldsOf(const Value& value) {
        return value.fields;
    }

    template <typename List>
    static const auto& profilesOf(const List& list) {
        return list.profiles;
    }

    template <typename List>
    static void reserve(List& list, std::size_t profiles) {
        list.profiles.reserve(list.profiles.size() + profiles);
    }

    /// The value of the given fields, which its constructor checks if it has a rule.
    template <typename Value, typename... Members>
    static Value make(Members&&... members) {
        return Value(typename Value::Fields{std::forward<Members>(members)...});
    }
};

} // namespace norel::Desktop::Domain::Payloads
