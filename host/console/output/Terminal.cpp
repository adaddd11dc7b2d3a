#include "console/output/Terminal.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace console {
namespace {

constexpr int WidthOfAnUnknownTerminal = 80;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// COLUMNS, where it is set, counts for pipes too: it is the way to ask for a narrow table in a file.
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

}  // namespace

Terminal Terminal::standardOutput() {
    return describe(STDOUT_FILENO);
}

Terminal Terminal::standardError() {
    return describe(STDERR_FILENO);
}

}  // namespace console
