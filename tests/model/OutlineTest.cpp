// What a plan shows of an element, by areas that are known.

#include "Shaped.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using model::PlanOutline;
using model::Point;
using std::numbers::pi;

struct Profile {
    const char* name;
    const char* ifcClass;
    Values values;
    double area;
    std::size_t rings;
};

std::ostream& operator<<(std::ostream& out, const Profile& profile) {
    return out << profile.name;
}

class OutlineOfAProfile : public testing::TestWithParam<Profile> {};

TEST_P(OutlineOfAProfile, HasItsArea) {
    Shaped one;
    one.item(one.g.extruded(one.ifc.add(GetParam().ifcClass, GetParam().values), "3."));
    const PlanOutline outline = one.outline();
    EXPECT_FALSE(outline.hull);
    EXPECT_NEAR(areaOf(outline), GetParam().area, GetParam().area / 100);
    EXPECT_EQ(outline.rings.size(), GetParam().rings);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, OutlineOfAProfile,
    testing::Values(
        Profile{"Rectangle", "IfcRectangleProfileDef", {{"XDim", "4."}, {"YDim", "2."}}, 8, 1},
        Profile{"Circle", "IfcCircleProfileDef", {{"Radius", "10."}}, 100 * pi, 1},
        Profile{"Ellipse", "IfcEllipseProfileDef", {{"SemiAxis1", "10."}, {"SemiAxis2", "5."}}, 50 * pi, 1},
        Profile{"Pipe", "IfcCircleHollowProfileDef", {{"Radius", "10."}, {"WallThickness", "1."}}, 19 * pi, 2},
        Profile{
            "Box", "IfcRectangleHollowProfileDef", {{"XDim", "10."}, {"YDim", "6."}, {"WallThickness", "1."}}, 28, 2},
        Profile{"I",
                "IfcIShapeProfileDef",
                {{"OverallWidth", "10."}, {"OverallDepth", "20."}, {"WebThickness", "1."}, {"FlangeThickness", "2."}},
                2 * 20 + 16,
                1},
        Profile{"L", "IfcLShapeProfileDef", {{"Depth", "10."}, {"Width", "6."}, {"Thickness", "1."}}, 15, 1},
        Profile{"LOfEqualLegs", "IfcLShapeProfileDef", {{"Depth", "10."}, {"Width", "$"}, {"Thickness", "1."}}, 19, 1},
        Profile{"T",
                "IfcTShapeProfileDef",
                {{"Depth", "10."}, {"FlangeWidth", "6."}, {"WebThickness", "1."}, {"FlangeThickness", "2."}},
                12 + 8,
                1},
        Profile{"U",
                "IfcUShapeProfileDef",
                {{"Depth", "10."}, {"FlangeWidth", "6."}, {"WebThickness", "1."}, {"FlangeThickness", "2."}},
                24 + 6,
                1}),
    [](const auto& tested) { return tested.param.name; });

TEST(Outline, OfABendKeepsItsInnerCorner) {
    Shaped one;
    const Id curve = one.g.polyline({"(0.,0.)", "(4.,0.)", "(4.,1.)", "(1.,1.)", "(1.,3.)", "(0.,3.)", "(0.,0.)"});
    one.item(one.g.extruded(one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}}), "1."));
    EXPECT_NEAR(areaOf(one.outline()), 6, 1e-6) << "its hull covers 9";
}

TEST(Outline, HasTheHolesOfItsProfile) {
    Shaped one;
    const Id outer = one.g.polyline({"(0.,0.)", "(10.,0.)", "(10.,10.)", "(0.,10.)"});
    const Id inner = one.g.polyline({"(2.,2.)", "(4.,2.)", "(4.,4.)", "(2.,4.)"});
    one.item(one.g.extruded(one.ifc.add("IfcArbitraryProfileDefWithVoids",
                                        {{"OuterCurve", ref(outer)}, {"InnerCurves", refs({inner})}}),
                            "1."),
             "IfcSlab");
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 96, 1e-6);
    EXPECT_EQ(outline.rings.size(), 2U);
}

