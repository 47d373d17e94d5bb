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

/// How much memory a tree may take: 24 bytes for each byte of the text, and a fixed part that leaves small
/// texts alone.
constexpr std::size_t MEMORY_PER_BYTE = 24;
constexpr std::size_t FIXED_MEMORY = std::size_t{64} * 1024;

/// What an allocation takes from the heap, as common allocators round it.
std::size_t heapBlock(std::size_t size) {
    constexpr std::size_t header = 8;
    constexpr std::size_t unit = 16;
    return size == 0 ? 0 : std::max(2 * unit, (size + header + unit - 1) / unit * unit);
}

/// What a string takes beside the object itself.
std::size_t heapBlockOfText(const std::string& text) {
    static const std::size_t withoutHeap = std::string().capacity();
    return text.size() <= withoutHeap ? 0 : heapBlock(text.size() + 1);
}

/// Builds the value from events. Each array and object is built in its place, with room for just its items.
class TreeBuilder final : public nlohmann::json_sax<Node> {
public:
    TreeBuilder(const std::string& sourceText, const JsonOutline& textOutline)
        : text(sourceText), outline(textOutline), available(MEMORY_PER_BYTE * text.size() + FIXED_MEMORY) {
        charge(heapBlock(outline.itemCounts.size() * sizeof(std::uint32_t)));
    }

    bool null() override { return add(nullptr); }

    bool boolean(bool value) override { return add(value); }

    bool number_integer(number_integer_t value) override { return add(value); }

    bool number_unsigned(number_unsigned_t value) override { return add(value); }

    bool number_float(number_float_t value, const string_t& /*token*/) override { return add(value); }

    bool string(string_t& value) override {
        charge(heapBlock(sizeof value) + heapBlockOfText(value));
        return add(std::move(value));
    }

    bool binary(binary_t& /*value*/) override { return false; } // no JSON text holds one

    bool start_object(std::size_t /*size*/) override {
        Members& members = open<Members>(Node::value_t::object, 5); // "":0,
        containers[depth++] = {nullptr, &members};
        return true;
    }

    bool start_array(std::size_t /*size*/) override {
        Elements& elements = open<Elements>(Node::value_t::array, 2); // 0,
        containers[depth++] = {&elements, nullptr};
        return true;
    }

    bool key(string_t& name) override {
        charge(heapBlockOfText(name));
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

    /// Adds an empty container, whose items take at least `shortestItem` bytes of text each.
    template <typename Items>
    Items& open(Node::value_t kind, std::size_t shortestItem) {
        if (depth == Json::MAXIMUM_DEPTH)
            throw tooDeep(placeInText(text, outline.tooDeepAt));
        const std::size_t count =
            containerIndex < outline.itemCounts.size() ? outline.itemCounts[containerIndex++] : 0;
        const std::size_t capacity = std::min(count, text.size() / shortestItem + 1); // of malformed text
        charge(heapBlock(sizeof(Items)) + heapBlock(capacity * sizeof(typename Items::value_type)));
        auto& items = addNode(kind).template get_ref<Items&>();
        items.reserve(capacity);
        return items;
    }

    void charge(std::size_t memory) {
        if (memory > available)
            throw Json::JsonError("the value takes more than " + std::to_string(MEMORY_PER_BYTE) +
                                  " times the memory of its text");
        available -= memory;
    }

    static void removeDuplicates(Members& members);

    const std::string& text;
    const JsonOutline& outline;
    std::size_t available; // memory
    std::size_t containerIndex = 1;
    JsonTree tree;
    std::array<Container, Json::MAXIMUM_DEPTH> containers{}; // that are open
    std::size_t depth = 0;
};

bool hasFewMembersAndNoDuplicates(const Node::object_t& members) {
    constexpr std::size_t few = 16;
    if (members.size() > few)
        return false;
    for (auto member = members.begin(); member != members.end(); ++member)
        for (auto other = members.begin(); other != member; ++other)
            if (other->first == member->first)
                return false;
    return true;
}

/// Leaves of the members with the same key the last value, in the place of the first one.
void TreeBuilder::removeDuplicates(Members& members) {
    if (hasFewMembersAndNoDuplicates(members))
        return;
    struct Entry {
        std::size_t hash;
        std::uint32_t index;
    };
    // Sorted by hash, then by key, so that hostile keys with the same hash cost no more than their
    // comparison.
    std::vector<Entry> entries;
    entries.reserve(members.size());
    for (const auto& member : members)
        entries.push_back(
            {std::hash<std::string>()(member.first), static_cast<std::uint32_t>(entries.size())});
    const auto keyOf = [&](const Entry& entry) -> const std::string& {
        return (members.cbegin() + entry.index)->first;
    };
    std::sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        if (a.hash != b.hash)
            return a.hash < b.hash;
        const int order = keyOf(a).compare(keyOf(b));
        return order != 0 ? order < 0 : a.index < b.index;
    });
    std::vector<bool> isKept(members.size(), true);
    std::size_t kept = members.size();
    const Entry* first = nullptr; // of those with the same key
    for (const Entry& entry : entries) {
        if (!first || first->hash != entry.hash || keyOf(*first) != keyOf(entry)) {
            first = &entry;
            continue;
        }
        const auto begin = members.begin();
        (begin + first->index)->second.swap((begin + entry.index)->second);
        isKept[entry.index] = false;
        --kept;
    }
    if (kept == members.size())
        return;
    Members remaining;
    remaining.reserve(kept);
    for (std::size_t i = 0; i < members.size(); ++i) {
        auto& [key, value] = *(members.begin() + static_cast<std::ptrdiff_t>(i));
        if (isKept[i])
            appendMember(remaining, key) = std::move(value);
        else
            destroyChildren(value);
    }
    members.swap(remaining);
}

} // namespace

/// Drives the builder with what a Json::Reader finds, which takes a third of the time of the JSON library's
/// own parser.
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
    try {
        Json::Reader reader(text);
        TreeBuilder builder(text, outline);
        JsonTreeReader::read(reader, builder);
        reader.end();
        return builder.takeTree();
    } catch (const Json::JsonError&) { // the JSON library words the error, or knows better
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
