#include "reports/DifferenceReport.h"

#include "documents/ProfileId.h"
#include "terminal/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;
using Members = std::map<MemberPath, const ProfileMember*>;

/// What distinguishes copies of the same settings.
constexpr std::array<std::string_view, 5> IDENTITY{"id", "name", "serial_number", "creation_time",
                                                   "last_modification_time"};

Members sortByPath(const std::vector<ProfileMember>& list) {
    Members members;
    for (const ProfileMember& member : list)
        members.emplace(member.path, &member);
    return members;
}

bool startsWith(const MemberPath& path, const MemberPath& beginning) {
    return path.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), path.begin());
}

/// The outermost section of a path in which there are no members.
MemberPath findMissingSection(const Members& members, const MemberPath& path) {
    MemberPath section;
    for (const std::string& step : path) {
        section.push_back(step);
        const auto first = members.lower_bound(section);
        if (first == members.end() || !startsWith(first->first, section))
            break;
    }
    return section;
}

std::string describeValue(const ProfileMember& member, bool withUnit) {
    constexpr std::size_t maximumWidth = 60; // the text of a calibration may be long
    const std::string text = shortened(member.text, maximumWidth);
    return withUnit && member.unit ? text + ' ' + *member.unit : text;
}

/// The sections with members of `list` that the other profile lacks, each once.
std::vector<MemberPath> findMissingSections(const std::vector<ProfileMember>& list, const Members& others) {
    std::vector<MemberPath> sections;
    for (const ProfileMember& member : list) {
        if (others.contains(member.path))
            continue;
        MemberPath section = findMissingSection(others, member.path);
        if (sections.empty() || sections.back() != section)
            sections.push_back(std::move(section));
    }
    return sections;
}

std::string describeSection(const std::vector<ProfileMember>& list, const MemberPath& section) {
    const auto member = std::ranges::find(list, section, &ProfileMember::path);
    return member == list.end() ? "present" : describeValue(*member, true);
}

bool isLacking(const ComparedProfile& compared, const MemberPath& path) {
    return std::ranges::any_of(compared.lacking,
                               [&](const MemberPath& section) { return startsWith(path, section); });
}

std::vector<ProfileMember> listComparedMembers(const ComparedProfile& compared) {
    std::vector<ProfileMember> members = listMembers(compared.profile);
    std::erase_if(members, [&](const ProfileMember& member) { return isLacking(compared, member.path); });
    return members;
}

/// What matched profiles have in common.
std::string keyOf(const Profile& profile, MatchBy match) {
    if (match == MatchBy::Id)
        return std::to_string(profile.getId());
    return match == MatchBy::Name ? profile.getName() : profile.getProduct();
}

std::string makeStep(const std::string& key) {
    std::string step = "/";
    for (const char character : key)
        step += character == '~' ? std::string("~0") : character == '/' ? "~1" : std::string(1, character);
    return step;
}

Json makeOperation(const char* name, const std::string& pointer, const std::optional<Json>& value) {
    Json operation;
    operation.set("op", Json(name));
    operation.set("path", Json(pointer));
    if (value)
        operation.set("value", *value);
    return operation;
}

/// The JSON Pointer of a member of a profile, which is in at least one of the documents.
std::string makePointer(unsigned int profileIndex, const std::array<Json, 2>& documents,
                        const MemberPath& path) {
    std::string pointer = '/' + std::to_string(profileIndex);
    MemberPath parent;
    for (const std::string& step : path) {
        const auto index = parseIndex(step);
        const bool isKey = std::ranges::any_of(documents, [&](const Json& document) {
            const auto object = findValue(document, parent);
            return object && object->contains(step);
        });
        pointer += index && !isKey ? '/' + std::to_string(*index) : makeStep(step);
        parent.push_back(step);
    }
    return pointer;
}

} // namespace

