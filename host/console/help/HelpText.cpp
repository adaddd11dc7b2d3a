#include "console/help/HelpText.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <sstream>
#include <string_view>

namespace console {
namespace {

constexpr std::size_t Width = 80;
constexpr std::size_t Indent = 2;
constexpr std::size_t TextColumn = 28;

/// The words of `text` in lines that begin at `column`; the first goes on where `line` ends.
std::string wrapped(std::string line, std::size_t column, const std::string& text) {
    std::string result;
    std::istringstream words(text);
    bool first = true;
    for (std::string word; words >> word; first = false) {
        if (!first && line.size() + 1 + word.size() > Width) {
            result += line + "\n";
            line.assign(column, ' ');
            first = true;
        }
        line += (first ? "" : " ") + word;
    }
    return result + line + "\n";
}

std::string entry(const std::string& name, const std::string& text) {
    std::string line = std::string(Indent, ' ') + name;
    if (line.size() + 2 <= TextColumn)
        return wrapped(line + std::string(TextColumn - line.size(), ' '), TextColumn, text);
    return line + "\n" + wrapped(std::string(TextColumn, ' '), TextColumn, text);
}

std::string paragraphs(const std::string& notes) {
    std::string result;
    std::istringstream lines(notes);
    for (std::string line; std::getline(lines, line);) result += line.empty() ? "\n" : wrapped("", 0, line);
    return result;
}

}  // namespace

std::string shown(const OptionDescription& option) {
    std::string text = fmt::format("{}", fmt::join(option.names, ","));
    if (option.value.empty()) return text;
    return text + (option.attached ? fmt::format("[={}]", option.value) : " " + option.value);
}

std::string helpText(const CommandDescription& command, const ProgramDescription& program) {
    std::string text = wrapped("", 0, command.text + ".") + fmt::format("\nUsage: {}\n", usageOf(command));
    if (!command.arguments.empty()) text += "\n";
    for (const ArgumentDescription& argument : command.arguments) text += entry(argument.name, argument.text);
    text += "\nOptions:\n";
    for (const OptionDescription& option : command.options) text += entry(shown(option), option.text);
    if (command.name.empty()) {
        text += "\nCommands:\n";
        for (const CommandDescription& other : program)
            if (!other.name.empty()) text += entry(other.name, other.text);
    }
    if (!command.notes.empty()) text += "\n" + paragraphs(command.notes);
    if (!command.examples.empty()) text += "\nExamples:\n";
    for (const std::string& example : command.examples) text += fmt::format("  {}\n", example);
    return text;
}

}  // namespace console
