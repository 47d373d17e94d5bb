#pragma once

#include "norel/Desktop/DataFormat/Export.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::DataFormat {

class JsonConstIterator;

/// One JSON value: null, boolean, number, string, array or object. Objects keep their members in the order in
/// which they were set.
///
/// A Json is a value: no copy ever sees a change made to another. Copies, the results of the const getValue
/// and iteration share one tree behind the scenes and cost nothing until one of them is changed.
///
/// A view is the Json that the non-const getValue returns. What is set on a view is set in the value that it
/// was taken from, and what is changed in that value is seen through the view. A view may be kept for any
/// time, also longer than that value; it designates its member by key, so using a view whose member is gone
/// raises JsonError. Copying a view gives an independent value, moving it gives the view itself; assigning to
/// a view makes it another value and leaves the one it was taken from as it is. Moving a value takes its
/// views along; assigning to it leaves them what they were.
///
/// Threads: distinct objects may be used by distinct threads, also when one is a copy of the other (a view
/// and the value it was taken from count as one object). One object serves one thread at a time, even for
/// reading.
class NOREL_DATAFORMAT_EXPORT Json {
public:
    // Extensions of the reference host, not part of the contract: they read and write a text without a tree.
    class Reader;
    class Writer;

    /// A text is not JSON, a value cannot be written as JSON, or a member was asked for that is not there.
    struct NOREL_DATAFORMAT_EXPORT JsonError : std::runtime_error {
        using std::runtime_error::runtime_error;
        JsonError(const JsonError&) = default;
        JsonError& operator=(const JsonError&) = default;
        ~JsonError() override;
    };

    /// A value is of another kind than the one asked for.
    struct NOREL_DATAFORMAT_EXPORT IncompatibleTypeError : JsonError {
        using JsonError::JsonError;
        IncompatibleTypeError(const IncompatibleTypeError&) = default;
        IncompatibleTypeError& operator=(const IncompatibleTypeError&) = default;
        ~IncompatibleTypeError() override;
    };

    /// The deepest nesting of arrays and objects, and the most members of one object, that a text may have.
    static constexpr std::size_t MAXIMUM_DEPTH = 100;
    static constexpr std::size_t MAXIMUM_MEMBERS = 1000;

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
    /// than MAXIMUM_DEPTH or holds an object of more than MAXIMUM_MEMBERS. Of members of one name the last
    /// one counts.
    static Json fromString(const std::string& text);

    /// The JSON text, one element or member a line with `indent` blanks a level, at most 512; on one line
    /// when negative. Throws JsonError for what fromString would not read back: a number that JSON cannot
    /// hold, a text that is not UTF-8, or a value beyond MAXIMUM_DEPTH or MAXIMUM_MEMBERS.
    std::string toString(int indent) const;

    /// The text, as toString gives it, of the array of `size` elements. `makeElement` is called for each in
    /// turn with its position, and what it makes is let go of before the next: the array is never held as a
    /// whole. Throws what `makeElement` throws, and as toString for the first element that cannot be written.
    static std::string arrayToString(std::size_t size, const std::function<Json(std::size_t)>& makeElement,
                                     int indent);

    /// Whether this is an object with a member of that name.
    bool contains(const std::string& key) const;

    bool isNull() const;

    /// The member's value, or a view of it (see above). Throws JsonError when there is none.
    const Json
    getValue(const std::string& key) const; // NOLINT(readability-const-return-type): picks the overload
    Json getValue(const std::string& key);

    /// Stores `value` as member `key`: in the place of the member of that name, or after the others. Makes a
    /// null an object first. Throws JsonError when this is neither null nor an object.
    void set(const std::string& key, const Json& value);
    void set(const std::string& key, Json&& value);

    /// Makes a null an object with room for that many members. Does nothing to any other value.
    void reserve(std::size_t members);

    /// The string held by member `key`. Throws JsonError when there is none, IncompatibleTypeError when it is
    /// no string.
    std::string get(const std::string& key) const;

    /// The string held by this value. Throws IncompatibleTypeError when it is no string.
    std::string getAsString() const;

    /// The elements of an array, first to last. They stay what they are while an iterator lives, whatever is
    /// done to this value. Throws IncompatibleTypeError when this is no array.
    JsonConstIterator begin() const;
    JsonConstIterator end() const;

    /// Reads the value as int, unsigned int, double, bool, std::string, std::vector<std::string> or a
    /// std::map<std::string, N> of one of the three number types.
    /// The integers take any number, and true and false as 1 and 0: a fraction is cut off, and what lies
    /// outside the type's range wraps modulo 2^32. The others take only their own kind. Throws
    /// IncompatibleTypeError for another kind.
    template <typename T>
    T as() const;

private:
    friend class JsonConstIterator;
    struct Tree;
    struct Internals; // all that touches the JSON library's own type, which no header shows

    // The value is one of:
    // - its own, held in `own`: no tree;
    // - a place in a tree that nobody changes any more, shared with any number of others;
    // - the root of a tree that its views change with it: tree->isViewed;
    // - a view: the tree of the value it was taken from, and in `viewPath` the keys from its root.
    static constexpr std::size_t OWN_SIZE = 16;
    alignas(std::max_align_t) mutable std::byte own[OWN_SIZE];
    mutable std::shared_ptr<Tree> tree;
    mutable const void* place = nullptr;
    std::unique_ptr<const std::vector<std::string>> viewPath;
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

/// A position in an array; keeps the array's elements alive. Threads: as Json.
class NOREL_DATAFORMAT_EXPORT JsonConstIterator {
public:
    bool operator!=(const JsonConstIterator& other) const { return position != other.position; }

    void operator++() { ++position; }

    /// The element at the position. Throws Json::JsonError when the position is past the last one.
    Json operator*() const;

private:
    friend class Json;

    JsonConstIterator(Json array, std::size_t position) : array(std::move(array)), position(position) {}

    Json array;
    std::size_t position;
};

} // namespace norel::Desktop::DataFormat

#include "norel/Desktop/DataFormat/JsonReader.h"
#include "norel/Desktop/DataFormat/JsonWriter.h"
