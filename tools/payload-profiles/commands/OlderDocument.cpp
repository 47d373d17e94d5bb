#include "commands/OlderDocument.h"

#include "documents/DocumentVersion.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ReadDocument.h"
#include "text/Utf8Path.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;

/// Empty when the version cannot be determined.
std::optional<unsigned int> findVersionOf(const std::string& text) {
    try {
        return findVersion(StoredLidars(text).profiles);
    } catch (const VersionUnclear&) {
    } catch (const Json::JsonError&) {
    }
    return std::nullopt;
}

std::string upgradeToCurrent(std::string text, unsigned int from) {
    for (unsigned int version = from + 1; version <= DocumentVersions::getCurrent(); ++version)
        text = upgradeTo(version, text);
    return text;
}

/// The document of a profile with the values that the older document has.
Json withOlderValues(const Profile& profile, const Json& older) {
    Json document = makeDocument(profile);
    for (const ProfileMember& member : listMembers(profile))
        if (const auto value = findValue(older, member.path);
            value && !value->isNull() && value->toString(-1) != member.value.toString(-1))
            document = withValue(document, member.path, *value).value_or(document);
    return document;
}

/// The sections of later versions that a stored profile lacks.
std::vector<MemberPath> listLacking(const Json& stored, unsigned int version) {
    std::vector<MemberPath> lacking;
    for (unsigned int next = version + 1; next <= DocumentVersions::getCurrent(); ++next)
        for (const Section& section : DocumentVersions::getSections(next))
            if (!hasSection(stored, section))
                lacking.push_back(section);
    return lacking;
}

std::vector<ComparedProfile> readOlder(const DocumentAccess& documents, const std::string& text,
                                       unsigned int version) {
    const ProfileList list = documents.serializer->deserialize(upgradeToCurrent(text, version));
    const Json older = Json::fromString(text);
    std::vector<ComparedProfile> compared;
    auto stored = older.begin();
    for (const Profile& profile : list) {
        Profile::Builder builder;
        const Json document = withOlderValues(profile, *stored);
        JsonProfileListSerializer().fromJson(JsonProfileListSerializer::JsonPath(document), builder, {});
        builder.id = profile.getId(); // which the list may have assigned
        compared.push_back({builder.build(), listLacking(*stored, version)});
        ++stored;
    }
    return compared;
}

} // namespace

std::vector<ComparedProfile> readForComparison(const DocumentAccess& documents, const Source& source) {
    if (!source.isBuiltIn() && !source.isAddress()) {
        requireFile(source.location);
        const std::string text = about(
            source.location, [&] { return documents.textFiles->read(Text::makePath(source.location)); });
        const auto version = findVersionOf(text);
        if (version && *version != DocumentVersions::getCurrent())
            return about(source.location, [&] {
                try {
                    return readOlder(documents, text, *version);
                } catch (const std::bad_alloc&) {
                    throw;
                } catch (const std::exception& error) {
                    throw std::runtime_error(describeError(text, *version, error.what()));
                }
            });
    }
    std::vector<ComparedProfile> compared;
    for (const Profile& profile : readSource(documents, source))
        compared.push_back({profile, {}});
    return compared;
}

} // namespace norel::Desktop::PayloadProfiles
