#include "documents/ReadDocument.h"

#include "documents/Validation.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "terminal/Text.h"

#include <algorithm>
#include <new>
#include <set>
#include <stdexcept>
#include <vector>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Finding = ProfileListValidator::Finding;

/// The path without the position of the profile.
std::string pathInProfile(const Finding& finding) { return finding.path.substr(finding.path.find('.') + 1); }

/// Removes the members that the built-in profiles have as well: remains of earlier releases, which many files
/// contain and nothing uses.
void removeObsolete(std::vector<Finding>& members) {
    std::set<std::string> obsolete;
    for (const Finding& member : findDroppedMembers(Domain::Payloads::DefaultProducts::getSourceDocument()))
        obsolete.insert(pathInProfile(member));
    std::erase_if(members, [&](const Finding& member) { return obsolete.contains(pathInProfile(member)); });
}

std::string inLine(const Finding& finding) { return " (line " + std::to_string(finding.line) + ')'; }

} // namespace

Domain::Payloads::ProfileList readDocument(const Domain::Payloads::ProfileListSerializer& serializer,
                                           const std::string& text) {
    try {
        return serializer.deserialize(text);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        const auto finding = findError(text, error.what());
        if (!finding || finding->path.empty())
            throw;
        throw std::runtime_error(finding->message + " at " + finding->path + inLine(*finding));
    }
}

void requireNothingDropped(const std::string& text) {
    constexpr std::size_t maximumNumber = 20;
    std::vector<Finding> members = findDroppedMembers(text);
    if (!members.empty())
        removeObsolete(members);
    if (members.empty())
        return;
    std::string names;
    for (std::size_t i = 0; i < std::min(members.size(), maximumNumber); ++i)
        names += (i > 0 ? ", " : "") + members[i].path + inLine(members[i]);
    if (members.size() > maximumNumber)
        names += " and " + counted(members.size() - maximumNumber, "other");
    throw std::runtime_error("writing this document would drop members that are not known: " + names +
                             "; --drop-unknown drops them");
}

} // namespace norel::Desktop::PayloadProfiles
