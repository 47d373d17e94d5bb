#include "ParseJson.h"

#include "JsonErrors.h"
#include "JsonOutline.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace norel::Desktop::DataFormat {
namespace {

/// Builds the value from parser events. Each array and object is built in place, reserved to its final size.
class TreeBuilder final : public nlohmann::json_sax<Node> {
public:
    TreeBuilder(const std::string& sourceText, const JsonOutline& textOutline)
        : text(sourceText), outline(textOutline) {}

    bool null() override { return add(nullptr); }

    bool boolean(bool value) override { return add(value); }

    bool number_integer(number_integer_t value) override { return add(value); }

    bool number_unsigned(number_unsigned_t value) override { return add(value); }

    bool number_float(number_float_t value, const string_t& /*token*/) override { return add(value); }

    bool string(string_t& value) override { return add(std::move(value)); }

    bool binary(binary_t& /*value*/) override { return false; } // no JSON text holds one

    bool start_object(std::size_t /*size*/) override {
        Members& members = open<Members>(Node::value_t::object);
        containers[depth++] = {nullptr, &members};
        return true;
    }

    bool start_array(std::size_t /*size*/) override {
        Elements& elements = open<Elements>(Node::value_t::array);
        containers[depth++] = {&elements, nullptr};
        return true;
    }

    bool key(string_t& name) override {
        appendMember(*containers[depth - 1].members, std::move(name));
        return true;
    }

    bool end_object() override {
        removeDuplicates(*containers[--depth].members);
        return true;
    }

    bool end_array() override {
        --depth;
        return true;
    }

    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const nlohmann::detail::exception& error) override {
        throw Json::JsonError(boundedErrorText(error.what()));
    }

    JsonTree takeTree() { return std::move(tree); }

private:
    using Elements = Node::array_t;
    using Members = Node::object_t;

    struct Container {
        Elements* elements; // of an array
        Members* members;   // of an object
    };

    template <typename Value>
    bool add(Value&& value) {
        addNode(std::forward<Value>(value));
        return true;
    }

    template <typename Value>
    Node& addNode(Value&& value) {
        if (depth == 0)
            return tree.root = Node(std::forward<Value>(value));
        if (Elements* elements = containers[depth - 1].elements)
            return elements->emplace_back(std::forward<Value>(value));
        return containers[depth - 1].members->back().second = Node(std::forward<Value>(value));
    }

    /// Adds an empty array or object with room for its items.
    template <typename Items>
    Items& open(Node::value_t kind) {
        if (depth == Json::MAXIMUM_DEPTH)
            throw tooDeep(placeInText(text, outline.tooDeepAt));
        auto& items = addNode(kind).template get_ref<Items&>();
        items.reserve(outline.itemCounts[++containerIndex]);
        return items;
    }

    const std::string& text;
    const JsonOutline& outline;
    std::size_t containerIndex = 0; // of the one that began last; 0 is the text as a whole
    JsonTree tree;
    std::array<Container, Json::MAXIMUM_DEPTH> containers{}; // that are open
    std::size_t depth = 0;
};

} // namespace

/// Feeds the builder from a Json::Reader, in a third of the time of the JSON library's own parser.
class JsonTreeReader {
public:
    static void read(Json::Reader& reader, TreeBuilder& builder) {
        using Number = Json::Reader::Number;
        std::string_view key;
        std::string string;
        bool boolean = false;
        switch (reader.peekKind()) {
        case '{':
            reader.beginObject();
            builder.start_object(0);
            while (reader.nextMember(key)) {
                string = key;
                builder.key(string);
                read(reader, builder);
            }
            builder.end_object();
            break;
        case '[':
            reader.beginArray();
            builder.start_array(0);
            while (reader.nextElement())
                read(reader, builder);
            builder.end_array();
            break;
        case '"':
            reader.read(string);
            builder.string(string);
            break;
        case 't':
        case 'f':
            reader.read(boolean);
            builder.boolean(boolean);
            break;
        case 'n':
            reader.takeNull();
            builder.null();
            break;
        default:
            const Number number = reader.readNumber();
            if (number.kind == Number::Kind::FLOATING_POINT)
                builder.number_float(number.floatingPoint, {});
            else if (number.kind == Number::Kind::UNSIGNED)
                builder.number_unsigned(number.magnitude);
            else
                builder.number_integer(static_cast<std::int64_t>(0 - number.magnitude));
        }
    }
};

JsonTree parseJson(const std::string& text) {
    const JsonOutline outline(text);
    if (outline.takesTooMuchMemory)
        throw Json::JsonError("the value takes more than " + std::to_string(JsonOutline::MEMORY_PER_BYTE) +
                              " times the memory of its text");
    try {
        Json::Reader reader(text);
        TreeBuilder builder(text, outline);
        JsonTreeReader::read(reader, builder);
        reader.end();
        return builder.takeTree();
    } catch (const Json::JsonError&) { // the JSON library's parser gives the message, or accepts the text
    }
    // Its parser takes a NUL for the end of the text.
    if (const auto nul = text.find('\0'); nul != std::string::npos)
        throw Json::JsonError("a JSON text cannot hold the NUL character found at byte " +
                              std::to_string(nul + 1));
    TreeBuilder builder(text, outline);
    Node::sax_parse(text, &builder);
    return builder.takeTree();
}

} // namespace norel::Desktop::DataFormat
