#pragma once
// What can be said to modelhost, taken from where its words are read: the help, the manual pages and the completions
// are made from it.

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace console {

struct OptionDescription {
    std::vector<std::string> names;  ///< "-o", "--output".
    std::string value;               ///< What stands behind it: "FILE", "table|tsv|json"; empty for a flag.
    bool attached = false;           ///< The value may be left out and is written behind "=".
    std::string text;

    /// Of a value that is one of a few words.
    std::vector<std::string> choices() const;
    const std::string& longestName() const;
};

struct ArgumentDescription {
    std::string name;
    bool required = true;
    bool several = false;
    std::string text;

    /// As a usage line shows it: "MODEL", "[GUID]...".
    std::string shown() const;
};

struct CommandDescription {
    std::string name;  ///< Empty: the program itself.
    std::string text;
    std::vector<ArgumentDescription> arguments;
    std::vector<OptionDescription> options;
    std::string notes;                  ///< Paragraphs.
    std::vector<std::string> examples;  ///< Commands for a shell.
};

/// The program first, then its commands.
using ProgramDescription = std::vector<CommandDescription>;
ProgramDescription describe(const CLI::App& app);

/// "modelhost import", or "modelhost" for the program itself.
std::string fullName(const CommandDescription& command);
/// "modelhost import MODEL... UPDATES [OPTIONS]"
std::string usageOf(const CommandDescription& command);

}  // namespace console
