#include "Peers.h"
#include "PlainProfiles.h"

#include <nlohmann/json.hpp>

namespace norel::Benchmark {
namespace Plain {

using Json = nlohmann::ordered_json;

template <Described Structure>
void from_json(const Json& json, Structure& target) {
    forEachMember(target, [&]<typename Member>(const char* key, Member& member) {
        if constexpr (!IS_OPTIONAL<Member>)
            json.at(key).get_to(member);
        else if (const auto found = json.find(key); found != json.end() && !found->is_null())
            found->get_to(member.emplace());
    });
}

template <Described Structure>
void to_json(Json& json, const Structure& source) {
    forEachMember(source, [&]<typename Member>(const char* key, const Member& member) {
        if constexpr (!IS_OPTIONAL<Member>)
            json[key] = member;
        else if (member)
            json[key] = *member;
    });
}

} // namespace Plain

namespace {

Peer::Profiles read(const std::string& document) {
    return std::make_shared<std::vector<Plain::Profile>>(Plain::Json::parse(document));
}

std::string write(const std::vector<Plain::Profile>& profiles) { return Plain::Json(profiles).dump(4); }

[[maybe_unused]] const bool isAdded = addPeer({"by hand", read, write});

} // namespace
} // namespace norel::Benchmark
