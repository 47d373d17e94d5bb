#include "commands/Completion.h"

#include "documents/Failure.h"
#include "documents/Source.h"
#include "terminal/Text.h"

#include <algorithm>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Words = std::vector<std::string>;

/// A command line up to the word that is completed.
class PartialLine {
public:
    PartialLine(const CommandSyntax& chosen, const Words& words) : command(chosen) {
        for (const std::string& word : words)
            take(word);
    }

    /// The option whose value comes next; null for none.
    const ArgumentSyntax* getOpenOption() const { return openOption; }

    bool mayHaveOptions() const { return !isAfterDashes; }

    /// The positional argument that comes next; null when there are no more.
    const ArgumentSyntax* getNextPositional() const {
        const auto& positionals = command.positionals;
        if (values.size() < positionals.size())
            return &positionals[values.size()];
        return !positionals.empty() && positionals.back().takesSeveral ? &positionals.back() : nullptr;
    }

    /// The first positional argument, which names the file of all commands with ids.
    std::string getFile() const { return values.empty() ? "" : values.front(); }

    const ArgumentSyntax* findOption(const std::string& name) const {
        const auto option = std::ranges::find_if(command.options, [&](const ArgumentSyntax& candidate) {
            return std::ranges::find(candidate.names, name) != candidate.names.end();
        });
        return option != command.options.end() ? &*option : nullptr;
    }

private:
    void take(const std::string& word) {
        const bool isOption = mayHaveOptions() && word.size() > 1 && word.starts_with('-');
        if (openOption != nullptr) {
            openOption = nullptr;
        } else if (isOption && word == "--") {
            isAfterDashes = true;
        } else if (isOption) {
            const ArgumentSyntax* option = findOption(word); // not "--option=value"
            openOption = option != nullptr && !option->value.empty() ? option : nullptr;
        } else {
            values.push_back(word);
        }
    }

    const CommandSyntax& command;
    Words values;
    const ArgumentSyntax* openOption = nullptr;
    bool isAfterDashes = false;
};

class Candidates {
public:
    explicit Candidates(const std::string& beginningOfWord) : beginning(beginningOfWord) {}

    void add(const std::string& word, const std::string& description) {
        if (word.starts_with(beginning))
            lines += word + '\t' + description + '\n';
    }
    void addFiles() { lines += ":files\n"; }

    const std::string& getLines() const { return lines; }

private:
    std::string beginning;
    std::string lines;
};

void addCommands(const CommandSyntax& application, Candidates& candidates) {
    for (const CommandSyntax& command : application.commands)
        candidates.add(command.getShortName(), command.description);
}

void addOptions(const CommandSyntax& command, Candidates& candidates) {
    for (const ArgumentSyntax& option : command.options)
        for (const std::string& name : option.names)
            candidates.add(name, option.description);
}

/// Of a file or the factory profiles: nobody expects a key press to contact a service.
void addIds(const DocumentAccess& documents, const Source& source, Candidates& candidates) {
    if (source.isAddress())
        return;
    try {
        for (const Profile& profile : readSource(documents, source))
            candidates.add(std::to_string(profile.getId()), printable(profile.getName()));
    } catch (const Failure&) { // ignored: the command itself reports it
    }
}

/// Candidates for a value, by what the help calls it.
void addValues(const std::string& name, const CommandSyntax& application, const DocumentAccess& documents,
               const std::string& file, Candidates& candidates) {
    if (name == "COMMAND")
        addCommands(application, candidates);
    if (name == "ID")
        addIds(documents, Source{file, {}}, candidates);
    if (name.starts_with("SOURCE"))
        candidates.add("factory", "The built-in profiles");
    if (name.starts_with("SOURCE") || name.find("FILE") != std::string::npos)
        candidates.addFiles();
}

} // namespace

std::string completeWords(const CommandSyntax& application, const Words& words,
                          const DocumentAccess& documents) {
    const std::string last = words.empty() ? "" : words.back();
    Candidates candidates(last);
    if (words.size() < 2) {
        addCommands(application, candidates);
        if (last.starts_with('-'))
            addOptions(application, candidates);
        return candidates.getLines();
    }
    const auto command = std::ranges::find(application.commands, words.front(), &CommandSyntax::getShortName);
    if (command == application.commands.end())
        return {};
    const PartialLine line(*command, Words(words.begin() + 1, words.end() - 1));
    const ArgumentSyntax* positional = line.getNextPositional();
    if (const ArgumentSyntax* option = line.getOpenOption())
        addValues(option->value, application, documents, line.getFile(), candidates);
    else if (line.mayHaveOptions() && last.starts_with('-'))
        addOptions(*command, candidates);
    else if (positional != nullptr)
        addValues(positional->names.front(), application, documents, line.getFile(), candidates);
    return candidates.getLines();
}

} // namespace norel::Desktop::PayloadProfiles
