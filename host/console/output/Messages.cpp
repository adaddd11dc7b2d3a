#include "console/output/Messages.hpp"

#include "console/output/StandardOutput.hpp"
#include "console/output/TerminalText.hpp"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdio>

namespace console {
namespace {

constexpr double Delay = 1.0;     ///< Seconds before the progress line appears.
constexpr double Interval = 0.1;  ///< Seconds between two updates of it.

bool quiet = false;

/// The terminal's last line holds progress, which a message must erase first.
bool progressShown = false;

double now() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

void wipeProgress() {
    if (!progressShown) return;
    write("\r\x1B[K");
    progressShown = false;
}

std::string duration(double seconds) {
    const auto whole = std::lround(seconds);
    return whole < 120 ? fmt::format("{} s", whole) : fmt::format("{} min", (whole + 30) / 60);
}

}  // namespace

void beQuiet() {
    quiet = true;
}

void say(std::string_view message) {
    if (!quiet) complain(message);
}

void complain(std::string_view message) {
    endPaging();
    wipeProgress();
    write(fmt::format("modelhost: {}\n", visible(message)));
}

void sayMemoryIsOut() noexcept {
    wipeProgress();
    write("modelhost: there is not enough memory for this model; close other programs or use a larger machine\n");
}

ProgressLine::ProgressLine(std::string_view operation)
    : operation_(visible(operation)), started_(now()), terminal_(Terminal::standardError().present) {}

ProgressLine::~ProgressLine() {
    wipeProgress();
}

void ProgressLine::show(std::uint64_t done, std::uint64_t total) {
    if (!terminal_ || quiet || total == 0) return;
    const double time = now();
    if (time - started_ < Delay || time - lastShown_ < Interval) return;
    lastShown_ = time;
    const double share = done < total ? static_cast<double>(done) / static_cast<double>(total) : 1.0;
    std::string line = fmt::format("{}  {:.0f} %", operation_, share * 100.0);
    if (share > 0.0) line += fmt::format("  {} left", duration((time - started_) * (1.0 - share) / share));
    write(fmt::format("\r\x1B[K{}", cutToWidth(line, Terminal::standardError().width - 1)));
    progressShown = true;
}

model::Progress ProgressLine::callback() {
    return [this](std::uint64_t done, std::uint64_t total) {
        show(done, total);
        return true;
    };
}

}  // namespace console
