#include "desktop/plan/PlanGeometry.hpp"

#include "desktop/QtText.hpp"

#include <QElapsedTimer>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace desktop {

namespace {

using model::PlanKind;

/// How long reading may hold up other events: short enough for a smooth scroll.
constexpr qint64 SliceMs = 8;
/// How high above its floor a storey is cut, in metres: above sills, below lintels.
constexpr double CutHeight = 1.2;

/// Holes go the other way round, and count as less.
double areaOf(const QList<QPolygonF>& rings) {
    double twice = 0;
    for (const QPolygonF& ring : rings) {
        for (qsizetype i = 0; i < ring.size(); ++i) {
            // From one corner on: far from the origin the products would lose what the area is about.
            const QPointF a = ring[i] - ring[0], b = ring[(i + 1) % ring.size()] - ring[0];
            twice += a.x() * b.y() - b.x() * a.y();
        }
    }
    return std::abs(twice) / 2;
}

/// Not by uniting boxes: Qt takes that of a line for none.
QRectF boxOf(const Footprint& footprint) {
    QPolygonF all;
    for (const QPolygonF& ring : footprint.rings) all << ring;
    for (const QPolygonF& line : footprint.lines) all << line;
    return all.boundingRect();
}

QList<QPolygonF> polygons(const std::vector<std::vector<model::Point>>& lines) {
    QList<QPolygonF> all;
    for (const auto& corners : lines) {
        QPolygonF polygon;
        polygon.reserve(static_cast<qsizetype>(corners.size()));
        for (const model::Point& corner : corners) polygon << QPointF(corner.x, corner.y);
        all << polygon;
    }
    return all;
}

/// What has no shape has no place in a plan, either: the origin of a storey is no place in it.
bool isShapeOnly(PlanKind kind) {
    return kind == PlanKind::Terrain || kind == PlanKind::Annotation || kind == PlanKind::Grid;
}

}  // namespace

PlanGeometry::PlanGeometry(QObject* parent) : QObject(parent) {
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &PlanGeometry::readSome);
}

void PlanGeometry::setSource(const model::Model* model, const ElementIndex* index) {
    Q_EMIT clearing();
    timer_.stop();
    model_ = model;
    index_ = index;
    shown_.clear();
    partAt_.clear();
    parts_.clear();
    byElement_.clear();
    labels_.clear();
    metresPerUnit_.reset();
    trueNorth_.reset();
    if (!index_) return;
    metresPerUnit_ = model_->metresPerUnit();
    if (const auto north = model_->trueNorth()) trueNorth_ = QPointF(north->x, north->y);
    sortElements();
}

void PlanGeometry::sortElements() {
    byElement_.resize(index_->size());
    partAt_.resize(index_->storeys().size() * model::PlanKindCount);
    for (model::Element element = 0; element < index_->size(); ++element) {
        const PlanKind kind = model_->planKind(element);
        Part*& at = partAt_[index_->storey(element) * model::PlanKindCount + static_cast<std::size_t>(kind)];
        if (!at) {
            at = &parts_.emplace_back();
            at->storey = index_->storey(element);
            at->kind = kind;
        }
        at->elements.push_back(element);
    }
}

PlanGeometry::Part* PlanGeometry::part(std::uint32_t storey, PlanKind kind) {
    return partAt_[storey * model::PlanKindCount + static_cast<std::size_t>(kind)];
}

void PlanGeometry::request(const std::vector<std::uint32_t>& storeys, const PlanLayers& layers) {
    for (Part* part : shown_) part->shown = false;
    shown_.clear();
    severalStoreys_ = storeys.size() > 1;
    if (!index_) return;
    const auto show = [&](std::uint32_t storey, PlanKind kind) {
        Part* wanted = layers.shows(kind) ? part(storey, kind) : nullptr;
        if (!wanted || wanted->shown) return;
        wanted->shown = true;
        shown_.push_back(wanted);
    };
    const auto showOfNoStorey = [&](PlanKind kind) {
        for (std::uint32_t i = 0; i < index_->storeys().size() && !storeys.empty(); ++i) {
            if (index_->storeys()[i].name.isEmpty()) show(i, kind);
        }
    };
    showOfNoStorey(PlanKind::Terrain);
    // Kind by kind: of several storeys, the floor of one must not hide what stands on the one below.
    for (std::size_t kind = 0; kind < model::PlanKindCount; ++kind) {
        for (const std::uint32_t storey : storeys) show(storey, static_cast<PlanKind>(kind));
    }
    showOfNoStorey(PlanKind::Grid);
    if (!complete()) timer_.start();
}

