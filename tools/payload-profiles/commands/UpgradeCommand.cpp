#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/DocumentVersion.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ReadDocument.h"
#include "reports/ChangeReport.h"
#include "terminal/Text.h"
#include "text/Utf8Path.h"

#include <filesystem>
#include <system_error>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

struct UpgradeArguments {
    std::string file;
    unsigned int from = 0; ///< 0: determined from the document
    unsigned int to = DocumentVersions::getCurrent();
    bool noBackup = false;
    ChangeOptions options;
};

/// Runs the steps on the text in memory and prints a paragraph for each.
std::string upgraded(Context& context, const UpgradeArguments& arguments, unsigned int from,
                     std::string text) {
    const Tense tense = arguments.options.dryRun ? Tense::WouldBe : Tense::Done;
    for (unsigned int version = from + 1; version <= arguments.to; ++version) {
        const std::string report = makeStepReport(text, version, tense);
        try {
            text = upgradeTo(version, text);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            throw std::runtime_error("the file is unchanged: the step to version " + std::to_string(version) +
                                     " failed: " + error.what());
        }
        context.console.print(report);
    }
    return text;
}

/// The upgrade of `text`, a document of version `from`, must be one that the library reads if it is of the
/// current version.
void checkReadable(const Context& context, const UpgradeArguments& arguments, unsigned int from,
                   const std::string& text, const std::string& upgradedText) {
    if (arguments.to != DocumentVersions::getCurrent())
        return;
    try {
        context.documents.serializer->deserialize(upgradedText);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw std::runtime_error(
            "the file is unchanged: as version " + std::to_string(arguments.to) +
            " it is not a valid profile list: " + describeError(text, from, error.what()));
    }
}

/// The text of an existing backup, empty when there is none. An empty file, which an interrupted upgrade may
/// leave, does not count as one.
std::string readBackup(const Context& context, const std::string& backup) {
    const fs::path path = Text::makePath(backup);
    return fs::exists(path) ? context.documents.textFiles->read(path) : "";
}

/// Where the original is kept. Throws when another backup exists there.
std::string chooseBackup(const Context& context, const UpgradeArguments& arguments, unsigned int from,
                         const std::string& text) {
    std::string backup = arguments.file + ".v" + std::to_string(from) + ".bak";
    if (fs::is_symlink(Text::makePath(backup))) // it may lead to the file itself
        throw Failure(backup, "this backup is a symbolic link; move it away, or upgrade with --no-backup");
    const std::string existing = readBackup(context, backup);
    if (!existing.empty() && existing != text)
        throw Failure(backup,
                      "this backup already exists and differs from the file; move it away, or upgrade "
                      "with --no-backup");
    return backup;
}

/// Nobody who cannot read the original can read the backup, at any time.
void makeBackup(const Context& context, const std::string& file, const std::string& backup,
                const std::string& text) {
    if (!readBackup(context, backup).empty())
        return; // the existing backup has the same text
    const fs::path path = Text::makePath(backup);
    fs::remove(path);
    context.documents.textFiles->create(path, text, Text::makePath(file));
}

void upgradeFrom(Context& context, const UpgradeArguments& arguments, unsigned int from,
                 const std::string& text) {
    const std::string newText = upgraded(context, arguments, from, text);
    checkReadable(context, arguments, from, text, newText);
    const std::string backup =
        arguments.noBackup ? std::string() : chooseBackup(context, arguments, from, text);
    if (arguments.options.dryRun) {
        context.console.print("nothing was changed: this was a dry run\n");
        return;
    }
    if (!backup.empty())
        makeBackup(context, arguments.file, backup, text);
    if (arguments.options.backup)
        keepBackup(context.documents, arguments.file);
    context.documents.textFiles->write(Text::makePath(arguments.file), newText);
    context.console.print(printable(arguments.file) + " is now version " + std::to_string(arguments.to) +
                          (backup.empty() ? "" : "; the original was kept as " + printable(backup)) + '\n');
}

void upgradeText(Context& context, const UpgradeArguments& arguments, const std::string& text) {
    const StoredLidars lidars(text);
    if (!lidars.invalid.empty())
        throw std::runtime_error(
            "the file is unchanged: a lidar that is not an object cannot be upgraded, remove it from " +
            joinLabels(lidars.invalid, MAXIMUM_LABELS_OF_MESSAGE));
    const auto from = arguments.from != 0 ? arguments.from : findVersion(lidars.profiles);
    const std::string file = printable(arguments.file);
    if (!from) {
        checkReadable(context, arguments, arguments.to, text, text);
        context.console.print(file + " has no lidar profile: it is the same in every version\n");
        return;
    }
    if (arguments.from == 0)
        context.console.print(file + " is version " + std::to_string(*from) +
                              ", judging by the sections of its lidar profiles\n");
    if (*from > arguments.to)
        throw std::runtime_error("version " + std::to_string(*from) +
                                 " cannot be converted back to version " + std::to_string(arguments.to));
    if (*from == arguments.to) {
        checkReadable(context, arguments, arguments.to, text, text);
        context.console.print("nothing to do\n");
        return;
    }
    upgradeFrom(context, arguments, *from, text);
}

void upgrade(Context& context, const UpgradeArguments& arguments) {
    requireFile(arguments.file);
    const auto readAndUpgrade = [&] {
        about(arguments.file, [&] {
            upgradeText(context, arguments,
                        context.documents.textFiles->read(Text::makePath(arguments.file)));
        });
    };
    if (arguments.options.dryRun)
        return readAndUpgrade();
    const FileLock lock = lockFile(arguments.file, arguments.options);
    readAndUpgrade();
}

/// "2 to 5"
std::string describeRange(unsigned int first, unsigned int last) {
    return std::to_string(first) + " to " + std::to_string(last);
}

} // namespace

void addUpgradeCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "upgrade", "Convert a file of an earlier release to a later document version",
                   "upgrade old.json --dry-run\n"
                   "upgrade old.json\n"
                   "upgrade old.json --from 2 --to 4 --no-backup");
    const unsigned int first = DocumentVersions::getFirst();
    const unsigned int current = DocumentVersions::getCurrent();
    const auto arguments = std::make_shared<UpgradeArguments>();
    command.addArgument("FILE", arguments->file, "The file to upgrade");
    command.addOption("--from", "N", arguments->from, {first, current},
                      "The version of the file, " + describeRange(first, current) +
                          " (default: determined from its sections)");
    command.addOption("--to", "M", arguments->to, {first + 1, current},
                      "The version to convert to, " + describeRange(first + 1, current) +
                          " (default: " + std::to_string(current) + ")");
    command.addFlag("--no-backup", arguments->noBackup,
                    "Do not keep the original, version N, as FILE.vN.bak");
    addWriteOptions(command, arguments->options);
    command.run([&context, arguments] { upgrade(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
