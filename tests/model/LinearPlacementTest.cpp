// Where things beside a track stand: as the file says in ordinary coordinates, or so far along a curve.

#include "Geometry.hpp"
#include "support/Places.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numbers>
#include <sstream>

namespace {

using model::Point;

/// A model of IFC4X3 with things at distances along one curve.
class Track {
public:
    Id line(const std::string& direction = "(1.,0.)") {
        const Id vector = ifc.add("IfcVector", {{"Orientation", ref(g.direction(direction))}, {"Magnitude", "1."}});
        return ifc.add("IfcLine", {{"Pnt", ref(g.point("(0.,0.)"))}, {"Dir", ref(vector)}});
    }
    Id circle(const std::string& radius) {
        return ifc.add("IfcCircle", {{"Position", ref(flat("(0.,0.)", "(1.,0.)"))}, {"Radius", radius}});
    }
    Id clothoid(const std::string& constant) {
        return ifc.add("IfcClothoid", {{"Position", ref(flat("(0.,0.)", "(1.,0.)"))}, {"ClothoidConstant", constant}});
    }
    Id flat(const std::string& location, const std::string& direction) {
        return ifc.add("IfcAxis2Placement2D",
                       {{"Location", ref(g.point(location))}, {"RefDirection", ref(g.direction(direction))}});
    }
    Id segment(const std::string& begin, const std::string& direction, const std::string& length, Id parent,
               const std::string& start = "0.") {
        return ifc.add("IfcCurveSegment", {{"Transition", ".CONTINUOUS."},
                                           {"Placement", ref(flat(begin, direction))},
                                           {"SegmentStart", "IFCLENGTHMEASURE(" + start + ")"},
                                           {"SegmentLength", "IFCLENGTHMEASURE(" + length + ")"},
                                           {"ParentCurve", ref(parent)}});
    }
    Id composite(const Ids& segments) {
        return ifc.add("IfcCompositeCurve", {{"Segments", refs(segments)}, {"SelfIntersect", ".F."}});
    }
    Id gradient(const Ids& segments, Id base) {
        return ifc.add("IfcGradientCurve",
                       {{"Segments", refs(segments)}, {"SelfIntersect", ".F."}, {"BaseCurve", ref(base)}});
    }
    Id at(Id curve, const std::string& distance, const std::string& offsets = "$,$,$") {
        const Id point = ifc.raw("IFCPOINTBYDISTANCEEXPRESSION(IFCLENGTHMEASURE(" + distance + ")," + offsets + "," +
                                 ref(curve) + ")");
        return ifc.add("IfcAxis2PlacementLinear", {{"Location", ref(point)}});
    }
    Id linear(Id place, Id relativeTo = 0, Id cartesian = 0) {
        return ifc.add("IfcLinearPlacement", {{"PlacementRelTo", relativeTo == 0 ? "$" : ref(relativeTo)},
                                              {"RelativePlacement", ref(place)},
                                              {"CartesianPosition", cartesian == 0 ? "$" : ref(cartesian)}});
    }
    void sign(Id placement) { ifc.element("IfcSignal", "Signal", {{"ObjectPlacement", ref(placement)}}); }
    void signAlong(Id curve, const std::string& distance, const std::string& offsets = "$,$,$") {
        sign(linear(at(curve, distance, offsets)));
    }
    std::optional<Point> place() {
        Opened model(ifc.text());
        return model->placement(model.find("Signal"));
    }

    TinyModel ifc{"IFC4X3"};
    Geometry g{ifc};
};

std::string placeText(const std::optional<Point>& point) {
    if (!point) return "none";
    const auto number = [](double value) { return std::to_string(std::lround(value * 1000)); };
    return number(point->x) + " " + number(point->y) + " " + number(point->z);
}

}  // namespace

TEST(LinearPlacement, IsWhatTheFileSaysInOrdinaryCoordinates) {
    Track track;
    const Id outer = track.g.placement(track.g.axes("(100.,0.,0.)"));
    track.sign(track.linear(track.at(track.g.polyline({"(0.,0.,0.)", "(9.,0.,0.)"}), "1."), outer,
                            track.g.axes("(1.,2.,3.)")));
    EXPECT_EQ(placeText(track.place()), "101000 2000 3000");
}

TEST(LinearPlacement, AlongAPolylineCountsItsLength) {
    for (const auto& [distance, expected] : {std::pair("0.", "0 0 0"),
                                             {"3.", "3000 0 0"},
                                             {"4.", "4000 0 0"},
                                             {"6.", "4000 2000 0"},
                                             {"9.", "4000 5000 0"}}) {
        Track track;
        track.signAlong(track.g.polyline({"(0.,0.,0.)", "(4.,0.,0.)", "(4.,0.,0.)", "(4.,5.,0.)"}), distance);
        EXPECT_EQ(placeText(track.place()), expected) << distance;
    }
}

