#pragma once

#include "ValueAccess.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace norel::Desktop::Domain::Payloads {

/// The document form of a value: `rows()`, in the order in which its keys are written and read. See
/// DocumentTables.h.
template <typename Value>
struct DocumentTable;

/// What the rows of a table name: the fields of the value and the members of its builder.
template <typename Value>
struct DocumentTableOf {
    using Fields = std::remove_cvref_t<decltype(ValueAccess::fieldsOf(std::declval<const Value&>()))>;
    using Builder = typename Value::Builder;
};

/// The positions of the rows in the order in which a value is read.
template <typename Value>
struct ReadingOrder {
    using Rows = std::remove_cvref_t<decltype(DocumentTable<Value>::rows())>;
    using Positions = std::make_index_sequence<std::tuple_size_v<Rows>>;
};

inline constexpr unsigned int VALUE_ONLY = JsonProfileListSerializer::Options::VALUE_ONLY;
inline constexpr unsigned int NO_UNIT = JsonProfileListSerializer::Options::NO_UNIT;
inline constexpr unsigned int NO_CONSTRAINTS = JsonProfileListSerializer::Options::NO_CONSTRAINTS;

/// Fills a builder member by member from the object at a path.
class DocumentReader {
public:
    using Options = JsonProfileListSerializer::Options;
    using JsonPath = JsonProfileListSerializer::JsonPath;

    DocumentReader(const JsonProfileListSerializer& serializer, const JsonPath& path, Options received)
        : received(received), serializer(serializer), path(path) {}

    bool contains(const std::string& key) const { return path.contains(key); }
    bool isOptionalSet(const std::string& key) const { return path.isOptionalSet(key); }

    template <typename Member>
    void read(const std::string& key, Member& member, Options options) const {
        serializer.fromJson(JsonPath(path, path.getMember(key), key), member, options);
    }

    template <typename Item>
    void readItem(const DataFormat::Json& element, unsigned int index, Item& item) const {
        serializer.fromJson(JsonPath(path, element, index), item, Options());
    }

    const Options received;

private:
    const JsonProfileListSerializer& serializer;
    const JsonPath& path;
};

/// Sets the members of an object one by one.
class DocumentWriter {
public:
    using Options = JsonProfileListSerializer::Options;

    DocumentWriter(const JsonProfileListSerializer& serializer, Options received, std::size_t members)
        : received(received), serializer(serializer) {
        reserve(object, members);
    }

    template <typename Field>
    void write(const std::string& key, const Field& field, Options options) {
        object.set(key, serializer.toJson(field, options));
    }

    DataFormat::Json takeObject() { return std::move(object); }

    const Options received;

private:
    /// The host's contract does not ask for it.
    template <typename AnyJson>
    static void reserve(AnyJson& object, std::size_t members) {
        if constexpr (requires { object.reserve(members); })
            object.reserve(members);
    }

    const JsonProfileListSerializer& serializer;
    DataFormat::Json object;
};

// The kinds of rows. Each names a key, the field written there and the builder's member read from it.

/// A member that is always written and must be there to be read.
template <typename Field, typename Member>
struct Required {
    std::string key;
    Field field;
    Member member;
    JsonProfileListSerializer::Options options{};

    bool isWritten(const auto& /*fields*/, auto /*received*/) const { return true; }
    void write(DocumentWriter& writer, const auto& fields) const {
        writer.write(key, fields.*field, options);
    }
    void read(const DocumentReader& reader, auto& builder) const {
        reader.read(key, builder.*member, options);
    }
};

/// A required member that is given the flags which the object itself was given.
template <typename Field, typename Member>
struct PassingOptions {
    std::string key;
    Field field;
    Member member;

    bool isWritten(const auto& /*fields*/, auto /*received*/) const { return true; }
    void write(DocumentWriter& writer, const auto& fields) const {
        writer.write(key, fields.*field, writer.received);
    }
    void read(const DocumentReader& reader, auto& builder) const {
        reader.read(key, builder.*member, reader.received);
    }
};

/// A member that is left out when the value has none; null reads as left out.
template <typename Field, typename Member>
struct Optional {
    std::string key;
    Field field;
    Member member;

    bool isWritten(const auto& fields, auto /*received*/) const { return (fields.*field).has_value(); }
    void write(DocumentWriter& writer, const auto& fields) const { writer.write(key, *(fields.*field), {}); }
    void read(const DocumentReader& reader, auto& builder) const {
        (builder.*member).reset();
        if (reader.isOptionalSet(key))
            reader.read(key, (builder.*member).emplace(), {});
    }
};

/// A member that is always written, but may be left out or null to be read; the builder then keeps what it
/// has.
template <typename Field, typename Member>
struct WrittenAlways {
    std::string key;
    Field field;
    Member member;

    bool isWritten(const auto& /*fields*/, auto /*received*/) const { return true; }
    void write(DocumentWriter& writer, const auto& fields) const { writer.write(key, fields.*field, {}); }
    void read(const DocumentReader& reader, auto& builder) const {
        if (reader.isOptionalSet(key))
            reader.read(key, builder.*member, {});
    }
};

/// A required member that is passed over where the object was given any of the flags `unless`.
template <typename Field, typename Member>
struct RequiredUnless {
    unsigned int unless;
    std::string key;
    Field field;
    Member member;

    bool isWritten(const auto& /*fields*/, auto received) const { return !received.hasAny(unless); }
    void write(DocumentWriter& writer, const auto& fields) const { writer.write(key, fields.*field, {}); }
    void read(const DocumentReader& reader, auto& builder) const {
        if (!reader.received.hasAny(unless))
            reader.read(key, builder.*member, {});
    }
};

/// A member that is left out when it equals `defaultValue`, and passed over as RequiredUnless is.
template <typename Field, typename Member, typename Default>
struct DefaultedUnless {
    unsigned int unless;
    std::string key;
    Field field;
    Member member;
    Default defaultValue;

    bool isWritten(const auto& fields, auto received) const {
        return !received.hasAny(unless) && fields.*field != defaultValue;
    }
    void write(DocumentWriter& writer, const auto& fields) const { writer.write(key, fields.*field, {}); }
    void read(const DocumentReader& reader, auto& builder) const {
        if (reader.received.hasAny(unless))
            return;
        if (reader.contains(key))
            reader.read(key, builder.*member, {});
        else
            builder.*member = defaultValue;
    }
};

template <typename Field, typename Member>
Required(const char*, Field, Member) -> Required<Field, Member>;
template <typename Field, typename Member>
Required(const char*, Field, Member, unsigned int) -> Required<Field, Member>;
template <typename Field, typename Member>
PassingOptions(const char*, Field, Member) -> PassingOptions<Field, Member>;
template <typename Field, typename Member>
Optional(const char*, Field, Member) -> Optional<Field, Member>;
template <typename Field, typename Member>
WrittenAlways(const char*, Field, Member) -> WrittenAlways<Field, Member>;
template <typename Field, typename Member>
RequiredUnless(unsigned int, const char*, Field, Member) -> RequiredUnless<Field, Member>;
template <typename Field, typename Member, typename Default>
DefaultedUnless(unsigned int, const char*, Field, Member, Default) -> DefaultedUnless<Field, Member, Default>;

} // namespace norel::Desktop::Domain::Payloads
