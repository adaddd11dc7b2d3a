#pragma once

namespace desktop {

/// The busy cursor, while something may take a moment.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    /// The user is asked something in the midst of it: the usual cursors until the question is answered.
    class Pause {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        int held_;
    };

private:
    static int depth;
};

}  // namespace desktop