std::vector<Change> findChanges(const ComparedProfile& from, const ComparedProfile& to) {
    const std::vector<ProfileMember> oldList = listComparedMembers(from);
    const std::vector<ProfileMember> newList = listComparedMembers(to);
    const Members oldMembers = sortByPath(oldList);
    const Members newMembers = sortByPath(newList);
    std::vector<Change> changes;
    for (const ProfileMember& member : oldList) {
        const auto found = newMembers.find(member.path);
        if (found == newMembers.end() || found->second->value.toString(-1) == member.value.toString(-1))
            continue;
        const ProfileMember& other = *found->second;
        changes.push_back({member.path, describePath(member),
                           describeValue(member, member.unit != other.unit), describeValue(other, true),
                           other.value});
    }
    const auto findIn = [](const ComparedProfile& compared, const Json& document, const MemberPath& path) {
        return isLacking(compared, path) ? std::nullopt : findValue(document, path);
    };
    const Json oldDocument = makeDocument(from.profile);
    const Json newDocument = makeDocument(to.profile);
    for (const MemberPath& path : findMissingSections(oldList, newMembers))
        changes.push_back({path, toText(path), describeSection(oldList, path), "absent",
                           findIn(to, newDocument, path)}); // an array may have become empty
    for (const MemberPath& path : findMissingSections(newList, oldMembers))
        changes.push_back({path, toText(path), "absent", describeSection(newList, path),
                           findIn(to, newDocument, path), !findIn(from, oldDocument, path)});
    return changes;
}

std::string makeChangeLines(const Profile& from, const Profile& to) {
    std::string lines;
    for (const Change& change : findChanges({from, {}}, {to, {}}))
        lines += "  " + printable(change.label) + ": " + change.from + " -> " + change.to + '\n';
    return lines;
}

ListDifference compareLists(const std::vector<ComparedProfile>& from, const std::vector<ComparedProfile>& to,
                            MatchBy match) {
    std::map<std::string, std::vector<ComparedProfile>> unmatched;
    for (const ComparedProfile& other : to)
        unmatched[keyOf(other.profile, match)].push_back(other);
    std::map<std::string, ComparedProfile> lastMatches; // also for further profiles of the same key
    ListDifference difference;
    unsigned int index = 0;
    for (const ComparedProfile& compared : from) {
        const std::string key = keyOf(compared.profile, match);
        std::vector<ComparedProfile>& candidates = unmatched[key];
        if (!candidates.empty()) {
            lastMatches.insert_or_assign(key, candidates.front());
            candidates.erase(candidates.begin());
        }
        if (const auto other = lastMatches.find(key); other == lastMatches.end()) {
            difference.removed.emplace_back(index, compared.profile);
        } else {
            std::vector<Change> changes = findChanges(compared, other->second);
            if (match != MatchBy::Id)
                std::erase_if(changes, [](const Change& change) {
                    return std::ranges::find(IDENTITY, change.label) != IDENTITY.end();
                });
            if (!changes.empty())
                difference.changed.push_back(
                    {index, compared.profile, other->second.profile, std::move(changes)});
        }
        ++index;
    }
    for (const auto& [key, rest] : unmatched)
        for (const ComparedProfile& other : rest)
            difference.added.push_back(other.profile);
    return difference;
}

std::string makeTextDifference(const ListDifference& difference) {
    std::string text;
    for (const auto& [index, from, to, changes] : difference.changed) {
        text += "changed " + describe(from);
        if (describe(from) != describe(to))
            text += ", compared with " + describe(to);
        text += '\n';
        for (const Change& change : changes)
            text += "  " + printable(change.label) + ": " + change.from + " -> " + change.to + '\n';
    }
    for (const auto& [index, profile] : difference.removed)
        text += "removed " + describe(profile) + '\n';
    for (const Profile& profile : difference.added)
        text += "added " + describe(profile) + '\n';
    return text;
}

std::string makeJsonPatch(const ListDifference& difference) {
    std::vector<Json> operations;
    for (const auto& profile : difference.changed) {
        const std::array documents{makeDocument(profile.from), makeDocument(profile.to)};
        for (const Change& change : profile.changes)
            if (change.value)
                operations.push_back(makeOperation(change.isAddition ? "add" : "replace",
                                                   makePointer(profile.index, documents, change.path),
                                                   change.value));
        for (auto change = profile.changes.rbegin(); change != profile.changes.rend(); ++change)
            if (!change->value) // the elements of an array, the last first
                operations.push_back(
                    makeOperation("remove", makePointer(profile.index, documents, change->path), {}));
    }
    for (auto removed = difference.removed.rbegin(); removed != difference.removed.rend(); ++removed)
        operations.push_back(makeOperation("remove", '/' + std::to_string(removed->first), {}));
    for (const Profile& profile : difference.added)
        operations.push_back(makeOperation("add", "/-", makeDocument(profile)));
    return printableJson(Json(std::move(operations)).toString(4)) + '\n';
}

} // namespace norel::Desktop::PayloadProfiles
