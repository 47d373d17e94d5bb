#include "documents/ReadDocument.h"

#include "documents/Validation.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"
#include "terminal/Text.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <vector>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Finding = ProfileListValidator::Finding;

std::string inLine(const Finding& finding) { return " (line " + std::to_string(finding.line) + ')'; }

} // namespace

std::string describeError(const std::string& text, unsigned int version, const std::string& message) {
    const auto finding = findError(text, version, message);
    return finding && !finding->path.empty() ? finding->message + " at " + finding->path + inLine(*finding)
                                             : message;
}

Domain::Payloads::ProfileList readDocument(const Domain::Payloads::ProfileListSerializer& serializer,
                                           const std::string& text, const std::string& file) {
    try {
        return serializer.deserialize(text);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        const std::string message =
            describeError(text, Domain::Payloads::DocumentVersions::getCurrent(), error.what());
        const auto oldVersion = findOldVersion(text);
        if (message == error.what() && !oldVersion)
            throw;
        throw std::runtime_error(oldVersion ? message + "; " + describeOldVersion(file, *oldVersion)
                                            : message);
    }
}

std::string listDropped(const std::string& text) {
    constexpr std::size_t maximumNumber = 20;
    const std::vector<Finding> members = findDroppedMembers(text);
    std::string names;
    for (std::size_t i = 0; i < std::min(members.size(), maximumNumber); ++i)
        names += (i > 0 ? ", " : "") + members[i].path + inLine(members[i]);
    if (members.size() > maximumNumber)
        names += " and " + counted(members.size() - maximumNumber, "other");
    return names;
}

void requireNothingDropped(const std::string& text) {
    if (const std::string names = listDropped(text); !names.empty())
        throw std::runtime_error("writing this document would drop members that are not known: " + names +
                                 "; --drop-unknown drops them");
}

} // namespace norel::Desktop::PayloadProfiles
