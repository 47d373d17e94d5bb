#include "norel/Desktop/Domain/Payloads/ProfileListSchema.h"

#include "DocumentTables.h"

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::Domain::Payloads {
namespace {

using namespace std::string_literals; // the contract makes JSON values of std::string only
using DataFormat::Json;
using Options = JsonProfileListSerializer::Options;

template <typename Type>
constexpr std::type_identity<Type> TYPE{};

/// Describes the types of a document by its tables: each `describe` adds the keywords for a type to a schema.
/// Parameters occur in a few forms, each of which is a definition that the members refer to.
class TypeDescriber {
public:
    template <typename Type>
    Json makeSchema(std::type_identity<Type> type, Options options) {
        Json schema;
        describe(schema, type, options);
        return schema;
    }

    const Json& getDefinitions() const { return definitions; }

private:
    void describe(Json& schema, std::type_identity<std::string> /*type*/, Options /*options*/) {
        schema.set("type", "string"s);
    }

    void describe(Json& schema, std::type_identity<bool> /*type*/, Options /*options*/) {
        schema.set("type", "boolean"s);
    }

    void describe(Json& schema, std::type_identity<double> /*type*/, Options /*options*/) {
        schema.set("type", "number"s);
    }

    template <std::integral Integer>
    void describe(Json& schema, std::type_identity<Integer> /*type*/, Options /*options*/) {
        schema.set("type", "integer"s);
        schema.set("minimum", std::numeric_limits<Integer>::min());
        schema.set("maximum", std::numeric_limits<Integer>::max());
    }

    void describe(Json& schema, std::type_identity<DateTime::DateTime> /*type*/, Options /*options*/) {
        schema.set("type", "string"s);
        schema.set("format", "date-time"s);
    }

    template <typename Number>
    void describe(Json& schema, std::type_identity<std::map<std::string, Number>> /*type*/, Options options) {
        schema.set("type", "object"s);
        schema.set("additionalProperties", makeSchema(TYPE<Number>, options));
    }

    template <typename Item>
    void describe(Json& schema, std::type_identity<std::vector<Item>> /*type*/, Options /*options*/) {
        schema.set("type", "array"s);
        schema.set("items", makeSchema(TYPE<Item>, {}));
    }

    void describe(Json& schema, std::type_identity<Cameras> /*type*/, Options options) {
        describe(schema, TYPE<std::vector<Camera>>, options);
    }

    void describe(Json& schema, std::type_identity<FieldOfViews> /*type*/, Options options) {
        describe(schema, TYPE<std::vector<FieldOfView>>, options);
    }

    template <typename T>
    void describe(Json& schema, std::type_identity<Parameter<T>> /*type*/, Options options) {
        const std::string name = nameForm<T>(options);
        if (!definitions.contains(name)) {
            Json definition;
            describeObject<Parameter<T>>(definition, options);
            definitions.set(name, definition);
        }
        schema.set("$ref", "#/$defs/" + name);
    }

    template <typename Value>
    requires requires { DocumentTable<Value>::rows(); }
    void describe(Json& schema, std::type_identity<Value> /*type*/, Options options) {
        describeObject<Value>(schema, options);
    }

    template <typename Member>
    void describe(Json& schema, std::type_identity<std::optional<Member>> /*type*/, Options options) {
        describe(schema, TYPE<Member>, options);
    }

    template <typename T>
    static std::string nameForm(Options options) {
        std::string name = std::is_same_v<T, double> ? "number"
                           : std::is_same_v<T, int>  ? "integer"
                                                     : "count";
        if (options.hasAny(VALUE_ONLY))
            name += "-value-only";
        if (options.hasAny(NO_CONSTRAINTS))
            name += "-without-bounds";
        if (options.hasAny(NO_UNIT))
            name += "-without-unit";
        return name;
    }

    template <typename Value>
    void describeObject(Json& schema, Options options) {
        Json properties;
        std::vector<std::string> requiredKeys;
        const auto add = [&](const auto& row) {
            if (!row.isIncluded(options))
                return;
            properties.set(row.key, describeMember(row, row.getOptions(options)));
            if (row.presence == Presence::Required)
                requiredKeys.push_back(row.key);
        };
        std::apply([&](const auto&... rows) { (add(rows), ...); }, DocumentTable<Value>::rows());
        schema.set("type", "object"s);
        schema.set("properties", properties);
        schema.set("required", requiredKeys);
    }

    template <Presence PRESENCE, typename Fields, typename Field, typename Builder, typename Member>
    Json describeMember(const Row<PRESENCE, Fields, Field, Builder, Member>& row, Options options) {
        Json schema;
        schema.set("description", std::string(row.description));
        if constexpr (PRESENCE == Presence::Optional) { // null counts as absent
            Json null;
            null.set("type", "null"s);
            schema.set("anyOf", std::vector<Json>{makeSchema(TYPE<Field>, options), null});
        } else {
            describe(schema, TYPE<Field>, options);
        }
        describeRule(schema, row.allowed);
        return schema;
    }

    static void describeRule(Json& schema, const Allowed& allowed) {
        if (!allowed.choices.empty())
            schema.set("enum", std::vector<std::string>(allowed.choices.begin(), allowed.choices.end()));
        if (allowed.form)
            schema.set("pattern", std::string("^").append(allowed.form).append("$"));
        if (allowed.isNotEmpty)
            schema.set(schema.contains("items") ? "minItems" : "minLength", 1);
        if (allowed.valueBetween) {
            Json limits;
            limits.set("exclusiveMinimum", allowed.valueBetween->first);
            limits.set("exclusiveMaximum", allowed.valueBetween->second);
            Json properties;
            properties.set(Keys::VALUE, limits);
            schema.set("properties", properties);
        }
    }

    Json definitions;
};

} // namespace

std::string makeProfileListSchema() {
    constexpr int indentation = 4;
    TypeDescriber describer;
    const Json profile = describer.makeSchema(TYPE<Profile>, {});
    Json schema;
    schema.set("$schema", "https://json-schema.org/draft/2020-12/schema"s);
    schema.set("title", "Payload profiles"s);
    schema.set("description",
               "A list of payload profiles. Unknown members are ignored. Rules that relate members to "
               "each other, such as a value to its minimum, are not part of this schema."s);
    schema.set("type", "array"s);
    schema.set("items", profile);
    schema.set("$defs", describer.getDefinitions());
    return schema.toString(indentation) + '\n';
}

} // namespace norel::Desktop::Domain::Payloads
