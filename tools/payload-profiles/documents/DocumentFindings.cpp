#include "documents/DocumentFindings.h"

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <algorithm>
#include <new>
#include <set>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;

/// A value in a document.
struct Place {
    std::string path;
    std::string parent;
    std::size_t line;
    bool isNull;
};

/// Lists the members and elements of a text, which must be valid JSON, in its order.
class PlaceReader {
public:
    explicit PlaceReader(const std::string& document) : text(document) { readValue(""); }

    std::vector<Place> places;

private:
    char next() {
        while (at < text.size() && std::string_view(" \t\r\n").find(text[at]) != std::string_view::npos)
            line += text[at++] == '\n' ? 1U : 0U;
        return at < text.size() ? text[at] : '\0';
    }

    std::string readString() {
        const std::size_t begin = at++;
        while (text[at] != '"')
            at += text[at] == '\\' ? 2U : 1U;
        ++at;
        return Json::fromString(text.substr(begin, at - begin)).as<std::string>();
    }

    void readValue(const std::string& path) {
        const char first = next();
        if (first == '{' || first == '[')
            readChildren(path, first == '{');
        else if (first == '"')
            readString();
        else
            at = std::min(text.find_first_of(",]} \t\r\n", at), text.size());
    }

    void readChildren(const std::string& path, bool isObject) {
        ++at; // the opening bracket
        for (std::size_t index = 0; next() != '}' && text[at] != ']'; ++index) {
            const std::size_t lineOfChild = line;
            const std::string step = isObject ? readString() : '[' + std::to_string(index) + ']';
            if (isObject && next() == ':')
                ++at;
            std::string child = path.empty() ? "" : path + '.';
            child += step;
            places.push_back({child, path, lineOfChild, next() == 'n'});
            readValue(child);
            if (next() == ',')
                ++at;
        }
        ++at;
    }

    const std::string& text;
    std::size_t at = 0;
    std::size_t line = 1;
};

/// The position of the first profile that cannot be read.
std::string findInvalidProfile(const std::string& text) {
    std::size_t index = 0;
    for (const Json& profile : Json::fromString(text)) {
        try {
            JsonProfileListSerializer().deserialize(Json(std::vector<Json>{profile}).toString(-1));
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            return '[' + std::to_string(index) + ']';
        }
        ++index;
    }
    return {};
}

Finding withLine(const std::string& text, Finding finding) {
    const std::vector<Place> places = PlaceReader(text).places;
    const auto place = std::ranges::find(places, finding.path, &Place::path);
    if (place != places.end())
        finding.line = place->line;
    return finding;
}

} // namespace

std::vector<Finding> findDroppedMembers(const std::string& text) {
    std::set<std::string> kept{""};
    try {
        const JsonProfileListSerializer serializer;
        const std::string written = serializer.serialize(serializer.deserialize(text));
        for (const Place& place : PlaceReader(written).places)
            kept.insert(place.path);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) { // cannot be read, so nothing is written
        return {};
    }
    std::vector<Finding> dropped;
    if (text.empty())
        return dropped;
    for (const Place& place : PlaceReader(text).places)
        if (!place.isNull && !kept.contains(place.path) && kept.contains(place.parent))
            dropped.push_back({place.path, place.line, "this member is not known"});
    return dropped;
}

std::optional<Finding> findFirstError(const std::string& text) {
    try {
        JsonProfileListSerializer().deserialize(text);
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const ProfileListSerializer::ParsingError& error) {
        const std::string message = error.what();
        const std::size_t path = message.rfind(" at [");
        if (path == std::string::npos || message.find("parse_error") != std::string::npos)
            return Finding{"", 1, message};
        return withLine(text, {message.substr(path + 4), 1, message.substr(0, path)});
    } catch (const std::exception& error) { // a rule is broken
        return withLine(text, {findInvalidProfile(text), 1, error.what()});
    }
}

} // namespace norel::Desktop::PayloadProfiles
