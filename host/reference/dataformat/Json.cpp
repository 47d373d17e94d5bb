#include "norel/Desktop/DataFormat/Json.h"

#include "JsonErrors.h"
#include "ParseJson.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <type_traits>

namespace norel::Desktop::DataFormat {

using nlohmann::ordered_json;

namespace {

constexpr int MAXIMUM_INDENTATION = 512; // with more, deep levels run out of the JSON library's blanks

/// Destroys what a value holds, where its own destructor would gather all of it on a heap of its own first.
/// Values deeper than any text may be are left to that destructor.
void release(ordered_json& value, std::size_t depth = Json::MAXIMUM_DEPTH) {
    if (depth == 0)
        return;
    if (auto* members = value.get_ptr<ordered_json::object_t*>()) {
        for (auto& member : *members)
            release(member.second, depth - 1);
        members->clear();
    } else if (auto* elements = value.get_ptr<ordered_json::array_t*>()) {
        for (ordered_json& element : *elements)
            release(element, depth - 1);
        elements->clear();
    }
}

} // namespace

struct Json::Tree {
    Tree(ordered_json&& root, bool isViewed) : root(std::move(root)), isViewed(isViewed) {}
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() { release(root); }

    ordered_json root;
    bool isViewed;
};

namespace {

const ordered_json& memberOf(const ordered_json& object, const std::string& key) {
    if (const auto* members = object.get_ptr<const ordered_json::object_t*>())
        if (const auto member = members->find(key); member != members->end())
            return member->second;
    return translateErrors([&]() -> const ordered_json& { return object.at(key); }); // which says why not
}

/// Constructs the member in its place: ordered_map's own insertions would search for the key, or copy it
/// twice.
void appendMember(ordered_json::object_t& members, const std::string& key, ordered_json&& value) {
    static_cast<ordered_json::object_t::Container&>(members).emplace_back(key, std::move(value));
}

/// Grows by moving, where the vector that an object is would copy every member.
void growMembers(ordered_json::object_t& members) {
    constexpr std::size_t minimumCapacity = 8;
    ordered_json::object_t grown;
    grown.reserve(std::max(minimumCapacity, 2 * members.capacity()));
    for (const auto& member : members)
        appendMember(grown, member.first, nullptr);
    auto place = grown.begin();
    for (auto& member : members) // which cannot fail
        (place++)->second = std::move(member.second);
    members.swap(grown);
}

void setMember(ordered_json& object, const std::string& key, ordered_json&& value) {
    if (object.is_null())
        object = ordered_json(ordered_json::value_t::object);
    auto* members = object.get_ptr<ordered_json::object_t*>();
    if (!members)
        return translateErrors([&] { object[key] = nullptr; }); // which says why not
    if (const auto member = members->find(key); member != members->end()) {
        member->second = std::move(value);
        return;
    }
    if (members->size() == members->capacity())
        growMembers(*members);
    appendMember(*members, key, std::move(value));
}

/// The integer modulo 2^32; a fraction is cut off.
std::uint32_t wrapped(const ordered_json& number) {
    if (number.is_number_float()) {
        const double remainder = std::fmod(number.get<double>(), 4294967296.0);
        return std::isfinite(remainder) ? static_cast<std::uint32_t>(static_cast<std::int64_t>(remainder))
                                        : 0;
    }
    if (number.is_number() || number.is_boolean())
        return static_cast<std::uint32_t>(number.is_boolean() ? number.get<bool>()
                                                              : number.get<std::uint64_t>());
    return translateErrors([&] { return number.get<std::uint32_t>(); }); // which says why not
}

template <typename T>
T convert(const ordered_json& value) {
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
        return static_cast<T>(wrapped(value));
    else
        return translateErrors([&] { return value.get<T>(); });
}

template <typename Number>
std::map<std::string, Number> convertToMap(const ordered_json& value) {
    if (!value.is_object())
        convert<std::map<std::string, double>>(value); // which says why not
    std::map<std::string, Number> map;
    for (const auto& [key, number] : value.get_ref<const ordered_json::object_t&>())
        map.emplace(key, convert<Number>(number));
    return map;
}

/// Throws for what fromString would not read back.
void checkIsReadable(const ordered_json& value, std::size_t depth = 0) {
    if (const auto* number = value.get_ptr<const double*>(); number && !std::isfinite(*number))
        throw Json::JsonError("JSON cannot hold a number that is not finite");
    if (value.is_structured() && depth == Json::MAXIMUM_DEPTH)
        throw tooDeep();
    if (const auto* elements = value.get_ptr<const ordered_json::array_t*>())
        for (const ordered_json& element : *elements)
            checkIsReadable(element, depth + 1);
    if (const auto* members = value.get_ptr<const ordered_json::object_t*>()) {
        if (members->size() > Json::MAXIMUM_MEMBERS)
            throw tooManyMembers();
        for (const auto& member : *members)
            checkIsReadable(member.second, depth + 1);
    }
}

} // namespace

Json::JsonError::~JsonError() = default;
Json::IncompatibleTypeError::~IncompatibleTypeError() = default;

struct Json::Internals {
    static_assert(sizeof(ordered_json) <= OWN_SIZE && alignof(ordered_json) <= alignof(std::max_align_t));

