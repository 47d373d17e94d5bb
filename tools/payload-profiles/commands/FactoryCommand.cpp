#include "commands/Commands.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {

void addFactoryCommand(CLI::App& application, Context& context) {
    CLI::App& command =
        addCommand(application, "factory", "Print the document of the built-in profiles as it is",
                   "factory > profiles.json\n"
                   "factory --document-version 3");
    const auto version = std::make_shared<unsigned int>(5);
    command.add_option("--document-version", *version, "Version 2, 3, 4 or 5; 5 when left out")
        ->check(CLI::Range(2U, 5U))
        ->option_text("VERSION");
    command.callback([&context, version] {
        context.console.print(DefaultProducts::getSourceDocumentFromVersionInfo(*version));
    });
}

} // namespace norel::Desktop::PayloadProfiles
