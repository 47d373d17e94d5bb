#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::DataFormat {

class JsonConstIterator;

/// Copies are deep. Only the value that the non-const getValue returns shares the tree of its parent.
class Json {
public:
    struct JsonError : std::runtime_error {
        using std::runtime_error::runtime_error;
    };
    struct IncompatibleTypeError : JsonError {
        using JsonError::JsonError;
    };

    Json();
    /// Of any type that as() reads.
    template <typename T>
    Json(const T& value);
    Json(const std::vector<Json>& elements);
    Json(const Json& other);
    Json& operator=(const Json& other);

    static Json fromString(const std::string& text);
    std::string toString(int indent) const;

    bool contains(const std::string& key) const;
    bool isNull() const;
    const Json getValue(const std::string& key) const;
    Json getValue(const std::string& key);
    void set(const std::string& key, const Json& value);
    std::string get(const std::string& key) const;
    std::string getAsString() const;

    JsonConstIterator begin() const;
    JsonConstIterator end() const;

    template <typename T>
    T as() const;

private:
    explicit Json(std::shared_ptr<nlohmann::ordered_json> shared);

    std::shared_ptr<nlohmann::ordered_json> tree;
};

class JsonConstIterator {
public:
    bool operator!=(const JsonConstIterator& other) const { return index != other.index; }
    void operator++() { ++index; }
    Json operator*() const { return elements->at(index); }

private:
    friend class Json;
    JsonConstIterator(std::shared_ptr<const std::vector<Json>> array, std::size_t first)
        : elements(std::move(array)), index(first) {}

    std::shared_ptr<const std::vector<Json>> elements;
    std::size_t index;
};

} // namespace norel::Desktop::DataFormat