TEST(LinearPlacement, BeyondTheCurvesEndsIsNone) {
    for (const char* distance : {"-0.1", "9.1", "1.E300"}) {
        Track track;
        track.signAlong(track.g.polyline({"(0.,0.,0.)", "(4.,0.,0.)", "(4.,5.,0.)"}), distance);
        EXPECT_EQ(placeText(track.place()), "none") << distance;
    }
}

TEST(LinearPlacement, OffsetsAreToTheLeftUpAndAlong) {
    Track track;
    track.signAlong(track.g.polyline({"(0.,0.,7.)", "(0.,10.,7.)"}), "4.", "2.,3.,0.5");
    EXPECT_EQ(placeText(track.place()), "-2000 4500 10000");
}

TEST(LinearPlacement, ThingsStandAcrossTheCurve) {
    Track track;
    track.ifc.element(
        "IfcSignal", "Signal",
        {{"ObjectPlacement", ref(track.linear(track.at(track.g.polyline({"(0.,0.,0.)", "(0.,10.,0.)"}), "4.")))},
         {"Representation", track.g.shape({track.g.extruded(track.g.rectangle("4.", "2."), "1.")})}});
    Opened model(track.ifc.text());
    const auto outline = model->outline(model.find("Signal"));
    ASSERT_EQ(outline.rings.size(), 1U);
    double width = 0, depth = 0;
    for (const Point& corner : outline.rings[0]) {
        width = std::max(width, std::abs(corner.x));
        depth = std::max(depth, std::abs(corner.y - 4));
    }
    EXPECT_NEAR(width, 1, 1e-9);
    EXPECT_NEAR(depth, 2, 1e-9);
}

TEST(LinearPlacement, AlongIndexedPointsFollowsTheirArcs) {
    // A quarter of a circle of radius 10 to the left, then a line.
    for (const auto& [share, expected] :
         {std::pair(0.5, "7071 2929 0"), {1.0, "10000 10000 0"}, {1.25, "10000 13927 0"}}) {
        Track track;
        const Id points = track.ifc.raw(
            "IFCCARTESIANPOINTLIST2D(((0.,0.),(7.0710678118654755,2.9289321881345245),(10.,10.),(10.,20.)),$)");
        const Id curve =
            track.ifc.raw("IFCINDEXEDPOLYCURVE(" + ref(points) + ",(IFCARCINDEX((1,2,3)),IFCLINEINDEX((3,4))),$)");
        track.signAlong(curve, std::to_string(share * 5 * std::numbers::pi));
        EXPECT_EQ(placeText(track.place()), expected) << share;
    }
}

TEST(LinearPlacement, AlongLinesArcsAndClothoidsFollowsAllOfThem) {
    const auto curve = [](Track& track) {
        return track.composite({track.segment("(100.,0.)", "(1.,0.)", "50.", track.line()),
                                track.segment("(150.,0.)", "(1.,0.)", "40.", track.clothoid("200.")),
                                track.segment("(200.,10.)", "(0.,1.)", "-31.41592653589793", track.circle("20.")),
                                track.segment("(220.,30.)", "(1.,0.)", "0.", track.line())});
    };
    // Of a clothoid of 40 to a radius of 1000: y = l³ / (6 A²).
    for (const auto& [distance, expected] : {std::pair("25.", "125000 0 0"),
                                             {"90.", "189998 267 0"},
                                             {"105.707963267949", "205858 24142 0"},
                                             {"121.415926535898", "220000 30000 0"}}) {
        Track track;
        track.signAlong(curve(track), distance);
        EXPECT_EQ(placeText(track.place()), expected) << distance;
    }
}

TEST(LinearPlacement, OnAGradientHasItsHeightAndLeansWithIt) {
    const auto place = [](const std::string& distance) {
        Track track;
        const Id base = track.composite({track.segment("(0.,0.)", "(0.,1.)", "100.", track.line())});
        track.signAlong(track.gradient({track.segment("(0.,5.)", "(1.,0.)", "20.", track.line()),
                                        track.segment("(20.,5.)", "(1.,0.)", "10.", track.circle("50."))},
                                       base),
                        distance);
        return placeText(track.place());
    };
    EXPECT_EQ(place("10."), "0 10000 5000");
    EXPECT_EQ(place("30."), "0 30000 6010");  // 50 - sqrt(50² - 10²)
}

