#pragma once

#include "DocumentTables.h"
#include "MovingBuild.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads and writes documents without building JSON values, by the tables of the document and by Json::Reader
/// and Json::Writer of hosts that have them.
///
/// Its errors are never reported: after a failure the caller repeats the operation with JSON values and uses
/// that result or error. So it may reject rare but valid documents; for those that it accepts, the result
/// must be the same.
namespace norel::Desktop::Domain::Payloads {

template <typename Json>
concept HasTextReader = requires {
    typename Json::Reader;
};

template <typename Json>
concept HasTextWriter = requires {
    typename Json::Writer;
};

/// Fills builders from a text. Throws Json::JsonError, or what reading a date throws.
template <typename Json>
class DocumentTextReader {
public:
    using Options = JsonProfileListSerializer::Options;

    explicit DocumentTextReader(std::string_view text) : reader(text) {}

    ProfileList readList() {
        ProfileList list;
        reader.beginArray();
        while (reader.nextElement()) {
            Profile::Builder builder;
            read(builder, {});
            ValueAccess::append(list, buildMoving<Profile>(std::move(builder)));
        }
        reader.end();
        return list;
    }

private:
    [[noreturn]] static void fail() { throw typename Json::JsonError("not read"); }

    /// All types but those with a table and those below are scalars of the reader.
    template <typename Member>
    void read(Member& member, Options options) {
        if constexpr (requires { member.build(); })
            readObject(member, options);
        else
            reader.read(member);
    }

    void read(Cameras::Builder& builder, Options /*options*/) { readArray(builder.listOfCameras); }

    void read(FieldOfViews::Builder& builder, Options /*options*/) { readArray(builder.listOfFieldOfViews); }

    void read(std::vector<std::string>& texts, Options /*options*/) { readArray(texts); }

    void read(DateTime::DateTime& time, Options /*options*/) {
        std::string text;
        reader.read(text);
        time = DateTime::DateTimeConversion::fromIso8601(text);
    }

    template <typename Number>
    void read(std::map<std::string, Number>& numbers, Options /*options*/) {
        reader.beginObject();
        for (std::string_view key; reader.nextMember(key);) {
            const auto [entry, isNew] = numbers.try_emplace(std::string(key));
            if (!isNew)
                fail();
            reader.read(entry->second);
        }
    }

    template <typename Item>
    void readArray(std::vector<Item>& items) {
        reader.beginArray();
        while (reader.nextElement())
            read(items.emplace_back(), {});
    }

    /// Members usually come in the order of the table, so the next row is tried first. Only for other members
    /// is the key looked up.
    template <typename Builder>
    void readObject(Builder& builder, Options options) {
        const auto& rows = DocumentTable<decltype(builder.build())>::rows();
        std::array<bool, std::tuple_size_v<std::remove_cvref_t<decltype(rows)>>> isRead{};
        std::string_view key;
        reader.beginObject();
        bool isMember = reader.nextMember(key);
        const auto readInOrder = [&](const auto& row, bool& isRowRead) {
            if (isMember && key == row.key && row.isIncluded(options)) {
                readMember(row, builder, options);
                isRowRead = true;
                isMember = reader.nextMember(key);
            }
        };
        forEachRow(rows, isRead, readInOrder);
        for (; isMember; isMember = reader.nextMember(key)) {
            bool isKnown = false;
            const auto readIfNamed = [&](const auto& row, bool& isRowRead) {
                if (isKnown || key != row.key || !row.isIncluded(options))
                    return;
                if (isRowRead) // a duplicate key, of which the last wins: left to the JSON values
                    fail();
                readMember(row, builder, options);
                isKnown = isRowRead = true;
            };
            forEachRow(rows, isRead, readIfNamed);
            if (!isKnown)
                reader.skip();
        }
        forEachRow(rows, isRead, [&]<typename Row>(const Row& row, bool isRowRead) {
            if (Row::presence == Presence::Required && !isRowRead && row.isIncluded(options))
                fail();
        });
    }

    template <typename Rows, std::size_t Count, typename Visit>
    static void forEachRow(const Rows& rows, std::array<bool, Count>& isRead, const Visit& visit) {
        [&]<std::size_t... I>(std::index_sequence<I...> /*positions*/) {
            (visit(std::get<I>(rows), isRead[I]), ...);
        }
        (std::make_index_sequence<Count>());
    }

    template <typename Row, typename Builder>
    void readMember(const Row& row, Builder& builder, Options options) {
        auto& member = builder.*(row.member);
        if constexpr (Row::presence == Presence::Optional) {
            if (reader.takeNull())
                return;
        }
        if constexpr (requires { member.emplace(); } && Row::presence == Presence::Optional)
            read(member.emplace(), row.getOptions(options));
        else
            read(member, row.getOptions(options));
    }

    typename Json::Reader reader;
};

/// Writes values as a text. Throws Json::JsonError, or what writing a date throws.
template <typename Json>
class DocumentTextWriter {
public:
    using Options = JsonProfileListSerializer::Options;

    explicit DocumentTextWriter(int indentation) : writer(indentation) {}

    std::string write(const ProfileList& list) {
        writeArray(ValueAccess::profilesOf(list));
        return writer.takeText();
    }

private:
    template <typename Value>
    void write(const Value& value, Options options) {
        if constexpr (requires { DocumentTable<Value>::rows(); })
            writeObject(value, options);
        else
            writer.write(value);
    }

    void write(const Cameras& value, Options /*options*/) { writeArray(value.getListOfCameras()); }

    void write(const FieldOfViews& value, Options /*options*/) { writeArray(value.getListOfFieldOfViews()); }

    void write(const std::vector<std::string>& texts, Options /*options*/) { writeArray(texts); }

    void write(const DateTime::DateTime& time, Options /*options*/) {
        writer.write(DateTime::DateTimeConversion::toIso8601(time));
    }

    template <typename Number>
    void write(const std::map<std::string, Number>& numbers, Options /*options*/) {
        writer.beginObject();
        for (const auto& [name, number] : numbers) {
            writer.key(name);
            writer.write(number);
        }
        writer.endObject();
    }

    template <typename Items>
    void writeArray(const Items& items) {
        writer.beginArray();
        std::size_t written = 0;
        for (const auto& item : items) {
            write(item, {});
            writer.tellProgress(++written, items.size());
        }
        writer.endArray();
    }

    template <typename Value>
    void writeObject(const Value& value, Options options) {
        const auto& rows = DocumentTable<Value>::rows();
        const auto& fields = ValueAccess::fieldsOf(value);
        const auto& keys = preparedKeys<Value>();
        const auto writeRow = [&](const auto& row, const auto& key) {
            if (!row.isWritten(fields, options))
                return;
            writer.key(key);
            const auto& field = fields.*(row.field);
            if constexpr (requires { field.has_value(); })
                write(*field, row.getOptions(options));
            else
                write(field, row.getOptions(options));
        };
        writer.beginObject();
        [&]<std::size_t... I>(std::index_sequence<I...> /*positions*/) {
            (writeRow(std::get<I>(rows), keys[I]), ...);
        }
        (std::make_index_sequence<NUMBER_OF_ROWS<Value>>());
        writer.endObject();
    }

    /// The keys of a table, escaped and quoted once.
    template <typename Value>
    static const auto& preparedKeys() {
        using Key = typename Json::Writer::Key;
        static const auto keys =
            std::apply([](const auto&... rows) { return std::array<Key, sizeof...(rows)>{Key(rows.key)...}; },
                       DocumentTable<Value>::rows());
        return keys;
    }

    typename Json::Writer writer;
};

} // namespace norel::Desktop::Domain::Payloads
