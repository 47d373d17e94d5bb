#include "commands/Commands.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "documents/Source.h"
#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct MergeArguments {
    Source source;
    std::string file;
    bool dryRun = false;
};

/// What became of each profile of the source: a line each.
std::string makeReport(const ProfileList& source, const ProfileList& before, const ProfileList& after,
                       bool isDryRun) {
    std::string lines;
    std::size_t added = 0;
    std::size_t kept = 0;
    ProfileList seen;
    for (Profile profile : source) {
        const std::string name = profile.getName();
        const Profile result = *after.getProfileByName(name);
        if (before.existByName(name)) {
            lines += "kept " + describe(result) + ": the file has a profile of this name\n";
            ++kept;
        } else if (seen.existByName(name)) {
            lines += "kept " + describe(result) + ": the source has another profile of this name\n";
            ++kept;
        } else {
            lines += (isDryRun ? "would add " : "added ") + describe(result);
            if (result.getId() != profile.getId())
                lines += ": its id " + std::to_string(profile.getId()) + " is taken";
            lines += '\n';
            ++added;
        }
        seen.add(profile);
    }
    return lines + counted(added, "profile") + (isDryRun ? " to add, " : " added, ") + std::to_string(kept) +
           " kept\n";
}

/// What a merge makes of the list, without any file.
ProfileList tryMerge(const std::shared_ptr<ProfileListStorage>& source, const ProfileList& list) {
    const auto draft = std::make_shared<DraftStorage>(list);
    UseCase::MergeProfileStorages(source, draft).execute();
    return draft->read();
}

ProfileList readIfThere(const Context& context, const std::string& file) {
    const bool exists = about(file, [&] { return std::filesystem::exists(file); });
    return exists ? readProfiles(file, openFile(context, file)) : ProfileList();
}

void merge(Context& context, const MergeArguments& arguments) {
    const Source target{arguments.file, {}};
    if (target.isBuiltInOrAddress()) // the arguments the other way round
        throw Failure(target.getName(), "this is a source that cannot be changed");
    const ProfileList profiles = readSource(context, arguments.source); // once: it may be far away
    const auto source = std::make_shared<DraftStorage>(profiles);
    if (arguments.dryRun) {
        const ProfileList before = readIfThere(context, arguments.file);
        context.console.print(makeReport(profiles, before, tryMerge(source, before), true));
        return;
    }
    const FileToChange file(context, arguments.file);
    const ProfileList before = readProfiles(arguments.file, file.getStorage());
    about(arguments.file, [&] { UseCase::MergeProfileStorages(source, file.getStorage()).execute(); });
    context.console.print(
        makeReport(profiles, before, readProfiles(arguments.file, file.getStorage()), false));
}

} // namespace

void addMergeCommand(CLI::App& application, Context& context) {
    CLI::App& command =
        addCommand(application, "merge", "Add to a file the profiles of a source whose names it lacks",
                   "merge factory profiles.json\n"
                   "merge colleague.json profiles.json --dry-run\n"
                   "merge https://processing.example/ profiles.json --key-file key.txt");
    const auto arguments = std::make_shared<MergeArguments>();
    addSource(command, arguments->source);
    command.add_option("FILE", arguments->file, "The file to change; made when there is none")->required();
    command.add_flag("--dry-run", arguments->dryRun, "Only tell what would be done");
    command.callback([&context, arguments] { merge(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
