#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <utility>

namespace norel::Desktop::DataFormat {

using Node = nlohmann::ordered_json;

/// Whether this is an array or object that is not empty.
inline bool hasChildren(const Node& value) { return value.is_structured() && !value.empty(); }

/// Makes the value null. Uses neither heap nor recursion, however deep the value is. (Its own destructor
/// first gathers the children on the heap, which terminates the program when memory is short.)
void destroyChildren(Node& value) noexcept;

/// Owns a value. Every value that may have children is destroyed by one of these.
struct JsonTree {
    JsonTree() = default;
    explicit JsonTree(Node&& value) noexcept : root(std::move(value)) {}
    /// From what makes a node.
    template <typename Value>
    explicit JsonTree(const Value& value) : root(value) {}
    JsonTree(JsonTree&& other) noexcept = default;
    JsonTree& operator=(JsonTree&& other) noexcept {
        root.swap(other.root);
        return *this;
    }
    ~JsonTree() {
        if (hasChildren(root))
            destroyChildren(root);
    }

    Node root;
};

/// A deep copy.
JsonTree copyTree(const Node& value);

/// Makes room for more members.
void growMembers(Node::object_t& members);

/// Adds a member after the others. The object must not have the key yet. (Objects are vectors of pairs with a
/// constant key: their own insertions search for the key, and copy every member when they grow.)
template <typename Key, typename Value = std::nullptr_t>
Node& appendMember(Node::object_t& members, Key&& key, Value&& value = nullptr) {
    if (members.size() == members.capacity())
        growMembers(members);
    return members.Node::object_t::Container::emplace_back(std::forward<Key>(key), std::forward<Value>(value))
        .second;
}

/// Duplicate keys: keeps the last value, at the position of the first. Takes the time of sorting.
void removeDuplicates(Node::object_t& members);

} // namespace norel::Desktop::DataFormat
