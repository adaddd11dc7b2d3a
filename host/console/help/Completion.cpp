#include "console/help/Completion.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>

namespace console {
namespace {

/// Of the values that are files, as the descriptions call them.
bool isFile(std::string_view value) {
    return value.find("FILE") != value.npos || value.find(".ifc") != value.npos || value == "BUNDLE" || value == "DIR";
}

/// In single quotes for a shell.
std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'')
            result += "'\\''";
        else
            result += c;
    }
    return result + "'";
}

std::vector<std::string> commandNames(const ProgramDescription& program) {
    std::vector<std::string> names;
    for (const CommandDescription& command : program)
        if (!command.name.empty()) names.push_back(command.name);
    return names;
}

std::vector<std::string> optionNames(const CommandDescription& command) {
    std::vector<std::string> names;
    for (const OptionDescription& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

/// What stands in the place of an argument where that is neither a file nor free: a command's name, a shell's.
std::vector<std::string> argumentWords(const CommandDescription& command, const ProgramDescription& program) {
    if (command.name == "help") return commandNames(program);
    if (command.name == "completion") return {"bash", "zsh", "fish"};
    return {};
}

// --- bash ---

/// The cases of one command's options that take a value: "import,--format) words='table tsv json' ;;"
std::string bashValues(const CommandDescription& command) {
    std::string text;
    for (const OptionDescription& option : command.options) {
        if (option.value.empty() || option.attached) continue;
        for (const std::string& name : option.names) {
            const auto choices = option.choices();
            const char* files = isFile(option.value) ? "files=1" : "";
            text += choices.empty() ? fmt::format("        {},{}) value=1 {};;\n", command.name, name, files)
                                    : fmt::format("        {},{}) value=1 words='{}' ;;\n", command.name, name,
                                                  fmt::join(choices, " "));
        }
    }
    return text;
}

std::string bashOptions(const CommandDescription& command) {
    return fmt::format("        {}) words='{}' ;;\n", command.name.empty() ? "''" : command.name,
                       fmt::join(optionNames(command), " "));
}

std::string bash(const ProgramDescription& program) {
    const auto commands = fmt::format("{}", fmt::join(commandNames(program), " "));
    std::string values, options, arguments;
    for (const CommandDescription& command : program) {
        values += bashValues(command);
        options += bashOptions(command);
        if (const auto words = argumentWords(command, program); !words.empty())
            arguments += fmt::format("        {}) words='{}' files= ;;\n", command.name, fmt::join(words, " "));
    }
    return fmt::format(R"(# bash completion for modelhost
_modelhost() {{
    local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD - 1]}}
    local command= words= value= files= i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case " {0} " in *" ${{COMP_WORDS[i]}} "*) command=${{COMP_WORDS[i]}}; break ;; esac
    done
    # bash cuts --option=value at the equals sign.
    if [[ $current == = ]]; then current=; elif [[ $previous == = ]]; then previous=${{COMP_WORDS[COMP_CWORD - 2]}}; fi
    case $command,$previous in
{1}    esac
    if [[ -z $value ]]; then
        case $command in
{2}        esac
        if [[ $current != -* ]]; then
            words= files=1
            [[ -n $command ]] || {{ words='{0}' files=; }}
            case $command in
{3}            esac
        fi
    fi
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    [[ -n $files ]] || compopt +o default 2>/dev/null
}}
complete -o default -F _modelhost modelhost
)",
                       commands, values, options, arguments);
}

// --- zsh ---

/// Brackets and colons have a meaning in a specification of _arguments.
std::string zshText(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':') result += '\\';
        result += c;
    }
    return result;
}

std::string zshAction(const OptionDescription& option) {
    const auto choices = option.choices();
    if (!choices.empty()) return fmt::format("({})", fmt::join(choices, " "));
    return isFile(option.value) ? "_files" : " ";
}

std::string zshOption(const OptionDescription& option, const std::string& name) {
    std::string text = fmt::format("*{}{}[{}]", name, option.attached ? "=-" : "", zshText(option.text));
    if (!option.value.empty())
        text += fmt::format("{}{}:{}", option.attached ? "::" : ":", zshText(option.value), zshAction(option));
    return "                " + quoted(text) + " \\\n";
}

std::string zshCommand(const CommandDescription& command, const ProgramDescription& program) {
    std::string text = fmt::format("        {})\n            _arguments -s -S \\\n", command.name);
    for (const OptionDescription& option : command.options)
        for (const std::string& name : option.names) text += zshOption(option, name);
    const auto words = argumentWords(command, program);
    text += "                " +
            quoted(words.empty() ? "*:file:_files" : fmt::format("1:{}:({})", command.name, fmt::join(words, " ")));
    return text + "\n            ;;\n";
}

std::string zsh(const ProgramDescription& program) {
    std::string names, cases;
    for (const CommandDescription& command : program) {
        if (command.name.empty()) continue;
        names += "        " + quoted(zshText(command.name) + ":" + zshText(command.text)) + "\n";
        cases += zshCommand(command, program);
    }
    return fmt::format(R"(#compdef modelhost
_modelhost() {{
    local -a commands
    commands=(
{}    )
    if ((CURRENT == 2)); then
        if [[ $words[2] == -* ]]; then
            compadd -- {}
        else
            _describe command commands
        fi
        return
    fi
    local command=$words[2]
    shift words
    ((CURRENT--))
    case $command in
{}    esac
}}
_modelhost "$@"
)",
                       names, fmt::join(optionNames(program.front()), " "), cases);
}

// --- fish ---

std::string fishOption(const CommandDescription& command, const OptionDescription& option) {
    std::string text =
        "complete -c modelhost -n " +
        quoted(command.name.empty() ? "__fish_use_subcommand" : "__fish_seen_subcommand_from " + command.name);
    for (const std::string& name : option.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    const auto choices = option.choices();
    if (!choices.empty())
        text += " -x -a " + quoted(fmt::format("{}", fmt::join(choices, " ")));
    else if (!option.value.empty() && !option.attached)
        text += isFile(option.value) ? " -r -F" : " -x";
    return text + " -d " + quoted(option.text) + "\n";
}

std::string fish(const ProgramDescription& program) {
    std::string text = "# fish completion for modelhost\n";
    text += "complete -c modelhost -n __fish_use_subcommand -f\n";
    for (const CommandDescription& command : program) {
        if (!command.name.empty()) {
            text += fmt::format("complete -c modelhost -n __fish_use_subcommand -f -a {} -d {}\n", command.name,
                                quoted(command.text));
        }
        for (const OptionDescription& option : command.options) text += fishOption(command, option);
        if (const auto words = argumentWords(command, program); !words.empty()) {
            text += fmt::format("complete -c modelhost -n {} -f -a {}\n",
                                quoted("__fish_seen_subcommand_from " + command.name),
                                quoted(fmt::format("{}", fmt::join(words, " "))));
        }
    }
    return text;
}

}  // namespace

std::string completion(const std::string& shell, const ProgramDescription& program) {
    if (shell == "bash") return bash(program);
    return shell == "zsh" ? zsh(program) : fish(program);
}

}  // namespace console
