#include "ParseJson.h"

#include "JsonErrors.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <utility>
#include <vector>

namespace norel::Desktop::DataFormat {
namespace {

using nlohmann::ordered_json;

/// Builds the value from the parser's events. The members of every open array and object wait on one stack;
/// when one closes they are moved into a container reserved to their number. (Objects are vectors of pairs
/// with a constant key, which a growing vector would copy, values and all.)
class TreeBuilder : public nlohmann::json_sax<ordered_json> {
public:
    bool null() override { return add(nullptr); }

    bool boolean(bool value) override { return add(value); }

    bool number_integer(number_integer_t value) override { return add(value); }

    bool number_unsigned(number_unsigned_t value) override { return add(value); }

    bool number_float(number_float_t value, const string_t& /*text*/) override { return add(value); }

    bool string(string_t& value) override { return add(std::move(value)); }

    bool binary(binary_t& /*value*/) override { return false; } // no JSON text holds one

    bool start_object(std::size_t /*size*/) override { return open(); }

    bool start_array(std::size_t /*size*/) override { return open(); }

    bool key(string_t& name) override {
        waiting.push_back({std::move(name), nullptr});
        keyIsWaiting = true;
        return true;
    }

    bool end_object() override {
        const std::size_t first = close();
        ordered_json object(ordered_json::value_t::object);
        auto& members = object.get_ref<ordered_json::object_t&>();
        members.reserve(waiting.size() - first);
        for (std::size_t i = first; i < waiting.size(); ++i) {
            if (const auto earlier = members.find(waiting[i].key); earlier != members.end()) {
                earlier->second = std::move(waiting[i].value);
            } else if (members.size() < Json::MAXIMUM_MEMBERS) {
                static_cast<ordered_json::object_t::Container&>(members).emplace_back(
                    std::move(waiting[i].key), std::move(waiting[i].value));
            } else {
                throw tooManyMembers();
            }
        }
        waiting.resize(first);
        return add(std::move(object));
    }

    bool end_array() override {
        const std::size_t first = close();
        ordered_json array(ordered_json::value_t::array);
        auto& elements = array.get_ref<ordered_json::array_t&>();
        elements.reserve(waiting.size() - first);
        for (std::size_t i = first; i < waiting.size(); ++i)
            elements.push_back(std::move(waiting[i].value));
        waiting.resize(first);
        return add(std::move(array));
    }

    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const nlohmann::detail::exception& error) override {
        throw Json::JsonError(boundedErrorText(error.what()));
    }

    ordered_json takeRoot() { return std::move(waiting.front().value); }

private:
    struct Waiting {
        std::string key; // empty for an element
        ordered_json value;
    };

    template <typename Value>
    bool add(Value&& value) {
        if (keyIsWaiting)
            waiting.back().value = std::forward<Value>(value);
        else
            waiting.push_back({{}, std::forward<Value>(value)});
        keyIsWaiting = false;
        return true;
    }

    bool open() {
        if (openContainers.size() == Json::MAXIMUM_DEPTH)
            throw tooDeep();
        openContainers.push_back({waiting.size(), keyIsWaiting});
        keyIsWaiting = false;
        return true;
    }

    std::size_t close() {
        const Open closed = openContainers.back();
        openContainers.pop_back();
        keyIsWaiting = closed.isMember;
        return closed.first;
    }

    struct Open {
        std::size_t first; // where its members begin among those that wait
        bool isMember;     // whether its own key waits right below them
    };

    std::vector<Waiting> waiting;
    std::vector<Open> openContainers;
    bool keyIsWaiting = false;
};

} // namespace

ordered_json parseJson(const std::string& text) {
    // The parser takes a NUL for the end of the text.
    if (const auto nul = text.find('\0'); nul != std::string::npos)
        throw Json::JsonError("a JSON text cannot hold the NUL character found at byte " +
                              std::to_string(nul + 1));
    TreeBuilder builder;
    ordered_json::sax_parse(text, &builder);
    return builder.takeRoot();
}

} // namespace norel::Desktop::DataFormat
