#include "JsonTree.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace norel::Desktop::DataFormat {

namespace {

using Elements = Node::array_t;
using Members = Node::object_t;

Node& valueOf(Node& element) { return element; }

Node& valueOf(Members::value_type& member) { return member.second; }

/// Calls `use` with the elements or members of an array or object.
template <typename Use>
decltype(auto) withChildren(Node& container, const Use& use) {
    if (auto* elements = container.get_ptr<Elements*>())
        return use(*elements);
    return use(container.get_ref<Members&>());
}

/// Removes children from the back, up to one that has children itself, and returns that. Null when only the
/// first child is left.
template <typename Children>
Node removeFromBack(Children& children) {
    while (children.size() > 1) {
        if (Node& last = valueOf(children.back()); hasChildren(last)) {
            Node removed = std::move(last);
            children.pop_back();
            return removed;
        }
        children.pop_back();
    }
    return nullptr;
}

bool hasFewMembersAndNoDuplicates(const Members& members) {
    constexpr std::size_t few = 16;
    if (members.size() > few)
        return false;
    for (auto member = members.begin(); member != members.end(); ++member)
        for (auto other = members.begin(); other != member; ++other)
            if (other->first == member->first)
                return false;
    return true;
}

struct HashedMember {
    std::size_t hash;
    std::size_t index;
};

/// The members ordered so that those with the same key stand together, in the order of the object. The hashes
/// save most comparisons of keys; keys that were chosen to have the same hash cost no more than sorting.
std::vector<HashedMember> sortByKey(const Members& members) {
    std::vector<HashedMember> sorted;
    sorted.reserve(members.size());
    for (const auto& member : members)
        sorted.push_back({std::hash<std::string>()(member.first), sorted.size()});
    std::sort(sorted.begin(), sorted.end(), [](const HashedMember& a, const HashedMember& b) {
        return a.hash != b.hash ? a.hash < b.hash : a.index < b.index;
    });
    const auto keyOf = [&](const HashedMember& member) -> const std::string& {
        return members.data()[member.index].first;
    };
    for (auto first = sorted.begin(); first != sorted.end();) {
        const auto last =
            std::find_if(first, sorted.end(), [&](const HashedMember& m) { return m.hash != first->hash; });
        const auto hasOtherKey = [&](const HashedMember& m) { return keyOf(m) != keyOf(*first); };
        if (std::any_of(first, last, hasOtherKey))
            std::sort(first, last, [&](const HashedMember& a, const HashedMember& b) {
                const int order = keyOf(a).compare(keyOf(b));
                return order != 0 ? order < 0 : a.index < b.index;
            });
        first = last;
    }
    return sorted;
}

} // namespace

void destroyChildren(Node& value) noexcept {
    // Walks the tree without a stack: in each container that was entered, the parent takes the place of the
    // first child.
    Node current;
    Node next = std::move(value);
    for (;;) {
        while (hasChildren(next)) {
            Node first = withChildren(next, [&](auto& children) {
                return std::exchange(valueOf(children.front()), std::move(current));
            });
            current = std::move(next);
            next = std::move(first);
        }
        if (current.is_null())
            return;
        next = withChildren(current, [](auto& children) { return removeFromBack(children); });
        if (next.is_null()) {
            Node parent = withChildren(current, [](auto& children) {
                Node first = std::move(valueOf(children.front()));
                children.clear();
                return first;
            });
            current = std::move(parent);
        }
    }
}

JsonTree copyTree(const Node& value) {
    if (!hasChildren(value))
        return JsonTree(value);
    JsonTree copy;
    std::vector<std::pair<const Node*, Node*>> pending{{&value, &copy.root}};
    // Containers are reserved to their final size, so that the addresses in `pending` stay valid.
    const auto copyChild = [&](const Node& from, Node& to) {
        if (hasChildren(from))
            pending.emplace_back(&from, &to);
        else
            to = from;
    };
    while (!pending.empty()) {
        const auto [from, to] = pending.back();
        pending.pop_back();
        if (const auto* elements = from->get_ptr<const Elements*>()) {
            *to = Node(Node::value_t::array);
            auto& copies = to->get_ref<Elements&>();
            copies.resize(elements->size());
            for (std::size_t i = 0; i < copies.size(); ++i)
                copyChild((*elements)[i], copies[i]);
        } else {
            const auto& members = from->get_ref<const Members&>();
            *to = Node(Node::value_t::object);
            auto& copies = to->get_ref<Members&>();
            copies.reserve(members.size());
            for (const auto& [key, member] : members)
                copyChild(member, appendMember(copies, key));
        }
    }
    return copy;
}

void growMembers(Members& members) {
    constexpr std::size_t minimumCapacity = 8;
    Members grown;
    grown.reserve(std::max(minimumCapacity, 2 * members.capacity()));
    for (const auto& member : members)
        grown.Members::Container::emplace_back(member.first, nullptr);
    for (std::size_t i = 0; i < members.size(); ++i) // cannot throw
        (grown.begin() + static_cast<std::ptrdiff_t>(i))->second =
            std::move((members.begin() + static_cast<std::ptrdiff_t>(i))->second);
    members.swap(grown);
}

void removeDuplicates(Members& members) {
    if (hasFewMembersAndNoDuplicates(members))
        return;
    std::vector<bool> isRemoved(members.size());
    std::size_t remainingCount = members.size();
    Members::value_type* const all = members.data();
    Members::value_type* first = nullptr; // of those with the same key
    for (const HashedMember& sorted : sortByKey(members)) {
        auto& member = all[sorted.index];
        if (!first || first->first != member.first) {
            first = &member;
            continue;
        }
        first->second.swap(member.second);
        isRemoved[sorted.index] = true;
        --remainingCount;
    }
    if (remainingCount == members.size())
        return;
    Members remaining;
    remaining.reserve(remainingCount);
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (isRemoved[i])
            destroyChildren(all[i].second);
        else
            appendMember(remaining, all[i].first, std::move(all[i].second));
    }
    members.swap(remaining);
}

} // namespace norel::Desktop::DataFormat
