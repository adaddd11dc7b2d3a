#include "desktop/plan/PlanDrawing.hpp"

#include "desktop/plan/PlanPainter.hpp"

#include <QElapsedTimer>
#include <QPainter>
#include <utility>

namespace desktop {

namespace {

/// Footprints between two looks at the clock.
constexpr std::size_t piece = 64;

}  // namespace

void PlanDrawing::start(const PlanViewport& port, qreal pixelRatio, const QPalette& palette, const QColor& paper,
                        std::vector<Item> wanted) {
    pending = QImage((port.size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    pending.setDevicePixelRatio(pixelRatio);
    pending.fill(paper);
    pendingPort = port;
    colors = palette;
    items = std::move(wanted);
    next = 0;
}

bool PlanDrawing::draw(qint64 milliseconds) {
    if (pending.isNull()) return true;
    QElapsedTimer clock;
    clock.start();
    {
        QPainter painter(&pending);
        painter.setRenderHint(QPainter::Antialiasing);
        PlanPainter plan(painter, pendingPort, colors);
        while (next < items.size()) {
            const std::size_t end = std::min(items.size(), next + piece);
            for (; next < end; ++next) plan.draw(*items[next].footprint, items[next].mark);
            if (clock.elapsed() >= milliseconds) break;
        }
    }
    if (next < items.size()) return false;
    picture = std::exchange(pending, {});
    picturePort = pendingPort;
    items.clear();
    next = 0;
    return true;
}

void PlanDrawing::clear() {
    pending = picture = {};
    items.clear();
    next = 0;
}

void PlanDrawing::paint(QPainter& painter, const PlanViewport& now) const {
    if (picture.isNull()) return;
    if (picturePort == now) {
        painter.drawImage(QPointF(0, 0), picture);
    } else {
        painter.drawImage(now.toScreen(picturePort.visible()), picture, QRectF(picture.rect()));
    }
}

}  // namespace desktop
