#include "Commands.h"
#include "ProfileFile.h"
#include "Text.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

using FileNames = std::vector<std::string>;

/// Why the text of the file is no valid profile list; empty when it is one.
std::string findFailure(const Session& session, const std::string& file, const std::string& text) {
    try {
        readText(session, file, text);
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

void validate(Session& session, const std::string& file) {
    try {
        requireFile(file);
        const std::string text = about(file, [&] { return session.textFiles->read(file); });
        const std::string failure = findFailure(session, file, text);
        if (failure.empty())
            return;
        session.console.print(printable(file) + ": " + printable(failure) + '\n');
        if (session.exitCode == ExitCode::Success)
            session.exitCode = ExitCode::FailuresFound;
    } catch (const Failure& failure) {
        session.console.showMessage(failure.subject, failure.what());
        session.exitCode = ExitCode::Trouble;
    }
}

} // namespace

void addValidateCommand(CLI::App& application, Session& session) {
    CLI::App& command = addCommand(application, "validate",
                                   "Check files and tell what is wrong with those that are not valid",
                                   "validate profiles.json\n"
                                   "validate *.json");
    const auto files = std::make_shared<FileNames>();
    command.add_option("FILE", *files, "The files to check")->required();
    command.callback([&session, files] {
        for (const std::string& file : *files)
            validate(session, file);
    });
}

} // namespace norel::Desktop::PayloadProfiles
