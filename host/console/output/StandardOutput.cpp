#include "console/output/StandardOutput.hpp"

#include "console/Failure.hpp"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace console {
namespace {

constexpr int WidthOfAnUnknownTerminal = 80;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// COLUMNS also sets the width of what goes into a pipe or a file.
int widthOf(int descriptor, bool terminal) {
    const int columns = std::atoi(environment("COLUMNS").c_str());
    if (columns > 0) return columns;
    if (!terminal) return 0;
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return WidthOfAnUnknownTerminal;
}

Terminal describe(int descriptor) {
    Terminal terminal;
    terminal.present = isatty(descriptor) == 1;
    terminal.colour = terminal.present && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
    terminal.width = widthOf(descriptor, terminal.present);
    return terminal;
}

[[noreturn]] void failWriting() {
    throw Failure(fmt::format("cannot write the result to standard output: {}; send it where there is room",
                              std::strerror(errno)));
}

}  // namespace

Terminal Terminal::standardOutput() {
    return describe(STDOUT_FILENO);
}

Terminal Terminal::standardError() {
    return describe(STDERR_FILENO);
}

void print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) failWriting();
}

void flushStandardOutput() {
    if (std::fflush(stdout) != 0) failWriting();
}

}  // namespace console
