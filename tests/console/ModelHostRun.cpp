#include "ModelHostRun.hpp"

#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <utility>

namespace console_tests {
namespace {

constexpr int CouldNotStart = 127;

void redirect(int descriptor, const std::filesystem::path& file, int flags) {
    const int opened = open(file.c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0) _exit(CouldNotStart);
    close(opened);
}

void wait(pid_t child, Outcome& outcome) {
    int status = 0;
    if (waitpid(child, &status, 0) != child) throw std::runtime_error("modelhost could not be waited for");
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) outcome.signal = WTERMSIG(status);
    if (outcome.status == CouldNotStart) throw std::runtime_error("modelhost could not be started");
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> block;
    // A terminal whose other end is closed answers with an error, not with an end of file.
    for (ssize_t count = 0; (count = read(descriptor, block.data(), block.size())) > 0;)
        text.append(block.data(), static_cast<std::size_t>(count));
    return text;
}

}  // namespace

ModelHostRun::ModelHostRun(std::filesystem::path theFolder) : folder_(std::move(theFolder)) {}

ModelHostRun& ModelHostRun::with(const std::string& variable, const std::string& value) {
    variables_[variable] = value;
    return *this;
}

ModelHostRun& ModelHostRun::input(std::string text) {
    standardInput_ = std::move(text);
    return *this;
}

ModelHostRun& ModelHostRun::outputTo(std::filesystem::path file) {
    outputFile_ = std::move(file);
    return *this;
}

ModelHostRun& ModelHostRun::withoutPrivileges() {
    unprivileged_ = geteuid() == 0;
    return *this;
}

void ModelHostRun::become(const std::vector<std::string>& arguments) const {
    if (chdir(folder_.c_str()) != 0) _exit(CouldNotStart);
    // A shell starts what runs in its background with interrupts ignored, nohup with hangups, and all that is started
    // from there.
    for (const int ignored : {SIGINT, SIGHUP}) std::signal(ignored, SIG_DFL);
    constexpr uid_t nobody = 65534;
    if (unprivileged_ && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(CouldNotStart);
    for (const char* variable : {"COLUMNS", "NO_COLOR"}) unsetenv(variable);
    for (const auto& [name, value] : variables_) setenv(name.c_str(), value.c_str(), 1);
    const std::string program = testing_support::builtFile("modelhost").string();
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    execv(program.c_str(), words.data());
    _exit(CouldNotStart);
}

Outcome ModelHostRun::run(const std::vector<std::string>& arguments) const {
    const testing_support::TempFolder kept;
    const auto in = kept.write("in", standardInput_);
    const auto out = outputFile_.empty() ? kept.write("out", "") : outputFile_;
    const auto err = kept.write("err", "");
    const pid_t child = fork();
    if (child == 0) {
        redirect(STDIN_FILENO, in, O_RDONLY);
        redirect(STDOUT_FILENO, out, O_WRONLY);
        redirect(STDERR_FILENO, err, O_WRONLY);
        become(arguments);
    }
    Outcome outcome;
    wait(child, outcome);
    if (outputFile_.empty()) outcome.out = testing_support::bytesOf(out);
    outcome.err = testing_support::bytesOf(err);
    return outcome;
}

Outcome ModelHostRun::runAndSignal(const std::vector<std::string>& arguments, int signal,
                                   std::chrono::milliseconds after) const {
    const pid_t child = fork();
    if (child == 0) {
        redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
        become(arguments);
    }
    std::this_thread::sleep_for(after);
    kill(child, signal);
    Outcome outcome;
    wait(child, outcome);
    return outcome;
}

Outcome ModelHostRun::runOnTerminal(const std::vector<std::string>& arguments, int columns,
                                    std::optional<std::chrono::milliseconds> stopAfter) const {
    winsize size{};
    size.ws_row = 50;
    size.ws_col = static_cast<unsigned short>(columns);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) become(arguments);
    if (stopAfter) {
        std::this_thread::sleep_for(*stopAfter);
        kill(child, SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(1100));
        kill(child, SIGCONT);
    }
    Outcome outcome;
    outcome.out = readAll(terminal);
    wait(child, outcome);
    close(terminal);
    return outcome;
}

ScriptedHost::ScriptedHost(const ModelHostRun& run, const std::string& model, const std::vector<std::string>& options) {
    int in[2], out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipes");
    child_ = fork();
    if (child_ == 0) {
        if (dup2(in[0], STDIN_FILENO) < 0 || dup2(out[1], STDOUT_FILENO) < 0) _exit(CouldNotStart);
        std::vector<std::string> arguments{"script", model, "-"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        run.become(arguments);
    }
    close(in[0]);
    close(out[1]);
    steps_ = in[1];
    answers_ = out[0];
}

ScriptedHost::~ScriptedHost() {
    if (child_ > 0) finish();
    close(answers_);
}

std::string ScriptedHost::perform(const std::string& step) {
    const std::string line = step + "\n";
    if (write(steps_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) return {};
    std::string answer;
    for (char byte = 0; read(answers_, &byte, 1) == 1 && byte != '\n';) answer += byte;
    return answer;
}

int ScriptedHost::finish() {
    close(steps_);
    Outcome outcome;
    wait(child_, outcome);
    child_ = -1;
    return outcome.status;
}

}  // namespace console_tests
