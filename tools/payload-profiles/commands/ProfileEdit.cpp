#include "commands/ProfileEdit.h"

#include "commands/EditReader.h"
#include "norel/Desktop/Domain/Payloads/ToBuilder.h"
#include "reports/ProfileParameters.h"
#include "terminal/Nearest.h"
#include "terminal/Text.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;
using JsonPath = JsonProfileListSerializer::JsonPath;

/// The members that lists and commands set.
constexpr std::array<std::string_view, 2> UNCHANGEABLE{"id", "last_modification_time"};

MemberPath parsePath(const std::string& text) {
    MemberPath path;
    std::string step;
    const auto finishStep = [&] {
        if (!step.empty())
            path.push_back(std::exchange(step, {}));
    };
    for (const char character : text) {
        if (character == '.' || character == '[')
            finishStep();
        if (character != '.')
            step += character;
    }
    finishStep();
    return path;
}

/// Throws when the path leads into a section that profiles may have but this one has not.
void refuseAbsent(const Json& document, const MemberPath& path) {
    MemberPath section;
    for (const std::string& step : path) {
        section.push_back(step);
        if (findValue(document, section))
            continue;
        if (parseIndex(step) || !isMember(path))
            return;
        const std::string name = toText(section);
        throw std::runtime_error(
            "the profile has no " + inQuotes(name) + "; \"reset FILE ID " + name +
            " --factory\" adds that of the factory profile of its product, if it has one");
    }
}

[[noreturn]] void refuseUnknown(const std::vector<ProfileMember>& members, const std::string& text) {
    const std::string path = toText(parsePath(text));
    std::vector<std::string> candidates;
    std::vector<std::string> endings;
    std::vector<std::string> below;
    for (const ProfileMember& member : members) {
        const std::string candidate = describePath(member);
        candidates.push_back(candidate);
        if (candidate.ends_with('.' + path))
            endings.push_back(candidate);
        if (candidate.starts_with(path + '.'))
            below.push_back(candidate);
    }
    if (!below.empty())
        throw std::runtime_error(inQuotes(text) + " is a section; name one of its members, such as " +
                                 below.front());
    const auto nearest = endings.empty() ? findNearest(path, candidates) : endings.front();
    throw std::runtime_error("there is no " + inQuotes(text) + " in the profile" +
                             (nearest ? "; did you mean " + *nearest + '?' : ""));
}

/// The value of the preset whose name follows "@".
std::string findPreset(const Profile& profile, const ProfileMember& member, const Assignment& assignment) {
    const std::string name = assignment.value.substr(1);
    std::vector<std::string> names;
    for (const ProfileParameter& parameter : listSettings(profile).parameters) {
        if (parameter.path != describePath(member))
            continue;
        for (const auto& [preset, number] : parameter.presets) {
            names.push_back(preset);
            if (preset == name)
                return numberToText(number);
        }
    }
    std::string known;
    for (const std::string& preset : names)
        known += (known.empty() ? "; it has " : ", ") + printable(preset);
    throw std::runtime_error(
        describeRefusal(member.path, assignment, "the parameter has no such preset" + known));
}

EditReader::Edits findMembers(const Profile& profile, const std::vector<ProfileMember>& members,
                              const std::vector<Assignment>& assignments) {
    EditReader::Edits edits;
    for (Assignment assignment : assignments) {
        MemberPath path = parsePath(assignment.path);
        const std::string text = toText(path);
        const auto member = std::ranges::find_if(members, [&](const ProfileMember& candidate) {
            return describePath(candidate) == text || toText(candidate.path) == text;
        });
        if (std::ranges::find(UNCHANGEABLE, text) != UNCHANGEABLE.end())
            throw std::runtime_error(text + " cannot be assigned");
        if (member != members.end()) {
            path = member->path;
            if (member->isParameterValue && assignment.value.starts_with('@'))
                assignment.value = findPreset(profile, *member, assignment);
        }
        if (!edits.emplace(path, assignment).second)
            throw std::runtime_error(text + " is assigned twice");
    }
    return edits;
}

