#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "commands/OlderDocument.h"
#include "reports/DifferenceReport.h"

#include <CLI/CLI.hpp>

#include <map>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct DiffArguments {
    Source from;
    Source to;
    MatchBy match = MatchBy::Id;
    bool asJson = false;
};

void diff(Context& context, const DiffArguments& arguments) {
    ListDifference difference =
        compareLists(readForComparison(context.documents, arguments.from),
                     readForComparison(context.documents, arguments.to), arguments.match);
    if (arguments.from.isBuiltIn())
        difference.removed.clear();
    if (arguments.to.isBuiltIn())
        difference.added.clear();
    context.console.print(arguments.asJson ? makeJsonPatch(difference) : makeTextDifference(difference));
    if (!difference.isEmpty())
        context.exitCode = ExitCode::DifferencesFound;
}

} // namespace

void addDiffCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(
        application, "diff",
        "Compare the profiles of two sources\n\n"
        "The exit code is 0 when they are equal, 1 when they differ and 2 on an error. Neither the "
        "layout of a file nor the order of profiles counts, nor do factory profiles that the other "
        "source lacks. The file may be of an older version, such as the backup of an upgrade.",
        "diff old.json new.json\n"
        "diff profiles.json.v4.bak profiles.json\n"
        "diff profiles.json factory --by product\n"
        "diff old.json new.json --json");
    const auto arguments = std::make_shared<DiffArguments>();
    const std::string kinds = ": a file, \"factory\" or a base address (http://, https://)";
    command.add_option("SOURCE1", arguments->from.location, "The first source" + kinds)->required();
    command.add_option("SOURCE2", arguments->to.location, "The second source" + kinds)->required();
    const std::map<std::string, MatchBy> matches{
        {"id", MatchBy::Id}, {"name", MatchBy::Name}, {"product", MatchBy::Product}};
    command
        .add_option("--by", arguments->match,
                    "Compare the profiles with the same id, name or product (default: id); by name or "
                    "product, their ids, names, serial numbers and times are not compared")
        ->transform(CLI::CheckedTransformer(matches))
        ->option_text("id|name|product");
    command.add_flag("--json", arguments->asJson,
                     "Print a JSON Patch that makes the first source the second");
    addKeyFile(command, arguments->from);
    command.callback([&context, arguments] {
        arguments->to.keyFile = arguments->from.keyFile;
        diff(context, *arguments);
    });
}

} // namespace norel::Desktop::PayloadProfiles