/// Half a circle on a square: by points and by angles, in degrees and in radians.
TEST(Outline, FollowsArcs) {
    for (const auto& [from, to] :
         {std::pair{"(IFCPARAMETERVALUE(0.))", "(IFCPARAMETERVALUE(180.))"},
          std::pair{"(IFCPARAMETERVALUE(0.))", "(IFCPARAMETERVALUE(3.14159265358979))"}, std::pair{"(#1)", "(#2)"}}) {
        TinyModel ifc;
        ifc.raw("IFCCARTESIANPOINT((2.,0.))");
        ifc.raw("IFCCARTESIANPOINT((-2.,0.))");
        Geometry g(ifc);
        const Id circle = ifc.add("IfcCircle", {{"Position", ref(g.axes("(0.,0.,0.)"))}, {"Radius", "2."}});
        const Id arc = ifc.add("IfcTrimmedCurve", {{"BasisCurve", ref(circle)},
                                                   {"Trim1", from},
                                                   {"Trim2", to},
                                                   {"SenseAgreement", ".T."},
                                                   {"MasterRepresentation", ".PARAMETER."}});
        const auto segment = [&](Id curve) {
            return ifc.add("IfcCompositeCurveSegment",
                           {{"Transition", ".CONTINUOUS."}, {"SameSense", ".T."}, {"ParentCurve", ref(curve)}});
        };
        const Id whole = ifc.add(
            "IfcCompositeCurve",
            {{"Segments", refs({segment(arc), segment(g.polyline({"(-2.,0.)", "(-2.,-4.)", "(2.,-4.)", "(2.,0.)"}))})},
             {"SelfIntersect", ".F."}});
        const Id profile = ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(whole)}});
        ifc.element("IfcSlab", "One", {{"Representation", g.shape({g.extruded(profile, "1.")})}});
        Opened model(ifc.text());
        EXPECT_NEAR(areaOf(model->outline(0)), 16 + 2 * pi, 0.1) << from;
    }
}

TEST(Outline, FollowsIndexedArcs) {
    Shaped one;
    const Id points =
        one.ifc.add("IfcCartesianPointList2D", {{"CoordList", "((2.,0.),(0.,2.),(-2.,0.),(-2.,-4.),(2.,-4.))"}});
    const Id curve =
        one.ifc.add("IfcIndexedPolyCurve",
                    {{"Points", ref(points)}, {"Segments", "(IFCARCINDEX((1,2,3)),IFCLINEINDEX((3,4,5,1)))"}});
    one.item(one.g.extruded(one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}}), "1."));
    EXPECT_NEAR(areaOf(one.outline()), 16 + 2 * pi, 0.1);
}

TEST(Outline, OfASlantedExtrusionCoversWhatItsSidesPassOver) {
    Shaped one;
    one.item(one.g.extruded(one.g.rectangle("2.", "2."), "5.", "(3.,0.,4.)"));
    EXPECT_NEAR(areaOf(one.outline()), 5 * 2, 1e-6);
}

/// A beam that lies along x: its profile stands upright.
TEST(Outline, OfALyingBeamIsItsLengthByItsWidth) {
    Shaped one;
    const Id lying = one.g.axes("(0.,0.,0.)", "(1.,0.,0.)", "(0.,1.,0.)");
    one.item(one.g.extruded(one.g.rectangle("0.3", "0.5"), "6.", "(0.,0.,1.)", lying), "IfcBeam");
    EXPECT_NEAR(areaOf(one.outline()), 6 * 0.3, 1e-6);
}

TEST(Outline, OfFacesIsWhatTheyCoverTogether) {
    Shaped one;
    const Id points =
        one.ifc.add("IfcCartesianPointList3D",
                    {{"CoordList", "((0.,0.,0.),(4.,0.,0.),(4.,1.,0.),(1.,1.,2.),(1.,3.,0.),(0.,3.,0.))"}});
    one.item(one.ifc.add("IfcTriangulatedFaceSet",
                         {{"Coordinates", ref(points)}, {"CoordIndex", "((1,2,3),(1,3,4),(1,4,6),(4,5,6),(1,4,3))"}}));
    const PlanOutline outline = one.outline();
    EXPECT_FALSE(outline.hull);
    EXPECT_NEAR(areaOf(outline), 6, 1e-6) << "the hull covers 9";
    EXPECT_EQ(outline.rings.size(), 1U);
}

