#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace model {

/// Called now and then during a long operation, at most some ten times a second, on the thread that runs it.
/// @param done, total  bytes. @return false to cancel: the operation ends with an error and leaves no trace.
using Progress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// Keeps the calls of a Progress rare, however often the work reports.
class Throttle {
public:
    /// @param function  may be null; not copied, so it outlives the Throttle.
    explicit Throttle(const Progress& function) : progress_(function), last_(Clock::now()) {}

    /// @return false where the operation is to be cancelled.
    bool report(std::uint64_t done, std::uint64_t total) {
        if (!progress_) return true;
        const Clock::time_point now = Clock::now();
        if (now - last_ < std::chrono::milliseconds(100)) return true;
        last_ = now;
        return progress_(done, total);
    }

private:
    using Clock = std::chrono::steady_clock;

    const Progress& progress_;
    Clock::time_point last_;
};

}  // namespace model
