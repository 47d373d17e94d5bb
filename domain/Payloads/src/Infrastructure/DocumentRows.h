#pragma once

#include "ValueAccess.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace norel::Desktop::Domain::Payloads {

/// The document form of a value: `rows()`, in the order in which its keys are written, and `OBSOLETE_KEY`
/// where there is one. See DocumentTables.h.
template <typename Value>
struct DocumentTable;

/// The types that the rows of a table refer to: the fields of the value and its builder.
template <typename Value>
struct DocumentTableOf {
    using Fields = ValueAccess::Fields<Value>;
    using Builder = typename Value::Builder;
};

/// Whether earlier releases wrote a member with this key. Nothing reads it; many files still have it.
template <typename Value>
constexpr bool isObsolete(std::string_view key) {
    if constexpr (requires { DocumentTable<Value>::OBSOLETE_KEY; })
        return key == DocumentTable<Value>::OBSOLETE_KEY;
    else
        return false;
}

template <typename Value>
inline constexpr std::size_t NUMBER_OF_ROWS =
    std::tuple_size_v<std::remove_cvref_t<decltype(DocumentTable<Value>::rows())>>;

/// The indices of the rows in the order in which they are read, which decides the error that is reported
/// first.
template <typename Value>
struct ReadingOrder {
    using Positions = std::make_index_sequence<NUMBER_OF_ROWS<Value>>;
};

inline constexpr unsigned int VALUE_ONLY = JsonProfileListSerializer::Options::VALUE_ONLY;
inline constexpr unsigned int NO_UNIT = JsonProfileListSerializer::Options::NO_UNIT;
inline constexpr unsigned int NO_CONSTRAINTS = JsonProfileListSerializer::Options::NO_CONSTRAINTS;

/// When a member is present in its object.
enum class Presence {
    Required,  ///< always written; required when read
    Optional,  ///< written when the value has it; may be absent or null when read
    Defaulted, ///< not written when it equals the default of the builder; may be absent when read
};

/// What a rule allows in a member, as far as it concerns this member alone and its type allows more.
struct Allowed {
    std::span<const std::string_view> choices{}; ///< all allowed texts; empty: any
    const char* form = nullptr;                  ///< a regular expression that the whole text matches
    bool isNotEmpty = false;                     ///< the text or array
    /// limits of a Parameter's value, both exclusive
    std::optional<std::pair<double, double>> valueBetween{};
};

/// The declaration of one member of an object, on which all reading and writing of documents is based.
template <Presence PRESENCE, typename Fields, typename Field, typename Builder, typename Member>
struct Row {
    using Options = JsonProfileListSerializer::Options;

    static constexpr Presence presence = PRESENCE;

    std::string key;
    const char* description;     ///< of the member, for people
    Field Fields::*field;        ///< where the member is written from
    Member Builder::*member;     ///< where the member is read to
    Options options{};           ///< the flags that are passed to the member
    bool passesOptions = false;  ///< whether the flags of its object are passed instead
    unsigned int excludedBy = 0; ///< the flags of the object that exclude the member
    Allowed allowed{};

    Row passingOptions() const {
        Row row = *this;
        row.passesOptions = true;
        return row;
    }

    Row unless(unsigned int flags) const {
        Row row = *this;
        row.excludedBy = flags;
        return row;
    }

    Row allowing(const Allowed& values) const {
        Row row = *this;
        row.allowed = values;
        return row;
    }

    Options getOptions(Options ofObject) const { return passesOptions ? ofObject : options; }

    /// Whether an object with these flags has the member.
    bool isIncluded(Options ofObject) const { return !ofObject.hasAny(excludedBy); }

    bool isWritten(const Fields& fields, Options ofObject) const {
        if (!isIncluded(ofObject))
            return false;
        if constexpr (presence == Presence::Defaulted) {
            static const Builder defaults;
            return fields.*field != defaults.*member;
        } else if constexpr (presence == Presence::Optional && requires { (fields.*field).has_value(); }) {
            return (fields.*field).has_value();
        } else {
            return true;
        }
    }
};

template <typename Fields, typename Field, typename Builder, typename Member>
auto required(const char* key, const char* description, Field Fields::*field, Member Builder::*member,
              unsigned int options = 0) {
    return Row<Presence::Required, Fields, Field, Builder, Member>{key, description, field, member, options};
}

template <typename Fields, typename Field, typename Builder, typename Member>
auto optional(const char* key, const char* description, Field Fields::*field, Member Builder::*member) {
    return Row<Presence::Optional, Fields, Field, Builder, Member>{key, description, field, member};
}

template <typename Fields, typename Field, typename Builder, typename Member>
auto defaulted(const char* key, const char* description, Field Fields::*field, Member Builder::*member) {
    return Row<Presence::Defaulted, Fields, Field, Builder, Member>{key, description, field, member};
}

} // namespace norel::Desktop::Domain::Payloads
