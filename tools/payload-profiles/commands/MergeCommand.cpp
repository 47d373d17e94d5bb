#include "commands/Arguments.h"
#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/ProfileFile.h"
#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"
#include "reports/ChangeReport.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct MergeArguments {
    Source source;
    std::string file;
    ChangeOptions options;
};

ProfileList merged(const ProfileList& source, const ProfileList& list) {
    const auto draft = std::make_shared<DraftStorage>(list);
    UseCase::MergeProfileStorages(std::make_shared<DraftStorage>(source), draft).execute();
    return draft->read();
}

void merge(Context& context, const MergeArguments& arguments) {
    requireChangeable(arguments.file);
    const ProfileList source = readProfilesToCopy(context, arguments.source);
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::Anything,
                            arguments.options);
    const ProfileList before = file.read();
    const ProfileList after = merged(source, before);
    file.write(after);
    const Tense tense = arguments.options.dryRun ? Tense::WouldBe : Tense::Done;
    context.console.print(makeMergeReport(source, before, after, tense));
}

} // namespace

void addMergeCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "merge", "Add to a file the profiles of a source whose names it lacks",
                   "merge factory profiles.json\n"
                   "merge colleague.json profiles.json --dry-run\n"
                   "merge https://processing.example/ p.json --key-file key.txt");
    const auto arguments = std::make_shared<MergeArguments>();
    addSource(command, arguments->source);
    command.addArgument("FILE", arguments->file, "The file to change; created if missing");
    addChangeOptions(command, arguments->options);
    command.run([&context, arguments] { merge(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
