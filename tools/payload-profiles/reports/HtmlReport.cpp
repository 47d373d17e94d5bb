#include "reports/HtmlReport.h"

#include "ReportPage.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "reports/ProfileParameters.h"
#include "terminal/Text.h"

#include <algorithm>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;

/// Where the data belongs in the page; the first of its kind there.
constexpr std::string_view PLACE_OF_DATA = "@DATA@";

Json toDocument(const Profile& profile) {
    return JsonProfileListSerializer().toJson(profile, JsonProfileListSerializer::Options());
}

/// The documents that profiles are compared with, each once.
class References {
public:
    /// The index of the profile's document.
    unsigned int add(const Profile& profile) {
        const auto found = std::find(profiles.begin(), profiles.end(), profile);
        const auto index = static_cast<unsigned int>(found - profiles.begin());
        if (found == profiles.end())
            profiles.push_back(profile);
        return index;
    }

    Json toJson() const {
        std::vector<Json> documents;
        for (const Profile& profile : profiles)
            documents.push_back(toDocument(profile));
        return Json(std::move(documents));
    }

private:
    std::vector<Profile> profiles;
};

/// The paths of the parameters of all profiles, each once, in the order of the document.
class ParameterPaths {
public:
    void add(const Profile& profile) {
        auto next = paths.begin();
        for (const ProfileParameter& parameter : listSettings(profile).parameters) {
            const auto known = std::find(next, paths.end(), parameter.path);
            next = known != paths.end() ? known : paths.insert(next, parameter.path);
            ++next;
        }
    }

    Json toJson() const { return Json(paths); }

private:
    std::vector<std::string> paths;
};

std::string makeData(const HtmlReport& report) {
    References references;
    ParameterPaths paths;
    std::vector<Json> profiles;
    for (const auto& [profile, reference] : report.profiles) {
        Json object;
        object.set("document", toDocument(profile));
        if (reference)
            object.set("reference", Json(references.add(*reference)));
        profiles.push_back(std::move(object));
        paths.add(profile);
    }
    Json object;
    object.set("maker", Json("payload-profiles " PAYLOAD_PROFILES_VERSION));
    object.set("made", Json(DateTime::DateTimeConversion::toIso8601(report.made)));
    object.set("source", Json(printable(report.sourceName)));
    if (report.referenceName)
        object.set("against", Json(printable(*report.referenceName)));
    object.set("paths", paths.toJson());
    object.set("references", references.toJson());
    object.set("profiles", Json(std::move(profiles)));
    return object.toString(-1);
}

/// JSON with its "<", which only texts contain, escaped, so that none ends the element or begins a comment.
std::string escaped(const std::string& json) {
    std::string text;
    text.reserve(json.size());
    for (const char character : json)
        if (character == '<')
            text += "\\u003c";
        else
            text += character;
    return text;
}

} // namespace

std::string makeHtmlReport(const HtmlReport& report) {
    const std::string_view page = reportPage();
    const std::size_t place = page.find(PLACE_OF_DATA);
    std::string text(page.substr(0, place));
    text += escaped(makeData(report));
    return text += page.substr(place + PLACE_OF_DATA.size());
}

} // namespace norel::Desktop::PayloadProfiles
