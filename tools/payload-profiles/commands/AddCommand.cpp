#include "commands/Commands.h"
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
};

/// Reads profiles under the name and serial number of the command line.
class OverridingSerializer : public JsonProfileListSerializer {
public:
    explicit OverridingSerializer(const AddArguments& arguments) : arguments(arguments) {}

    using JsonProfileListSerializer::fromJson;

    void fromJson(const JsonPath& path, Profile::Builder& builder, Options options) const override {
        JsonProfileListSerializer::fromJson(path, builder, options);
        builder.name = arguments.name.value_or(builder.name);
        builder.serialNumber = arguments.serialNumber.value_or(builder.serialNumber);
        readId = builder.id;
    }

    /// Of the profile read last: the list numbers those that the document leaves unnumbered.
    unsigned int getReadId() const { return readId; }

private:
    const AddArguments& arguments;
    mutable unsigned int readId = Profile::ID_IS_UNASSIGNED;
};

Profile parseProfile(const AddArguments& arguments, const std::string& text) {
    const OverridingSerializer serializer(arguments);
    const std::vector<Profile> profiles = serializer.deserialize(text).list();
    if (profiles.size() != 1)
        throw std::runtime_error("the document holds " + std::to_string(profiles.size()) +
                                 " profiles, one is expected");
    Profile profile = profiles.front();
    profile.setId(serializer.getReadId());
    return profile;
}

Profile readProfile(const Context& context, const AddArguments& arguments) {
    const bool fromInput = arguments.profileFile == STANDARD_INPUT;
    return about(fromInput ? "standard input" : arguments.profileFile, [&] {
        return parseProfile(arguments, fromInput ? Terminal::readInput()
                                                 : context.textFiles->read(arguments.profileFile));
    });
}

void add(Context& context, const AddArguments& arguments) {
    Profile profile = readProfile(context, arguments);
    const FileToChange file(context, arguments.file);
    const ProfileList list = readProfiles(arguments.file, file.getStorage());
    const bool exists = list.existById(profile.getId());
    if (exists && profile.getId() == Profile::ID_IS_UNASSIGNED) // which the list gives after 4294967294
        throw Failure(arguments.file, "nothing is added: the profile " +
                                          describe(*list.get(profile.getId())) +
                                          " has the id that asks for a new one; give that profile another "
                                          "id, or delete it");
    about(arguments.file,
          [&] { UseCase::AddOrUpdateProfile(file.getStorage(), context.clock).execute(profile); });
    context.console.print((exists ? "updated " : "added ") + describe(profile) + '\n');
}

} // namespace

void addAddCommand(CLI::App& application, Context& context) {
    CLI::App& command =
        addCommand(application, "add", "Add a profile to a file, or update the one of its id",
                   "add profiles.json profile.json\n"
                   "add profiles.json profile.json --name \"Drone 7\" --serial-number KV-1042\n"
                   "add profiles.json - < profile.json");
    const auto arguments = std::make_shared<AddArguments>();
    command.add_option("FILE", arguments->file, "The file to change; made when there is none")->required();
    command
        .add_option(
            "PROFILE.json", arguments->profileFile,
            "A document of exactly one profile, - for the standard input; the id -1 asks for a new one")
        ->required();
    command
        .add_option_function<std::string>(
            "--name", [arguments](const std::string& name) { arguments->name = name; }, "Name the profile so")
        ->option_text("NAME");
    command
        .add_option_function<std::string>(
            "--serial-number", [arguments](const std::string& number) { arguments->serialNumber = number; },
            "Give the profile this serial number")
        ->option_text("NUMBER");
    command.callback([&context, arguments] { add(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles
