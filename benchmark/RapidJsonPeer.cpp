#include "Peers.h"
#include "PlainProfiles.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <stdexcept>

namespace norel::Benchmark {
namespace {

using Value = rapidjson::Value;

void read(const Value& json, bool& target) { target = json.GetBool(); }

void read(const Value& json, unsigned int& target) { target = json.GetUint(); }

void read(const Value& json, double& target) { target = json.GetDouble(); }

void read(const Value& json, std::string& target) { target.assign(json.GetString(), json.GetStringLength()); }

void read(const Value& json, std::map<std::string, double>& target) {
    for (const auto& member : json.GetObject())
        read(member.value, target[member.name.GetString()]);
}

template <Plain::Described Structure>
void read(const Value& json, Structure& target);

template <typename Item>
void read(const Value& json, std::vector<Item>& target) {
    target.reserve(json.Size());
    for (const Value& element : json.GetArray())
        read(element, target.emplace_back());
}

template <Plain::Described Structure>
void read(const Value& json, Structure& target) {
    Plain::forEachMember(target, [&]<typename Member>(const char* key, Member& member) {
        const auto found = json.FindMember(key);
        const bool isThere = found != json.MemberEnd() && !found->value.IsNull();
        if constexpr (Plain::IS_OPTIONAL<Member>) {
            if (isThere)
                read(found->value, member.emplace());
        } else {
            if (!isThere)
                throw std::runtime_error(key);
            read(found->value, member);
        }
    });
}

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void write(Writer& writer, bool source) { writer.Bool(source); }

void write(Writer& writer, unsigned int source) { writer.Uint(source); }

void write(Writer& writer, double source) { writer.Double(source); }

void write(Writer& writer, const std::string& source) {
    writer.String(source.data(), static_cast<rapidjson::SizeType>(source.size()));
}

void write(Writer& writer, const std::map<std::string, double>& source) {
    writer.StartObject();
    for (const auto& [name, number] : source) {
        writer.Key(name.c_str());
        write(writer, number);
    }
    writer.EndObject();
}

template <Plain::Described Structure>
void write(Writer& writer, const Structure& source);

template <typename Item>
void write(Writer& writer, const std::vector<Item>& source) {
    writer.StartArray();
    for (const Item& item : source)
        write(writer, item);
    writer.EndArray();
}

template <Plain::Described Structure>
void write(Writer& writer, const Structure& source) {
    writer.StartObject();
    Plain::forEachMember(source, [&]<typename Member>(const char* key, const Member& member) {
        if constexpr (Plain::IS_OPTIONAL<Member>) {
            if (!member)
                return;
            writer.Key(key);
            write(writer, *member);
        } else {
            writer.Key(key);
            write(writer, member);
        }
    });
    writer.EndObject();
}

Peer::Profiles readDocument(const std::string& document) {
    rapidjson::Document json;
    json.Parse<rapidjson::kParseFullPrecisionFlag>(document.data(), document.size());
    if (json.HasParseError())
        throw std::runtime_error("not JSON");
    const auto profiles = std::make_shared<std::vector<Plain::Profile>>();
    read(json, *profiles);
    return profiles;
}

std::string writeDocument(const std::vector<Plain::Profile>& profiles) {
    rapidjson::StringBuffer text;
    Writer writer(text);
    write(writer, profiles);
    return {text.GetString(), text.GetSize()};
}

[[maybe_unused]] const bool isAdded = addPeer({"RapidJSON", readDocument, writeDocument});

} // namespace
} // namespace norel::Benchmark
