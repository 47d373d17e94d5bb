#include "commands/Completion.h"

#include "commands/ProfileEdit.h"
#include "documents/Failure.h"
#include "documents/Source.h"
#include "reports/ProfileMembers.h"
#include "reports/ProfileParameters.h"
#include "terminal/Text.h"

#include <algorithm>
#include <set>

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

    /// The first positional argument, which names the source of all commands with ids.
    Source getSource() const { return {values.empty() ? "" : values.front(), {}}; }

    /// The second positional argument, which is the id in all commands with paths.
    std::string getId() const { return values.size() < 2 ? "" : values[1]; }

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

    const std::string& getBeginning() const { return beginning; }

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
std::vector<Profile> readProfilesIfPossible(const DocumentAccess& documents, const Source& source) {
    try {
        return source.isAddress() ? std::vector<Profile>() : readSource(documents, source).list();
    } catch (const Failure&) { // ignored: the command itself reports it
        return {};
    }
}

/// The parameters and other members of a profile that a command changes; `ending` follows each.
void addMembers(const Profile& profile, const std::string& ending, Candidates& candidates) {
    std::set<MemberPath> parameters;
    const std::vector<ProfileMember> members = listMembers(profile);
    for (const ProfileMember& member : members)
        if (member.isParameterValue)
            parameters.insert(MemberPath(member.path.begin(), member.path.end() - 1));
    const auto isPartOfParameter = [&](MemberPath path) {
        for (; !path.empty(); path.pop_back())
            if (parameters.contains(path))
                return true;
        return false;
    };
    for (const ProfileMember& member : members)
        if (isChangeable(member) && (member.isParameterValue || !isPartOfParameter(member.path)))
            candidates.add(describePath(member) + ending,
                           member.text + (member.unit ? ' ' + printable(*member.unit) : ""));
}

/// The names of the presets of the parameter that the word assigns to.
void addPresets(const Profile& profile, Candidates& candidates) {
    for (const ProfileParameter& parameter : listSettings(profile).parameters)
        if (candidates.getBeginning().starts_with(parameter.path + '='))
            for (const auto& [name, number] : parameter.presets)
                if (printable(name) == name) // no shell can show any other
                    candidates.add(parameter.path + "=@" + name, numberToText(number));
}

/// Candidates for a value, by what the help calls it.
void addValues(const std::string& name, const CommandSyntax& application, const DocumentAccess& documents,
               const PartialLine& line, Candidates& candidates) {
    if (name == "COMMAND")
        addCommands(application, candidates);
    if (name == "ID")
        for (const Profile& profile : readProfilesIfPossible(documents, line.getSource()))
            candidates.add(std::to_string(profile.getId()), printable(profile.getName()));
    if (name == "PATH" || name == "PATH=VALUE")
        for (const Profile& profile : readProfilesIfPossible(documents, line.getSource()))
            if (std::to_string(profile.getId()) == line.getId()) {
                addMembers(profile, name == "PATH" ? "" : "=", candidates);
                addPresets(profile, candidates);
            }
    if (name.starts_with("SOURCE"))
        candidates.add("factory", "The built-in profiles");
    if (name.starts_with("SOURCE") || name.find("FILE") != std::string::npos)
        candidates.addFiles();
}

/// "--option=" at the beginning of a word; empty when there is none.
std::string findOptionName(const std::string& word) {
    const std::size_t equals = word.find('=');
    return word.starts_with("--") && equals != std::string::npos ? word.substr(0, equals + 1) : "";
}

} // namespace

std::string completeWords(const CommandSyntax& application, const Words& words,
                          const DocumentAccess& documents) {
    const std::string last = words.empty() ? "" : words.back();
    const std::string option = findOptionName(last);
    Candidates candidates(last.substr(option.size()));
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
    const ArgumentSyntax* const open = line.getOpenOption();
    const bool isOption = line.mayHaveOptions() && last.starts_with('-');
    const ArgumentSyntax* const named =
        open || !isOption ? open : line.findOption(option.substr(0, option.find('=')));
    if (named != nullptr)
        addValues(named->value, application, documents, line, candidates);
    else if (isOption && option.empty())
        addOptions(*command, candidates);
    else if (isOption)
        return {};
    else if (positional != nullptr)
        addValues(positional->names.front(), application, documents, line, candidates);
    return candidates.getLines();
}

} // namespace norel::Desktop::PayloadProfiles
