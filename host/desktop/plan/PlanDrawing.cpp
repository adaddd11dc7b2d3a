#include "desktop/plan/PlanDrawing.hpp"

#include "desktop/plan/PlanPainter.hpp"

#include <QElapsedTimer>
#include <QPainter>
#include <utility>

namespace desktop {

namespace {

/// Footprints between two looks at the clock.
constexpr std::size_t Piece = 64;

}  // namespace

void PlanDrawing::start(const PlanViewport& viewport, qreal pixelRatio, const QPalette& palette, const QColor& paper,
                        std::vector<Item> items) {
    pending_ = QImage((viewport.size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    pending_.setDevicePixelRatio(pixelRatio);
    pending_.fill(paper);
    pendingViewport_ = viewport;
    palette_ = palette;
    items_ = std::move(items);
    next_ = 0;
}

bool PlanDrawing::draw(qint64 milliseconds) {
    if (pending_.isNull()) return true;
    QElapsedTimer clock;
    clock.start();
    {
        QPainter painter(&pending_);
        painter.setRenderHint(QPainter::Antialiasing);
        PlanPainter plan(painter, pendingViewport_, palette_);
        while (next_ < items_.size()) {
            const std::size_t end = std::min(items_.size(), next_ + Piece);
            for (; next_ < end; ++next_) plan.draw(*items_[next_].footprint, items_[next_].mark);
            if (clock.elapsed() >= milliseconds) break;
        }
    }
    if (next_ < items_.size()) return false;
    picture_ = std::exchange(pending_, {});
    pictureViewport_ = pendingViewport_;
    items_.clear();
    next_ = 0;
    return true;
}

void PlanDrawing::clear() {
    pending_ = picture_ = {};
    items_.clear();
    next_ = 0;
}

void PlanDrawing::paint(QPainter& painter, const PlanViewport& now) const {
    if (picture_.isNull()) return;
    if (pictureViewport_ == now) {
        painter.drawImage(QPointF(0, 0), picture_);
    } else {
        // Zoomed or moved since: a stretched picture now is better than a sharp one in a second.
        painter.drawImage(now.toScreen(pictureViewport_.visible()), picture_, QRectF(picture_.rect()));
    }
}

}  // namespace desktop
