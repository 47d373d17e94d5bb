#pragma once

#include "norel/Desktop/DataFormat/Export.h"

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// JSON values and text.
namespace norel::Desktop::DataFormat {

class JsonConstIterator;

/// One JSON value: null, boolean, number, string, array or object. Objects keep their members in the order in
/// which they were set.
///
/// A Json is a value: changing one never changes a copy. Copies, the results of the const getValue and
/// iteration share one tree internally, which is copied when one of them is changed.
///
/// The non-const getValue returns a view: changing the view changes the value it was taken from, and changes
/// of that value are visible through the view. A view may outlive that value. It designates its member by
/// key, so using a view whose member no longer exists throws JsonError. Copying a view gives an independent
/// value; moving it gives the view itself. Assigning to a view makes it another value and does not change the
/// value it was taken from; assigning an object to itself changes nothing. Moving a value keeps its views
/// attached; assigning to it detaches them, with the former value.
///
/// Threads: as for standard types, several threads may use const operations on one object at once, and
/// distinct objects, even copies of each other, are independent. A view and the value it was taken from count
/// as one object.
class NOREL_DATAFORMAT_EXPORT Json {
public:
    // Extensions of the reference host, not part of the contract: they read and write text without a tree.
    class Reader;
    class Writer;

    /// A text is not JSON, a value cannot be written as JSON, or a member does not exist.
    struct NOREL_DATAFORMAT_EXPORT JsonError : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// A value is not of the requested kind.
    struct NOREL_DATAFORMAT_EXPORT IncompatibleTypeError : JsonError {
        using JsonError::JsonError;
    };

    /// How deep arrays and objects may nest in a text.
    static constexpr std::size_t MAXIMUM_DEPTH = 100;

    /// null
    Json() noexcept;
    Json(int number);
    Json(unsigned int number);
    Json(double number);
    Json(bool boolean);
    Json(const std::string& text);
    Json(const char* text);
    /// An object with one member per entry.
    Json(const std::map<std::string, int>& members);
    Json(const std::map<std::string, unsigned int>& members);
    Json(const std::map<std::string, double>& members);
    /// An array of the elements in their order.
    Json(const std::vector<std::string>& elements);
    Json(const std::vector<Json>& elements);
    Json(std::vector<Json>&& elements);

    Json(const Json& other);
    Json(Json&& other) noexcept;
    Json& operator=(const Json& other);
    Json& operator=(Json&& other) noexcept;
    ~Json();

    /// Parses a whole JSON text. Throws JsonError when the text is not exactly one JSON value, nests deeper
    /// than MAXIMUM_DEPTH, or needs more than 24 times the memory of the text plus 60 KB, as large texts of
    /// nested arrays with hardly any contents do. Duplicate keys: the last value wins, at the position of the
    /// first.
    static Json fromString(const std::string& text);

    /// The JSON text. Each element or member has a line of its own, with `indent` spaces (at most 512) per
    /// level; a negative `indent` gives a single line. Throws JsonError for what fromString would not read
    /// back: a number that is not finite, a string that is not UTF-8, or nesting deeper than MAXIMUM_DEPTH.
    std::string toString(int indent) const&;
    /// The same of a temporary value, whose memory is released while the text grows; its contents are lost. A
    /// host may leave this overload out.
    std::string toString(int indent) &&;

    /// Whether this is an object with that member.
    bool contains(const std::string& key) const;

    bool isNull() const;

    /// The member's value, or a view of it (see above). Throws JsonError when the member does not exist.
    const Json
    getValue(const std::string& key) const; // NOLINT(readability-const-return-type): picks the overload
    Json getValue(const std::string& key);

    /// Replaces the value of member `key`, or adds the member after the others. Turns null into an object
    /// first. Throws JsonError when this is neither null nor an object.
    void set(const std::string& key, const Json& value);
    void set(const std::string& key, Json&& value);

    /// The string held by member `key`. Throws JsonError when the member does not exist,
    /// IncompatibleTypeError when it is not a string.
    std::string get(const std::string& key) const;

    /// The string held by this value. Throws IncompatibleTypeError when it is not a string.
    std::string getAsString() const;

    /// The elements of an array, first to last. Changing this value does not affect its existing iterators.
    /// Throws IncompatibleTypeError when this is not an array.
    JsonConstIterator begin() const;
    JsonConstIterator end() const;

    /// Reads the value as int, unsigned int, double, bool, std::string, std::vector<std::string> or a
    /// std::map<std::string, N> of one of the three number types.
    /// The integer types accept any number, and true and false as 1 and 0: a fraction is truncated, and a
    /// number outside the type's range wraps modulo 2^32. The other types accept only their own kind. Throws
    /// IncompatibleTypeError for another kind.
    template <typename T>
    T as() const;

private:
    friend class JsonConstIterator;
    using Scalar = std::variant<std::nullptr_t, bool, int, unsigned int, double>;
    struct Tree;
    struct Internals; // everything that uses the JSON library's own type, which no header shows

    explicit Json(Tree* newTree) noexcept;

    // A tree counts the objects that hold it, and the views among them. Without views it is shared by any
    // number of values and must not change; with views it belongs to them and at most one value.
    Tree* tree = nullptr;
    const void* node = nullptr;    // of a value: where it is in the tree
    Scalar scalar{nullptr};        // the value if there is no tree
    std::vector<std::string> path; // of a view: the keys from the root of the tree; empty for a value
};

template <>
NOREL_DATAFORMAT_EXPORT int Json::as<int>() const;
template <>
NOREL_DATAFORMAT_EXPORT unsigned int Json::as<unsigned int>() const;
template <>
NOREL_DATAFORMAT_EXPORT double Json::as<double>() const;
template <>
NOREL_DATAFORMAT_EXPORT bool Json::as<bool>() const;
template <>
NOREL_DATAFORMAT_EXPORT std::string Json::as<std::string>() const;
template <>
NOREL_DATAFORMAT_EXPORT std::map<std::string, int> Json::as<std::map<std::string, int>>() const;
template <>
NOREL_DATAFORMAT_EXPORT std::map<std::string, unsigned int>
Json::as<std::map<std::string, unsigned int>>() const;
template <>
NOREL_DATAFORMAT_EXPORT std::map<std::string, double> Json::as<std::map<std::string, double>>() const;
template <>
NOREL_DATAFORMAT_EXPORT std::vector<std::string> Json::as<std::vector<std::string>>() const;

/// A position in an array; keeps the array alive. Threads: as Json.
class NOREL_DATAFORMAT_EXPORT JsonConstIterator {
public:
    bool operator!=(const JsonConstIterator& other) const { return position != other.position; }

    void operator++() { ++position; }

    /// The element at the position. Throws Json::JsonError when there is none.
    Json operator*() const;

private:
    friend class Json;

    JsonConstIterator(Json newArray, std::size_t newPosition)
        : array(std::move(newArray)), position(newPosition) {}

    Json array;
    std::size_t position;
};

} // namespace norel::Desktop::DataFormat

#include "norel/Desktop/DataFormat/JsonReader.h"
#include "norel/Desktop/DataFormat/JsonWriter.h"
