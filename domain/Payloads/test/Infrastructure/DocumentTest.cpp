#include "ProfileLists.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <nlohmann/json.hpp>

/// Checks a document with every member of the model (full-profile.json) member by member.
namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Tree = nlohmann::ordered_json;

/// A value somewhere in the document.
struct Node {
    Tree::json_pointer pointer;
    std::string path;       // as in error messages
    std::size_t begin, end; // of its text in the document
    std::size_t parent;     // its position in the list of nodes
};

/// Whether a member is optional. All optional members except presets and precision may also be null.
bool mayBeAbsent(const std::string& path) {
    const char* const ends[] = {
        ".serial_number",        "].lidar",  ".imu_external", ".georeferencing.boresight_angles",
        ".calibration_document", ".presets", ".precision"};
    return std::any_of(std::begin(ends), std::end(ends),
                       [&](const char* end) { return path.ends_with(end); });
}

bool mayBeNull(const std::string& path) {
    return mayBeAbsent(path) && !path.ends_with(".presets") && !path.ends_with(".precision");
}

/// Whether the value is read as a whole and not member by member.
bool isLeaf(const Tree& value, const std::string& path) {
    return !value.is_structured() || path.ends_with(".presets") || path.ends_with("terrain_typology");
}

class Document : public testing::Test {
protected:
    Document() {
        written = serializer.serialize(makeFullList());
        document = Tree::parse(written);
        text = "[";
        collect(document[0], {Tree::json_pointer("/0"), "[0]", 0, 0, 0});
        text += "]";
    }

    /// Appends the value and its members to `nodes`, and their text to `text`.
    void collect(const Tree& value, const Node& node) {
        const std::size_t position = nodes.size(), begin = text.size();
        nodes.push_back(node);
        if (isLeaf(value, node.path)) {
            text += value.dump();
        } else {
            text += value.is_object() ? "{" : "[";
            for (const auto& [key, member] : value.items()) { // the keys of an array are its indices
                text += text.back() == '{' || text.back() == '[' ? "" : ",";
                text += value.is_object() ? "\"" + key + "\":" : "";
                Node inside{node.pointer / key, node.path + "." + key, 0, 0, position};
                if (value.is_array())
                    inside = {node.pointer / std::stoul(key), node.path + ".[" + key + "]", 0, 0, position};
                collect(member, inside);
            }
            text += value.is_object() ? "}" : "]";
        }
        nodes[position].begin = begin;
        nodes[position].end = text.size();
    }

    /// The document with another value at the node, truncated after the siblings of the node, since parsing
    /// takes most of the time of these tests.
    std::string upTo(const Node& node, const Tree& value) const {
        std::string part = text.substr(0, node.begin) + value.dump() +
                           text.substr(node.end, nodes[node.parent].end - node.end);
        std::string closing;
        for (const char c : part)
            if (c == '{' || c == '[')
                closing += c == '{' ? '}' : ']';
            else if (c == '}' || c == ']')
                closing.pop_back();
        return part + std::string(closing.rbegin(), closing.rend());
    }

    std::string with(const Node& node, const Tree& value) const {
        return text.substr(0, node.begin) + value.dump() + text.substr(node.end);
    }

    Tree without(const Node& node) const {
        Tree changed = document;
        changed[node.pointer.parent_pointer()].erase(node.pointer.back());
        return changed;
    }

    std::string rewritten(const std::string& changed) const {
        return serializer.serialize(serializer.deserialize(changed));
    }

    void expectRejected(const std::string& changed, const std::string& message) const {
        EXPECT_THAT([&] { serializer.deserialize(changed); },
                    testing::ThrowsMessage<ProfileListSerializer::ParsingError>(message));
    }

    const JsonProfileListSerializer serializer;
    std::string written;
    Tree document;
    std::string text; // the same document on one line
    std::vector<Node> nodes;
};

