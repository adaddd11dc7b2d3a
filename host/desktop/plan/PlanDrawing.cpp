#include "desktop/plan/PlanDrawing.hpp"

#include "desktop/plan/PlanPainter.hpp"

#include <QElapsedTimer>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

/// Items between two looks at the clock.
constexpr std::size_t Piece = 64;

constexpr std::size_t FewShapes = 100;

bool isTooSmall(const Footprint& footprint, const PlanViewport& viewport) {
    constexpr double LeastSeen = 4;
    const QRectF box = viewport.toScreen(footprint.box);
    return !footprint.rings.isEmpty() && std::max(box.width(), box.height()) < LeastSeen;
}

template <class... Visits>
struct Each : Visits... {
    using Visits::operator()...;
};
template <class... Visits>
Each(Visits...) -> Each<Visits...>;

}  // namespace

std::vector<PlanItem> buildingItems(const PlanGeometry& geometry, const PlanViewport& viewport) {
    std::vector<PlanItem> items, labels;
    geometry.forEach([&](const Footprint& footprint) {
        if (!inSight(footprint, viewport)) return;
        items.push_back({PlanItem::Shape{&footprint, Mark::None}});
        const bool written = footprint.kind == model::PlanKind::Grid ||
                             (footprint.kind == model::PlanKind::Room && !geometry.severalStoreys());
        const PlanLabel* label = written ? geometry.label(footprint.element) : nullptr;
        if (label) labels.push_back({PlanItem::Label{&footprint, label}});
    });
    if (items.size() <= FewShapes) {
        for (PlanItem& item : items) {
            const Footprint* footprint = std::get<PlanItem::Shape>(item.what).footprint;
            if (isTooSmall(*footprint, viewport)) item.what = PlanItem::Dot{footprint};
        }
    }
    items.insert(items.end(), labels.begin(), labels.end());
    return items;
}

std::vector<PlanItem> markItems(const PlanGeometry& geometry, const PlanMarks* marks, const PlanViewport& viewport) {
    std::vector<std::pair<const Footprint*, Mark>> marked;
    if (!marks) return {};
    geometry.forEach([&](const Footprint& footprint) {
        const Mark mark = marks->of(footprint.element);
        if (mark != Mark::None && inSight(footprint, viewport)) marked.emplace_back(&footprint, mark);
    });
    std::sort(marked.begin(), marked.end(), [](const auto& a, const auto& b) {
        if (a.second != b.second) return a.second < b.second;
        if (a.first->area != b.first->area) return a.first->area > b.first->area;
        return a.first->element < b.first->element;
    });
    std::vector<PlanItem> items;
    for (const auto& [footprint, mark] : marked) {
        const QRectF box = viewport.toScreen(footprint->box);
        if (std::max(box.width(), box.height()) >= LeastMark) items.push_back({PlanItem::Shape{footprint, mark}});
    }
    for (const PlanSign& sign : gatheredSigns(marked, viewport)) items.push_back({sign});
    return items;
}

void drawItem(QPainter& painter, PlanPainter& plan, const PlanViewport& viewport, const QPalette& palette,
              const PlanItem& item) {
    std::visit(Each{[&](const PlanItem::Shape& shape) { plan.draw(*shape.footprint, shape.mark); },
                    [&](const PlanItem::Dot& dot) { plan.drawDot(*dot.footprint); },
                    [&](const PlanItem::Label& label) { plan.drawLabel(*label.footprint, *label.label); },
                    [&](const PlanSign& sign) { drawSign(painter, viewport, palette, sign); }},
               item.what);
}

void PlanDrawing::start(const PlanViewport& viewport, const Paper& paper, std::vector<PlanItem> items) {
    pending_ = QImage((viewport.size * paper.pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    pending_.setDevicePixelRatio(paper.pixelRatio);
    pending_.fill(paper.color);
    pendingViewport_ = viewport;
    paper_ = paper;
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
        painter.setFont(paper_.font);
        PlanPainter plan(painter, pendingViewport_, paper_.palette);
        while (next_ < items_.size()) {
            const std::size_t end = std::min(items_.size(), next_ + Piece);
            for (; next_ < end; ++next_) drawItem(painter, plan, pendingViewport_, paper_.palette, items_[next_]);
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