TEST(LinearPlacement, IsNoneWhereTheCurveIsOfAnotherKind) {
    Track spline;
    spline.signAlong(spline.ifc.raw("IFCBSPLINECURVEWITHKNOTS(2,(),.UNSPECIFIED.,.F.,.F.,(),(),.UNSPECIFIED.)"), "1.");
    EXPECT_EQ(placeText(spline.place()), "none");
    Track missing;
    missing.signAlong(999, "1.");
    EXPECT_EQ(placeText(missing.place()), "none");
    Track round;  // a composite curve whose only part is itself
    const Id self = round.ifc.raw("IFCCOMPOSITECURVE((#2),.F.)");
    round.ifc.raw("IFCCOMPOSITECURVESEGMENT(.CONTINUOUS.,.T.,#1)");
    round.signAlong(self, "1.");
    EXPECT_EQ(placeText(round.place()), "none");
    for (const char* keyword : {"IFCPARAMETERVALUE", "IfcParameterValue"}) {
        Track turned;
        const Id point = turned.ifc.raw("IFCPOINTBYDISTANCEEXPRESSION(" + std::string(keyword) + "(0.5),$,$,$," +
                                        ref(turned.g.polyline({"(0.,0.,0.)", "(4.,0.,0.)"})) + ")");
        turned.sign(turned.linear(turned.ifc.add("IfcAxis2PlacementLinear", {{"Location", ref(point)}})));
        EXPECT_EQ(placeText(turned.place()), "none") << "a parameter is no length";
    }
}

TEST(LinearPlacement, FollowsCurvesOfManyPiecesButNotOfAnyNumber) {
    for (const auto& [pieces, found] : {std::pair(1999, true), {2000, true}, {2001, false}}) {
        Track track;
        std::vector<std::string> points;
        for (int i = 0; i <= pieces; ++i) points.push_back("(" + std::to_string(i) + ".,0.,0.)");
        track.signAlong(track.g.polyline(points), "1000.5");
        EXPECT_EQ(track.place().has_value(), found) << pieces;
    }
}

/// Reading the curve for each of them took minutes.
TEST(LinearPlacement, OfThousandsOfThingsReadsTheirCurveOnce) {
    constexpr int Things = 40'000, Pieces = 2000;
    Track track;
    std::vector<std::string> points;
    for (int i = 0; i <= Pieces; ++i) points.push_back("(" + std::to_string(i) + ".,0.,0.)");
    const Id curve = track.g.polyline(points);
    for (int i = 0; i < Things; ++i) track.signAlong(curve, std::to_string(i % Pieces) + ".5");
    Opened model(track.ifc.text());
    const testing_support::Stopwatch watch;
    int placed = 0;
    for (model::Element element = 0; element < model->elementCount(); ++element) {
        const auto place = model->placement(element);
        placed += place && place->x == static_cast<double>(element % Pieces) + 0.5;
    }
    EXPECT_EQ(placed, Things);
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

TEST(LinearPlacement, IsTheSameAfterAChange) {
    Track track;
    track.signAlong(track.g.polyline({"(0.,0.,0.)", "(4.,0.,0.)"}), "1.5");
    Opened model(track.ifc.text());
    const model::Element sign = model.find("Signal");
    EXPECT_EQ(placeText(model->placement(sign)), "1500 0 0");
    const auto renamed = model->command("Rename", [&] { return model->setAttribute(sign, "Name", u"S 1") ? 0 : 1; });
    ASSERT_TRUE(renamed);
    EXPECT_EQ(placeText(model->placement(sign)), "1500 0 0");
    EXPECT_TRUE(model->undo());
    EXPECT_EQ(placeText(model->placement(sign)), "1500 0 0");
}

TEST(LinearPlacement, OfARealTrackIsWhereItsAuthorComputedIt) {
    const std::vector<std::string> models = testing_support::models();
    const auto file = std::find_if(models.begin(), models.end(),
                                   [](const std::string& path) { return path.ends_with("railway-signal.ifc"); });
    if (file == models.end()) GTEST_SKIP() << "no folder of models is there";
    std::ostringstream whole;
    whole << std::ifstream(*file, std::ios::binary).rdbuf();
    const std::string given = whole.str();
    std::string without = given;
    // The same without the coordinates that the file gives beside the distances.
    std::size_t count = 0;
    for (std::size_t at = without.find("= IFCLINEARPLACEMENT("); at != std::string::npos;
         at = without.find("= IFCLINEARPLACEMENT(", at + 1), ++count) {
        const std::size_t end = without.find(')', at), comma = without.rfind(',', end);
        without.replace(comma + 1, end - comma - 1, " $");
    }
    ASSERT_EQ(count, 25U);
    Opened told(given), computed(without);
    std::size_t compared = 0;
    for (model::Element element = 0; element < told->elementCount(); ++element) {
        const std::string ifcClass(told->info(element).ifcClass);
        if (ifcClass != "IfcReferent" && ifcClass != "IfcSignal") continue;
        const auto a = told->placement(element), b = computed->placement(element);
        ASSERT_TRUE(a && b) << element;
        EXPECT_LT(std::hypot(a->x - b->x, a->y - b->y, a->z - b->z), 0.002) << element;
        ++compared;
    }
    EXPECT_EQ(compared, 25U);
}
