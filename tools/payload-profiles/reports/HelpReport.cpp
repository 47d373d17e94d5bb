#include "reports/HelpReport.h"

#include "terminal/Nearest.h"
#include "terminal/Text.h"

#include <sstream>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr std::size_t WIDTH = 80;

/// The words of a paragraph in lines of at most `width` characters, as far as words are not longer.
std::vector<std::string> wrapText(const std::string& paragraph, std::size_t width) {
    std::vector<std::string> lines{""};
    std::istringstream words(paragraph);
    for (std::string word; words >> word;) {
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width)
            lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
    }
    return lines;
}

std::string makeParagraphs(const std::string& text) {
    std::string result;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);)
        for (const std::string& line : wrapText(paragraph, WIDTH))
            result += line + '\n';
    return result;
}

/// A label and, in a second column, its description.
std::string makeEntry(const std::string& label, const std::string& description) {
    constexpr std::size_t indentation = 26;
    std::string entry = "  " + label;
    if (entry.size() + 2 > indentation)
        entry += '\n' + std::string(indentation, ' ');
    else
        entry.resize(indentation, ' ');
    std::string separator;
    for (const std::string& line : wrapText(description, WIDTH - indentation)) {
        entry += separator + line;
        separator = '\n' + std::string(indentation, ' ');
    }
    return entry + '\n';
}

std::string makeList(const std::string& heading, const std::vector<ArgumentSyntax>& arguments) {
    std::string list = arguments.empty() ? "" : '\n' + heading + ":\n";
    for (const ArgumentSyntax& argument : arguments)
        list += makeEntry(argument.getLabel(), argument.description);
    return list;
}

std::string makeCommandList(const CommandSyntax& application) {
    std::string list = application.commands.empty() ? "" : "\nCommands:\n";
    for (const CommandSyntax& command : application.commands)
        list += makeEntry(command.getShortName(), command.description);
    return list;
}

std::string makeBeginning(const CommandSyntax& syntax) {
    return makeParagraphs(syntax.description) + "\nUsage: " + syntax.getUsage() + '\n';
}

/// Text for man(7), with everything escaped that it would interpret.
std::string toManual(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        const bool beginsLine = escaped.empty() || escaped.back() == '\n';
        if (beginsLine && (character == '.' || character == '\''))
            escaped += "\\&";
        if (character == '\\')
            escaped += "\\e";
        else if (character == '-')
            escaped += "\\-";
        else
            escaped += character;
    }
    return escaped;
}

std::string makeManualEntries(const std::vector<ArgumentSyntax>& arguments) {
    std::string entries;
    for (const ArgumentSyntax& argument : arguments)
        entries += ".TP\n.B " + toManual(argument.getLabel()) + '\n' + toManual(argument.description) + '\n';
    return entries;
}

std::string makeManualParagraphs(const std::string& text) {
    std::string result;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);)
        result += paragraph.empty() ? ".PP\n" : toManual(paragraph) + '\n';
    return result;
}

std::string makeManualOf(const CommandSyntax& command) {
    std::string text = ".SS " + toManual(command.getShortName()) + "\n.B " + toManual(command.getUsage()) +
                       "\n.PP\n" + toManual(command.description) + ".\n" +
                       makeManualEntries(command.positionals) + makeManualEntries(command.options);
    if (!command.notes.empty())
        text += ".PP\n" + makeManualParagraphs(command.notes);
    if (command.examples.empty())
        return text;
    text += ".PP\nExamples:\n.PP\n.nf\n.RS\n";
    for (const std::string& example : command.examples)
        text += toManual(example) + '\n';
    return text + ".RE\n.fi\n";
}

std::string suggest(const std::string& kind, std::string_view word,
                    const std::vector<std::string>& candidates) {
    const auto nearest = findNearest(word, candidates);
    return "there is no " + kind + ' ' + inQuotes(word) +
           (nearest ? "; did you mean " + inQuotes(*nearest) + '?' : "");
}

} // namespace

std::string makeHelp(const CommandSyntax& syntax) {
    std::string help = makeBeginning(syntax) + makeList("Arguments", syntax.positionals) +
                       makeList("Options", syntax.options) + makeCommandList(syntax);
    if (!syntax.examples.empty())
        help += "\nExamples:\n";
    for (const std::string& example : syntax.examples)
        help += "  " + example + '\n';
    return syntax.notes.empty() ? help : help + '\n' + makeParagraphs(syntax.notes);
}

std::string makeShortHelp(const CommandSyntax& application) {
    return makeBeginning(application) + makeCommandList(application) + '\n' +
           makeParagraphs("See " + application.name + " help COMMAND for a command, " + application.name +
                          " --help for more.");
}

std::string makeManual(const CommandSyntax& application, const std::string& version) {
    std::string page = ".TH PAYLOAD\\-PROFILES 1 \"\" \"" + toManual(version) +
                       "\" \"User Commands\"\n.SH NAME\n" + toManual(application.name) +
                       " \\- manages the payload profiles in a file\n.SH SYNOPSIS\n.B " +
                       toManual(application.getUsage()) + "\n.SH DESCRIPTION\n" +
                       toManual(application.description) + "\n.PP\n";
    page += makeManualParagraphs(application.notes) + ".SH OPTIONS\n" +
            makeManualEntries(application.options) + ".SH COMMANDS\n";
    for (const CommandSyntax& command : application.commands)
        page += makeManualOf(command);
    return page;
}

std::string describeUnknownCommand(const CommandSyntax& application, std::string_view word) {
    std::vector<std::string> names;
    for (const CommandSyntax& command : application.commands)
        names.push_back(command.getShortName());
    return suggest("command", word, names);
}

std::string describeUnknownOption(const CommandSyntax& command, std::string_view word) {
    std::vector<std::string> names;
    for (const ArgumentSyntax& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return suggest("option", word.substr(0, word.find('=')), names);
}

} // namespace norel::Desktop::PayloadProfiles
