#include "desktop/plan/PlanGeometry.hpp"

#include "model/base/ElementTypeIds.hpp"

#include <QElapsedTimer>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

/// How long reading may hold up other events: short enough for a smooth scroll.
constexpr qint64 SliceMs = 8;

/// Holes go the other way round, and count as less.
double areaOf(const QList<QPolygonF>& rings) {
    double twice = 0;
    for (const QPolygonF& ring : rings) {
        for (qsizetype i = 0; i < ring.size(); ++i) {
            const QPointF a = ring[i], b = ring[(i + 1) % ring.size()];
            twice += a.x() * b.y() - b.x() * a.y();
        }
    }
    return std::abs(twice) / 2;
}

/// Not by uniting boxes: Qt takes that of a line for none.
QRectF boxOf(const QList<QPolygonF>& rings) {
    QPolygonF all;
    for (const QPolygonF& ring : rings) all << ring;
    return all.boundingRect();
}

/// An opening has the outline of its window or door, and would only hide it. Of an annotation, a line of dimensions for
/// one, no more than the area around it is known.
bool isDrawn(const ElementIndex& index, model::Element element) {
    return index.typeId(element) != model::ElementTypeIds::Opening &&
           index.ifcClass(element) != QStringLiteral("IfcAnnotation");
}

}  // namespace

PlanLayer planLayer(std::int32_t typeId) {
    using Type = model::ElementTypeIds;
    switch (typeId) {
        case Type::Mesh:
        case Type::Site:
        case Type::Building:
        case Type::Storey:
            return PlanLayer::Ground;
        case Type::Zone:
            return PlanLayer::Zone;
        case Type::Slab:
        case Type::Roof:
            return PlanLayer::Floor;
        case Type::Wall:
        case Type::Column:
        case Type::CurtainWall:
            return PlanLayer::Structure;
        case Type::Window:
        case Type::Door:
            return PlanLayer::Filling;
        default:
            return PlanLayer::Object;
    }
}

PlanGeometry::PlanGeometry(QObject* parent) : QObject(parent) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &PlanGeometry::readSome);
}

void PlanGeometry::setSource(const model::Model* model, const ElementIndex* index) {
    Q_EMIT clearing();
    timer_.stop();
    model_ = model;
    index_ = index;
    wanted_.clear();
    storeys_.clear();
    byElement_.clear();
    if (!index_) return;
    byElement_.resize(index_->size());
    storeys_.resize(index_->storeys().size());
    for (model::Element element = 0; element < index_->size(); ++element) {
        if (isDrawn(*index_, element)) storeys_[index_->storey(element)].elements.push_back(element);
    }
    for (Storey& storey : storeys_) {
        std::stable_sort(storey.elements.begin(), storey.elements.end(), [&](model::Element a, model::Element b) {
            return planLayer(index_->typeId(a)) < planLayer(index_->typeId(b));
        });
    }
}

void PlanGeometry::request(const std::vector<std::uint32_t>& storeys) {
    wanted_ = storeys;
    if (!complete(wanted_)) timer_.start();
}

bool PlanGeometry::complete(const std::vector<std::uint32_t>& storeys) const {
    return std::all_of(storeys.begin(), storeys.end(),
                       [&](std::uint32_t number) { return storeys_[number].complete(); });
}

const Footprint* PlanGeometry::find(model::Element element) const {
    return element < byElement_.size() ? byElement_[element] : nullptr;
}

void PlanGeometry::readSome() {
    QElapsedTimer clock;
    clock.start();
    for (const std::uint32_t number : wanted_) {
        while (!storeys_[number].complete() && clock.elapsed() < SliceMs) readNext(storeys_[number]);
    }
    if (complete(wanted_)) timer_.stop();
    Q_EMIT grown();
}

void PlanGeometry::readNext(Storey& storey) {
    Footprint footprint;
    footprint.element = storey.elements[storey.done++];
    footprint.layer = planLayer(index_->typeId(footprint.element));
    for (const auto& corners : model_->outline(footprint.element).rings) {
        QPolygonF ring;
        ring.reserve(static_cast<qsizetype>(corners.size()));
        for (const model::Point& corner : corners) ring << QPointF(corner.x, corner.y);
        footprint.rings << ring;
    }
    if (footprint.rings.isEmpty()) {
        // A building or storey has an origin, which is no place in it.
        const auto origin = model_->placement(footprint.element);
        if (!origin || footprint.layer == PlanLayer::Ground) return;
        footprint.rings << QPolygonF({QPointF(origin->x, origin->y)});
    }
    footprint.box = boxOf(footprint.rings);
    footprint.area = areaOf(footprint.rings);
    // A deque: drawings under way hold pointers to footprints while more of them come in.
    storey.footprints.push_back(std::move(footprint));
    byElement_[storey.footprints.back().element] = &storey.footprints.back();
}

}  // namespace desktop