Profile build(const Profile& profile, const std::vector<ProfileMember>& members,
              const EditReader::Edits& edits) {
    Json document = makeDocument(profile);
    for (const auto& [path, assignment] : edits) {
        if (std::ranges::find(members, path, &ProfileMember::path) != members.end())
            continue;
        const MemberPath parent(path.begin(), path.end() - (path.empty() ? 0 : 1));
        if (!parent.empty() && parent.back() == PARAMETER_PRESETS && !findValue(document, parent))
            document = withValue(document, parent, Json::fromString("{}")).value_or(document);
        const auto added = withValue(document, path, Json(0)); // the reader takes the value of the assignment
        if (!added || findValue(document, path)) {
            refuseAbsent(document, path);
            refuseUnknown(members, assignment.path);
        }
        document = *added;
    }
    const EditReader reader(edits);
    Profile::Builder builder;
    reader.fromJson(JsonPath(document), builder, {});
    if (const Assignment* unused = reader.findUnused())
        refuseUnknown(members, unused->path);
    return builder.build();
}

/// Describes why a profile with several assignments violates a rule, by the first that alone does so too.
std::string describeViolation(const Profile& profile, const std::vector<ProfileMember>& members,
                              const EditReader::Edits& edits, const std::string& rule) {
    for (const auto& edit : edits) {
        try {
            build(profile, members, {edit});
        } catch (const std::exception& error) {
            if (error.what() == rule)
                return describeRefusal(edit.first, edit.second, rule);
        }
    }
    return rule;
}

Profile readProfile(const Json& document) {
    Profile::Builder builder;
    JsonProfileListSerializer().fromJson(JsonPath(document), builder, {});
    return builder.build();
}

} // namespace

bool isChangeable(const ProfileMember& member) {
    return std::ranges::find(UNCHANGEABLE, toText(member.path)) == UNCHANGEABLE.end();
}

Profile withAssignments(const Profile& profile, const std::vector<Assignment>& assignments) {
    const std::vector<ProfileMember> members = listMembers(profile);
    const EditReader::Edits edits = findMembers(profile, members, assignments);
    try {
        return build(profile, members, edits);
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(describeViolation(profile, members, edits, error.what()));
    } catch (const Profile::InvalidProfile& error) {
        throw std::runtime_error(describeViolation(profile, members, edits, error.what()));
    }
}

Profile withDefaults(const Profile& profile, const std::vector<std::string>& paths) {
    const std::vector<ProfileParameter> parameters = listSettings(profile).parameters;
    std::map<std::string, Assignment> assignments;
    for (const std::string& text : paths.empty() ? std::vector<std::string>{""} : paths) {
        const std::string path = toText(parsePath(text));
        bool isKnown = false;
        bool hasDefault = false;
        for (const ProfileParameter& parameter : parameters) {
            if (!path.empty() && parameter.path != path && !parameter.path.starts_with(path + '.'))
                continue;
            isKnown = true;
            if (!parameter.defaultValue)
                continue;
            hasDefault = true;
            assignments[parameter.path] = {parameter.path, numberToText(*parameter.defaultValue)};
        }
        if (!isKnown) {
            refuseAbsent(makeDocument(profile), parsePath(text));
            refuseUnknown(listMembers(profile), text);
        }
        if (!hasDefault)
            throw std::runtime_error(path + " has no default; --factory resets it to the factory profile");
    }
    std::vector<Assignment> list;
    list.reserve(assignments.size());
    for (const auto& [path, assignment] : assignments)
        list.push_back(assignment);
    return withAssignments(profile, list);
}

Profile withFactoryValues(const Profile& profile, const Profile& factory,
                          const std::vector<std::string>& paths) {
    if (paths.empty()) {
        Profile::Builder builder = toBuilder(factory);
        builder.id = profile.getId();
        builder.name = profile.getName();
        builder.serialNumber = profile.getSerialNumber();
        builder.creationTime = profile.getCreationTime();
        builder.lastModificationTime = profile.getLastModificationTime();
        return builder.build();
    }
    const Json source = makeDocument(factory);
    Json document = makeDocument(profile);
    for (const std::string& text : paths) {
        const MemberPath path = parsePath(text);
        const auto value = findValue(source, path);
        const auto changed = value ? withValue(document, path, *value) : std::nullopt;
        if (!value && isMember(path))
            throw std::runtime_error("the factory profile of the product has no " + inQuotes(text));
        if (!changed || path.empty()) {
            refuseAbsent(document, path);
            refuseUnknown(listMembers(factory), text);
        }
        document = *changed;
    }
    Profile result = readProfile(document);
    result.setId(profile.getId());
    result.setLastModificationTime(profile.getLastModificationTime());
    return result;
}

} // namespace norel::Desktop::PayloadProfiles
