#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "commands/OlderDocument.h"
#include "reports/DifferenceReport.h"

#include <map>

namespace norel::Desktop::PayloadProfiles {
namespace {

const std::map<std::string, MatchBy> MATCHES{
    {"id", MatchBy::Id}, {"name", MatchBy::Name}, {"product", MatchBy::Product}};

struct DiffArguments {
    Source from;
    Source to;
    std::string match = "id";
    bool asJson = false;
};

void diff(Context& context, const DiffArguments& arguments) {
    ListDifference difference =
        compareLists(readForComparison(context.documents, arguments.from),
                     readForComparison(context.documents, arguments.to), MATCHES.at(arguments.match));
    if (arguments.from.isBuiltIn())
        difference.removed.clear();
    if (arguments.to.isBuiltIn())
        difference.added.clear();
    context.console.print(arguments.asJson ? makeJsonPatch(difference) : makeTextDifference(difference));
    if (!difference.isEmpty())
        context.exitCode = ExitCode::DifferencesFound;
}

std::string checkMatch(const std::string& text) {
    return MATCHES.contains(text) ? "" : "must be id, name or product";
}

} // namespace

void addDiffCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "diff", "Compare the profiles of two sources",
                                       "diff old.json new.json\n"
                                       "diff profiles.json.v4.bak profiles.json\n"
                                       "diff profiles.json factory --by product\n"
                                       "diff old.json new.json --json");
    command.addNotes(
        "Exit codes: 0 the sources are equal, 1 they differ, 2 error.\n"
        "\n"
        "The layout of a file and the order of profiles are no difference, nor are factory profiles "
        "that the other source lacks. A file may be of an older version, such as the backup of an "
        "upgrade. By name or product, the ids, names, serial numbers and times of profiles are not "
        "compared.");
    const auto arguments = std::make_shared<DiffArguments>();
    const std::string kinds = " source: a file, \"factory\" or a base address";
    command.addArgument("SOURCE1", arguments->from.location, "The first" + kinds);
    command.addArgument("SOURCE2", arguments->to.location, "The second" + kinds);
    command.addOption("--by", "id|name|product", arguments->match,
                      "Compare profiles with the same id, name or product (default: id)", checkMatch);
    command.addFlag("--json", arguments->asJson,
                    "Print a JSON Patch that makes the second source from the first");
    addKeyFile(command, arguments->from);
    command.run([&context, arguments] {
        arguments->to.keyFile = arguments->from.keyFile;
        diff(context, *arguments);
    });
}

} // namespace norel::Desktop::PayloadProfiles
