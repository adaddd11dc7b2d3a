#include "console/output/Pager.hpp"

#include "console/Failure.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace console {
namespace {

bool isProgram(const std::string& path) {
    return access(path.c_str(), X_OK) == 0;
}

/// By the shell's rules; one that is not there would swallow the text.
bool canBeFound(const std::string& program) {
    if (program.find('/') != std::string::npos) return isProgram(program);
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');)
        if (isProgram(folder + "/" + program)) return true;
    return false;
}

}  // namespace

std::optional<std::string> Pager::command() {
    const char* named = std::getenv("PAGER");
    const std::string command = named == nullptr ? "less" : named;
    std::string program;
    std::istringstream(command) >> program;
    if (program.empty() || program == "cat" || !canBeFound(program)) return std::nullopt;
    return command;
}

Pager::Pager(std::string command, int height, bool wide)
    : command_(std::move(command)), wide_(wide), linesLeft_(static_cast<std::size_t>(height)) {}

Pager::~Pager() {
    wait();
}

void Pager::print(std::string_view text) {
    if (process_ > 0) return hand(text);
    kept_ += text;
    // The shell's prompt takes the last line.
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    linesLeft_ -= std::min(lines, linesLeft_);
    if (linesLeft_ > 0) return;
    start();
    hand(kept_);
    kept_.clear();
}

std::string Pager::finish() {
    wait();
    return std::move(kept_);
}

void Pager::start() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw Failure(fmt::format("cannot start the pager: {}", std::strerror(errno)));
    std::fflush(nullptr);
    process_ = fork();
    if (process_ == 0) {
        // As git does it: colours stay, a text that fits one screen ends the pager at once.
        setenv("LESS", wide_ ? "FRSX" : "FRX", 0);
        dup2(ends[0], STDIN_FILENO);
        execl("/bin/sh", "sh", "-c", command_.c_str(), nullptr);
        _exit(127);
    }
    close(ends[0]);
    pipe_ = ends[1];
    if (process_ < 0) throw Failure(fmt::format("cannot start the pager: {}; add --no-pager", std::strerror(errno)));
    // Ctrl-C stops a search in the pager, and the end of its input is told by a write that fails.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

void Pager::hand(std::string_view text) {
    while (pipe_ >= 0 && !text.empty()) {
        const ssize_t count = write(pipe_, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            close(pipe_);
            pipe_ = -1;
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

void Pager::wait() {
    if (pipe_ >= 0) close(pipe_);
    pipe_ = -1;
    if (process_ <= 0) return;
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace console
