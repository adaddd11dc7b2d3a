#include "desktop/WaitCursor.hpp"

#include <QCursor>
#include <QGuiApplication>
#include <utility>

namespace desktop {

int WaitCursor::depth = 0;

WaitCursor::WaitCursor() {
    if (depth++ == 0) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    if (--depth == 0) QGuiApplication::restoreOverrideCursor();
}

WaitCursor::Pause::Pause() : held_(std::exchange(depth, 0)) {
    if (held_) QGuiApplication::restoreOverrideCursor();
}

WaitCursor::Pause::~Pause() {
    depth = held_;
    if (held_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

}  // namespace desktop
