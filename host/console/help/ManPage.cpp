#include "console/help/ManPage.hpp"

#include "console/help/HelpText.hpp"
#include "text/Ascii.hpp"

#include <fmt/format.h>

#include <sstream>
#include <string_view>

namespace console {
namespace {

/// A hyphen would become a dash, and a point or an apostrophe at the beginning of a line a request.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool begins = result.empty() || result.back() == '\n';
        if (begins && (c == '.' || c == '\'')) result += "\\&";
        if (c == '\\') {
            result += "\\e";
        } else if (c == '-') {
            result += "\\-";
        } else if (c == '\'') {
            result += "\\(aq";
        } else {
            result += c;
        }
    }
    return result;
}

std::string entry(std::string_view name, std::string_view text) {
    return fmt::format(".TP\n.B {}\n{}\n", escaped(name), escaped(text));
}

std::string pageName(const CommandDescription& command) {
    return command.name.empty() ? "modelhost" : "modelhost-" + command.name;
}

/// man(1) finds a page by its NAME line, which has no capital and no full stop.
std::string nameLine(const CommandDescription& command) {
    std::string text = command.text;
    if (!text.empty()) text[0] = text::lowerCase(text[0]);
    return fmt::format(".SH NAME\n{} \\- {}\n", escaped(pageName(command)), escaped(text));
}

std::string seeAlso(const CommandDescription& command, const ProgramDescription& program) {
    std::string text = ".SH SEE ALSO\n";
    bool first = true;
    for (const CommandDescription& other : program) {
        if (&other == &command) continue;
        text += fmt::format("{}.BR {} (1)", first ? "" : ",\n", escaped(pageName(other)));
        first = false;
    }
    return text + "\n";
}

std::string examples(const CommandDescription& command) {
    std::string text = ".SH EXAMPLES\n.nf\n";
    for (const std::string& example : command.examples) text += escaped(example) + "\n";
    return text + ".fi\n";
}

std::string notes(const CommandDescription& command) {
    std::string text;
    std::istringstream lines(command.notes);
    for (std::string line; std::getline(lines, line);) text += line.empty() ? "" : ".PP\n" + escaped(line) + "\n";
    return text;
}

}  // namespace

std::string manPage(const CommandDescription& command, const ProgramDescription& program) {
    std::string page = fmt::format(".TH {} 1 \"\" \"modelhost {}\" \"User Commands\"\n",
                                   escaped(text::toUpperCase(pageName(command))), PROJECT_VERSION);
    // Words that are typed are not cut at the end of a line.
    page += ".nh\n.ad l\n" + nameLine(command);
    page += fmt::format(".SH SYNOPSIS\n{}\n", escaped(usageOf(command)));
    page += fmt::format(".SH DESCRIPTION\n{}.\n{}", escaped(command.text), notes(command));
    if (!command.arguments.empty()) page += ".SH ARGUMENTS\n";
    for (const ArgumentDescription& argument : command.arguments) page += entry(argument.name, argument.text);
    page += ".SH OPTIONS\n";
    for (const OptionDescription& option : command.options) page += entry(shown(option), option.text);
    if (command.name.empty()) {
        page += ".SH COMMANDS\n";
        for (const CommandDescription& other : program)
            if (!other.name.empty()) page += entry(other.name, other.text);
    }
    if (!command.examples.empty()) page += examples(command);
    return page + seeAlso(command, program);
}

}  // namespace console
