#pragma once
// Starts the built modelhost as a person or a program would, and keeps what it said.
//
//     const Outcome run = ModelHostRun(folder).with("LANG", "de_DE.UTF-8").run({"list", "house.ifc"});

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace console_tests {

struct Outcome {
    int status = -1;  ///< Exit status; -1 where a signal ended it.
    int signal = 0;
    std::string out;
    std::string err;
};

class ModelHostRun {
public:
    /// @param folder  where it works; its output is kept there, too.
    explicit ModelHostRun(std::filesystem::path folder);

    ModelHostRun& with(const std::string& variable, const std::string& value);
    ModelHostRun& input(std::string text);
    /// Standard output goes to this file in place of being kept.
    ModelHostRun& outputTo(std::filesystem::path file);

    Outcome run(const std::vector<std::string>& arguments) const;

    /// Standard output and error are a terminal of that many columns; what they show is in `out`.
    Outcome runOnTerminal(const std::vector<std::string>& arguments, int columns) const;

private:
    [[noreturn]] void become(const std::vector<std::string>& arguments) const;

    std::filesystem::path folder;
    std::map<std::string, std::string> variables;
    std::string standardInput;
    std::filesystem::path outputFile;
};

}  // namespace console_tests
