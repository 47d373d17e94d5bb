#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "documents/ReadDocument.h"
#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"
#include "text/Utf8Path.h"

#include <optional>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* STANDARD_INPUT = "-";

struct AddArguments {
    std::string file;
    std::string profileFile;
    std::optional<std::string> name;
    std::optional<std::string> serialNumber;
    bool replace = false;
    bool newId = false;
    ChangeOptions options;
};

/// Reads profiles with the name and serial number of the command line.
class OverridingSerializer : public JsonProfileListSerializer {
public:
    explicit OverridingSerializer(const AddArguments& overrides) : arguments(overrides) {}

    using JsonProfileListSerializer::fromJson;

    void fromJson(const JsonPath& path, Profile::Builder& builder, Options options) const override {
        JsonProfileListSerializer::fromJson(path, builder, options);
        builder.name = arguments.name.value_or(builder.name);
        builder.serialNumber = arguments.serialNumber.value_or(builder.serialNumber);
        readId = builder.id;
    }

    /// The id of the last profile as the document has it; in the list an unassigned one is replaced.
    unsigned int getReadId() const { return readId; }

private:
    const AddArguments& arguments;
    mutable unsigned int readId = Profile::ID_IS_UNASSIGNED;
};

Profile parseProfile(const AddArguments& arguments, const std::string& text) {
    const OverridingSerializer serializer(arguments);
    const std::vector<Profile> profiles =
        readDocument(serializer, text,
                     arguments.profileFile == STANDARD_INPUT ? "FILE" : arguments.profileFile)
            .list();
    if (profiles.size() != 1)
        throw std::runtime_error("the document must contain one profile but contains " +
                                 std::to_string(profiles.size()) +
                                 (profiles.empty() ? "" : "; \"copy\" adds one of them, \"merge\" all"));
    if (!arguments.options.dropUnknown)
        requireNothingDropped(text);
    Profile profile = profiles.front();
    profile.setId(arguments.newId ? Profile::ID_IS_UNASSIGNED : serializer.getReadId());
    return profile;
}

Profile readProfile(const Context& context, const AddArguments& arguments) {
    const bool isInput = arguments.profileFile == STANDARD_INPUT;
    return about(isInput ? "standard input" : arguments.profileFile, [&] {
        return parseProfile(
            arguments, isInput ? Terminal::readInput()
                               : context.documents.textFiles->read(Text::makePath(arguments.profileFile)));
    });
}

/// Whether two profiles with the same id are versions of one profile: the product is the same and so is the
/// serial number, or the name where a serial number is missing.
bool isSameProfile(const Profile& a, const Profile& b) {
    if (a.getProduct() != b.getProduct())
        return false;
    if (a.getSerialNumber().empty() || b.getSerialNumber().empty())
        return a.getName() == b.getName();
    return a.getSerialNumber() == b.getSerialNumber();
}

std::string describeWithProduct(const Profile& profile) {
    return describe(profile) + " (product " + inQuotes(profile.getProduct()) + ", serial number " +
           inQuotes(profile.getSerialNumber()) + ')';
}

/// Throws when adding the profile would replace another one, unless --replace is given.
void requireReplaceable(const AddArguments& arguments, const Profile& stored, const Profile& profile) {
    const std::string nothing = "nothing was added: ";
    if (profile.getId() == Profile::ID_IS_UNASSIGNED) // the list assigns it after 4294967294
        throw Failure(arguments.file, nothing + "the profile " + describe(stored) +
                                          " has the id that requests a new one; give that profile another "
                                          "id, or delete it");
    if (!arguments.replace && !isSameProfile(stored, profile))
        throw Failure(arguments.file, nothing + "the profile " + describeWithProduct(profile) +
                                          " would replace " + describeWithProduct(stored) +
                                          "; --replace replaces it, --new-id adds the profile with a new id");
}

std::string describeChange(const std::optional<Profile>& stored, const Profile& profile, bool isDryRun) {
    if (!stored)
        return (isDryRun ? "would add " : "added ") + describe(profile);
    if (isSameProfile(*stored, profile))
        return (isDryRun ? "would update " : "updated ") + describe(profile);
    return (isDryRun ? "would replace " : "replaced ") + describe(*stored) + " by " + describe(profile);
}

void add(Context& context, const AddArguments& arguments) {
    Profile profile = readProfile(context, arguments);
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::Anything,
                            arguments.options);
    const ProfileList list = file.read();
    std::optional<Profile> stored;
    if (list.existById(profile.getId())) {
        stored = *list.get(profile.getId());
        requireReplaceable(arguments, *stored, profile);
    }
    const auto draft = std::make_shared<DraftStorage>(list);
    about(arguments.file, [&] { UseCase::AddOrUpdateProfile(draft, context.clock).execute(profile); });
    file.write(draft->read());
    context.console.print(describeChange(stored, profile, arguments.options.dryRun) + '\n');
}

} // namespace

void addAddCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "add", "Add a profile to a file, or update the profile with the same id",
                   "add profiles.json profile.json\n"
                   "add p.json new.json --name \"Drone 7\" --serial-number KV-1042\n"
                   "add profiles.json colleague.json --new-id\n"
                   "add profiles.json - < profile.json");
    const auto arguments = std::make_shared<AddArguments>();
    command.addArgument("FILE", arguments->file, "The file to change; created if missing");
    command.addArgument("PROFILE.json", arguments->profileFile,
                        "A document with one profile, - for the standard input; the id -1 requests a new id");
    command.addOption("--name", "NAME", arguments->name, "Set the profile name");
    command.addOption("--serial-number", "NUMBER", arguments->serialNumber, "Set the serial number");
    command.addFlag("--replace", arguments->replace,
                    "Replace the profile with the same id even if it is another one: of another product or "
                    "serial number, or of another name where a serial number is missing");
    command.addFlag("--new-id", arguments->newId, "Add the profile with a new id");
    command.exclude("--replace", "--new-id");
    addChangeOptions(command, arguments->options);
    command.run([&context, arguments] { add(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
