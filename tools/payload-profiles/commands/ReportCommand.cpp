#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/FollowLinks.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "reports/HtmlReport.h"
#include "terminal/OpenOnDesktop.h"
#include "terminal/Text.h"
#include "text/Utf8Path.h"

#include <algorithm>
#include <set>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

struct ReportArguments {
    Source source;
    std::vector<std::string> ids;
    std::string against; ///< a source, or an id of the first source; nothing when empty
    std::string output;
    bool force = false;
    bool open = false;
};

std::vector<Profile> chooseProfiles(const ProfileList& list, const ReportArguments& arguments) {
    std::set<unsigned int> ids;
    for (const std::string& id : arguments.ids)
        ids.insert(parseId(id));
    requireProfiles(list, ids, arguments.source.getName());
    std::vector<Profile> chosen;
    for (const Profile& profile : list)
        if (ids.empty() || ids.contains(profile.getId()))
            chosen.push_back(profile);
    return chosen;
}

/// The profile of the same product, preferably with the same id, else with the same name.
std::optional<Profile> findCounterpart(const Profile& profile, const ProfileList& list) {
    const auto rank = [&](const Profile& candidate) {
        return candidate.getId() == profile.getId() ? 2 : candidate.getName() == profile.getName() ? 1 : 0;
    };
    std::optional<Profile> best;
    for (const Profile& candidate : list)
        if (candidate.getProduct() == profile.getProduct() && (!best || rank(candidate) > rank(*best)))
            best = candidate;
    return best;
}

/// The profile of the source that all are compared with.
Profile findReference(const ProfileList& list, const ReportArguments& arguments) {
    const unsigned int id = parseId(arguments.against);
    requireProfiles(list, {id}, arguments.source.getName());
    return *list.get(id);
}

/// The chosen profiles, each with the one that it is compared with.
std::vector<ReportedProfile> compare(const Context& context, const ReportArguments& arguments,
                                     const ProfileList& list) {
    std::vector<ReportedProfile> result;
    for (const Profile& profile : chooseProfiles(list, arguments))
        result.push_back({profile, std::nullopt});
    if (arguments.against.empty())
        return result;
    if (checkId(arguments.against).empty()) {
        for (const Profile reference = findReference(list, arguments); ReportedProfile & compared : result)
            compared.reference = reference;
        return result;
    }
    const ProfileList others = readSource(context.documents, {arguments.against, arguments.source.keyFile});
    const bool isPair = result.size() == 1 && others.list().size() == 1; // whatever the products
    for (ReportedProfile& compared : result)
        compared.reference = isPair ? *others.begin() : findCounterpart(compared.profile, others);
    return result;
}

std::optional<std::string> nameReference(const ReportArguments& arguments) {
    if (arguments.against.empty())
        return std::nullopt;
    if (checkId(arguments.against).empty())
        return "profile " + arguments.against;
    return Source{arguments.against, {}}.getName();
}

void checkOutput(const ReportArguments& arguments) {
    requireChangeable(arguments.output);
    if (!arguments.force)
        return requireNoFile(arguments.output);
    for (const std::string& input : {arguments.source.location, arguments.against}) {
        std::error_code isDifferent;
        if (fs::equivalent(Text::makePath(input), Text::makePath(arguments.output), isDifferent))
            throw Failure(arguments.output, "the report would replace the profiles that it is made from");
    }
}

void writePage(const Context& context, const ReportArguments& arguments, const std::string& page) {
    about(arguments.output, [&] {
        const fs::path output = Text::makePath(arguments.output);
        if (arguments.force)
            context.documents.textFiles->write(output, page);
        else
            context.documents.textFiles->create(followLinks(output), page);
    });
}

void openPage(const std::string& file) {
    try {
        openOnDesktop(Text::makePath(file));
    } catch (const std::exception& error) {
        throw Failure(file, std::string("the report is saved, but not opened: ") + error.what());
    }
}

void report(Context& context, const ReportArguments& arguments) {
    checkOutput(arguments);
    const ProfileList list = readSource(context.documents, arguments.source);
    const HtmlReport page{arguments.source.getName(), nameReference(arguments), context.clock->now(),
                          compare(context, arguments, list)};
    writePage(context, arguments, makeHtmlReport(page));
    context.console.print("saved a report of " + counted(page.profiles.size(), "profile") + " to " +
                          printable(arguments.output) + '\n');
    if (arguments.open)
        openPage(arguments.output);
}

} // namespace

void addReportCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "report", "Save a page that shows profiles in a browser",
                                       "report profiles.json -o report.html\n"
                                       "report profiles.json 88 -o report.html --against factory\n"
                                       "report factory 1 -o report.html --against 2 --open");
    const auto arguments = std::make_shared<ReportArguments>();
    addSource(command, arguments->source);
    command.addOptionalArguments("ID", arguments->ids, "The ids of the profiles (default: all)", checkId);
    command.addRequiredOption("-o,--output", "FILE.html", arguments->output, "The file to write");
    command.addOption(
        "--against", "SOURCE|ID", arguments->against,
        "Mark what differs from the same product in another source (\"factory\": as delivered), "
        "or from the profile with another id");
    command.addFlag("--force", arguments->force, "Replace an existing file");
    command.addFlag("--open", arguments->open, "Open the page in the browser");
    command.run([&context, arguments] { report(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
