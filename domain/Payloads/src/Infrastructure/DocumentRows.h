#pragma once

#include "ValueAccess.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace norel::Desktop::Domain::Payloads {

/// The document form of a value: `rows()`, in the order in which its keys are written. See DocumentTables.h.
template <typename Value>
struct DocumentTable;

/// What the rows of a table name: the fields of the value and the members of its builder.
template <typename Value>
struct DocumentTableOf {
    using Fields = ValueAccess::Fields<Value>;
    using Builder = typename Value::Builder;
};

template <typename Value>
inline constexpr std::size_t NUMBER_OF_ROWS =
    std::tuple_size_v<std::remove_cvref_t<decltype(DocumentTable<Value>::rows())>>;

/// The positions of the rows in the order in which a value is read, which decides the error that is reported
/// first.
template <typename Value>
struct ReadingOrder {
    using Positions = std::make_index_sequence<NUMBER_OF_ROWS<Value>>;
};

inline constexpr unsigned int VALUE_ONLY = JsonProfileListSerializer::Options::VALUE_ONLY;
inline constexpr unsigned int NO_UNIT = JsonProfileListSerializer::Options::NO_UNIT;
inline constexpr unsigned int NO_CONSTRAINTS = JsonProfileListSerializer::Options::NO_CONSTRAINTS;

/// When a member stands in its object.
enum class Presence {
    Required,  ///< always written, and required to be read
    Optional,  ///< written when the value has it; reads as absent when it is absent or null
    Defaulted, ///< left out, and may be absent to be read, when it equals the member of a fresh builder
};

/// One member of an object: a declaration, which everything that walks documents stands on.
template <Presence PRESENCE, typename Fields, typename Field, typename Builder, typename Member>
struct Row {
    using Options = JsonProfileListSerializer::Options;

    static constexpr Presence presence = PRESENCE;

    std::string key;
    Field Fields::*field;        ///< where the member is written from
    Member Builder::*member;     ///< where it is read to
    Options options{};           ///< the flags that the member is given
    bool passesOptions = false;  ///< whether it is given the flags of its object instead
    unsigned int excludedBy = 0; ///< the flags of the object that leave the member out of it

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

    Options getOptions(Options ofObject) const { return passesOptions ? ofObject : options; }

    /// Whether the member belongs to an object of these flags.
    bool isIncluded(Options ofObject) const { return !ofObject.hasAny(excludedBy); }

    bool isWritten(const Fields& fields, Options ofObject) const {
        if (!isIncluded(ofObject))
            return false;
        if constexpr (presence == Presence::Defaulted) {
            static const Builder fresh;
            return fields.*field != fresh.*member;
        } else if constexpr (presence == Presence::Optional && requires { (fields.*field).has_value(); }) {
            return (fields.*field).has_value();
        } else {
            return true;
        }
    }
};

template <typename Fields, typename Field, typename Builder, typename Member>
auto required(const char* key, Field Fields::*field, Member Builder::*member, unsigned int options = 0) {
    return Row<Presence::Required, Fields, Field, Builder, Member>{key, field, member, options};
}

template <typename Fields, typename Field, typename Builder, typename Member>
auto optional(const char* key, Field Fields::*field, Member Builder::*member) {
    return Row<Presence::Optional, Fields, Field, Builder, Member>{key, field, member};
}

template <typename Fields, typename Field, typename Builder, typename Member>
auto defaulted(const char* key, Field Fields::*field, Member Builder::*member) {
    return Row<Presence::Defaulted, Fields, Field, Builder, Member>{key, field, member};
}

} // namespace norel::Desktop::Domain::Payloads
