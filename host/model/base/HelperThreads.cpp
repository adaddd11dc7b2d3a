#include "model/base/HelperThreads.hpp"

#include <algorithm>
#include <csignal>
#include <exception>

namespace model {

namespace {

/// More would wait for memory, not for each other.
constexpr unsigned MostHelpers = 7;

class NoSignals {
public:
    NoSignals() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;
    ~NoSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

}  // namespace

unsigned spareCores() {
    const unsigned cores = std::thread::hardware_concurrency();
    return cores == 0 ? 0 : std::min(cores - 1, MostHelpers);
}

void HelperThreads::start(unsigned count, const std::function<void()>& work) {
    const NoSignals noSignals;
    threads_.reserve(count);
    try {
        for (unsigned i = 0; i < count; ++i) threads_.emplace_back(work);
    } catch (const std::exception&) {
        // No more threads, or no memory for one. Who asked for help does the rest of the work, and has to get to where
        // those that were started are told to end.
    }
}

void HelperThreads::join() {
    for (std::thread& thread : threads_) thread.join();
    threads_.clear();
}

}  // namespace model
