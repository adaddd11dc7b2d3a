// Short files made to cost the outline of an element long times: what is named again and again, and what crosses
// itself. Read each time in full they would take minutes; a budget for each element, and what is kept of a geometry
// that many show, make it fractions of a second.

#include "Shaped.hpp"

#include "model/ifc/plan/Outlines.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace {

using model::Point;
using model::ifc::Outlines;

/// "(1,1,1)"
std::string listOf(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += (i == 0 ? "" : ",") + text;
    return "(" + all + ")";
}

Id voids(Shaped& one, std::size_t count, Id curve) {
    const Id outer = one.g.polyline({"(0.,0.)", "(4.,0.)", "(4.,4.)", "(0.,4.)"});
    return one.g.extruded(one.ifc.add("IfcArbitraryProfileDefWithVoids",
                                      {{"OuterCurve", ref(outer)}, {"InnerCurves", refs(Ids(count, curve))}}),
                          "1.");
}

Id toAndFro(Shaped& one, std::size_t corners) {
    const Id a = one.g.point("(0.,0.)"), b = one.g.point("(1.,0.)");
    Ids points;
    for (std::size_t i = 0; i < corners; ++i) points.push_back(i % 2 == 0 ? a : b);
    return one.ifc.add("IfcPolyline", {{"Points", refs(points)}});
}

Id composite(Shaped& one, std::size_t count, Id curve) {
    const Id segment = one.ifc.add("IfcCompositeCurveSegment", {{"SameSense", ".T."}, {"ParentCurve", ref(curve)}});
    const Id whole = one.ifc.add("IfcCompositeCurve", {{"Segments", refs(Ids(count, segment))}});
    const Id profile = one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(whole)}});
    return one.g.extruded(profile, "1.");
}

Id faceModel(Shaped& one, std::size_t count, Id face) {
    const Id set = one.ifc.add("IfcConnectedFaceSet", {{"CfsFaces", refs(Ids(count, face))}});
    return one.ifc.add("IfcFaceBasedSurfaceModel", {{"FbsmFaces", refs({set})}});
}

struct Nasty {
    const char* name;
    std::function<void(Shaped&)> make;
};

