#include "model/ifc/geometry/Profiles.hpp"

#include "model/ifc/geometry/Curves.hpp"

#include <iterator>
#include <numbers>

namespace model::ifc {

namespace {

using step::Slot;

constexpr double FullTurn = 2 * std::numbers::pi;

std::vector<Point> rectangle(double width, double height) {
    const double x = width / 2, y = height / 2;
    return {{-x, -y, 0}, {x, -y, 0}, {x, y, 0}, {-x, y, 0}};
}

/// Where in the arguments the sizes along x and y of a profile's bounding rectangle stand.
struct SizeRow {
    std::string_view ifcClass;
    std::size_t x, y;
};

// Sections of a depth and a width give the depth first, along y.
constexpr std::array Sizes = {
    SizeRow{"IfcRectangleProfileDef", 3, 4},        SizeRow{"IfcIShapeProfileDef", 3, 4},
    SizeRow{"IfcAsymmetricIShapeProfileDef", 3, 4}, SizeRow{"IfcTrapeziumProfileDef", 3, 5},
    SizeRow{"IfcLShapeProfileDef", 4, 3},           SizeRow{"IfcTShapeProfileDef", 4, 3},
    SizeRow{"IfcUShapeProfileDef", 4, 3},           SizeRow{"IfcCShapeProfileDef", 4, 3},
    SizeRow{"IfcZShapeProfileDef", 4, 3},
};

std::optional<std::vector<Point>> unplacedPoints(GeometryReader& reader, Slot profile, const step::Instance& instance) {
    const auto number = [&](std::size_t attributeIndex) { return numberIn(instance, attributeIndex); };
    if (isOfClass(reader, profile, "IfcCircleProfileDef")) return ellipsePoints(number(3), number(3), 0, FullTurn);
    if (isOfClass(reader, profile, "IfcEllipseProfileDef")) return ellipsePoints(number(3), number(4), 0, FullTurn);
    for (const SizeRow& row : Sizes) {
        if (isOfClass(reader, profile, row.ifcClass)) return rectangle(number(row.x), number(row.y));
    }
    return std::nullopt;
}

/// The outline of a steel section around the middle of its bounding box; empty for other profiles.
Ring sectionOutline(GeometryReader& reader, Slot profile, const step::Instance& instance) {
    const auto is = [&](std::string_view name) { return isOfClass(reader, profile, name); };
    const auto number = [&](std::size_t attributeIndex) { return numberIn(instance, attributeIndex); };
    const double thick = number(6);  // Of a flange; an L has one thickness, one place before.
    if (is("IfcIShapeProfileDef")) {
        const double x = number(3) / 2, y = number(4) / 2, web = number(5) / 2;
        return {
            {-x, -y, 0},           {x, -y, 0},         {x, -y + thick, 0}, {web, -y + thick, 0}, {web, y - thick, 0},
            {x, y - thick, 0},     {x, y, 0},          {-x, y, 0},         {-x, y - thick, 0},   {-web, y - thick, 0},
            {-web, -y + thick, 0}, {-x, -y + thick, 0}};
    }
    // The others give the depth first; that of an L of equal legs is its width, too.
    const double y = number(3) / 2;
    const double x = (is("IfcLShapeProfileDef") && !(number(4) > 0) ? number(3) : number(4)) / 2;
    if (is("IfcLShapeProfileDef")) {
        const double leg = number(5);
        return {{-x, -y, 0}, {x, -y, 0}, {x, -y + leg, 0}, {-x + leg, -y + leg, 0}, {-x + leg, y, 0}, {-x, y, 0}};
    }
    if (is("IfcTShapeProfileDef")) {
        const double web = number(5) / 2;
        return {{-web, -y, 0}, {web, -y, 0}, {web, y - thick, 0}, {x, y - thick, 0},
                {x, y, 0},     {-x, y, 0},   {-x, y - thick, 0},  {-web, y - thick, 0}};
    }
    if (is("IfcUShapeProfileDef")) {
        const double web = number(5);
        return {{-x, -y, 0},       {x, -y, 0}, {x, -y + thick, 0}, {-x + web, -y + thick, 0}, {-x + web, y - thick, 0},
                {x, y - thick, 0}, {x, y, 0},  {-x, y, 0}};
    }
    return {};
}

/// What a hollow profile has not got in its middle.
Ring hollowOf(GeometryReader& reader, Slot profile, const step::Instance& instance) {
    if (isOfClass(reader, profile, "IfcCircleHollowProfileDef")) {
        const double inner = numberIn(instance, 3) - numberIn(instance, 4);
        if (inner > 0) return ellipsePoints(inner, inner, 0, FullTurn);
    } else if (isOfClass(reader, profile, "IfcRectangleHollowProfileDef")) {
        const double walls = 2 * numberIn(instance, 5);
        const double x = numberIn(instance, 3) - walls, y = numberIn(instance, 4) - walls;
        if (x > 0 && y > 0) return rectangle(x, y);
    }
    return {};
}

void move(Region& region, const Frame& frame) {
    for (Ring& ring : region)
        for (Point& point : ring) point = frame.toOuter(point);
}

std::size_t cornersOf(const Region& region) {
    std::size_t count = 0;
    for (const Ring& ring : region) count += ring.size();
    return count;
}

class ProfileReader {
public:
    explicit ProfileReader(GeometryReader& reader) : reader_(reader) {}

