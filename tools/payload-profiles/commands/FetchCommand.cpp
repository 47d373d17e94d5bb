#include "commands/Arguments.h"
#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct FetchArguments {
    Source source;
    std::string file;
    bool force = false;
    ChangeOptions options;
};

void fetch(Context& context, const FetchArguments& arguments) {
    if (!arguments.source.isAddress())
        throw Failure(arguments.source.getName(), "an address begins with http:// or https://");
    requireChangeable(arguments.file);
    if (!arguments.force)
        requireNoFile(arguments.file); // avoids a useless download; checked again under the lock
    const auto expected =
        arguments.force ? FileToChange::Expected::Anything : FileToChange::Expected::Nothing;
    const ProfileList list = readProfilesToCopy(context, arguments.source);
    const std::size_t number = list.list().size();
    if (number == 0 && !arguments.force)
        throw Failure(arguments.source.getName(),
                      "nothing was saved: the service has no profiles; --force saves an empty list");
    FileToChange(context.documents, arguments.file, expected, arguments.options).write(list);
    context.console.print((arguments.options.dryRun ? "would save " : "saved ") + counted(number, "profile") +
                          " to " + printable(arguments.file) + '\n');
}

} // namespace

void addFetchCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "fetch", "Save the profiles of the processing web service",
                   "fetch https://processing.example/ p.json --key-file key.txt\n"
                   "fetch https://processing.example/ profiles.json --force");
    const auto arguments = std::make_shared<FetchArguments>();
    command.addArgument("URL", arguments->source.location, "The base address of the service");
    addKeyFile(command, arguments->source);
    command.addArgument("FILE", arguments->file, "The file to write");
    command.addFlag("--force", arguments->force, "Replace an existing file, even by an empty list");
    addWriteOptions(command, arguments->options);
    command.run([&context, arguments] { fetch(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
