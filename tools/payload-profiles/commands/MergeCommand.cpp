#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"
#include "reports/ChangeReport.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct MergeArguments {
    Source source;
    std::string file;
    bool dryRun = false;
    LockWait wait;
};

ProfileList merged(const ProfileList& source, const ProfileList& list) {
    const auto draft = std::make_shared<DraftStorage>(list);
    UseCase::MergeProfileStorages(std::make_shared<DraftStorage>(source), draft).execute();
    return draft->read();
}

ProfileList readIfExists(const Context& context, const std::string& file) {
    const bool exists = about(file, [&] { return std::filesystem::exists(file); });
    return exists ? readProfiles(file, openFile(context.documents, file)) : ProfileList();
}

void merge(Context& context, const MergeArguments& arguments) {
    requireChangeable(arguments.file);
    const ProfileList source = readSource(context.documents, arguments.source);
    if (arguments.dryRun) {
        const ProfileList before = readIfExists(context, arguments.file);
        context.console.print(makeMergeReport(source, before, merged(source, before), Tense::WouldBe));
        return;
    }
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::Anything,
                            arguments.wait);
    const ProfileList before = file.read();
    const ProfileList after = merged(source, before);
    file.write(after);
    context.console.print(makeMergeReport(source, before, after, Tense::Done));
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
    command.add_option("FILE", arguments->file, "The file to change; created if missing")->required();
    command.add_flag("--dry-run", arguments->dryRun, "Print what would be done, and change nothing");
    addWait(command, arguments->wait);
    command.callback([&context, arguments] { merge(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
