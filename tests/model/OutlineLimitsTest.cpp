// Where the outline of an element ends and its hull begins: each limit of what is read for it, one below and one above.

#include "Shaped.hpp"

#include "model/ifc/geometry/Crossings.hpp"
#include "model/ifc/geometry/Curves.hpp"
#include "model/ifc/geometry/Profiles.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

using model::Point;
using model::ifc::GeometryReader;
using model::step::Slot;

/// A file to read geometry from as outlines are read.
struct Read {
    explicit Read(const TinyModel& ifc) : model(ifc), reader(model->workspace()) {}
    Slot slot(Id id) const { return reader.find(id); }

    Opened model;
    GeometryReader reader;
};

/// "((0.,0.),(1.,0.),(2.,0.)" and so on: different points.
std::string pointsInARow(std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += (i == 0 ? "(" : ",(") + std::to_string(i) + ".,0.)";
    return "(" + all + ")";
}

TEST(OutlineLimits, ACurveHasTwentyThousandPoints) {
    for (const std::size_t count : {19'999U, 20'000U, 20'001U}) {
        TinyModel ifc;
        const Id list = ifc.add("IfcCartesianPointList2D", {{"CoordList", pointsInARow(count)}});
        const Id whole = ifc.add("IfcIndexedPolyCurve", {{"Points", ref(list)}});
        const Id segment = ifc.add("IfcCompositeCurveSegment", {{"SameSense", ".T."}, {"ParentCurve", ref(whole)}});
        const Id composite = ifc.add("IfcCompositeCurve", {{"Segments", refs({segment})}});
        for (const Id curve : {whole, composite}) {
            Read read(ifc);
            const auto points = model::ifc::curvePoints(read.reader, read.slot(curve));
            EXPECT_EQ(points ? points->size() : 0, count > 20'000 ? 0 : count);
        }
    }
}

TEST(OutlineLimits, CurvesAreOfCurvesSixteenDeep) {
    for (const int depth : {15, 16, 17}) {
        TinyModel ifc;
        Geometry g(ifc);
        Id curve = g.polyline({"(0.,0.)", "(1.,0.)"});
        for (int i = 1; i < depth; ++i) {
            const Id segment = ifc.add("IfcCompositeCurveSegment", {{"SameSense", ".T."}, {"ParentCurve", ref(curve)}});
            curve = ifc.add("IfcCompositeCurve", {{"Segments", refs({segment})}});
        }
        Read read(ifc);
        EXPECT_EQ(model::ifc::curvePoints(read.reader, read.slot(curve)).has_value(), depth <= 16) << depth;
    }
}

/// The composite one counts as well.
TEST(OutlineLimits, AProfileIsOfAThousandProfiles) {
    for (const std::size_t count : {999U, 1000U, 1001U}) {
        TinyModel ifc;
        Geometry g(ifc);
        const Id composite =
            ifc.add("IfcCompositeProfileDef", {{"Profiles", refs(Ids(count - 1, g.rectangle("1.", "1.")))}});
        Read read(ifc);
        const auto regions = model::ifc::profileRegions(read.reader, read.slot(composite));
        EXPECT_EQ(regions ? regions->size() : 0, count > 1000 ? 0 : count - 1);
    }
}

/// What they are made of counts by its length, so this is less than a thousand of the longest curves.
TEST(OutlineLimits, ProfilesAreReadWithinTheBudget) {
    for (const std::size_t count : {8U, 999U}) {
        TinyModel ifc;
        Geometry g(ifc);
        const Id list = ifc.add("IfcCartesianPointList2D", {{"CoordList", pointsInARow(20'000)}});
        const Id curve = ifc.add("IfcIndexedPolyCurve", {{"Points", ref(list)}});
        const Id profile = ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}});
        const Id composite = ifc.add("IfcCompositeProfileDef", {{"Profiles", refs(Ids(count, profile))}});
        Read read(ifc);
        const auto regions = model::ifc::profileRegions(read.reader, read.slot(composite));
        EXPECT_EQ(regions.has_value(), count == 8) << count;
        EXPECT_EQ(read.reader.spent(), count != 8) << count;
    }
}

TEST(OutlineLimits, ProfilesAreOfProfilesEightDeep) {
    for (const int depth : {7, 8, 9}) {
        TinyModel ifc;
        Geometry g(ifc);
        Id profile = g.rectangle("1.", "1.");
        for (int i = 1; i < depth; ++i) profile = ifc.add("IfcCompositeProfileDef", {{"Profiles", refs({profile})}});
        Read read(ifc);
        EXPECT_EQ(model::ifc::profileRegions(read.reader, read.slot(profile)).has_value(), depth <= 8) << depth;
    }
}

TEST(OutlineLimits, PlacementsAreInPlacementsTwoHundredAndFiftySixDeep) {
    for (const int depth : {255, 256, 257}) {
        TinyModel ifc;
        Geometry g(ifc);
        const Id axes = g.axes("(1.,0.,0.)");
        Id placement = 0;
        for (int i = 0; i < depth; ++i) placement = g.placement(axes, placement);
        ifc.element("IfcWall", "Wall", {{"ObjectPlacement", ref(placement)}});
        const auto place = Opened(ifc)->placement(0);
        ASSERT_EQ(place.has_value(), depth <= 256) << depth;
        EXPECT_EQ(place ? place->x : depth, depth);
    }
}

/// A representation, solids that are nothing but another, and a block in the last.
TEST(OutlineLimits, SolidsAreOfSolidsThirtyTwoDeep) {
    for (const int depth : {31, 32, 33}) {
        Shaped one;
        const Id axes = one.g.axes("(0.,0.,0.)");
        Id solid =
            one.ifc.add("IfcBlock", {{"Position", ref(axes)}, {"XLength", "2."}, {"YLength", "1."}, {"ZLength", "1."}});
        for (int i = 2; i < depth; ++i) solid = one.ifc.add("IfcCsgSolid", {{"TreeRootExpression", ref(solid)}});
        one.item(solid);
        EXPECT_EQ(one.outline().rings.size(), depth <= 32 ? 1U : 0U) << depth << ": a block has no points";
    }
}

/// A representation, solids that are nothing but another, an extruded one, and its profile.
TEST(OutlineLimits, HullsAreOfWhatIsSixtyFourDeep) {
    for (const int depth : {63, 64, 65}) {
        Shaped one;
        Id solid = one.g.extruded(one.g.rectangle("2.", "1."), "1.");
        for (int i = 3; i < depth; ++i) solid = one.ifc.add("IfcCsgSolid", {{"TreeRootExpression", ref(solid)}});
        one.item(solid);
        EXPECT_EQ(Opened(one.ifc)->footprint(0).size(), depth <= 64 ? 4U : 0U) << depth;
    }
}

/// Points cover nothing, but are of a known kind.
TEST(OutlineLimits, AShapeIsOfFiftyThousandInstances) {
    for (const std::size_t count : {49'999U, 50'000U, 50'001U}) {
        Shaped one;
        // Beside the representation and the solid, which comes first for the hull's sake.
        Ids items(count - 1, one.g.point("(0.,0.,0.)"));
        items[0] = one.g.extruded(one.g.rectangle("2.", "1."), "1.");
        one.items(items);
        const auto outline = one.outline();
        EXPECT_EQ(outline.hull, count > 50'000) << count;
        EXPECT_NEAR(areaOf(outline), 2, 1e-6);
    }
}

TEST(OutlineLimits, AHullIsOfFiftyThousandInstances) {
    for (const std::size_t count : {49'999U, 50'000U, 50'001U}) {
        Shaped one;
        Ids items{one.g.point("(0.,0.,0.)"), one.g.point("(9.,0.,0.)")};
        while (items.size() + 2 < count) items.push_back(one.g.point("(1.,1.,0.)"));  // Beside the representation.
        items.push_back(one.g.point("(0.,9.,0.)"));
        one.items(items);
        EXPECT_NEAR(areaOf(one.outline()), count > 50'000 ? 4.5 : 40.5, 1e-6) << count;
    }
}

TEST(OutlineLimits, AShapeHasSixtyThousandCorners) {
    for (const std::size_t count : {59'999U, 60'000U, 60'001U}) {
        const auto width = static_cast<double>(count - 3);
        Corners ring{{width, 10, 0}, {0, 10, 0}};  // What counts comes first for the hull's sake.
        for (std::size_t i = 0; i < count - 2; ++i) ring.push_back({static_cast<double>(i), 0, 0});
        Shaped one;
        one.item(faces(one.ifc, {ring}));
        const auto outline = one.outline();
        EXPECT_EQ(outline.hull, count > 60'000) << count;
        EXPECT_NEAR(areaOf(outline), outline.hull ? (width + 49'997) * 5 : width * 10, 6000);
    }
}

/// A line to and fro across a straight one: of so many corners, and of half as many crossings.
Corners crossing(int crossings, int extra) {
    Corners ring;
    for (int i = 0; i <= crossings; ++i) ring.push_back({static_cast<double>(i), i % 2 == 0 ? 1. : -1., 0});
    ring.push_back({crossings + 1., 0, 0});
    ring.push_back({-1, 0, 0});
    for (int i = 1; i <= extra; ++i) ring.push_back({-1 - 0.1 * i * (extra + 1 - i), 0.9 * i / (extra + 1), 0});
    return ring;
}

TEST(OutlineLimits, CrossingsOfOneFaceCountAsTwoCorners) {
    for (const auto& [extra, hull] : {std::pair{2, false}, {3, false}, {4, true}}) {
        Shaped one;  // 3,001 corners without the extra ones, and 2 * 2,998 where it crosses itself.
        one.item(faces(one.ifc, {crossing(2998, extra)}));
        EXPECT_EQ(one.outline().hull, hull) << extra;
    }
}

TEST(OutlineLimits, AreCountedCrossings) {
    // Each corner's two lines are crossed by all others' but the neighbours'.
    ClipperLib::Path ring;
    for (const Point& corner : star(101, 50)) {
        ring.emplace_back(std::llround(corner.x * 1e6), std::llround(corner.y * 1e6));
    }
    constexpr std::size_t Exactly = 101 * 98 / 2;
    EXPECT_TRUE(model::ifc::crossMoreThan({ring}, Exactly - 1));
    EXPECT_FALSE(model::ifc::crossMoreThan({ring}, Exactly));
    EXPECT_FALSE(model::ifc::crossMoreThan({ring}, Exactly + 1));
    EXPECT_FALSE(model::ifc::crossMoreThan({{{0, 0}, {2, 0}, {2, 2}}, {{1, 0}, {2, 2}, {0, 0}}}, 0)) << "they touch";
}

/// With teeth up or, on its side, to the right. Two of them cross four times for each two teeth.
Corners comb(int teeth, double length, bool onItsSide) {
    Corners ring{{0, -1, 0}};
    for (int i = 1; i <= teeth; ++i) {
        const double at = i;
        ring.insert(ring.end(), {{at, 0, 0}, {at, length, 0}, {at + 0.5, length, 0}, {at + 0.5, 0, 0}});
    }
    ring.push_back({teeth + 2., -1, 0});
    for (Point& corner : ring)
        if (onItsSide) std::swap(corner.x, corner.y);
    return ring;
}

TEST(OutlineLimits, PartsCrossEachOtherAMillionTimes) {
    const Corners cover{{-5, -5, 0}, {600, -5, 0}, {600, 600, 0}, {-5, 600, 0}};
    const Corners twice{{550, 550, 0}, {560, 550, 0}, {550, 560, 0}},
        crossed{{552, 552, 0}, {562, 552, 0}, {562, 562, 0}};
    for (const auto& [teeth, more, hull] : {std::tuple{499, true, false}, {500, false, false}, {500, true, true}}) {
        std::vector<Corners> rings{cover, comb(500, 550, false), comb(teeth, 550, true), twice};
        if (more) rings.push_back(crossed);
        Shaped one;
        one.item(faces(one.ifc, rings));
        const auto outline = one.outline();
        EXPECT_EQ(outline.hull, hull) << teeth;
        EXPECT_NEAR(areaOf(outline), 605 * 605, 1);
    }
}

TEST(OutlineLimits, AThousandOpeningsAreCut) {
    for (const int count : {999, 1000, 1001}) {
        TinyModel ifc;
        Geometry g(ifc);
        const Id wall = ifc.element("IfcWall", "Wall",
                                    {{"Representation", g.shape({g.extruded(g.rectangle("4000.", "1."), "3.")})}});
        const Id profile = g.rectangle("1.", "2.");
        for (int i = 0; i < count; ++i) {
            const Id solid =
                g.extruded(profile, "3.", "(0.,0.,1.)", g.axes("(" + std::to_string(2 * i - 1000) + ".,0.,0.)"));
            const Id opening = ifc.element("IfcOpeningElement", "Opening", {{"Representation", g.shape({solid})}});
            ifc.add("IfcRelVoidsElement",
                    {{"RelatingBuildingElement", ref(wall)}, {"RelatedOpeningElement", ref(opening)}});
        }
        Opened model(ifc);
        EXPECT_NEAR(areaOf(model->outline(model.find("Wall"))), 4000 - std::min(count, 1000), 0.1);
    }
}

TEST(OutlineLimits, AreOneBudgetForWhatIsReadAndMade) {
    TinyModel ifc;
    const Id id = ifc.raw("IFCDIRECTION((1.,1.,1.))");
    for (const int more : {-1, 0, 1}) {
        Read read(ifc);
        const std::size_t length = Read(ifc).reader.text(read.slot(id)).size();
        const std::size_t cost = GeometryReader::InstanceCost + length;
        std::size_t corners = (GeometryReader::Budget - 2 * cost) / GeometryReader::CornerCost;
        ASSERT_TRUE(read.reader.makeCorners(corners)) << "leaves room for two instances, and less than one more";
        ASSERT_LT(GeometryReader::CornerCost, cost);
        model::step::Instance instance;
        for (int i = 0; i < 2 + more; ++i) EXPECT_EQ(read.reader.read(read.slot(id), instance), i < 2);
        EXPECT_EQ(read.reader.spent(), more > 0);
        EXPECT_EQ(read.reader.makeCorners(0), more <= 0) << "nothing is to be had any more";
    }
    Read read(ifc);
    EXPECT_TRUE(read.reader.makeCorners(GeometryReader::Budget / GeometryReader::CornerCost));
    EXPECT_FALSE(read.reader.makeCorners(1));
    EXPECT_FALSE(Read(ifc).reader.makeCorners(GeometryReader::Budget / GeometryReader::CornerCost + 1));
    EXPECT_FALSE(Read(ifc).reader.makeCorners(std::numeric_limits<std::size_t>::max()));
}

/// An arc has between one and ninety-six pieces, whatever its parameters say.
TEST(OutlineLimits, OfArcsAreTheirPieces) {
    const auto points = [](double from, double to) { return model::ifc::ellipsePoints(1, 1, from, to).size(); };
    constexpr double Step = 0.1308996938995747;  // A forty-eighth of a turn.
    EXPECT_EQ(points(0, 0), 2U);
    EXPECT_EQ(points(0, 94.5 * Step), 96U);
    EXPECT_EQ(points(0, 95.5 * Step), 97U);
    EXPECT_EQ(points(0, 96.5 * Step), 97U);
    EXPECT_EQ(points(0, 1e300), 97U);
    EXPECT_EQ(points(-1e300, 1e300), 97U);
    EXPECT_EQ(points(0, std::numeric_limits<double>::infinity()), 97U);
    EXPECT_EQ(points(0, std::numeric_limits<double>::quiet_NaN()), 2U);
}

}  // namespace
