#pragma once
// Starts the built modelhost as a person or a program would, and keeps what it said.
//
//     const Outcome run = ModelHostRun(folder).with("LANG", "de_DE.UTF-8").run({"list", "house.ifc"});

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
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

    /// Root may read and write everything, so that the tests of rights act as somebody else.
    ModelHostRun& withoutPrivileges();

    Outcome run(const std::vector<std::string>& arguments) const;

    /// Sends it the signal once it has run that long.
    Outcome runAndSignal(const std::vector<std::string>& arguments, int signal, std::chrono::milliseconds after) const;

    /// Standard output and error are a terminal of that many columns; what they show is in `out`.
    /// @param stopAfter  from its start until it is stopped for more than the second after which it shows how far it
    /// is.
    Outcome runOnTerminal(const std::vector<std::string>& arguments, int columns,
                          std::optional<std::chrono::milliseconds> stopAfter = {}) const;

private:
    friend class ScriptedHost;
    [[noreturn]] void become(const std::vector<std::string>& arguments) const;

    std::filesystem::path folder_;
    std::map<std::string, std::string> variables_;
    std::string standardInput_;
    std::filesystem::path outputFile_;
    bool unprivileged_ = false;
};

/// A modelhost that goes on running: `script` that reads its steps from a pipe.
///
///     ScriptedHost other(modelhost(), "house.ifc");
///     other.perform(R"({"menus":true})");   // from here on it has the model open
class ScriptedHost {
public:
    ScriptedHost(const ModelHostRun& run, const std::string& model, const std::vector<std::string>& options = {});
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    /// @return its answer, once it waits for the next step; empty where it has ended.
    std::string perform(const std::string& step);
    /// Ends its input and waits for its end.
    int finish();
    pid_t process() const { return child_; }

private:
    pid_t child_ = -1;
    int steps_ = -1;
    int answers_ = -1;
};

}  // namespace console_tests
