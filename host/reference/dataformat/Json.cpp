#include "norel/Desktop/DataFormat/Json.h"

#include "JsonErrors.h"
#include "JsonTree.h"
#include "ParseJson.h"
#include "WriteJson.h"

#include <atomic>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>

namespace norel::Desktop::DataFormat {

struct Json::Tree {
    template <typename Contents>
    explicit Tree(Contents&& newContents) : contents(std::forward<Contents>(newContents)) {}

    JsonTree contents;
    // Not a shared_ptr: its count does not synchronize with other threads that have released the tree.
    std::atomic<std::size_t> holders{1};
    std::size_t views = 0; // among the holders
};

namespace {

const Node& memberOf(const Node& object, const std::string& key) {
    if (const auto* members = object.get_ptr<const Node::object_t*>())
        if (const auto member = members->find(key); member != members->end())
            return member->second;
    return translateErrors([&]() -> const Node& { return object.at(key); }); // throws the library's error
}

/// Sets the member to what is made of the value.
template <typename Value>
void setMember(Node& object, const std::string& key, Value&& value) {
    if (object.is_null())
        object = Node(Node::value_t::object);
    auto* members = object.get_ptr<Node::object_t*>();
    if (!members)
        return translateErrors([&] { object[key] = nullptr; }); // throws the library's error
    if (const auto member = members->find(key); member != members->end())
        JsonTree(std::exchange(member->second, Node(std::forward<Value>(value)))); // destroys the former one
    else
        appendMember(*members, key, std::forward<Value>(value));
}

/// The number modulo 2^32, its fraction truncated.
std::uint32_t toUint32(const Node& number) {
    if (number.is_number_float()) {
        const double remainder = std::fmod(number.get<double>(), 4294967296.0);
        return std::isfinite(remainder) ? static_cast<std::uint32_t>(static_cast<std::int64_t>(remainder))
                                        : 0;
    }
    if (number.is_number() || number.is_boolean())
        return static_cast<std::uint32_t>(number.is_boolean() ? number.get<bool>()
                                                              : number.get<std::uint64_t>());
    return translateErrors([&] { return number.get<std::uint32_t>(); }); // throws the library's error
}

template <typename T>
T convert(const Node& value) {
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
        return static_cast<T>(toUint32(value));
    else
        return translateErrors([&] { return value.get<T>(); });
}

template <typename Number>
std::map<std::string, Number> convertToMap(const Node& value) {
    if (!value.is_object())
        convert<std::map<std::string, double>>(value); // throws the library's error
    std::map<std::string, Number> map;
    for (const auto& [key, number] : value.get_ref<const Node::object_t&>())
        map.emplace(key, convert<Number>(number));
    return map;
}

} // namespace

struct Json::Internals {
    template <typename Contents>
    static Json make(Contents&& contents) {
        return Json(new Tree(std::forward<Contents>(contents)));
    }

    static Json share(Tree* tree, const void* node) {
        Json json;
        tree->holders.fetch_add(1, std::memory_order_relaxed);
        json.tree = tree;
        json.node = node;
        return json;
    }

    static Node makeNode(const Scalar& scalar) {
        return std::visit([](auto contents) { return Node(contents); }, scalar);
    }

    static const Node& nodeOf(const Json& json) {
        if (json.path.empty())
            return *static_cast<const Node*>(json.node);
        const Node* value = &json.tree->contents.root;
        for (const std::string& key : json.path)
            value = &memberOf(*value, key);
        return *value;
    }

    /// The value of a Json while that is read: its node in the tree, or one made of the scalar.
    class Value {
    public:
        explicit Value(const Json& json)
            : node(json.tree ? nodeOf(json) : made.emplace(makeNode(json.scalar))) {}
        Value(const Value&) = delete;
        Value& operator=(const Value&) = delete;

        const Node& operator*() const { return node; }
        const Node* operator->() const { return &node; }

    private:
        std::optional<Node> made;
        const Node& node;
    };

    static Value read(const Json& json) { return Value(json); }

    static JsonTree copy(const Json& json) {
        return json.tree ? copyTree(nodeOf(json)) : JsonTree(makeNode(json.scalar));
    }

    /// Whether the value may be changed through another object, so that it cannot be shared.
    static bool isViewed(const Json& json) { return json.tree && json.tree->views != 0; }

    /// Whether no other object holds the tree of the value, so that it can be moved.
    static bool isOnlyHolder(const Json& json) {
        return json.tree && json.tree->holders.load(std::memory_order_acquire) == 1 &&
               json.node == &json.tree->contents.root;
    }

    static Node& write(Json& json) {
        if (!json.tree) {
            json.tree = new Tree(makeNode(json.scalar));
            json.node = &json.tree->contents.root;
        } else if (!isViewed(json) && !isOnlyHolder(json)) {
            json = make(copyTree(nodeOf(json)));
        }
        return const_cast<Node&>(nodeOf(json)); // no part of a tree is a constant
    }

