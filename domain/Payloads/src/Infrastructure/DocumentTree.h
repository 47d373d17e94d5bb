#pragma once

#include "DocumentTables.h"
#include "ParsingErrors.h"

#include <optional>
#include <utility>
#include <vector>

/// Reads and writes the objects and arrays of a document as JSON values, by the tables of the document.
/// Members are read and written by the virtual operations of the serializer, which a derived serializer may
/// override.
namespace norel::Desktop::Domain::Payloads {

/// An object or array that is being read.
class DocumentReader {
public:
    using Options = JsonProfileListSerializer::Options;
    using JsonPath = JsonProfileListSerializer::JsonPath;

    DocumentReader(const JsonProfileListSerializer& reading, const JsonPath& object, Options ofObject = {})
        : serializer(reading), path(object), options(ofObject) {}

    /// Reads the member of a row into its builder.
    template <typename Row, typename Builder>
    void read(const Row& row, Builder& builder) const {
        auto& member = builder.*(row.member);
        if (!row.isIncluded(options))
            return;
        if constexpr (Row::presence == Presence::Required) {
            readMember(row, member);
        } else if constexpr (Row::presence == Presence::Defaulted) {
            if (path.contains(row.key))
                readMember(row, member);
            else
                member = Builder().*(row.member);
        } else {
            const bool isSet = path.isOptionalSet(row.key);
            if constexpr (requires { member.emplace(); }) {
                member.reset();
                if (isSet)
                    readMember(row, member.emplace());
            } else if (isSet) {
                readMember(row, member);
            }
        }
    }

    template <typename Item>
    void readElement(const DataFormat::Json& element, unsigned int index, Item& item) const {
        serializer.fromJson(JsonPath(path, element, index), item, Options());
    }

private:
    template <typename Row, typename Member>
    void readMember(const Row& row, Member& member) const {
        serializer.fromJson(JsonPath(path, path.getMember(row.key), row.key), member,
                            row.getOptions(options));
    }

    const JsonProfileListSerializer& serializer;
    const JsonPath& path;
    const Options options;
};

template <typename Value>
DataFormat::Json writeObject(const JsonProfileListSerializer& serializer, const Value& value,
                             JsonProfileListSerializer::Options options) {
    DataFormat::Json object;
    const auto& fields = ValueAccess::fieldsOf(value);
    const auto write = [&](const auto& row) {
        if (!row.isWritten(fields, options))
            return;
        const auto& field = fields.*(row.field);
        if constexpr (requires { field.has_value(); })
            object.set(row.key, serializer.toJson(*field, row.getOptions(options)));
        else
            object.set(row.key, serializer.toJson(field, row.getOptions(options)));
    };
    std::apply([&](const auto&... rows) { (write(rows), ...); }, DocumentTable<Value>::rows());
    return object;
}

template <typename Builder>
void readObject(const JsonProfileListSerializer& serializer, const JsonProfileListSerializer::JsonPath& path,
                Builder& builder, JsonProfileListSerializer::Options options) {
    using Value = decltype(builder.build());
    const DocumentReader reader(serializer, path, options);
    const auto readRows = [&]<std::size_t... I>(std::index_sequence<I...>) {
        (reader.read(std::get<I>(DocumentTable<Value>::rows()), builder), ...);
    };
    readRows(typename ReadingOrder<Value>::Positions());
}

template <typename Items>
DataFormat::Json writeArray(const JsonProfileListSerializer& serializer, const Items& items) {
    std::vector<DataFormat::Json> elements;
    elements.reserve(items.size());
    for (const auto& item : items)
        elements.push_back(serializer.toJson(item, {}));
    return DataFormat::Json(std::move(elements));
}

/// Reads each element, from `element` on, into a new item and passes that to `take`.
template <typename Item, typename Take>
void readArray(const JsonProfileListSerializer& serializer, const JsonProfileListSerializer::JsonPath& path,
               DataFormat::JsonConstIterator element, const Take& take) {
    const DocumentReader reader(serializer, path);
    const auto end = path.getValue().end();
    for (unsigned int index = 0; element != end; ++element, ++index) {
        Item item;
        reader.readElement(*element, index, item);
        take(std::move(item));
    }
}

template <typename Item>
void readArray(const JsonProfileListSerializer& serializer, const JsonProfileListSerializer::JsonPath& path,
               std::vector<Item>& items) {
    const auto begin = withPath(path, [&] { return path.getValue().begin(); });
    readArray<Item>(serializer, path, begin, [&](Item&& item) { items.push_back(std::move(item)); });
}

/// Reserves memory for the profiles, since a list that grows needs the memory of its profiles twice. The
/// maximum keeps a short text from reserving much.
inline void reserveProfiles(ProfileList& list, const DataFormat::Json& array) {
    constexpr std::size_t maximum = 2000;
    std::size_t count = 0;
    const auto end = array.end();
    for (auto element = array.begin(); count < maximum && element != end; ++element)
        ++count;
    ValueAccess::reserve(list, count);
}

template <typename Leaf>
void readLeaf(const JsonProfileListSerializer::JsonPath& path, Leaf& target) {
    target = withPath(path, [&] { return path.getValue().template as<Leaf>(); });
}

} // namespace norel::Desktop::Domain::Payloads
