#include "model/ifc/plan/Lines.hpp"

#include "model/ifc/data/AttributeData.hpp"
#include "model/ifc/geometry/Curves.hpp"

#include <algorithm>
#include <cmath>

namespace model::ifc {

namespace {

using step::Slot;

constexpr std::size_t MostAxes = 2000;
/// Of all lines of an element, which may name one long curve again and again.
constexpr std::size_t MostLinePoints = 60'000;
/// A tower's spiral stair has fewer.
constexpr std::size_t MostHeights = 200;

bool isUsable(const std::vector<Point>& line) {
    return line.size() > 1 && std::all_of(line.begin(), line.end(), [](const Point& point) {
               return std::isfinite(point.x) && std::isfinite(point.y);
           });
}

class LineCollector {
public:
    explicit LineCollector(GeometryReader& reader) : reader_(reader) {}

    void collect(Slot slot, const Frame& frame) {
        constexpr int Deepest = 16;
        step::Instance instance;
        if (depth_ == Deepest || full_ || slot == step::NoSlot || !reader_.read(slot, instance)) return;
        ++depth_;
        collectKind(slot, instance, frame);
        --depth_;
    }

    PlanLines lines;

private:
    void collectKind(Slot slot, const step::Instance& instance, const Frame& frame) {
        const auto is = [&](std::string_view name) { return isOfClass(reader_, slot, name); };
        if (is("IfcCurve")) {
            add(slot, frame);
        } else if (is("IfcRepresentation")) {
            collectAll(targetsOf(reader_, instance, 3), frame);
        } else if (is("IfcGeometricSet")) {
            collectAll(targetsOf(reader_, instance, 0), frame);
        } else if (is("IfcAnnotationFillArea") || is("IfcStyledItem")) {
            collect(targetOf(reader_, instance, 0), frame);
        } else if (is("IfcMappedItem")) {
            if (const auto mapping = mappingOf(reader_, slot))
                collect(mapping->representation, frame.toOuter(mapping->frame));
        }
    }

    void collectAll(const std::vector<Slot>& slots, const Frame& frame) {
        for (const Slot slot : slots) collect(slot, frame);
    }

    void add(Slot curve, const Frame& frame) {
        auto points = curvePoints(reader_, curve);
        if (!points) return;
        if (points->size() > pointsLeft_) {
            full_ = true;
            return;
        }
        for (Point& point : *points) point = frame.toOuter(point);
        if (!isUsable(*points)) return;
        pointsLeft_ -= points->size();
        lines.push_back(std::move(*points));
    }

    GeometryReader& reader_;
    int depth_ = 0;
    bool full_ = false;
    std::size_t pointsLeft_ = MostLinePoints;
};

}  // namespace

PlanLines curvesOf(Workspace& work, Slot element) {
    GeometryReader reader(work);
    const auto geometry = geometryOf(reader, element);
    if (!geometry) return {};
    LineCollector collector(reader);
    for (const Slot representation : geometry->representations) collector.collect(representation, geometry->frame);
    return std::move(collector.lines);
}

std::vector<GridAxis> gridAxesOf(Workspace& work, Slot grid) {
    std::vector<GridAxis> axes;
    step::Instance instance, axis;
    GeometryReader reader(work);
    if (!isOfClass(reader, grid, "IfcGrid") || !reader.read(grid, instance)) return axes;
    const Class& cls = reader.classOf(grid);
    const bool placed = argument(instance, cls, Field::ObjectPlacement).kind != step::ValueKind::Unset;
    const auto frame = placed ? placementOf(reader, grid) : std::optional(Frame{});
    if (!frame) return axes;
    std::size_t pointsLeft = MostLinePoints;
    for (const std::string_view list : {"UAxes", "VAxes", "WAxes"}) {
        const int index = cls.entity->attributeIndex(list);
        if (index < 0) continue;
        for (const Slot slot : targetsOf(reader, instance, static_cast<std::size_t>(index))) {
            if (axes.size() == MostAxes) return axes;
            if (!isOfClass(reader, slot, "IfcGridAxis") || !reader.read(slot, axis)) continue;
            auto points = curvePoints(reader, targetOf(reader, axis, 1));
            if (!points) continue;
            if (points->size() > pointsLeft) return axes;
            pointsLeft -= points->size();
            for (Point& point : *points) point = frame->toOuter(point);
            if (isUsable(*points)) axes.push_back({attributeText(work, slot, "AxisTag"), std::move(*points)});
        }
    }
    return axes;
}

PlanLines stepsOf(const PlanShape& shape) {
    const double tolerance = 1e-4 * (shape.top - shape.bottom);
    std::vector<std::pair<double, const Region*>> level;
    for (const Region& region : shape.regions) {
        double low = shape.top, high = shape.bottom;
        for (const Ring& ring : region) {
            for (const Point& point : ring) {
                low = std::min(low, point.z);
                high = std::max(high, point.z);
            }
        }
        if (high - low <= tolerance) level.emplace_back(low, &region);
    }
    std::stable_sort(level.begin(), level.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    PlanLines lines;
    std::size_t heights = 0;
    for (std::size_t i = 0; i < level.size();) {
        std::vector<Region> together;
        const double height = level[i].first;
        for (; i < level.size() && level[i].first - height <= tolerance; ++i) together.push_back(*level[i].second);
        if (++heights > MostHeights) return {};
        const auto area = PlanArea::of(together);
        const auto rings = area ? area->without({}) : std::nullopt;
        if (!rings) return {};
        for (const Ring& ring : *rings) {
            lines.push_back(ring);
            lines.back().push_back(ring.front());
        }
    }
    return lines;
}

}  // namespace model::ifc
