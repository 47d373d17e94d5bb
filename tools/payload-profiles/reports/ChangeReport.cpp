#include "reports/ChangeReport.h"

#include "documents/ProfileId.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;

std::string describeSection(const StoredLidars& lidars, const Section& section, Tense tense) {
    std::vector<StoredProfile> replaced;
    std::vector<StoredProfile> added;
    for (const StoredProfile& profile : lidars.profiles)
        (hasSection(profile.value, section) ? replaced : added).push_back(profile);
    const std::string verb = tense == Tense::WouldBe ? "would be " : "";
    std::string text;
    if (!replaced.empty()) // a dry run names the profiles that would lose settings
        text += ' ' + verb + "replaced in " +
                (tense == Tense::WouldBe ? joinLabels(replaced) : counted(replaced.size(), "profile"));
    if (!added.empty())
        text += (text.empty() ? " " : " and ") + verb + "added in " + counted(added.size(), "profile");
    return getName(section) + (text.empty() ? " in no profile" : text);
}

} // namespace

std::string makeMergeReport(const ProfileList& source, const ProfileList& before, const ProfileList& after,
                            Tense tense) {
    std::string lines;
    std::size_t added = 0;
    std::size_t kept = 0;
    ProfileList seen;
    for (Profile profile : source) {
        const std::string name = profile.getName();
        const Profile result = after.getProfileByName(name).value_or(profile);
        if (before.existByName(name)) {
            lines += "kept " + describe(result) + ": the file already has a profile with this name\n";
            ++kept;
        } else if (seen.existByName(name)) {
            lines += "kept " + describe(result) + ": the source has another profile with this name\n";
            ++kept;
        } else {
            lines += (tense == Tense::WouldBe ? "would add " : "added ") + describe(result);
            if (result.getId() != profile.getId())
                lines += ": its id " + std::to_string(profile.getId()) + " is taken";
            lines += '\n';
            ++added;
        }
        seen.add(profile);
    }
    return lines + counted(added, "profile") + (tense == Tense::WouldBe ? " to add, " : " added, ") +
           std::to_string(kept) + " kept\n";
}

std::string makeStepReport(const std::string& text, unsigned int version, Tense tense) {
    const StoredLidars lidars(text);
    std::string step = "version " + std::to_string(version - 1) + " to " + std::to_string(version) + ':';
    const char* const lineBreak = "\n  ";
    const char* separator = tense == Tense::WouldBe ? lineBreak : " ";
    for (const Section& section : DocumentVersions::getSections(version)) {
        step += separator + describeSection(lidars, section, tense);
        separator = tense == Tense::WouldBe ? lineBreak : ", ";
    }
    return step + '\n';
}

} // namespace norel::Desktop::PayloadProfiles
