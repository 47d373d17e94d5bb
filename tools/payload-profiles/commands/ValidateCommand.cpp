#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "reports/ValidationReport.h"
#include "terminal/Progress.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"
#include "text/Utf8Path.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;
using Severity = ProfileListValidator::Severity;

struct ValidateArguments {
    std::vector<std::string> files;
    bool isJson = false;
    bool isStrict = false;
};

/// The results of the files so far.
struct Totals {
    std::size_t errors = 0;
    std::size_t warnings = 0;
    bool isCut = false;
    bool hasFailed = false; ///< whether a file could not be checked
    std::vector<Json> reports;
};

std::string readDocument(Context& context, const std::string& file) {
    if (file == "-")
        return Terminal::readInput();
    requireFile(file);
    return context.documents.textFiles->read(Text::makePath(file));
}

Validation validateFile(Context& context, const std::string& file) {
    return about(file == "-" ? "standard input" : file, [&] {
        Progress progress;
        const std::string name = printable(file);
        constexpr std::size_t large = 50'000'000; // parsed in a second or so
        const std::string text = readDocument(context, file);
        const auto showChecked = [&](std::size_t bytes) {
            progress.show("checked " + std::to_string(bytes / 1024) + " of " +
                              std::to_string(text.size() / 1024) + " KiB of " + name,
                          bytes == 0 && text.size() > large);
        };
        showChecked(0);
        return validateDocument(text, showChecked);
    });
}

void addFile(Context& context, const ValidateArguments& arguments, const std::string& file, Totals& totals) {
    try {
        const Validation validation = validateFile(context, file);
        totals.errors += validation.count(Severity::Error) + (validation.oldVersion ? 1 : 0);
        totals.warnings += validation.count(Severity::Warning);
        totals.isCut = totals.isCut || validation.result.isCut;
        const std::string name = file == "-" ? STANDARD_INPUT : file;
        if (arguments.isJson)
            totals.reports.push_back(makeJsonReport(name, validation));
        else
            context.console.print(makeTextReport(name, validation));
    } catch (const Failure& failure) {
        context.console.showMessage(failure.subject, failure.what());
        totals.hasFailed = true;
    }
}

void validate(Context& context, const ValidateArguments& arguments) {
    Totals totals;
    for (const std::string& file : arguments.files)
        addFile(context, arguments, file, totals);
    const std::size_t findings = totals.errors + totals.warnings;
    if (arguments.isJson)
        context.console.print(printableJson(Json(std::move(totals.reports)).toString(4)) + '\n');
    else if (findings > 0)
        context.console.print((totals.isCut ? "more than " : "") + counted(totals.errors, "error") + ", " +
                              counted(totals.warnings, "warning") + '\n');
    if (totals.hasFailed)
        context.exitCode = ExitCode::Error;
    else if (totals.errors > 0 || (arguments.isStrict && findings > 0))
        context.exitCode = ExitCode::FailuresFound;
}

} // namespace

void addValidateCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "validate", "Check files and print everything that is wrong with them",
                   "validate profiles.json\n"
                   "validate *.json --strict\n"
                   "validate - --json < profiles.json");
    const auto arguments = std::make_shared<ValidateArguments>();
    command.addArguments("FILE", arguments->files, "The files to check, - for the standard input");
    command.addFlag("--json", arguments->isJson, "Print JSON, with the allowed values as data");
    command.addFlag("--strict", arguments->isStrict, "Exit with 1 for warnings too");
    command.run([&context, arguments] { validate(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
