// Arcs, angles and distances on the plane.

#include "DriverAddOn.hpp"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <numbers>

using namespace testing_support;

namespace {

constexpr double Pi = std::numbers::pi;

/// One image for all properties: they call its functions thousands of times.
const Helpers& geometry() {
    static const RawHelpers addOn;
    return *addOn.operator->();
}

double coordinate() {
    return *rc::gen::map(rc::gen::inRange(-1000000, 1000001), [](int i) { return i / 1000.0; });
}
API_Coord point() {
    const double x = coordinate();
    return {x, coordinate()};
}
/// An angle that is neither straight nor a full circle.
double arcAngle() {
    const double size = *rc::gen::map(rc::gen::inRange(1, 6283), [](int i) { return i / 1000.0; });
    return *rc::gen::arbitrary<bool>() ? size : -size;
}
double scaleOf(const API_Coord& a, const API_Coord& b, double angle) {
    return (1 + std::hypot(a.x, a.y) + std::hypot(b.x, b.y)) * (1 + 1 / std::fabs(std::tan(angle / 2)));
}

// --- FindArc -------------------------------------------------------------------------------------------------------

TEST(FindingAnArc, FirstOfSeveralAtOneVertexCounts) {
    const API_PolyArc arcs[] = {{4, 5, 1.0}, {2, 3, 1.0}, {2, 7, -1.0}};
    EXPECT_EQ(geometry().FindArc(arcs, 3, 2), 1);
    EXPECT_EQ(geometry().FindArc(arcs, 3, 4), 0);
}

TEST(FindingAnArc, OnlyTheFirstVertexIsCompared) {
    const API_PolyArc arcs[] = {{4, 5, 1.0}};
    EXPECT_EQ(geometry().FindArc(arcs, 1, 5), -1);
}

TEST(FindingAnArc, NothingIsFoundInNothing) {
    const API_PolyArc arcs[] = {{4, 5, 1.0}};
    EXPECT_EQ(geometry().FindArc(nullptr, 1, 4), -1);
    EXPECT_EQ(geometry().FindArc(arcs, 0, 4), -1);
    EXPECT_EQ(geometry().FindArc(arcs, -1, 4), -1);
}

// --- ArcGetOrigo ---------------------------------------------------------------------------------------------------

struct ArcCase {
    API_Coord start, end;
    double angle;
    bool isArc;
    API_Coord centre;
};

class ArcCentre : public ::testing::TestWithParam<ArcCase> {};

TEST_P(ArcCentre, IsFound) {
    const ArcCase& arc = GetParam();
    API_Coord centre{99, 99};
    EXPECT_EQ(geometry().ArcGetOrigo(&arc.start, &arc.end, arc.angle, &centre), arc.isArc);
    EXPECT_NEAR(centre.x, arc.centre.x, 1e-9);
    EXPECT_NEAR(centre.y, arc.centre.y, 1e-9);
}

constexpr API_Coord East{1, 0}, West{-1, 0};
INSTANTIATE_TEST_SUITE_P(
    Arcs, ArcCentre,
    ::testing::Values(ArcCase{East, West, Pi / 2, true, {0, -1}}, ArcCase{East, West, -Pi / 2, true, {0, 1}},
                      ArcCase{East, West, 3 * Pi / 2, true, {0, 1}}, ArcCase{East, West, Pi, true, {0, 0}},
                      ArcCase{East, West, -Pi, true, {0, 0}}, ArcCase{East, West, Pi + 9e-6, true, {0, 0}},
                      ArcCase{{2, 4}, {6, 8}, Pi, true, {4, 6}}, ArcCase{East, West, 0, false, {0, 0}},
                      ArcCase{{5, 5}, {7, 7}, 9.9e-6, false, {0, 0}}, ArcCase{{5, 5}, {7, 7}, -9.9e-6, false, {0, 0}}));

TEST(ArcCentreOfTheSmallestAngle, IsFarAwayButThere) {
    API_Coord centre{};
    EXPECT_TRUE(geometry().ArcGetOrigo(&East, &West, 1e-5, &centre));
    EXPECT_NEAR(centre.y, -1 / std::tan(0.5e-5), 1e-3);
}

RC_GTEST_PROP(ArcCentreProperty, HasTheSameDistanceToBothEnds, ()) {
    const API_Coord start = point(), end = point();
    const double angle = arcAngle();
    API_Coord centre{};
    RC_ASSERT(geometry().ArcGetOrigo(&start, &end, angle, &centre));
    const double difference = geometry().DistCPtr(&centre, &start) - geometry().DistCPtr(&centre, &end);
    RC_ASSERT(std::fabs(difference) <= 1e-9 * scaleOf(start, end, angle));
}

RC_GTEST_PROP(ArcCentreProperty, SeesTheEndsUnderTheAngle, ()) {
    const API_Coord start = point(), end = point();
    const double angle = arcAngle();
    RC_PRE(geometry().DistCPtr(&start, &end) > 1.0);
    API_Coord centre{};
    RC_ASSERT(geometry().ArcGetOrigo(&start, &end, angle, &centre));
    // A half circle within the tolerance has the chord's midpoint for its centre.
    RC_PRE(std::fabs(std::fabs(angle) - Pi) > 1e-3);
    const double cosine = std::cos(angle), sine = std::sin(angle);
    const double dx = start.x - centre.x, dy = start.y - centre.y;
    const double radius = geometry().DistCPtr(&centre, &start);
    RC_ASSERT(std::fabs(centre.x + cosine * dx - sine * dy - end.x) <= 1e-6 * (1 + radius));
    RC_ASSERT(std::fabs(centre.y + sine * dx + cosine * dy - end.y) <= 1e-6 * (1 + radius));
}

RC_GTEST_PROP(ArcCentreProperty, IsTheSameForTheArcRunBackwards, ()) {
    const API_Coord start = point(), end = point();
    const double angle = arcAngle();
    API_Coord there{}, back{};
    RC_ASSERT(geometry().ArcGetOrigo(&start, &end, angle, &there));
    RC_ASSERT(geometry().ArcGetOrigo(&end, &start, -angle, &back));
    RC_ASSERT(geometry().DistCPtr(&there, &back) <= 1e-9 * scaleOf(start, end, angle));
}

// --- ComputeFiPtr --------------------------------------------------------------------------------------------------

struct DirectionCase {
    double x, y;
    bool allowNegative;
    double angle;
};

class Direction : public ::testing::TestWithParam<DirectionCase> {};

TEST_P(Direction, IsTheAngleOfTheVector) {
    const API_Coord from{3, 4}, to{3 + GetParam().x, 4 + GetParam().y};
    EXPECT_NEAR(geometry().ComputeFiPtr(&from, &to, GetParam().allowNegative), GetParam().angle, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Vectors, Direction,
                         ::testing::Values(DirectionCase{0, 0, false, 0}, DirectionCase{0, 0, true, 0},
                                           DirectionCase{9e-6, -9e-6, true, 0}, DirectionCase{-9e-6, 0, false, 0},
                                           DirectionCase{1, 0, true, 0}, DirectionCase{0, 1, true, Pi / 2},
                                           DirectionCase{-1, 0, true, Pi}, DirectionCase{-1, 0, false, Pi},
                                           DirectionCase{0, -1, true, -Pi / 2}, DirectionCase{0, -1, false, 3 * Pi / 2},
                                           DirectionCase{1, -1, false, 7 * Pi / 4}));

RC_GTEST_PROP(DirectionProperty, LeadsFromTheFirstPointToTheSecond, ()) {
    const API_Coord from = point(), to = point();
    const double length = geometry().DistCPtr(&from, &to);
    RC_PRE(length > 1e-3);
    const double angle = geometry().ComputeFiPtr(&from, &to, *rc::gen::arbitrary<bool>());
    RC_ASSERT(std::fabs(from.x + length * std::cos(angle) - to.x) <= 1e-9 * (1 + length));
    RC_ASSERT(std::fabs(from.y + length * std::sin(angle) - to.y) <= 1e-9 * (1 + length));
}

RC_GTEST_PROP(DirectionProperty, WithoutNegativeAnglesIsTheSameDirection, ()) {
    const API_Coord from = point(), to = point();
    const double negative = geometry().ComputeFiPtr(&from, &to, true);
    const double positive = geometry().ComputeFiPtr(&from, &to, false);
    RC_ASSERT(positive >= 0 && positive <= 2 * Pi);
    RC_ASSERT(positive == (negative < 0 ? negative + 6.283185307179586 : negative));
}

// --- DistCPtr ------------------------------------------------------------------------------------------------------

TEST(Distance, HasNoTolerance) {
    const API_Coord a{0, 0}, b{3e-7, 4e-7}, c{3, 4};
    EXPECT_DOUBLE_EQ(geometry().DistCPtr(&a, &b), 5e-7);
    EXPECT_DOUBLE_EQ(geometry().DistCPtr(&a, &c), 5);
    EXPECT_EQ(geometry().DistCPtr(&c, &c), 0);
}

RC_GTEST_PROP(DistanceProperty, IsTheSameBothWaysAndNeverLongerByADetour, ()) {
    const API_Coord a = point(), b = point(), c = point();
    RC_ASSERT(geometry().DistCPtr(&a, &b) == geometry().DistCPtr(&b, &a));
    RC_ASSERT(geometry().DistCPtr(&a, &c) <= (geometry().DistCPtr(&a, &b) + geometry().DistCPtr(&b, &c)) * (1 + 1e-12));
}

}  // namespace
