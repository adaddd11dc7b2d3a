#include "console/help/Description.hpp"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>
#include <string_view>

namespace console {
namespace {

constexpr std::string_view ExamplesHeading = "Examples:\n";

std::vector<std::string> namesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    return names;
}

OptionDescription describe(const CLI::Option& option) {
    OptionDescription description;
    description.names = namesOf(option);
    description.text = option.get_description();
    description.value = option.get_type_name();
    description.attached = option.get_items_expected_min() == 0 && !description.value.empty();
    return description;
}

ArgumentDescription describeArgument(const CLI::Option& option) {
    return {option.get_name(), option.get_required() || option.get_type_name() == "REQUIRED",
            option.get_items_expected_max() > 1, option.get_description()};
}

/// "Examples:" and the indented lines behind it stand at the end of a footer.
void takeFooter(const std::string& footer, CommandDescription& command) {
    const std::size_t at = std::min(footer.find(ExamplesHeading), footer.size());
    command.notes = footer.substr(0, at);
    while (!command.notes.empty() && command.notes.back() == '\n') command.notes.pop_back();
    std::istringstream lines(footer.substr(std::min(at + ExamplesHeading.size(), footer.size())));
    for (std::string line; std::getline(lines, line);) command.examples.push_back(line.substr(2));
}

CommandDescription describeOne(const CLI::App& app) {
    CommandDescription command;
    command.name = app.get_parent() == nullptr ? "" : app.get_name();
    command.text = app.get_description();
    for (const CLI::Option* option : app.get_options()) {
        // What belongs to no group is not for people.
        if (option->get_group().empty()) continue;
        if (option->get_positional())
            command.arguments.push_back(describeArgument(*option));
        else
            command.options.push_back(describe(*option));
    }
    takeFooter(app.get_footer(), command);
    return command;
}

}  // namespace

std::vector<std::string> OptionDescription::choices() const {
    std::vector<std::string> words;
    if (value.find('|') == std::string::npos) return words;
    std::istringstream all(value);
    for (std::string word; std::getline(all, word, '|');) words.push_back(word);
    return words;
}

const std::string& OptionDescription::longestName() const {
    return names.back();
}

std::string ArgumentDescription::shown() const {
    return fmt::format("{}{}{}{}", required ? "" : "[", name, required ? "" : "]", several ? "..." : "");
}

ProgramDescription describe(const CLI::App& app) {
    ProgramDescription commands{describeOne(app)};
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        commands.push_back(describeOne(*command));
    return commands;
}

std::string fullName(const CommandDescription& command) {
    return command.name.empty() ? "modelhost" : "modelhost " + command.name;
}

std::string usageOf(const CommandDescription& command) {
    if (command.name.empty()) return "modelhost COMMAND [ARGUMENTS]";
    std::string usage = fullName(command);
    for (const ArgumentDescription& argument : command.arguments) usage += " " + argument.shown();
    return usage + " [OPTIONS]";
}

}  // namespace console
