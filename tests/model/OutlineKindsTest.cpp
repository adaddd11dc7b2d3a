// Outlines and hulls of the kinds of geometry that are rarer than extrusions: what each covers in plan.

#include "Shaped.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <numbers>

namespace {

using model::PlanOutline;
using model::Point;

constexpr double pi = std::numbers::pi;

/// The corners of an L that covers 6; its hull covers 9.
const std::vector<std::string> Bend = {"(0.,0.)", "(4.,0.)", "(4.,1.)", "(1.,1.)", "(1.,3.)", "(0.,3.)", "(0.,0.)"};

Id bendProfile(Shaped& one) {
    return one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(one.g.polyline(Bend))}});
}

Id transformation(Shaped& one, const std::string& ifcClass, const std::string& origin, const std::string& scale) {
    return one.ifc.add(ifcClass, {{"LocalOrigin", ref(one.g.point(origin))}, {"Scale", scale}});
}

std::pair<double, double> rangeOfX(const std::vector<Point>& ring) {
    const auto [least, most] =
        std::minmax_element(ring.begin(), ring.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
    return {least->x, most->x};
}

TEST(OutlineOf, ACylinderIsACircle) {
    Shaped one;
    one.item(one.ifc.add("IfcRightCircularCylinder",
                         {{"Position", ref(one.g.axes("(5.,0.,0.)"))}, {"Height", "3."}, {"Radius", "2."}}),
             "IfcColumn");
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 4 * pi, 0.2);
    ASSERT_EQ(outline.rings.size(), 1U);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).first, 3, 1e-6);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).second, 7, 1e-6);
}

TEST(OutlineOf, AMappedItemIsScaledAndMoved) {
    Shaped one;
    const Id solid = one.g.extruded(bendProfile(one), "1.");
    const Id map = one.ifc.add("IfcRepresentationMap", {{"MappingOrigin", ref(one.g.axes("(0.,0.,0.)"))},
                                                        {"MappedRepresentation", ref(one.g.representation({solid}))}});
    const Id target = transformation(one, "IfcCartesianTransformationOperator3D", "(10.,0.,0.)", "2.");
    one.item(one.ifc.add("IfcMappedItem", {{"MappingSource", ref(map)}, {"MappingTarget", ref(target)}}));
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 24, 1e-6);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).first, 10, 1e-6);
}

TEST(OutlineOf, ADerivedProfileIsTheTransformedOne) {
    Shaped one;
    const Id profile =
        one.ifc.add("IfcDerivedProfileDef",
                    {{"ParentProfile", ref(bendProfile(one))},
                     {"Operator", ref(transformation(one, "IfcCartesianTransformationOperator2D", "(10.,0.)", "3."))}});
    one.item(one.g.extruded(profile, "1."));
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 54, 1e-6);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).second, 22, 1e-6);
}

TEST(OutlineOf, AMirroredProfileIsOnTheOtherSide) {
    Shaped one;
    one.item(one.g.extruded(one.ifc.add("IfcMirroredProfileDef", {{"ParentProfile", ref(bendProfile(one))}}), "1."));
    const PlanOutline outline = one.outline();
    EXPECT_NEAR(areaOf(outline), 6, 1e-6);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).first, -4, 1e-6);
    EXPECT_NEAR(rangeOfX(outline.rings[0]).second, 0, 1e-6);
}

/// Each side of a triangle on a line of its own, from one parameter to another.
TEST(OutlineOf, TrimmedLinesGoByTheirVectors) {
    Shaped one;
    const auto side = [&](const std::string& from, const std::string& direction, const std::string& magnitude) {
        const Id vector =
            one.ifc.add("IfcVector", {{"Orientation", ref(one.g.direction(direction))}, {"Magnitude", magnitude}});
        const Id line = one.ifc.add("IfcLine", {{"Pnt", ref(one.g.point(from))}, {"Dir", ref(vector)}});
        const Id trimmed = one.ifc.add("IfcTrimmedCurve", {{"BasisCurve", ref(line)},
                                                           {"Trim1", "(IFCPARAMETERVALUE(0.))"},
                                                           {"Trim2", "(IFCPARAMETERVALUE(2.))"},
                                                           {"SenseAgreement", ".T."},
                                                           {"MasterRepresentation", ".PARAMETER."}});
        return one.ifc.add("IfcCompositeCurveSegment",
                           {{"Transition", ".CONTINUOUS."}, {"SameSense", ".T."}, {"ParentCurve", ref(trimmed)}});
    };
    const Ids sides = {side("(0.,0.)", "(1.,0.)", "3."), side("(6.,0.)", "(0.,1.)", "4."),
                       side("(6.,8.)", "(-6.,-8.)", "5.")};
    const Id curve = one.ifc.add("IfcCompositeCurve", {{"Segments", refs(sides)}, {"SelfIntersect", ".F."}});
    one.item(one.g.extruded(one.ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(curve)}}), "1."));
    EXPECT_NEAR(areaOf(one.outline()), 24, 1e-6);
}