    static ordered_json& own(const Json& json) {
        return *std::launder(reinterpret_cast<ordered_json*>(json.own));
    }

    static Json make(ordered_json&& value) {
        Json json;
        own(json) = std::move(value);
        return json;
    }

    static Json make(const std::shared_ptr<Tree>& tree, const ordered_json& place) {
        Json json;
        json.tree = tree;
        json.place = &place;
        return json;
    }

    static Json makeView(const std::shared_ptr<Tree>& tree, std::vector<std::string> path) {
        Json json;
        json.tree = tree;
        json.viewPath = std::make_unique<const std::vector<std::string>>(std::move(path));
        return json;
    }

    static const ordered_json& read(const Json& json) {
        if (!json.tree)
            return own(json);
        if (!json.viewPath)
            return *static_cast<const ordered_json*>(json.place);
        const ordered_json* value = &json.tree->root;
        for (const std::string& key : *json.viewPath)
            value = &memberOf(*value, key);
        return *value;
    }

    static ordered_json& write(Json& json) {
        if (json.viewPath)
            return const_cast<ordered_json&>(read(json)); // the tree's root is no constant
        if (json.tree && json.tree->isViewed)
            return json.tree->root;
        if (json.tree) {
            own(json) = read(json);
            json.tree.reset();
        }
        return own(json);
    }

    /// The value itself where it is `json`'s alone, otherwise a copy.
    static ordered_json take(Json& json) {
        if (json.tree)
            return read(json);
        return std::move(own(json));
    }

    /// Whether a view may still change the value, so that it must be copied where it could be shared.
    static bool mayChange(const Json& json) {
        return json.viewPath || (json.tree && json.tree->isViewed && json.tree.use_count() > 1);
    }

    /// Puts a value that cannot change through a view into a tree that others can share.
    static const std::shared_ptr<Tree>& share(const Json& json) {
        if (json.tree) {
            if (json.tree->isViewed) // by views that are gone
                json.tree->isViewed = false;
        } else {
            json.tree = std::make_shared<Tree>(std::move(own(json)), false);
            json.place = &json.tree->root;
        }
        return json.tree;
    }

