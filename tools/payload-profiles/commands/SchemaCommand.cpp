#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSchema.h"

namespace norel::Desktop::PayloadProfiles {

void addSchemaCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "schema", "Print the JSON Schema of the files",
                                       "schema > profile-list.schema.json");
    command.run([&context] { context.console.print(makeProfileListSchema()); });
}

} // namespace norel::Desktop::PayloadProfiles
