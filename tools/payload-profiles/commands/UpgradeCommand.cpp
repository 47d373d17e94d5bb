#include "commands/Commands.h"
#include "documents/DocumentVersion.h"
#include "documents/ProfileFile.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

struct UpgradeArguments {
    std::string file;
    unsigned int from = 0; ///< 0 when it is to be found
    unsigned int to = CURRENT_VERSION;
    bool dryRun = false;
    bool noBackup = false;
};

/// What a step does, or would do, to one section of the document.
std::string describeSection(const StoredLidars& lidars, const Section& section, bool isDryRun) {
    std::vector<StoredProfile> replaced;
    std::vector<StoredProfile> added;
    for (const StoredProfile& profile : lidars.profiles)
        (hasSection(profile.value, section) ? replaced : added).push_back(profile);
    const std::string verb = isDryRun ? "would be " : "";
    std::string text;
    if (!replaced.empty()) // what is lost is worth the names
        text += ' ' + verb + "replaced in " +
                (isDryRun ? joinLabels(replaced) : counted(replaced.size(), "profile"));
    if (!added.empty())
        text += (text.empty() ? " " : " and ") + verb + "added in " + counted(added.size(), "profile");
    return getName(section) + (text.empty() ? " in no profile" : text);
}

std::string describeStep(const std::string& text, unsigned int version, bool isDryRun) {
    const StoredLidars lidars(text);
    std::string step = "version " + std::to_string(version - 1) + " to " + std::to_string(version) + ":";
    const char* separator = isDryRun ? "\n  " : " ";
    for (const Section& section : DocumentVersions::getSections(version)) {
        step += separator + describeSection(lidars, section, isDryRun);
        separator = isDryRun ? "\n  " : ", ";
    }
    return step + '\n';
}

/// Runs the steps on the text in memory; prints a paragraph for each.
std::string upgraded(Context& context, const UpgradeArguments& arguments, unsigned int from,
                     const std::string& text) {
    const auto draft = std::make_shared<DraftTextFileStorage>(text);
    for (unsigned int version = from + 1; version <= arguments.to; ++version) {
        const std::string report = describeStep(draft->read(arguments.file), version, arguments.dryRun);
        try {
            ProfileUpgrade().upgradeToVersion(version, draft, arguments.file,
                                              DefaultProducts::getSourceDocumentFromVersionInfo(version));
        } catch (const std::exception& error) {
            throw std::runtime_error("the file is unchanged: the step to version " + std::to_string(version) +
                                     " failed: " + error.what());
        }
        context.console.print(report);
    }
    return draft->read(arguments.file);
}

/// An upgrade to the current version has to give what the library reads.
void checkReadable(const Context& context, const UpgradeArguments& arguments, const std::string& text) {
    if (arguments.to != CURRENT_VERSION)
        return;
    try {
        readText(context, arguments.file, text);
    } catch (const std::exception& error) {
        throw std::runtime_error("the file is unchanged: as version " + std::to_string(CURRENT_VERSION) +
                                 " it is no valid profile list: " + error.what());
    }
}

/// Where the original is kept. Throws when something else than the original is there.
std::string chooseBackup(const Context& context, const UpgradeArguments& arguments, unsigned int from,
                         const std::string& text) {
    std::string backup = arguments.file + ".v" + std::to_string(from) + ".bak";
    if (fs::exists(fs::symlink_status(backup)) && context.textFiles->read(backup) != text)
        throw Failure(backup, "this backup is there already and differs from the file; move it away, or "
                              "upgrade with --no-backup");
    return backup;
}

/// Made empty first: so nobody else's file is replaced, and the text is never open to more readers than the
/// original is.
void makeBackup(const Context& context, const std::string& file, const std::string& backup,
                const std::string& text) {
    if (fs::exists(backup))
        return; // with the same text
    std::FILE* const made = std::fopen(backup.c_str(), "wx");
    if (made == nullptr)
        throw std::system_error(errno, std::generic_category(), "cannot make \"" + backup + '"');
    std::fclose(made);
    try {
        fs::permissions(backup, fs::status(file).permissions());
        context.textFiles->write(backup, text);
    } catch (...) {
        std::error_code ignored;
        fs::remove(backup, ignored);
        throw;
    }
}

void upgradeFrom(Context& context, const UpgradeArguments& arguments, unsigned int from,
                 const std::string& text) {
    const std::string newText = upgraded(context, arguments, from, text);
    checkReadable(context, arguments, newText);
    const std::string backup =
        arguments.noBackup ? std::string() : chooseBackup(context, arguments, from, text);
    if (arguments.dryRun) {
        context.console.print("nothing is changed: this was a dry run\n");
        return;
    }
    if (!backup.empty())
        makeBackup(context, arguments.file, backup, text);
    context.textFiles->write(arguments.file, newText);
    context.console.print(printable(arguments.file) + " is now version " + std::to_string(arguments.to) +
                          (backup.empty() ? "" : "; the original is kept as " + printable(backup)) + '\n');
}

void refuseLidars(const std::string& kind, const std::vector<StoredProfile>& profiles) {
    if (!profiles.empty())
        throw std::runtime_error("the file is unchanged: a lidar that is " + kind +
                                 " cannot be upgraded, take it out of " + joinLabels(profiles));
}

void upgrade(Context& context, const UpgradeArguments& arguments) {
    requireFile(arguments.file);
    about(arguments.file, [&] {
        const std::string text = context.textFiles->read(arguments.file);
        const StoredLidars lidars(text);
        refuseLidars("no object", lidars.others);
        const auto from = arguments.from != 0 ? arguments.from : findVersion(lidars.profiles);
        const std::string file = printable(arguments.file);
        if (!from) {
            checkReadable(context, arguments, text);
            context.console.print(file + " has no lidar profile: every version holds it as it is\n");
            return;
        }
        if (arguments.from == 0)
            context.console.print(file + " is version " + std::to_string(*from) +
                                  ", by the sections of its lidar profiles\n");
        if (*from > arguments.to)
            throw std::runtime_error("version " + std::to_string(*from) +
                                     " cannot be brought back to version " + std::to_string(arguments.to));
        if (*from == arguments.to) {
            checkReadable(context, arguments, text);
            context.console.print("nothing to do\n");
            return;
        }
        refuseLidars("null", lidars.nulls);
        upgradeFrom(context, arguments, *from, text);
    });
}

} // namespace

void addUpgradeCommand(CLI::App& application, Context& context) {
    CLI::App& command =
        addCommand(application, "upgrade", "Bring a file of an earlier release to a later document version",
                   "upgrade old.json --dry-run\n"
                   "upgrade old.json\n"
                   "upgrade old.json --from 2 --to 4 --no-backup");
    const auto arguments = std::make_shared<UpgradeArguments>();
    command.add_option("FILE", arguments->file, "The file to upgrade")->required();
    command.add_option("--from", arguments->from, "The version of the file, 1 to 5; found when left out")
        ->check(CLI::Range(FIRST_VERSION, CURRENT_VERSION))
        ->option_text("N");
    command.add_option("--to", arguments->to, "The version to reach, 2 to 5; 5 when left out")
        ->check(CLI::Range(FIRST_VERSION + 1, CURRENT_VERSION))
        ->option_text("M");
    command.add_flag("--dry-run", arguments->dryRun, "Only tell what each step would replace");
    command.add_flag("--no-backup", arguments->noBackup,
                     "Do not keep the original, version N, as FILE.vN.bak");
    command.callback([&context, arguments] { upgrade(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
