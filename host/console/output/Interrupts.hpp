#pragma once
// Ctrl-C while a file is being written.

#include "model/base/Progress.hpp"

namespace console {

/// While one lives, an interrupt (also a termination request or a hang-up) does not end the program at once: it is
/// noted, so that the writing can be cancelled and no temporary file stays behind. Elsewhere an interrupt ends the
/// program as usual: nothing is half done then. At most one at a time.
class InterruptGuard {
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    static bool interrupted();
    /// `progress`, and cancelled once an interrupt came.
    static model::Progress cancelling(model::Progress progress);
    /// Ends the program by the signal that came, as its starter expects of an interrupted program. Without one returns.
    static void dieIfInterrupted();
};

}  // namespace console
