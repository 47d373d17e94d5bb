#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"
#include "terminal/Terminal.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* STANDARD_INPUT = "-";

struct AddArguments {
    std::string file;
    std::string profileFile;
    std::optional<std::string> name;
    std::optional<std::string> serialNumber;
    LockWait wait;
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
    const std::vector<Profile> profiles = serializer.deserialize(text).list();
    if (profiles.size() != 1)
        throw std::runtime_error("the document must contain one profile but contains " +
                                 std::to_string(profiles.size()));
    Profile profile = profiles.front();
    profile.setId(serializer.getReadId());
    return profile;
}

Profile readProfile(const Context& context, const AddArguments& arguments) {
    const bool isInput = arguments.profileFile == STANDARD_INPUT;
    return about(isInput ? "standard input" : arguments.profileFile, [&] {
        return parseProfile(arguments, isInput ? Terminal::readInput()
                                               : context.documents.textFiles->read(arguments.profileFile));
    });
}

void add(Context& context, const AddArguments& arguments) {
    Profile profile = readProfile(context, arguments);
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::Anything,
                            arguments.wait);
    const ProfileList list = file.read();
    const bool exists = list.existById(profile.getId());
    if (exists && profile.getId() == Profile::ID_IS_UNASSIGNED) // the list assigns it after 4294967294
        throw Failure(arguments.file, "nothing was added: the profile " +
                                          describe(*list.get(profile.getId())) +
                                          " has the id that requests a new one; give that profile another "
                                          "id, or delete it");
    const auto draft = std::make_shared<DraftStorage>(list);
    about(arguments.file, [&] { UseCase::AddOrUpdateProfile(draft, context.clock).execute(profile); });
    file.write(draft->read());
    context.console.print((exists ? "updated " : "added ") + describe(profile) + '\n');
}

} // namespace

void addAddCommand(CLI::App& application, Context& context) {
    CLI::App& command =
        addCommand(application, "add", "Add a profile to a file, or update the profile with the same id",
                   "add profiles.json profile.json\n"
                   "add profiles.json profile.json --name \"Drone 7\" --serial-number KV-1042\n"
                   "add profiles.json - < profile.json");
    const auto arguments = std::make_shared<AddArguments>();
    command.add_option("FILE", arguments->file, "The file to change; created if missing")->required();
    command
        .add_option("PROFILE.json", arguments->profileFile,
                    "A document with one profile, - for the standard input; the id -1 requests a new id")
        ->required();
    command
        .add_option_function<std::string>(
            "--name", [arguments](const std::string& name) { arguments->name = name; },
            "Set the profile name")
        ->option_text("NAME");
    command
        .add_option_function<std::string>(
            "--serial-number", [arguments](const std::string& number) { arguments->serialNumber = number; },
            "Set the serial number")
        ->option_text("NUMBER");
    addWait(command, arguments->wait);
    command.callback([&context, arguments] { add(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
