#include "commands/ChangeProfile.h"

#include "documents/Drafts.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "documents/ReadDocument.h"
#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"
#include "reports/DifferenceReport.h"

namespace norel::Desktop::PayloadProfiles {

ProfileList readProfilesToCopy(Context& context, const Source& source) {
    return readSource(context.documents, source, [&](const std::string& text) {
        if (const std::string names = listDropped(text); !names.empty())
            context.console.showMessage(source.getName(),
                                        "members that are not known are left out: " + names);
    });
}

void addProfileToChange(Command command, ProfileToChange& profile) {
    command.addArgument("FILE", profile.file, "The file to change");
    command.addArgument("ID", profile.id, "The id of the profile", checkId);
    addChangeOptions(command, profile.options);
}

void changeProfile(Context& context, const ProfileToChange& target,
                   const std::function<Profile(const Profile&)>& change) {
    const FileToChange file(context.documents, target.file, FileToChange::Expected::File, target.options);
    const ProfileList list = file.read();
    const unsigned int id = parseId(target.id);
    requireProfiles(list, {id}, target.file, "; nothing was changed");
    const Profile before = *list.get(id);
    Profile after = about(target.file, [&] {
        try {
            return change(before);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            throw std::runtime_error(std::string("nothing was changed: ") + error.what());
        }
    });
    if (after == before) {
        context.console.print("unchanged " + describe(before) + '\n');
        return;
    }
    const std::string report = (target.options.dryRun ? "would change " : "changed ") + describe(before) +
                               '\n' + makeChangeLines(before, after);
    const auto draft = std::make_shared<DraftStorage>(list);
    about(target.file, [&] { UseCase::AddOrUpdateProfile(draft, context.clock).execute(after); });
    file.write(draft->read());
    context.console.print(report);
}

} // namespace norel::Desktop::PayloadProfiles