bool PlanGeometry::complete() const {
    return std::all_of(shown_.begin(), shown_.end(), [](const Part* part) { return part->complete(); });
}

std::size_t PlanGeometry::unplaced() const {
    return std::accumulate(shown_.begin(), shown_.end(), std::size_t{0},
                           [](std::size_t sum, const Part* part) { return sum + part->unplaced; });
}

const Footprint* PlanGeometry::find(model::Element element) const {
    if (element >= byElement_.size()) return nullptr;
    const auto& [part, footprint] = byElement_[element];
    return part && part->shown ? footprint : nullptr;
}

const PlanLabel* PlanGeometry::label(model::Element element) const {
    const auto found = labels_.find(element);
    return found == labels_.end() ? nullptr : &found->second;
}

void PlanGeometry::readSome() {
    QElapsedTimer clock;
    clock.start();
    for (Part* part : shown_) {
        while (!part->complete() && clock.elapsed() < SliceMs) readNext(*part);
    }
    if (complete()) timer_.stop();
    Q_EMIT grown();
}

void PlanGeometry::finish() {
    for (Part* part : shown_) {
        while (!part->complete()) readNext(*part);
    }
}

void PlanGeometry::readNext(Part& part) {
    Footprint footprint;
    footprint.element = part.elements[part.done++];
    footprint.kind = part.kind;
    const model::PlanOutline outline = model_->outline(footprint.element);
    footprint.rings = polygons(outline.rings);
    footprint.lines = polygons(outline.lines);
    if (footprint.rings.isEmpty() && footprint.lines.isEmpty()) {
        if (isShapeOnly(part.kind)) return;
        const auto origin = model_->placement(footprint.element);
        if (!origin || !std::isfinite(origin->x) || !std::isfinite(origin->y)) {
            ++part.unplaced;
            return;
        }
        footprint.rings << QPolygonF({QPointF(origin->x, origin->y)});
    }
    footprint.cut = isCut(part, outline);
    footprint.box = boxOf(footprint);
    footprint.area = areaOf(footprint.rings);
    part.footprints.push_back(std::move(footprint));
    const Footprint& kept = part.footprints.back();
    byElement_[kept.element] = {&part, &kept};
    addLabel(kept);
}

/// A parapet ends below the height where a plan is cut, and a beam begins above it.
bool PlanGeometry::isCut(const Part& part, const model::PlanOutline& outline) const {
    if (part.kind != PlanKind::Structure) return false;
    const auto floor = index_->storeys()[part.storey].elevation;
    if (!floor || !metresPerUnit_ || !outline.bottom || !outline.top) return true;
    const double height = *floor + CutHeight / *metresPerUnit_;
    return *outline.bottom <= height && height <= *outline.top;
}

void PlanGeometry::addLabel(const Footprint& footprint) {
    if (footprint.kind == PlanKind::Room && !footprint.rings.isEmpty() && footprint.rings.front().size() > 2) {
        placeLabel(labels_[footprint.element], footprint.rings);
    } else if (footprint.kind == PlanKind::Grid) {
        for (const model::GridAxis& axis : model_->gridAxes(footprint.element)) {
            labels_[footprint.element].tags += visible(toQString(axis.tag).left(8));
        }
        return;
    } else {
        return;
    }
    std::optional<double> area;
    if (metresPerUnit_) area = footprint.area * *metresPerUnit_ * *metresPerUnit_;
    setRoomTexts(labels_[footprint.element], model_->room(footprint.element), area);
}

void PlanGeometry::refreshLabels() {
    for (const Part& part : parts_) {
        if (part.kind != PlanKind::Room) continue;
        for (const Footprint& footprint : part.footprints) addLabel(footprint);
    }
}

}  // namespace desktop
