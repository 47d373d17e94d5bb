#include "Peers.h"
#include "PlainProfiles.h"

#include <boost/json.hpp>

namespace norel::Benchmark {
namespace Plain {

namespace json = boost::json;

// Boost.JSON 1.81 converts described structures by itself, but refuses a document that leaves out an optional
// member, and writes such a member as null. These conversions leave it out.

template <Described Structure>
Structure tag_invoke(json::value_to_tag<Structure> /*tag*/, const json::value& value) {
    const json::object& object = value.as_object();
    Structure structure;
    forEachMember(structure, [&]<typename Member>(const char* key, Member& member) {
        if constexpr (!IS_OPTIONAL<Member>)
            member = json::value_to<Member>(object.at(key));
        else if (const json::value* const found = object.if_contains(key); found && !found->is_null())
            member = json::value_to<typename Member::value_type>(*found);
    });
    return structure;
}

template <Described Structure>
void tag_invoke(json::value_from_tag /*tag*/, json::value& value, const Structure& structure) {
    json::object& object = value.emplace_object();
    forEachMember(structure, [&]<typename Member>(const char* key, const Member& member) {
        if constexpr (!IS_OPTIONAL<Member>)
            json::value_from(member, object[key]);
        else if (member)
            json::value_from(*member, object[key]);
    });
}

} // namespace Plain

namespace {

Peer::Profiles read(const std::string& document) {
    boost::json::monotonic_resource memory;
    return std::make_shared<std::vector<Plain::Profile>>(
        boost::json::value_to<std::vector<Plain::Profile>>(boost::json::parse(document, &memory)));
}

std::string write(const std::vector<Plain::Profile>& profiles) {
    boost::json::monotonic_resource memory;
    return boost::json::serialize(boost::json::value_from(profiles, &memory));
}

[[maybe_unused]] const bool isAdded = addPeer({"Boost.JSON", read, write});

} // namespace
} // namespace norel::Benchmark