TEST(Outline, OfAFacetedBrepFollowsItsFaces) {
    Shaped one;
    const auto face = [&](const std::vector<std::string>& corners) {
        Ids ids;
        for (const std::string& corner : corners) ids.push_back(one.g.point(corner));
        const Id loop = one.ifc.add("IfcPolyLoop", {{"Polygon", refs(ids)}});
        const Id bound = one.ifc.add("IfcFaceOuterBound", {{"Bound", ref(loop)}, {"Orientation", ".T."}});
        return one.ifc.add("IfcFace", {{"Bounds", refs({bound})}});
    };
    const Ids faces{face({"(0.,0.,1.)", "(2.,0.,1.)", "(2.,2.,1.)", "(0.,2.,1.)"}),
                    face({"(0.,0.,0.)", "(0.,2.,0.)", "(2.,2.,0.)", "(2.,0.,0.)"}),
                    face({"(0.,0.,0.)", "(2.,0.,0.)", "(2.,0.,1.)", "(0.,0.,1.)"}),
                    face({"(2.,0.,0.)", "(5.,0.,0.)", "(5.,1.,1.)", "(2.,1.,1.)"})};
    const Id shell = one.ifc.add("IfcClosedShell", {{"CfsFaces", refs(faces)}});
    one.item(one.ifc.add("IfcFacetedBrep", {{"Outer", ref(shell)}}));
    EXPECT_NEAR(areaOf(one.outline()), 4 + 3, 1e-6);
}

/// A face that crosses itself goes round one of its halves the wrong way.
TEST(Outline, OfATwistedFaceTakesNothingAway) {
    Shaped one;
    const Id points = one.ifc.add("IfcCartesianPointList3D",
                                  {{"CoordList", "((0.,0.,0.),(4.,0.,0.),(4.,4.,0.),(0.,4.,0.),(0.,3.,0.))"}});
    const auto face = [&](const std::string& corners) {
        return one.ifc.add("IfcIndexedPolygonalFace", {{"CoordIndex", corners}});
    };
    one.item(one.ifc.add("IfcPolygonalFaceSet",
                         {{"Coordinates", ref(points)}, {"Faces", refs({face("(1,2,3,4)"), face("(1,3,2,5)")})}}));
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 16, 1e-6);
    EXPECT_EQ(outline.rings.size(), 1U);
}

TEST(Outline, OfAPipeIsAsWideAsThePipe) {
    Shaped one;
    const Id line = one.g.polyline({"(0.,0.,0.)", "(10.,0.,0.)", "(10.,10.,0.)"});
    one.item(one.ifc.add("IfcSweptDiskSolid", {{"Directrix", ref(line)}, {"Radius", "0.1"}}), "IfcPipeSegment");
    EXPECT_NEAR(areaOf(one.outline()), 4, 0.05);
}

TEST(Outline, OfARevolvedProfileIsTheRingItPassesOver) {
    Shaped one;
    const Id profile = one.ifc.add(
        "IfcRectangleProfileDef",
        {{"XDim", "1."},
         {"YDim", "1."},
         {"Position", ref(one.ifc.add("IfcAxis2Placement2D", {{"Location", ref(one.g.point("(5.,0.)"))}}))}});
    const Id axis = one.ifc.add("IfcAxis1Placement", {{"Location", ref(one.g.point("(0.,0.,0.)"))},
                                                      {"Axis", ref(one.g.direction("(0.,1.,0.)"))}});
    const Id standing = one.g.axes("(0.,0.,0.)", "(0.,-1.,0.)", "(1.,0.,0.)");
    one.item(one.ifc.add("IfcRevolvedAreaSolid", {{"SweptArea", ref(profile)},
                                                  {"Position", ref(standing)},
                                                  {"Axis", ref(axis)},
                                                  {"Angle", "6.28318530717959"}}));
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), pi * (5.5 * 5.5 - 4.5 * 4.5), 0.4);
    EXPECT_EQ(outline.rings.size(), 2U);
}

