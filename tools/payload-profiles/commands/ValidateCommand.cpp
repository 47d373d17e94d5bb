#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

using FileNames = std::vector<std::string>;

/// Why the text is not a valid profile list; empty when it is one. Throws std::bad_alloc, which says nothing
/// about the text.
std::string findProblem(const Context& context, const std::string& text) {
    try {
        context.documents.serializer->deserialize(text);
        return {};
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    }
}

void validate(Context& context, const std::string& file) {
    try {
        requireFile(file);
        const std::string problem =
            about(file, [&] { return findProblem(context, context.documents.textFiles->read(file)); });
        if (problem.empty())
            return;
        context.console.print(printable(file) + ": " + printable(problem) + '\n');
        if (context.exitCode == ExitCode::Success)
            context.exitCode = ExitCode::FailuresFound;
    } catch (const Failure& failure) {
        context.console.showMessage(failure.subject, failure.what());
        context.exitCode = ExitCode::Error;
    }
}

} // namespace

void addValidateCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(application, "validate", "Check files and print what makes them invalid",
                                   "validate profiles.json\n"
                                   "validate *.json");
    const auto files = std::make_shared<FileNames>();
    command.add_option("FILE", *files, "The files to check")->required();
    command.callback([&context, files] {
        for (const std::string& file : *files)
            validate(context, file);
    });
}

} // namespace norel::Desktop::PayloadProfiles
