#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <utility>

namespace desktop {

/// The busy cursor, while something may take a moment. They may be nested: the outermost counts.
class WaitCursor {
public:
    WaitCursor() {
        if (depth_++ == 0) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitCursor() {
        if (--depth_ == 0) QGuiApplication::restoreOverrideCursor();
    }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    /// The user is asked something in the middle of it: the usual cursors until the question is answered.
    class Pause {
    public:
        Pause() : heldDepth_(std::exchange(depth_, 0)) {
            if (heldDepth_) QGuiApplication::restoreOverrideCursor();
        }
        ~Pause() {
            depth_ = heldDepth_;
            if (heldDepth_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        int heldDepth_;
    };

private:
    inline static int depth_ = 0;
};

}  // namespace desktop
