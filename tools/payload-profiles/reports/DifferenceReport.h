#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"
#include "reports/ProfileMembers.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// A member, or a section that only one of two profiles has, that differs between them.
struct Change {
    MemberPath path;
    std::string label; ///< the path for people
    std::string from;  ///< with its unit; empty for a section that the first profile lacks
    std::string to;
    std::optional<DataFormat::Json> value; ///< in the second profile; empty when it lacks the section
    bool isAddition = false;               ///< whether the first profile lacks it
};

/// A profile as it is compared.
struct ComparedProfile {
    Domain::Payloads::Profile profile;
    std::vector<MemberPath> lacking; ///< sections that its document, of an older version, does not have
};

/// The members that differ, in the order of the document, then the sections that only one profile has.
std::vector<Change> findChanges(const ComparedProfile& from, const ComparedProfile& to);

/// A line for each member that differs.
std::string makeChangeLines(const Domain::Payloads::Profile& from, const Domain::Payloads::Profile& to);

/// Which profiles of two lists are compared: those with the same id, name or product.
enum class MatchBy { Id, Name, Product };

/// How two lists differ. The order of the profiles does not count.
struct ListDifference {
    struct ChangedProfile {
        unsigned int index; ///< in the first list
        Domain::Payloads::Profile from;
        Domain::Payloads::Profile to;
        std::vector<Change> changes;
    };
    std::vector<ChangedProfile> changed;
    std::vector<std::pair<unsigned int, Domain::Payloads::Profile>> removed; ///< with their indices
    std::vector<Domain::Payloads::Profile> added;

    bool isEmpty() const { return changed.empty() && removed.empty() && added.empty(); }
};

/// Unless profiles are matched by their ids, their ids, names, serial numbers and times are not compared.
ListDifference compareLists(const std::vector<ComparedProfile>& from, const std::vector<ComparedProfile>& to,
                            MatchBy match);

/// A line for each profile and each member that differ; empty when none does.
std::string makeTextDifference(const ListDifference& difference);

/// A JSON Patch (RFC 6902) that makes the second list from the first, but for the order of the profiles and
/// for what was not compared.
std::string makeJsonPatch(const ListDifference& difference);

} // namespace norel::Desktop::PayloadProfiles