    /// Puts a value into a tree that it shares with its views alone.
    static const std::shared_ptr<Tree>& view(Json& json) {
        if (!json.viewPath && !(json.tree && json.tree->isViewed)) {
            const auto viewed = std::make_shared<Tree>(nullptr, true);
            viewed->root = take(json);
            json.tree = viewed;
            json.place = &json.tree->root;
        }
        return json.tree;
    }
};

Json::Json() noexcept { new (own) ordered_json(); }

Json::~Json() {
    ordered_json& value = Internals::own(*this);
    if (value.is_null()) // what was moved from, mostly; it owns nothing
        return;
    release(value);
    value.~basic_json();
}

Json::Json(int number) { new (own) ordered_json(number); }

Json::Json(unsigned int number) { new (own) ordered_json(number); }

Json::Json(double number) { new (own) ordered_json(number); }

Json::Json(bool boolean) { new (own) ordered_json(boolean); }

Json::Json(const std::string& text) { new (own) ordered_json(text); }

Json::Json(const char* text) { new (own) ordered_json(text); }

Json::Json(const std::map<std::string, int>& members) { new (own) ordered_json(members); }

Json::Json(const std::map<std::string, unsigned int>& members) { new (own) ordered_json(members); }

Json::Json(const std::map<std::string, double>& members) { new (own) ordered_json(members); }

Json::Json(const std::vector<std::string>& elements) { new (own) ordered_json(elements); }

Json::Json(const std::vector<Json>& elements) : Json(std::vector<Json>(elements)) {}

Json::Json(std::vector<Json>&& elements) {
    ordered_json::array_t array;
    array.reserve(elements.size());
    for (Json& element : elements)
        array.push_back(Internals::take(element));
    new (own) ordered_json(std::move(array));
}

Json::Json(const Json& other) {
    if (Internals::mayChange(other) || (!other.tree && Internals::own(other).is_primitive())) {
        new (own) ordered_json(Internals::read(other));
    } else {
        new (own) ordered_json();
        tree = Internals::share(other);
        place = other.place;
    }
}

Json::Json(Json&& other) noexcept
    : tree(std::move(other.tree)), place(other.place), viewPath(std::move(other.viewPath)) {
    new (own) ordered_json(std::move(Internals::own(other)));
}

Json& Json::operator=(const Json& other) {
    if (this != &other)
        *this = Json(other);
    return *this;
}

Json& Json::operator=(Json&& other) noexcept {
    std::swap(Internals::own(*this), Internals::own(other));
    tree.swap(other.tree);
    std::swap(place, other.place);
    viewPath.swap(other.viewPath);
    return *this;
}

Json Json::fromString(const std::string& text) { return Internals::make(parseJson(text)); }

std::string Json::toString(int indent) const {
    const ordered_json& value = Internals::read(*this);
    checkIsReadable(value);
    return translateErrors([&] { return value.dump(std::min(indent, MAXIMUM_INDENTATION)); });
}

std::string Json::arrayToString(std::size_t size, const std::function<Json(std::size_t)>& makeElement,
                                int indent) {
    if (size == 0)
        return "[]";
    const auto blanks = static_cast<unsigned int>(std::clamp(indent, 0, MAXIMUM_INDENTATION));
    const std::string lineStart = indent < 0 ? std::string() : std::string(1, '\n').append(blanks, ' ');
    std::string text = "[";
    // one for all elements, of which dump() would make one each
    nlohmann::detail::serializer<ordered_json> serializer(nlohmann::detail::output_adapter<char>(text), ' ');
    for (std::size_t i = 0; i < size; ++i) {
        const Json element = makeElement(i);
        const ordered_json& value = Internals::read(element);
        checkIsReadable(value, 1);
        text.append(i == 0 ? "" : ",").append(lineStart);
        translateErrors([&] { serializer.dump(value, indent >= 0, false, blanks, blanks); });
    }
    return text += indent < 0 ? "]" : "\n]";
}

bool Json::contains(const std::string& key) const { return Internals::read(*this).contains(key); }

bool Json::isNull() const { return Internals::read(*this).is_null(); }

const Json Json::getValue(const std::string& key) const {
    if (Internals::mayChange(*this))
        return Internals::make(ordered_json(memberOf(Internals::read(*this), key)));
    const std::shared_ptr<Tree>& shared = Internals::share(*this);
    return Internals::make(shared, memberOf(Internals::read(*this), key));
}

Json Json::getValue(const std::string& key) {
    memberOf(Internals::read(*this), key);
    const std::shared_ptr<Tree>& viewed = Internals::view(*this);
    std::vector<std::string> path = viewPath ? *viewPath : std::vector<std::string>{};
    path.push_back(key);
    return Internals::makeView(viewed, std::move(path));
}

void Json::set(const std::string& key, const Json& value) { set(key, Json(value)); }

void Json::set(const std::string& key, Json&& value) {
    if (!value.tree && &value != this)
        setMember(Internals::write(*this), key, std::move(Internals::own(value)));
    else
        setMember(Internals::write(*this), key, ordered_json(Internals::read(value)));
}

void Json::reserve(std::size_t members) {
    if (!isNull())
        return;
    ordered_json& value = Internals::write(*this);
    value = ordered_json(ordered_json::value_t::object);
    value.get_ref<ordered_json::object_t&>().reserve(members);
}

std::string Json::get(const std::string& key) const {
    return convert<std::string>(memberOf(Internals::read(*this), key));
}

std::string Json::getAsString() const { return as<std::string>(); }

JsonConstIterator Json::begin() const {
    const ordered_json& value = Internals::read(*this);
    if (!value.is_array())
        translateErrors([&] { return value.get<std::vector<ordered_json>>(); }); // which says why not
    return {*this, 0};
}

JsonConstIterator Json::end() const { return {Json(), Internals::read(*this).size()}; }

Json JsonConstIterator::operator*() const {
    const std::shared_ptr<Json::Tree>& shared = Json::Internals::share(array); // first: it moves the elements
    const ordered_json& elements = Json::Internals::read(array);
    return translateErrors([&] { return Json::Internals::make(shared, elements.at(position)); });
}

template <>
int Json::as<int>() const {
    return convert<int>(Internals::read(*this));
}

template <>
unsigned int Json::as<unsigned int>() const {
    return convert<unsigned int>(Internals::read(*this));
}

template <>
double Json::as<double>() const {
    return convert<double>(Internals::read(*this));
}

template <>
bool Json::as<bool>() const {
    return convert<bool>(Internals::read(*this));
}

template <>
std::string Json::as<std::string>() const {
    return convert<std::string>(Internals::read(*this));
}

template <>
std::vector<std::string> Json::as<std::vector<std::string>>() const {
    return convert<std::vector<std::string>>(Internals::read(*this));
}

template <>
std::map<std::string, int> Json::as<std::map<std::string, int>>() const {
    return convertToMap<int>(Internals::read(*this));
}

template <>
std::map<std::string, unsigned int> Json::as<std::map<std::string, unsigned int>>() const {
    return convertToMap<unsigned int>(Internals::read(*this));
}

template <>
std::map<std::string, double> Json::as<std::map<std::string, double>>() const {
    return convertToMap<double>(Internals::read(*this));
}

} // namespace norel::Desktop::DataFormat