    std::optional<std::vector<Region>> read(Slot profile) {
        constexpr int Deepest = 8;
        constexpr int MostProfiles = 1000;  // Composites may be of composites.
        step::Instance instance;
        if (depth_ == Deepest || ++count_ > MostProfiles || profile == step::NoSlot ||
            !reader_.read(profile, instance)) {
            return std::nullopt;
        }
        ++depth_;
        auto regions = readKind(profile, instance);
        --depth_;
        return regions;
    }

private:
    std::optional<std::vector<Region>> readKind(Slot profile, const step::Instance& instance) {
        const auto is = [&](std::string_view name) { return isOfClass(reader_, profile, name); };
        if (is("IfcParameterizedProfileDef")) return parameterized(profile, instance);
        if (is("IfcArbitraryClosedProfileDef")) return closed(profile, instance);
        if (is("IfcDerivedProfileDef")) return derived(profile, instance);
        if (!is("IfcCompositeProfileDef")) return std::nullopt;
        std::vector<Region> all;
        for (const Slot part : targetsOf(reader_, instance, 2)) {
            auto regions = read(part);
            if (!regions) return std::nullopt;
            std::move(regions->begin(), regions->end(), std::back_inserter(all));
        }
        return all;
    }

    std::optional<std::vector<Region>> parameterized(Slot profile, const step::Instance& instance) const {
        Region region;
        if (Ring section = sectionOutline(reader_, profile, instance); !section.empty()) {
            region.push_back(std::move(section));
        } else if (auto points = unplacedPoints(reader_, profile, instance)) {
            region.push_back(std::move(*points));
        } else {
            return std::nullopt;
        }
        if (Ring middle = hollowOf(reader_, profile, instance); !middle.empty()) region.push_back(std::move(middle));
        if (!reader_.makeCorners(cornersOf(region))) return std::nullopt;
        if (const auto position = readAxisPlacement(reader_, targetOf(reader_, instance, 2))) move(region, *position);
        return std::vector<Region>(1, region);
    }

    std::optional<std::vector<Region>> closed(Slot profile, const step::Instance& instance) const {
        auto outer = curvePoints(reader_, targetOf(reader_, instance, 2));
        if (!outer) return std::nullopt;
        Region region{std::move(*outer)};
        if (isOfClass(reader_, profile, "IfcArbitraryProfileDefWithVoids")) {
            for (const Slot slot : targetsOf(reader_, instance, 3)) {
                auto inner = curvePoints(reader_, slot);
                if (!inner) return std::nullopt;
                region.push_back(std::move(*inner));
            }
        }
        return std::vector<Region>(1, region);
    }

    std::optional<std::vector<Region>> derived(Slot profile, const step::Instance& instance) {
        auto regions = read(targetOf(reader_, instance, 2));
        if (!regions) return std::nullopt;
        Frame operation;
        operation.x = {-1, 0, 0};  // That of an IfcMirroredProfileDef is derived: it stands for the y axis.
        if (!isOfClass(reader_, profile, "IfcMirroredProfileDef")) {
            const auto given = readTransformation(reader_, targetOf(reader_, instance, 3));
            if (!given) return std::nullopt;
            operation = *given;
        }
        for (Region& region : *regions) {
            if (!reader_.makeCorners(cornersOf(region))) return std::nullopt;
            move(region, operation);
        }
        return regions;
    }

    GeometryReader& reader_;
    int depth_ = 0, count_ = 0;
};

}  // namespace

std::optional<std::vector<Point>> profilePoints(GeometryReader& reader, Slot profile) {
    step::Instance instance;
    if (!isOfClass(reader, profile, "IfcParameterizedProfileDef") || !reader.read(profile, instance)) {
        return std::nullopt;
    }
    auto points = unplacedPoints(reader, profile, instance);
    const auto position = readAxisPlacement(reader, targetOf(reader, instance, 2));
    if (!points || !position) return points;
    for (Point& point : *points) point = position->toOuter(point);
    return points;
}

std::optional<std::vector<Region>> profileRegions(GeometryReader& reader, Slot profile) {
    return ProfileReader(reader).read(profile);
}

}  // namespace model::ifc
