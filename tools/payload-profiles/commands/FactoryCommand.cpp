#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

namespace norel::Desktop::PayloadProfiles {

void addFactoryCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "factory", "Print the document of the built-in profiles, byte for byte",
                   "factory > profiles.json\n"
                   "factory --document-version 3");
    const unsigned int oldest = DocumentVersions::getFirst() + 1; // of those that came with factory profiles
    const unsigned int current = DocumentVersions::getCurrent();
    const auto version = std::make_shared<unsigned int>(current);
    command.addOption("--document-version", "VERSION", *version, {oldest, current},
                      "Version " + std::to_string(oldest) + " to " + std::to_string(current) +
                          " (default: " + std::to_string(current) + ")");
    command.run([&context, version] {
        context.console.print(DefaultProducts::getSourceDocumentFromVersionInfo(*version));
    });
}

} // namespace norel::Desktop::PayloadProfiles
