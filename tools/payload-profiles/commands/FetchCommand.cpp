#include "commands/Commands.h"
#include "documents/ProfileFile.h"
#include "documents/Source.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

struct FetchArguments {
    Source source;
    std::string file;
    bool force = false;
};

void requireNoFile(const std::string& file) {
    about(file, [&] {
        if (fs::exists(fs::symlink_status(file)))
            throw Failure(file, "the file is there already; --force replaces it");
    });
}

void fetch(Context& context, const FetchArguments& arguments) {
    if (!arguments.source.isAddress())
        throw Failure(arguments.source.getName(),
                      "the address begins neither with http:// nor with https://");
    if (!arguments.force)
        requireNoFile(arguments.file);
    const ProfileList list = readSource(context, arguments.source);
    const FileToChange file(context, arguments.file);
    about(arguments.file, [&] { file.getStorage()->write(list); });
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
    command.add_flag("--force", arguments->force, "Replace the file when it is there");
    command.callback([&context, arguments] { fetch(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
