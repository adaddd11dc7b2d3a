#pragma once
// Ctrl-C while a file is being written.

#include "model/base/Progress.hpp"

namespace console {

/// While a guard exists, SIGINT, SIGTERM and SIGHUP do not end the program at once. They are noted, so that the writing
/// can be cancelled and no temporary file stays behind. Without a guard they end the program as usual: nothing is half
/// done then. At most one guard at a time.
class InterruptGuard {
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    static bool interrupted();
    /// `progress`, and cancelled once an interrupt came.
    static model::Progress cancelling(model::Progress progress);
    /// Ends the program by the signal that came, so that a shell sees an interrupted program. Returns if there was
    /// none.
    static void dieIfInterrupted();
};

}  // namespace console