/// A face between half a circle and its diameter, as solids with curved faces have them; its edges run either way.
class FaceOfEdges {
public:
    explicit FaceOfEdges(bool againstTheirSense) : reversed_(againstTheirSense) {
        const Id left = vertex("(-2.,0.,0.)"), right = vertex("(2.,0.,0.)");
        const Id circle = one.ifc.add("IfcCircle", {{"Position", ref(one.g.axes("(0.,0.,0.)"))}, {"Radius", "2."}});
        const Ids edges = {edge(right, left, circle), edge(left, right, one.g.polyline({"(-2.,0.,0.)", "(2.,0.,0.)"}))};
        const Id loop = one.ifc.add("IfcEdgeLoop", {{"EdgeList", refs(edges)}});
        const Id bound = one.ifc.add("IfcFaceOuterBound", {{"Bound", ref(loop)}, {"Orientation", ".T."}});
        const Id face = one.ifc.add("IfcFace", {{"Bounds", refs({bound})}});
        const Id shell = one.ifc.add("IfcOpenShell", {{"CfsFaces", refs({face})}});
        one.item(one.ifc.add("IfcShellBasedSurfaceModel", {{"SbsmBoundary", refs({shell})}}), "IfcSlab");
    }

    Shaped one;

private:
    Id vertex(const std::string& at) {
        return one.ifc.add("IfcVertexPoint", {{"VertexGeometry", ref(one.g.point(at))}});
    }
    Id edge(Id from, Id to, Id curve) {
        if (reversed_) std::swap(from, to);
        const Id element = one.ifc.add("IfcEdgeCurve", {{"EdgeStart", ref(from)},
                                                        {"EdgeEnd", ref(to)},
                                                        {"EdgeGeometry", ref(curve)},
                                                        {"SameSense", reversed_ ? ".F." : ".T."}});
        return one.ifc.add("IfcOrientedEdge",
                           {{"EdgeElement", ref(element)}, {"Orientation", reversed_ ? ".F." : ".T."}});
    }

    bool reversed_;
};

TEST(OutlineOf, AFaceFollowsItsEdgesEitherWay) {
    for (const bool reversed : {false, true}) {
        const PlanOutline outline = FaceOfEdges(reversed).one.outline();
        EXPECT_NEAR(areaOf(outline), 2 * pi, 0.1) << reversed;
    }
}

/// Four corners and a point that no face has, picked by another list.
class PickedPoints : public testing::TestWithParam<const char*> {
protected:
    double covered(const std::string& pnIndex) {
        Shaped one;
        const Id points = one.ifc.add("IfcCartesianPointList3D",
                                      {{"CoordList", "((9.,9.,9.),(0.,0.,0.),(2.,0.,0.),(2.,3.,0.),(0.,3.,0.))"}});
        Values values{{"Coordinates", ref(points)}, {"PnIndex", pnIndex}};
        if (GetParam() == std::string("IfcPolygonalFaceSet")) {
            const Id face = one.ifc.add("IfcIndexedPolygonalFace", {{"CoordIndex", "(1,2,3,4)"}});
            values.emplace_back("Faces", refs({face}));
        } else {
            values.emplace_back("CoordIndex", "((1,2,3),(1,3,4))");
        }
        one.item(one.ifc.add(GetParam(), values));
        return areaOf(one.outline());
    }
};

TEST_P(PickedPoints, AreTheCornersOfFaces) {
    EXPECT_NEAR(covered("(2,3,4,5)"), 6, 1e-6);
}

TEST_P(PickedPoints, LeaveTheHullOfAllWhereOneIsNotInTheList) {
    for (const char* wrong : {"(2,3,4,6)", "(0,3,4,5)", "(2,3,4,'x')", "()"}) EXPECT_NEAR(covered(wrong), 22.5, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Sets, PickedPoints, testing::Values("IfcPolygonalFaceSet", "IfcTriangulatedFaceSet"),
                         [](const auto& row) { return std::string(row.param); });

class HullOf : public testing::Test {
protected:
    std::vector<Point> hull() const {
        Opened model(one_.ifc.text());
        return model->footprint(0);
    }
    double covered() const {
        PlanOutline outline;
        outline.rings.push_back(hull());
        return areaOf(outline);
    }

    Shaped one_;
};

TEST_F(HullOf, ABoundingBoxIsTheBox) {
    one_.item(
        one_.ifc.add("IfcBoundingBox",
                     {{"Corner", ref(one_.g.point("(1.,2.,3.)"))}, {"XDim", "4."}, {"YDim", "5."}, {"ZDim", "6."}}));
    EXPECT_NEAR(covered(), 20, 1e-6);
    EXPECT_NEAR(hull().at(0).z, 3, 1e-6);
}

TEST_F(HullOf, AnArcIsNotThatOfItsCircle) {
    const Id circle = one_.ifc.add("IfcCircle", {{"Position", ref(one_.g.axes("(0.,0.,0.)"))}, {"Radius", "2."}});
    one_.item(one_.ifc.add("IfcTrimmedCurve", {{"BasisCurve", ref(circle)},
                                               {"Trim1", "(IFCPARAMETERVALUE(0.))"},
                                               {"Trim2", "(IFCPARAMETERVALUE(3.14159265358979))"},
                                               {"SenseAgreement", ".T."},
                                               {"MasterRepresentation", ".PARAMETER."}}));
    EXPECT_NEAR(covered(), 2 * pi, 0.1);
}

TEST_F(HullOf, ADerivedProfileIsTheTransformedOnes) {
    const Id profile = one_.ifc.add(
        "IfcDerivedProfileDef",
        {{"ParentProfile", ref(one_.g.rectangle("2.", "1."))},
         {"Operator", ref(transformation(one_, "IfcCartesianTransformationOperator2D", "(10.,0.)", "3."))}});
    one_.item(one_.g.extruded(profile, "1."));
    EXPECT_NEAR(covered(), 18, 1e-6);
    EXPECT_NEAR(rangeOfX(hull()).first, 7, 1e-6);
}

}  // namespace
