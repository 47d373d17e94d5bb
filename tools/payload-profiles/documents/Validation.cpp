#include "documents/Validation.h"

#include "documents/DocumentVersion.h"
#include "terminal/Text.h"

#include <algorithm>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Finding = ProfileListValidator::Finding;
using Kind = ProfileListValidator::Kind;
using Severity = ProfileListValidator::Severity;
namespace DocumentVersions = Domain::Payloads::DocumentVersions;

} // namespace

std::size_t Validation::count(Severity severity) const {
    return static_cast<std::size_t>(std::ranges::count(result.findings, severity, &Finding::severity));
}

Validation validateDocument(const std::string& text, const ProfileListValidator::Progress& progress) {
    Validation validation{{}, ProfileListValidator().validate(text, progress)};
    if (std::ranges::find(validation.result.findings, Kind::Missing, &Finding::kind) !=
        validation.result.findings.end())
        validation.oldVersion = findOldVersion(text);
    if (validation.oldVersion)
        validation.result = ProfileListValidator().validate(text, progress, *validation.oldVersion);
    return validation;
}

std::vector<Finding> findDroppedMembers(const std::string& text) {
    std::vector<Finding> findings = ProfileListValidator().validate(text).findings;
    std::erase_if(findings, [](const Finding& finding) { return finding.kind != Kind::UnknownMember; });
    return findings;
}

std::optional<unsigned int> findOldVersion(const std::string& text) {
    try {
        const auto version = findVersion(StoredLidars(text).profiles);
        return version && *version < DocumentVersions::getCurrent() ? version : std::nullopt;
    } catch (const DataFormat::Json::JsonError&) {
    } catch (const VersionUnclear&) {
    }
    return std::nullopt;
}

std::optional<Finding> findError(const std::string& text, unsigned int version, const std::string& message) {
    const std::vector<Finding> findings = ProfileListValidator().validate(text, {}, version).findings;
    const auto error = std::ranges::find_if(findings, [&](const Finding& finding) {
        return message == finding.message || message == finding.message + " at " + finding.path;
    });
    return error != findings.end() ? std::optional(*error) : std::nullopt;
}

std::string describeOldVersion(const std::string& file, unsigned int version) {
    return "the document is of version " + std::to_string(version) + ", not " +
           std::to_string(DocumentVersions::getCurrent()) + "; run: payload-profiles upgrade " +
           (file.find(' ') != std::string::npos ? inQuotes(file) : printable(file));
}

} // namespace norel::Desktop::PayloadProfiles