TEST_F(Document, WritesEveryMemberUnderItsKeyInOrder) {
    std::ifstream file(NOREL_PAYLOADS_TEST_DATA "/full-profile.json", std::ios::binary);
    const std::string expected{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(written + "\n", expected);
}

TEST_F(Document, RejectsNullAndWrongTypesWithTheirPath) {
    for (const Node& node : nodes) {
        const Tree& value = document[node.pointer];
        const std::string message = value.is_object() && !isLeaf(value, node.path)
                                        ? "[json.exception.type_error.304] cannot use at() with "
                                        : std::string("[json.exception.type_error.302] type must be ") +
                                              value.type_name() + ", but is ";
        if (!mayBeNull(node.path))
            expectRejected(upTo(node, nullptr), message + "null at " + node.path);
        if (value.is_string())
            expectRejected(upTo(node, 5), message + "number at " + node.path);
        else
            expectRejected(upTo(node, "text"), message + "string at " + node.path);
    }
}

TEST_F(Document, ReportsTheFirstMissingKey) {
    for (const Node& node : nodes) {
        const Tree& object = document[node.pointer];
        if (!object.is_object() || isLeaf(object, node.path))
            continue;
        std::vector<std::string> order;
        for (const auto& [key, member] : object.items())
            order.push_back(key);
        if (const auto value = std::find(order.begin(), order.end(), "value"); value != order.end())
            std::rotate(order.begin(), value, value + 1); // a parameter's value comes first
        Tree partial = Tree::object();
        for (const std::string& key : order) {
            if (!mayBeAbsent(node.path + "." + key))
                expectRejected(upTo(node, partial), "[json.exception.out_of_range.403] key '" + key +
                                                        "' not found at " + node.path);
            partial[key] = object[key];
        }
        EXPECT_EQ(rewritten(with(node, partial)), written) << node.path;
    }
}

TEST_F(Document, ReadsWithoutOptionalMembers) {
    for (const Node& node : nodes) {
        if (!mayBeAbsent(node.path))
            continue;
        const Tree expected =
            node.path.ends_with(".serial_number") ? Tree::parse(with(node, "")) : without(node);
        EXPECT_EQ(rewritten(without(node).dump()), expected.dump(4)) << node.path;
        if (mayBeNull(node.path)) {
            EXPECT_EQ(rewritten(with(node, nullptr)), expected.dump(4)) << node.path;
        }
    }
}

/// The same value with its members in reverse order, and with members that are unknown or that the flags
/// exclude.
Tree reversedWithExtraMembers(const Tree& value) {
    if (!value.is_structured())
        return value;
    const bool isParameter = value.contains("value");
    Tree result = value.is_array() ? Tree::array() : Tree::object();
    for (auto member = value.rbegin(); value.is_object() && member != value.rend(); ++member)
        result[member.key()] = isParameter ? *member : reversedWithExtraMembers(*member);
    for (const Tree& element : value.is_array() ? value : Tree())
        result.push_back(reversedWithExtraMembers(element));
    for (const char* key : {"uploads", "neighbors_search_radius", "number_of_neighbors", "defaultValue",
                            "presets", "minimum", "maximum", "precision", "unit"})
        if (value.is_object() && !value.contains(key))
            result[key] = nullptr;
    return result;
}

TEST_F(Document, IgnoresTheOrderOfMembersAndUnknownMembers) {
    EXPECT_EQ(rewritten(reversedWithExtraMembers(document).dump()), written);
}

TEST_F(Document, IsUnchangedByReadingAndWriting) {
    document.push_back(Tree::parse(serializer.serialize(makeList({{3, "plain"}})))[0]);
    const ProfileList list = serializer.deserialize(document.dump());
    EXPECT_EQ(serializer.serialize(list), document.dump(4));
    EXPECT_TRUE(serializer.deserialize(document.dump(4)) == list);
    EXPECT_EQ(list.list().size(), 2U);
}

TEST(ProfileListSchema, IsTheOneInTheDocumentation) {
    std::ifstream file(NOREL_PAYLOADS_TEST_DATA "/../../../../docs/profile-list.schema.json",
                       std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(makeProfileListSchema(), text) << "payload-profiles schema > docs/profile-list.schema.json";
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