TEST(Outline, OfAWallIsCutByItsDoorsAndWindows) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        Geometry g(ifc);
        const Id wall = ifc.element("IfcWall", "Wall",
                                    {{"Representation", g.shape({g.extruded(g.rectangle("10.", "0.3"), "3.")})}});
        const auto opening = [&](const std::string& location, const std::string& height) {
            const Id shape = g.extruded(g.rectangle("1.", "1."), height, "(0.,0.,1.)", g.axes(location));
            const Id id = ifc.element("IfcOpeningElement", "Opening", {{"Representation", g.shape({shape})}});
            ifc.add("IfcRelVoidsElement", {{"RelatingBuildingElement", ref(wall)}, {"RelatedOpeningElement", ref(id)}});
        };
        opening("(-3.,0.,0.)", "2.1");  // A door.
        opening("(2.,0.,0.9)", "1.2");  // A window.
        opening("(4.,0.,2.5)", "0.4");  // High up.
        opening("(0.,0.,0.)", "0.3");   // Along the floor.
        Opened model(ifc.text());
        const PlanOutline outline = model->outline(model.find("Wall"));
        EXPECT_NEAR(areaOf(outline), 8 * 0.3, 1e-6) << schema;
        EXPECT_EQ(outline.rings.size(), 3U) << schema;
    }
}

TEST(Outline, FarFromTheOriginIsAsExact) {
    TinyModel ifc;
    Geometry g(ifc);
    ifc.element("IfcWall", "Wall",
                {{"ObjectPlacement", ref(g.placement(g.axes("(3500000.,5800000.,0.)")))},
                 {"Representation", g.shape({g.extruded(g.rectangle("4.", "0.2"), "3.")})}});
    Opened model(ifc.text());
    EXPECT_NEAR(areaOf(model->outline(0)), 0.8, 1e-3);
}

TEST(Outline, IsTheHullWhereTheKindOfGeometryIsNotKnown) {
    Shaped one;
    const Id curve = one.ifc.add(
        "IfcBSplineCurveWithKnots",
        {{"ControlPointsList", refs({one.g.point("(0.,0.)"), one.g.point("(4.,0.)"), one.g.point("(0.,4.)")})}});
    one.item(one.g.extruded(one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}}), "1."));
    const PlanOutline outline = one.outline();
    EXPECT_TRUE(outline.hull);
    EXPECT_NEAR(areaOf(outline), 8, 1e-6);
}

TEST(Outline, IsNoneWithoutGeometryAndEndsInACircle) {
    TinyModel ifc;
    ifc.element("IfcWall", "Bare");
    EXPECT_TRUE(Opened(ifc.text())->outline(0).rings.empty());
    TinyModel round;
    round.raw("IFCBOOLEANRESULT(.UNION.,#1,#2)");
    round.raw("IFCBOOLEANRESULT(.UNION.,#2,#1)");
    round.raw("IFCSHAPEREPRESENTATION($,'Body',$,(#1))");
    round.raw("IFCPRODUCTDEFINITIONSHAPE($,$,(#3))");
    round.element("IfcWall", "Round", {{"Representation", "#4"}});
    EXPECT_TRUE(Opened(round.text())->outline(0).rings.empty());
}

/// So many corners can be put together, and no more.
TEST(Outline, OfALargeGeometryIsTheHull) {
    constexpr int Most = 3000;
    for (const int count : {Most - 1, Most, Most + 1}) {
        std::vector<Point> corners;
        for (int i = 0; i < count; ++i) {
            const double x = 2 * (i % 100), y = 2 * static_cast<double>(i / 100);
            corners.insert(corners.end(), {{x, y, 0}, {x + 1, y, 0}, {x, y + 1, 0}});
        }
        Shaped one;
        one.item(triangles(one.ifc, corners));
        const PlanOutline outline = one.outline();
        EXPECT_EQ(outline.hull, count > Most);
        EXPECT_NEAR(areaOf(outline), count > Most ? 199 * 59.5 : count * 0.5, 200);
    }
}

/// A grid of bars has a hole for each two that cross: far more corners than the bars.
TEST(Outline, OfWhatIsMadeToBeIntricateIsTheHull) {
    std::vector<Point> corners;
    for (int i = 0; i < 60; ++i) {
        const double at = i;
        corners.insert(corners.end(),
                       {{at, -1, 0}, {at + 0.1, -1, 0}, {at, 61, 0}, {-1, at, 0}, {-1, at + 0.1, 0}, {61, at, 0}});
    }
    Shaped one;
    one.item(triangles(one.ifc, corners));
    const PlanOutline outline = one.outline();
    EXPECT_TRUE(outline.hull);
    EXPECT_EQ(outline.rings.size(), 1U);
}

}  // namespace
