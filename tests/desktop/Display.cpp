#include "Display.hpp"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace desktop_tests {

namespace {

bool started = false;

/// Runs in the child. The server picks a free number and writes it to `answer`.
[[noreturn]] void becomeServer(int answer) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const std::string descriptor = std::to_string(answer);
    const char* wanted = std::getenv(Display::SizeVariable);
    const std::string screen = std::string(wanted ? wanted : "1600x1000") + "x24";
    execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", screen.c_str(), "-nolisten", "tcp",
           "-noreset", static_cast<char*>(nullptr));
    _exit(127);
}

/// @return what the server wrote up to the line end; empty where it ended without.
std::string readLine(int descriptor) {
    std::string line;
    char c = 0;
    while (read(descriptor, &c, 1) == 1 && c != '\n') line += c;
    return c == '\n' ? line : std::string();
}

}  // namespace

bool Display::available() {
    return started;
}

Display::Display() {
    int ends[2];
    if (pipe(ends) == 0) {
        server_ = fork();
        if (server_ == 0) becomeServer(ends[1]);
        close(ends[1]);
        name_ = readLine(ends[0]);
        close(ends[0]);
    }
    started = !name_.empty();
    unsetenv("WAYLAND_DISPLAY");
    setenv("DISPLAY", (":" + name_).c_str(), 1);
    setenv("QT_QPA_PLATFORM", started ? "xcb" : "offscreen", 1);
}

Display::~Display() {
    if (server_ <= 0) return;
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
}

}  // namespace desktop_tests