    /// The value: moved if possible, copied otherwise.
    static JsonTree take(Json& json) {
        return isOnlyHolder(json) ? std::move(json.tree->contents) : copy(json);
    }
};

Json::Json() noexcept = default;

Json::Json(Tree* newTree) noexcept : tree(newTree), node(&newTree->contents.root) {}

Json::Json(int number) : scalar(number) {}

Json::Json(unsigned int number) : scalar(number) {}

Json::Json(double number) : scalar(number) {}

Json::Json(bool boolean) : scalar(boolean) {}

Json::Json(const std::string& text) : Json(new Tree(text)) {}

Json::Json(const char* text) : Json(new Tree(text)) {}

Json::Json(const std::map<std::string, int>& members) : Json(new Tree(members)) {}

Json::Json(const std::map<std::string, unsigned int>& members) : Json(new Tree(members)) {}

Json::Json(const std::map<std::string, double>& members) : Json(new Tree(members)) {}

Json::Json(const std::vector<std::string>& elements) : Json(new Tree(elements)) {}

Json::Json(const std::vector<Json>& elements) : Json(std::vector<Json>(elements)) {}

Json::Json(std::vector<Json>&& elements) {
    JsonTree array(Node::value_t::array);
    auto& values = array.root.get_ref<Node::array_t&>();
    values.reserve(elements.size());
    for (Json& element : elements)
        values.push_back(std::move(Internals::take(element).root));
    *this = Internals::make(std::move(array));
}

Json::Json(const Json& other) : scalar(other.scalar) {
    if (Internals::isViewed(other))
        *this = Internals::make(Internals::copy(other));
    else if (other.tree)
        *this = Internals::share(other.tree, other.node);
}

Json::Json(Json&& other) noexcept
    : tree(std::exchange(other.tree, nullptr)),
      node(other.node),
      scalar(std::exchange(other.scalar, nullptr)),
      path(std::move(other.path)) {}

Json& Json::operator=(const Json& other) {
    if (this != &other)
        *this = Json(other);
    return *this;
}

Json& Json::operator=(Json&& other) noexcept {
    std::swap(scalar, other.scalar);
    std::swap(tree, other.tree);
    std::swap(node, other.node);
    path.swap(other.path);
    return *this;
}

Json::~Json() {
    if (!tree)
        return;
    if (!path.empty())
        --tree->views;
    // An only holder saves the cost of the subtraction.
    if (tree->holders.load(std::memory_order_acquire) == 1 ||
        tree->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete tree;
}

Json Json::fromString(const std::string& text) { return Internals::make(parseJson(text)); }

std::string Json::toString(int indent) const& { return writeJson(*Internals::read(*this), indent); }

std::string Json::toString(int indent) && {
    return Internals::isOnlyHolder(*this) ? writeJson(std::move(tree->contents.root), indent)
                                          : std::as_const(*this).toString(indent);
}

bool Json::contains(const std::string& key) const { return Internals::read(*this)->contains(key); }

bool Json::isNull() const { return Internals::read(*this)->is_null(); }

const Json Json::getValue(const std::string& key) const {
    const Node& member = memberOf(*Internals::read(*this), key);
    return Internals::isViewed(*this) ? Internals::make(copyTree(member)) : Internals::share(tree, &member);
}

Json Json::getValue(const std::string& key) {
    memberOf(*Internals::read(*this), key); // must exist
    Internals::write(*this);                // makes the tree this value's alone, unless it has views already
    std::vector<std::string> memberPath = path;
    memberPath.push_back(key);
    Json view = Internals::share(tree, nullptr);
    view.path = std::move(memberPath);
    ++tree->views;
    return view;
}

void Json::set(const std::string& key, const Json& value) { set(key, Json(value)); }

void Json::set(const std::string& key, Json&& value) {
    if (&value == this)
        return set(key, Json(value));
    if (!value.tree) {
        std::visit([&](auto contents) { setMember(Internals::write(*this), key, contents); }, value.scalar);
    } else if (Internals::isOnlyHolder(value)) {
        setMember(Internals::write(*this), key, std::move(value.tree->contents.root));
    } else {
        JsonTree contents = Internals::copy(value); // first: both may belong to one tree
        setMember(Internals::write(*this), key, std::move(contents.root));
    }
}

std::string Json::get(const std::string& key) const {
    return convert<std::string>(memberOf(*Internals::read(*this), key));
}

std::string Json::getAsString() const { return as<std::string>(); }

JsonConstIterator Json::begin() const {
    const auto value = Internals::read(*this);
    if (!value->is_array())
        translateErrors([&] { return value->get<std::vector<Node>>(); }); // throws the library's error
    return {*this, 0};
}

JsonConstIterator Json::end() const { return {Json(), Internals::read(*this)->size()}; }

Json JsonConstIterator::operator*() const {
    const auto elements = Json::Internals::read(array);
    const Node& element = translateErrors([&]() -> const Node& { return elements->at(position); });
    return Json::Internals::share(array.tree, &element);
}

template <>
int Json::as<int>() const {
    return convert<int>(*Internals::read(*this));
}

template <>
unsigned int Json::as<unsigned int>() const {
    return convert<unsigned int>(*Internals::read(*this));
}

template <>
double Json::as<double>() const {
    return convert<double>(*Internals::read(*this));
}

template <>
bool Json::as<bool>() const {
    return convert<bool>(*Internals::read(*this));
}

template <>
std::string Json::as<std::string>() const {
    return convert<std::string>(*Internals::read(*this));
}

template <>
std::vector<std::string> Json::as<std::vector<std::string>>() const {
    return convert<std::vector<std::string>>(*Internals::read(*this));
}

template <>
std::map<std::string, int> Json::as<std::map<std::string, int>>() const {
    return convertToMap<int>(*Internals::read(*this));
}

template <>
std::map<std::string, unsigned int> Json::as<std::map<std::string, unsigned int>>() const {
    return convertToMap<unsigned int>(*Internals::read(*this));
}

template <>
std::map<std::string, double> Json::as<std::map<std::string, double>>() const {
    return convertToMap<double>(*Internals::read(*this));
}

} // namespace norel::Desktop::DataFormat
