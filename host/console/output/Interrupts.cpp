#include "console/output/Interrupts.hpp"

#include <array>
#include <csignal>
#include <utility>

namespace console {
namespace {

constexpr std::array Signals{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t signalSeen = 0;
std::array<struct sigaction, Signals.size()> previous;

extern "C" void noteSignal(int number) {
    signalSeen = number;
}

}  // namespace

InterruptGuard::InterruptGuard() {
    struct sigaction action {};
    action.sa_handler = noteSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals[i], nullptr, &previous[i]);
        // A signal that the starter had us ignore (nohup) stays ignored.
        if (previous[i].sa_handler != SIG_IGN) sigaction(Signals[i], &action, nullptr);
    }
}

InterruptGuard::~InterruptGuard() {
    for (std::size_t i = 0; i < Signals.size(); ++i) sigaction(Signals[i], &previous[i], nullptr);
}

bool InterruptGuard::interrupted() {
    return signalSeen != 0;
}

model::Progress InterruptGuard::cancelling(model::Progress progress) {
    return [progress = std::move(progress)](std::uint64_t done, std::uint64_t total) {
        return (!progress || progress(done, total)) && !interrupted();
    };
}

void InterruptGuard::dieIfInterrupted() {
    if (!interrupted()) return;
    std::signal(signalSeen, SIG_DFL);
    std::raise(signalSeen);
}

}  // namespace console
