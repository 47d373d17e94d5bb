#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct FetchArguments {
    Source source;
    std::string file;
    bool force = false;
    LockWait wait;
};

void fetch(Context& context, const FetchArguments& arguments) {
    if (!arguments.source.isAddress())
        throw Failure(arguments.source.getName(), "an address begins with http:// or https://");
    requireChangeable(arguments.file);
    if (!arguments.force)
        requireNoFile(arguments.file); // avoids a useless download; checked again under the lock
    const auto expected =
        arguments.force ? FileToChange::Expected::Anything : FileToChange::Expected::Nothing;
    const ProfileList list = readSource(context.documents, arguments.source);
    FileToChange(context.documents, arguments.file, expected, arguments.wait).write(list);
    context.console.print("saved " + counted(list.list().size(), "profile") + " to " +
                          printable(arguments.file) + '\n');
}

} // namespace

void addFetchCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(application, "fetch", "Save the profiles of the processing web service",
                                   "fetch https://processing.example/ profiles.json --key-file key.txt\n"
                                   "fetch https://processing.example/ profiles.json --force");
    const auto arguments = std::make_shared<FetchArguments>();
    command.add_option("URL", arguments->source.location, "The base address of the service")->required();
    addKeyFile(command, arguments->source);
    command.add_option("FILE", arguments->file, "The file to write")->required();
    command.add_flag("--force", arguments->force, "Replace an existing file");
    addWait(command, arguments->wait);
    command.callback([&context, arguments] { fetch(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