const Nasty Table[] = {
    {"VoidsOfOneLongLine", [](Shaped& one) { one.item(voids(one, 20'000, toAndFro(one, 20'000))); }},
    {"VoidsOfOneCircle",
     [](Shaped& one) {
         one.item(voids(one, 500'000,
                        one.ifc.add("IfcCircle", {{"Position", ref(one.g.axes("(0.,0.,0.)"))}, {"Radius", "1."}})));
     }},
    {"EmptyLoopsOfOneFace",
     [](Shaped& one) {
         const Id loop = one.ifc.add("IfcPolyLoop", {{"Polygon", "()"}});
         const Id bound = one.ifc.add("IfcFaceBound", {{"Bound", ref(loop)}, {"Orientation", ".T."}});
         const Id face = one.ifc.add("IfcFace", {{"Bounds", refs(Ids(20'000, bound))}});
         one.item(faceModel(one, 20'000, face));
     }},
    {"HolesOfOneIndexedFace",
     [](Shaped& one) {
         const Id list = one.ifc.add("IfcCartesianPointList3D", {{"CoordList", "((0.,0.,0.))"}});
         const Id face = one.ifc.add("IfcIndexedPolygonalFaceWithVoids",
                                     {{"CoordIndex", "()"}, {"InnerCoordIndices", listOf(60'000, "()")}});
         one.item(one.ifc.add("IfcPolygonalFaceSet", {{"Coordinates", ref(list)}, {"Faces", refs(Ids(20'000, face))}}));
     }},
    {"SurfacesOfOneListOfPoints",
     [](Shaped& one) {
         const Id list = one.ifc.add("IfcCartesianPointList3D", {{"CoordList", listOf(50'000, "(0.,0.,0.)")}});
         const Id surface = one.ifc.add("IfcTriangulatedFaceSet", {{"Coordinates", ref(list)}, {"CoordIndex", "()"}});
         one.items(Ids(40'000, surface));
     }},
    {"CurvesOfOneListOfPoints",
     [](Shaped& one) {
         const Id list =
             one.ifc.add("IfcCartesianPointList2D", {{"CoordList", "((1.,0.)," + listOf(50'000, "(0.,0.)").substr(1)}});
         one.item(composite(
             one, 20'000,
             one.ifc.add("IfcIndexedPolyCurve", {{"Points", ref(list)}, {"Segments", "(IFCLINEINDEX((1,2)))"}})));
     }},
    {"SegmentsOfOneCurve",
     [](Shaped& one) {
         const Id a = one.g.point("(0.,0.)");
         Ids points(20'000, a);
         points.push_back(one.g.point("(1.,0.)"));
         one.item(composite(one, 20'000, one.ifc.add("IfcPolyline", {{"Points", refs(points)}})));
     }},
    {"MappedItemsOfOneRepresentation",
     [](Shaped& one) {
         const Id shown = one.g.representation(Ids(50'000, one.g.point("(0.,0.,0.)")));
         const Id map = one.ifc.add("IfcRepresentationMap", {{"MappingOrigin", ref(one.g.axes("(0.,0.,0.)"))},
                                                             {"MappedRepresentation", ref(shown)}});
         Ids items{one.ifc.add("IfcHalfSpaceSolid")};
         for (int i = 0; i < 20'000; ++i) items.push_back(one.ifc.add("IfcMappedItem", {{"MappingSource", ref(map)}}));
         one.items(items);
     }},
    {"PlacementsAtOneLongPoint",
     [](Shaped& one) {
         const Id longOne = one.ifc.add("IfcCartesianPoint", {{"Coordinates", listOf(200'000, "0.")}});
         const Id line = one.ifc.add("IfcPolyline", {{"Points", refs(Ids(2, longOne))}});
         const Id axes = one.ifc.add("IfcAxis2Placement3D", {{"Location", ref(longOne)}});
         Ids items{line};
         for (int i = 0; i < 20'000; ++i) {
             items.push_back(one.ifc.add(
                 "IfcBlock", {{"Position", ref(axes)}, {"XLength", "1."}, {"YLength", "1."}, {"ZLength", "1."}}));
         }
         one.items(items);
     }},
    {"RepresentationsNamedAgain",
     [](Shaped& one) {
         const Id body = one.ifc.add("IfcShapeRepresentation", {{"ContextOfItems", listOf(40'000, "#1")},
                                                                {"RepresentationIdentifier", "'Body'"}});
         const Id shape = one.ifc.add("IfcProductDefinitionShape", {{"Representations", refs(Ids(300'000, body))}});
         one.ifc.element("IfcWall", "One", {{"Representation", ref(shape)}});
     }},
    {"AFaceThatCrossesItself", [](Shaped& one) { one.item(faces(one.ifc, {star(8999, 4499)})); }},
    {"ManyFacesThatCrossThemselves",
     [](Shaped& one) { one.item(faces(one.ifc, std::vector<Corners>(30, star(1999, 999)))); }},
    {"AFaceOfTooManyCorners", [](Shaped& one) { one.item(faces(one.ifc, {star(59'999, 1)})); }},
};

class OutlineGrowth : public ::testing::TestWithParam<Nasty> {};

TEST_P(OutlineGrowth, IsBounded) {
    Shaped one;
    GetParam().make(one);
    Opened model(one.ifc);
    const testing_support::Stopwatch watch;
    const auto outline = model->outline(0);
    EXPECT_TRUE(outline.hull || outline.rings.empty());
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

INSTANTIATE_TEST_SUITE_P(Shapes, OutlineGrowth, ::testing::ValuesIn(Table),
                         [](const auto& row) { return row.param.name; });

/// A side that stands upright on a slanted line crosses itself at random where it is rounded; nothing is to be seen.
TEST(Outline, PassesOverASideThatStandsUpright) {
    constexpr int Count = 1000;
    Corners side;
    for (int i = 0; i < Count; ++i) {
        const double along = i * 37 % Count * 0.05;
        side.push_back({along, 0.3 * along, 1. * i});
    }
    Shaped one;
    one.item(faces(one.ifc, {{{0, 0, 0}, {60, 18, 0}, {59.9, 18.3, 0}, {-0.1, 0.3, 0}}, side}));
    const auto outline = one.outline();
    EXPECT_FALSE(outline.hull);
    EXPECT_NEAR(areaOf(outline), 60 * 0.3 + 18 * 0.1, 0.01);
}

// --- What many elements show ---

/// Overlapping triangles, which take a while to be put together.
Id spiral(TinyModel& ifc, int count) {
    Corners corners;
    for (int i = 0; i < count; ++i) {
        for (int j = i; j < i + 3; ++j)
            corners.push_back({std::sqrt(j) * std::cos(2.4 * j), std::sqrt(j) * std::sin(2.4 * j), 0});
    }
    return triangles(ifc, corners);
}

/// A map of these items.
Id mapOf(Geometry& g, TinyModel& ifc, const Ids& items) {
    return ifc.add("IfcRepresentationMap", {{"MappingOrigin", ref(g.axes("(0.,0.,0.)"))},
                                            {"MappedRepresentation", ref(g.representation(items))}});
}

Id placedAs(TinyModel& ifc, Id map, Id operation = 0) {
    return ifc.add("IfcMappedItem",
                   {{"MappingSource", ref(map)}, {"MappingTarget", operation == 0 ? "$" : ref(operation)}});
}

std::string at(int x, int y) {
    return "(" + std::to_string(x) + ".," + std::to_string(y) + ".,0.)";
}

TEST(OutlinesOfOneGeometry, ArePutTogetherOnce) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id map = mapOf(g, ifc, {spiral(ifc, 1000)});
    constexpr int Many = 2000;
    for (int i = 0; i < Many; ++i) {
        ifc.element("IfcWindow", "Window",
                    {{"ObjectPlacement", ref(g.placement(g.axes(at(100 * i, i))))},
                     {"Representation", g.shape({placedAs(ifc, map)})}});
    }
    Opened model(ifc);
    model::ifc::Workspace& work = model->workspace();
    Outlines outlines(work);
    const testing_support::Stopwatch watch;
    const auto first = outlines.of(work.elements.slot(0));
    const std::size_t kept = outlines.kept();
    ASSERT_FALSE(first.hull);
    EXPECT_GT(kept, first.rings[0].size());
    for (model::Element element = 1; element < Many; ++element) {
        const auto outline = outlines.of(work.elements.slot(element));
        ASSERT_EQ(outline.rings.size(), first.rings.size());
        const Point &corner = outline.rings[0][0], &same = first.rings[0][0];
        ASSERT_NEAR(corner.x - same.x, 100. * static_cast<double>(element), 1e-6);
        ASSERT_NEAR(corner.y - same.y, static_cast<double>(element), 1e-6);
    }
    EXPECT_EQ(outlines.kept(), kept) << "nothing new was to be put together";
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

/// Whichever way they are turned about the vertical, in mirror image or not.
TEST(OutlinesOfOneGeometry, ArePutTogetherOnceForAllTurns) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id map = mapOf(g, ifc, {spiral(ifc, 1000)});
    const Id mirror = ifc.add("IfcCartesianTransformationOperator3D", {{"Axis1", ref(g.direction("(-1.,0.,0.)"))},
                                                                       {"Axis2", ref(g.direction("(0.,1.,0.)"))},
                                                                       {"LocalOrigin", ref(g.point(at(0, 0)))},
                                                                       {"Scale", "1.2345"}});
    constexpr int Many = 2000;
    for (int i = 0; i < Many; ++i) {
        const double angle = 0.7 + 0.003 * (i / 2);
        const std::string along =
            "(" + std::to_string(std::cos(angle)) + "," + std::to_string(std::sin(angle)) + ",0.)";
        ifc.element("IfcWindow", "Window",
                    {{"ObjectPlacement", ref(g.placement(g.axes(at(i, i), "(0.,0.,1.)", along)))},
                     {"Representation", g.shape({placedAs(ifc, map, i % 2 == 0 ? 0 : mirror)})}});
    }
    Opened model(ifc);
    model::ifc::Workspace& work = model->workspace();
    Outlines outlines(work);
    const testing_support::Stopwatch watch;
    const auto outline = [&](model::Element element) { return outlines.of(work.elements.slot(element)); };
    const std::array areas{areaOf(outline(0)), areaOf(outline(1))};
    EXPECT_NEAR(areas[1], areas[0] * 1.2345 * 1.2345, areas[0] * 1e-4);
    std::size_t kept = 0;
    for (model::Element element = 2; element < Many; ++element) {
        ASSERT_NEAR(areaOf(outline(element)), areas[element % 2], 1e-3);
        if (element == Outlines::MostAslant + 2) kept = outlines.kept();
    }
    EXPECT_EQ(outlines.kept(), kept) << "nothing new was to be put together";
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

/// Each of them is put together for itself, and then one for all others.
TEST(OutlinesOfOneGeometry, AreExactForTheFirstTurns) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id map = mapOf(g, ifc, {g.extruded(g.rectangle("4.", "1."), "1.")});
    constexpr std::size_t Many = Outlines::MostAslant + 4;
    for (std::size_t i = 1; i <= Many; ++i) {
        const std::string along = "(" + std::to_string(i) + ".,100.,0.)";
        ifc.element("IfcWindow", "Window",
                    {{"ObjectPlacement", ref(g.placement(g.axes(at(0, 0), "(0.,0.,1.)", along)))},
                     {"Representation", g.shape({placedAs(ifc, map)})}});
    }
    Opened model(ifc);
    model::ifc::Workspace& work = model->workspace();
    Outlines outlines(work);
    std::size_t one = 0;
    for (std::size_t i = 1; i <= Many; ++i) {
        const auto outline = outlines.of(work.elements.slot(static_cast<model::Element>(i - 1)));
        EXPECT_NEAR(areaOf(outline), 4, 1e-6);
        if (i == 1) one = outlines.kept();
        EXPECT_EQ(outlines.kept(), std::min(i, Outlines::MostAslant + 1) * one) << i;
    }
}

/// By points on an L, from which its turns can be told.
TEST(OutlinesOfOneGeometry, AreTurnedMirroredScaledAndCutAsTheirElements) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id curve = g.polyline({"(0.,0.)", "(4.,0.)", "(4.,1.)", "(1.,1.)", "(1.,3.)", "(0.,3.)"});
    const Id map =
        mapOf(g, ifc, {g.extruded(ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}}), "1.")});
    const auto element = [&](const std::string& name, Id axes, Id operation = 0) {
        return ifc.element("IfcWall", name,
                           {{"ObjectPlacement", ref(g.placement(axes))},
                            {"Representation", g.shape({placedAs(ifc, map, operation)})}});
    };
    element("Straight", g.axes(at(10, 20)));
    element("Turned", g.axes(at(10, 20), "(0.,0.,1.)", "(0.,1.,0.)"));
    element("Aslant", g.axes(at(10, 20), "(0.,0.,1.)", "(3.,4.,0.)"));
    element("Mirrored", g.axes(at(10, 20)),
            ifc.add("IfcCartesianTransformationOperator3D", {{"Axis1", ref(g.direction("(-1.,0.,0.)"))},
                                                             {"Axis2", ref(g.direction("(0.,1.,0.)"))},
                                                             {"LocalOrigin", ref(g.point(at(0, 0)))}}));
    element(
        "Doubled", g.axes(at(10, 20)),
        ifc.add("IfcCartesianTransformationOperator3D", {{"LocalOrigin", ref(g.point(at(0, 0)))}, {"Scale", "2."}}));
    const Id cut = element("Cut", g.axes(at(50, 60)));
    const auto aslant = [&] { return g.axes(at(10, 20), "(0.,0.,1.)", "(3.,4.,0.)"); };
    const Id aslantCut = element("AslantCut", aslant());
    const Id aslantOpening = ifc.element("IfcOpeningElement", "Opening",
                                         {{"ObjectPlacement", ref(g.placement(aslant()))},
                                          {"Representation", g.shape({g.extruded(g.rectangle("2.", "2."), "1.")})}});
    ifc.add("IfcRelVoidsElement",
            {{"RelatingBuildingElement", ref(aslantCut)}, {"RelatedOpeningElement", ref(aslantOpening)}});
    const Id opening = ifc.element("IfcOpeningElement", "Opening",
                                   {{"ObjectPlacement", ref(g.placement(g.axes(at(50, 60))))},
                                    {"Representation", g.shape({g.extruded(g.rectangle("2.", "2."), "1.")})}});
    ifc.add("IfcRelVoidsElement", {{"RelatingBuildingElement", ref(cut)}, {"RelatedOpeningElement", ref(opening)}});
    Opened model(ifc);
    const auto box = [&](const std::string& name) {
        const auto outline = model->outline(model.find(name));
        EXPECT_FALSE(outline.hull);
        double minX = 1e9, minY = 1e9, maxX = -1e9, maxY = -1e9;
        for (const auto& ring : outline.rings) {
            for (const Point& corner : ring) {
                minX = std::min(minX, corner.x), maxX = std::max(maxX, corner.x);
                minY = std::min(minY, corner.y), maxY = std::max(maxY, corner.y);
            }
        }
        return std::vector{minX, minY, maxX, maxY, areaOf(outline)};
    };
    const auto near = [](double a, double b, double c, double d, double area) {
        using testing::DoubleNear;
        return testing::ElementsAre(DoubleNear(a, 1e-6), DoubleNear(b, 1e-6), DoubleNear(c, 1e-6), DoubleNear(d, 1e-6),
                                    DoubleNear(area, 1e-5));
    };
    for (int again = 0; again < 2; ++again) {
        EXPECT_THAT(box("Straight"), near(10, 20, 14, 23, 6));
        EXPECT_THAT(box("Turned"), near(7, 20, 10, 24, 6));
        EXPECT_THAT(box("Aslant"), near(10 - 0.8 * 3, 20, 10 + 0.6 * 4, 20 + 0.8 * 4 + 0.6, 6));
        EXPECT_THAT(box("AslantCut"), near(10 - 0.8 * 3, 20 + 0.6 * 1, 10 + 0.6 * 4, 20 + 0.8 * 4 + 0.6, 5));
        EXPECT_THAT(box("Mirrored"), near(6, 20, 10, 23, 6));
        EXPECT_THAT(box("Doubled"), near(10, 20, 18, 26, 24));
        EXPECT_THAT(box("Cut"), near(50, 60, 54, 63, 5));
    }
}

/// Each counts as a thousand corners, of which two hundred thousand are kept.
TEST(OutlinesOfOneGeometry, AreKeptInBoundedMemory) {
    TinyModel ifc;
    Geometry g(ifc);
    for (int i = 0; i < 203; ++i) {
        ifc.element("IfcWall", "Wall", {{"Representation", g.shape({faces(ifc, {star(984, 1, 100 + i)})})}});
    }
    Opened model(ifc);
    model::ifc::Workspace& work = model->workspace();
    Outlines outlines(work);
    for (std::size_t i = 0; i < 203; ++i) {
        EXPECT_FALSE(outlines.of(work.elements.slot(static_cast<model::Element>(i))).hull);
        EXPECT_EQ(outlines.kept(), 1000 * (i <= 200 ? i + 1 : i - 200)) << i;
    }
}

TEST(OutlinesOfOneGeometry, AreKeptUntilTheFileChanges) {
    TinyModel ifc;
    Geometry g(ifc);
    for (const char* size : {"2.", "3."}) {
        ifc.element("IfcWall", "Wall", {{"Representation", g.shape({g.extruded(g.rectangle(size, "1."), "1.")})}});
    }
    Opened model(ifc);
    model::ifc::Workspace& work = model->workspace();
    Outlines outlines(work);
    EXPECT_NEAR(areaOf(outlines.of(work.elements.slot(0))), 2, 1e-6);
    const std::size_t one = outlines.kept();
    EXPECT_NEAR(areaOf(outlines.of(work.elements.slot(1))), 3, 1e-6);
    EXPECT_EQ(outlines.kept(), 2 * one);
    ASSERT_TRUE(model.setAttribute(0, "Name", "Renamed"));
    EXPECT_NEAR(areaOf(outlines.of(work.elements.slot(1))), 3, 1e-6);
    EXPECT_EQ(outlines.kept(), one);
    ASSERT_TRUE(model->undo());
    EXPECT_NEAR(areaOf(outlines.of(work.elements.slot(0))), 2, 1e-6);
    EXPECT_EQ(outlines.kept(), one);
}

}  // namespace
