#include "console/output/StandardOutput.hpp"

#include "console/Failure.hpp"
#include "console/output/Pager.hpp"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

namespace console {
namespace {

constexpr int WidthOfAnUnknownTerminal = 80;

ResultStyle chosen;
std::optional<Pager> pager;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// COLUMNS also sets the width of what goes into a pipe or a file.
int widthOf(const winsize& size, bool terminal) {
    const int columns = std::atoi(environment("COLUMNS").c_str());
    if (columns > 0) return columns;
    if (!terminal) return 0;
    return size.ws_col > 0 ? size.ws_col : WidthOfAnUnknownTerminal;
}

bool coloured(bool terminal) {
    if (chosen.colour != Colour::Auto) return chosen.colour == Colour::Always;
    return terminal && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

Terminal describe(int descriptor) {
    Terminal terminal;
    terminal.present = isatty(descriptor) == 1;
    terminal.colour = coloured(terminal.present);
    winsize size{};
    if (terminal.present && ioctl(descriptor, TIOCGWINSZ, &size) != 0) size = {};
    terminal.width = widthOf(size, terminal.present);
    terminal.height = size.ws_row;
    return terminal;
}

[[noreturn]] void failWriting() {
    throw Failure(fmt::format("cannot write the result to standard output: {}; send it where there is room",
                              std::strerror(errno)));
}

void write(std::string_view text, std::FILE* file) {
    if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) failWriting();
}

void printPlainly(std::string_view text) {
    write(text, chosen.onErrorsSide ? stderr : stdout);
}

}  // namespace

void setResultStyle(const ResultStyle& style) {
    chosen = style;
}

Terminal Terminal::standardOutput() {
    Terminal terminal = describe(chosen.onErrorsSide ? STDERR_FILENO : STDOUT_FILENO);
    if (chosen.wide) terminal.width = 0;
    return terminal;
}

Terminal Terminal::standardError() {
    return describe(STDERR_FILENO);
}

void startPaging(bool wide) {
    const Terminal terminal = Terminal::standardOutput();
    if (chosen.onErrorsSide || !terminal.present || terminal.height == 0) return;
    if (const auto command = Pager::command()) pager.emplace(*command, terminal.height, wide);
}

void keepResults(bool colour) {
    // The pager is that process's.
    pager.reset();
    chosen.colour = colour ? Colour::Always : Colour::Never;
}

void print(std::string_view text) {
    if (pager) {
        pager->print(text);
    } else {
        printPlainly(text);
    }
}

void printModel(std::string_view bytes) {
    write(bytes, stdout);
}

void endPaging() noexcept {
    if (!pager) return;
    const std::string rest = pager->finish();
    pager.reset();
    // Where it cannot be written, the last flush tells.
    std::fwrite(rest.data(), 1, rest.size(), stdout);
}

void flushStandardOutput() {
    endPaging();
    if (std::fflush(stdout) != 0) failWriting();
}

}  // namespace console
