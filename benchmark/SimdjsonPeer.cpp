#include "Peers.h"
#include "PlainProfiles.h"

#include <simdjson.h>

namespace norel::Benchmark {
namespace {

namespace ondemand = simdjson::ondemand;

void read(ondemand::value json, bool& target) { target = json.get_bool(); }

void read(ondemand::value json, unsigned int& target) {
    target = static_cast<unsigned int>(std::uint64_t(json.get_uint64()));
}

void read(ondemand::value json, double& target) { target = json.get_double(); }

void read(ondemand::value json, std::string& target) { target = std::string_view(json.get_string()); }

void read(ondemand::value json, std::map<std::string, double>& target) {
    for (auto member : json.get_object()) {
        const std::string_view name = member.unescaped_key();
        target.emplace(name, member.value().get_double());
    }
}

template <Plain::Described Structure>
void read(ondemand::value json, Structure& target);

template <typename Item>
void read(ondemand::value json, std::vector<Item>& target) {
    for (ondemand::value element : json.get_array())
        read(element, target.emplace_back());
}

template <Plain::Described Structure>
void read(ondemand::value json, Structure& target) {
    ondemand::object object = json.get_object();
    Plain::forEachMember(target, [&]<typename Member>(const char* key, Member& member) {
        auto found = object.find_field_unordered(key);
        if constexpr (!Plain::IS_OPTIONAL<Member>)
            read(found.value(), member);
        else if (found.error() != simdjson::NO_SUCH_FIELD && !found.is_null())
            read(found.value(), member.emplace());
    });
}

Peer::Profiles readDocument(const std::string& document) {
    const simdjson::padded_string text(document);
    ondemand::parser parser;
    ondemand::document json = parser.iterate(text);
    const auto profiles = std::make_shared<std::vector<Plain::Profile>>();
    ondemand::array array = json.get_array();
    profiles->reserve(array.count_elements());
    for (ondemand::value profile : array)
        read(profile, profiles->emplace_back());
    return profiles;
}

[[maybe_unused]] const bool isAdded = addPeer({"simdjson", readDocument, nullptr});

} // namespace
} // namespace norel::Benchmark
