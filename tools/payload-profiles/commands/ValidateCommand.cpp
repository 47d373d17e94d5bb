#include "commands/Commands.h"
#include "documents/ProfileFile.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

using FileNames = std::vector<std::string>;

/// Why the text of the file is no valid profile list; empty when it is one.
std::string findFailure(const Context& context, const std::string& file, const std::string& text) {
    try {
        readText(context, file, text);
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

void validate(Context& context, const std::string& file) {
    try {
        requireFile(file);
        const std::string text = about(file, [&] { return context.textFiles->read(file); });
        const std::string failure = findFailure(context, file, text);
        if (failure.empty())
            return;
        context.console.print(printable(file) + ": " + printable(failure) + '\n');
        if (context.exitCode == ExitCode::Success)
            context.exitCode = ExitCode::FailuresFound;
    } catch (const Failure& failure) {
        context.console.showMessage(failure.subject, failure.what());
        context.exitCode = ExitCode::Trouble;
    }
}

} // namespace

void addValidateCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(application, "validate",
                                   "Check files and tell what is wrong with those that are not valid",
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
