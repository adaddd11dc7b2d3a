#include "Geometry.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

using model::Point;

std::string text(const Point& p) {
    const auto number = [](double value) {
        const double rounded = std::round(value * 1000) / 1000;
        return std::to_string(rounded == 0 ? 0.0 : rounded).substr(0, rounded < 0 ? 6 : 5);
    };
    return number(p.x) + " " + number(p.y) + " " + number(p.z);
}

std::string text(const std::optional<Point>& point) {
    return point ? text(*point) : "none";
}

/// The corners, from the lowest x (then y) on.
std::vector<std::string> footprint(const std::string& ifc) {
    Opened model(ifc);
    auto corners = model->footprint(0);
    const auto first = std::min_element(corners.begin(), corners.end(), [](const Point& a, const Point& b) {
        return std::tie(a.x, a.y) < std::tie(b.x, b.y);
    });
    std::rotate(corners.begin(), first, corners.end());
    std::vector<std::string> texts;
    for (const Point& corner : corners) texts.push_back(text(corner));
    return texts;
}

TEST(Placement, AppliesTheChainFromTheInnermost) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        Geometry g(ifc);
        const Id site = g.placement(g.axes("(10.,0.,0.)"));
        const Id storey = g.placement(g.axes("(0.,5.,3.)", "(0.,0.,1.)", "(0.,1.,0.)"), site);  // turned left by 90°
        ifc.element("IfcWall", "Wall", {{"ObjectPlacement", ref(g.placement(g.axes("(1.,2.)"), storey))}});
        Opened model(ifc);
        EXPECT_EQ(text(model->placement(0)), "8.000 6.000 3.000") << schema;
    }
}

TEST(Placement, OfATiltedAxisIsThreeDimensional) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id outer = g.placement(g.axes("(0.,0.,0.)", "(1.,0.,0.)", "(0.,1.,0.)"));  // z along x, x along y, y along z
    ifc.element("IfcWall", "Wall", {{"ObjectPlacement", ref(g.placement(g.axes("(1.,2.,3.)"), outer))}});
    Opened model(ifc);
    EXPECT_EQ(text(model->placement(0)), "3.000 1.000 2.000");
}

TEST(Placement, IsNoneWhereTheChainIsMissingBrokenOrCircular) {
    TinyModel ifc;
    Geometry g(ifc);
    ifc.element("IfcWall", "None");
    ifc.element("IfcWall", "Dangling", {{"ObjectPlacement", "#999"}});
    const Id axes = g.axes("(1.,2.,3.)");
    ifc.element("IfcWall", "Broken", {{"ObjectPlacement", ref(g.placement(axes, 999))}});
    ifc.element("IfcWall", "Grid", {{"ObjectPlacement", ref(ifc.add("IfcGridPlacement"))}});
    Opened model(ifc);
    for (const std::string_view name : {"None", "Dangling", "Broken", "Grid"}) {
        EXPECT_EQ(text(model->placement(model.find(name))), "none") << name;
    }
    TinyModel round;
    round.raw("IFCLOCALPLACEMENT(#2,#4)");
    round.raw("IFCLOCALPLACEMENT(#1,#4)");
    Geometry(round).axes("(1.,0.,0.)");
    round.element("IfcWall", "Round", {{"ObjectPlacement", "#1"}});
    Opened circular(round);
    EXPECT_EQ(text(circular->placement(0)), "none");
}

TEST(Footprint, OfAnExtrudedRectangleIsTheRectangleWhereItStands) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        Geometry g(ifc);
        ifc.element("IfcWall", "Wall",
                    {{"ObjectPlacement", ref(g.placement(g.axes("(10.,20.,3.)")))},
                     {"Representation", g.shape({g.extruded(g.rectangle("4.", "2."), "2.5")})}});
        EXPECT_THAT(footprint(ifc.text()), testing::ElementsAre("8.000 19.00 3.000", "12.00 19.00 3.000",
                                                                "12.00 21.00 3.000", "8.000 21.00 3.000"))
            << schema;
    }
}

TEST(Footprint, OfASlantedExtrusionReachesToItsTop) {
    TinyModel ifc;
    Geometry g(ifc);
    ifc.element("IfcWall", "Wall",
                {{"Representation", g.shape({g.extruded(g.rectangle("2.", "2."), "5.", "(3.,0.,4.)")})}});
    EXPECT_THAT(footprint(ifc.text()), testing::ElementsAre("-1.000 -1.000 0.000", "4.000 -1.000 0.000",
                                                            "4.000 1.000 0.000", "-1.000 1.000 0.000"));
}

TEST(Footprint, OfAMappedItemIsScaledAndMoved) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id source =
        ifc.add("IfcRepresentationMap",
                {{"MappingOrigin", ref(g.axes("(0.,0.,0.)"))},
                 {"MappedRepresentation", ref(g.representation({g.extruded(g.rectangle("2.", "2."), "1.")}))}});
    const auto target = [&](const std::string& origin, const std::string& scale) {
        return ifc.add("IfcMappedItem",
                       {{"MappingSource", ref(source)},
                        {"MappingTarget", ref(ifc.add("IfcCartesianTransformationOperator3D",
                                                      {{"LocalOrigin", ref(g.point(origin))}, {"Scale", scale}}))}});
    };
    ifc.element("IfcDoor", "Door",
                {{"Representation", g.shape({target("(0.,0.,1.)", "$"), target("(10.,0.,1.)", "2.")})}});
    EXPECT_THAT(footprint(ifc.text()),
                testing::ElementsAre("-1.000 -1.000 1.000", "8.000 -2.000 1.000", "12.00 -2.000 1.000",
                                     "12.00 2.000 1.000", "8.000 2.000 1.000", "-1.000 1.000 1.000"));
}

TEST(Footprint, OfFacesPointListsAndCurvesIsTheHullOfTheirPoints) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id list =
        ifc.add("IfcCartesianPointList3D", {{"CoordList", "((0.,0.,1.),(4.,0.,1.),(4.,4.,-1.),(2.,1.,0.))"}});
    const Id faces = ifc.add("IfcTriangulatedFaceSet", {{"Coordinates", ref(list)}, {"CoordIndex", "((1,2,3))"}});
    ifc.element("IfcWall", "Wall", {{"Representation", g.shape({faces, g.polyline({"(0.,4.)", "(1.,1.)"})})}});
    EXPECT_THAT(footprint(ifc.text()), testing::ElementsAre("0.000 0.000 -1.000", "4.000 0.000 -1.000",
                                                            "4.000 4.000 -1.000", "0.000 4.000 -1.000"));
}

TEST(Footprint, OfACircleStaysWithinOnePercent) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id circle = ifc.add("IfcCircleProfileDef", {{"Radius", "10."}});
    ifc.element("IfcColumn", "Column", {{"Representation", g.shape({g.extruded(circle, "1.")})}});
    Opened model(ifc);
    const auto corners = model->footprint(0);
    ASSERT_GE(corners.size(), 16U);
    double area = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point &a = corners[i], &b = corners[(i + 1) % corners.size()];
        area += (a.x * b.y - a.y * b.x) / 2;
    }
    EXPECT_GT(area, 0) << "counter-clockwise";
    EXPECT_NEAR(area, 314.159, 5);
}

TEST(Footprint, WhatADifferenceTakesAwayDoesNotCount) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id wall = g.extruded(g.rectangle("4.", "2."), "1."), hole = g.extruded(g.rectangle("40.", "20."), "1.");
    const Id result = ifc.add(
        "IfcBooleanResult", {{"Operator", ".DIFFERENCE."}, {"FirstOperand", ref(wall)}, {"SecondOperand", ref(hole)}});
    ifc.element("IfcWall", "Wall", {{"Representation", g.shape({result})}});
    EXPECT_EQ(footprint(ifc.text()).front(), "-2.000 -1.000 0.000");
}

TEST(Footprint, TheBodyCountsBeforeTheAxis) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id axis = g.representation({g.polyline({"(-100.,0.)", "(100.,0.)"})}, "Axis");
    const Id body = g.representation({g.extruded(g.rectangle("4.", "2."), "1.")});
    ifc.element(
        "IfcWall", "Wall",
        {{"Representation", ref(ifc.add("IfcProductDefinitionShape", {{"Representations", refs({axis, body})}}))}});
    EXPECT_EQ(footprint(ifc.text()).front(), "-2.000 -1.000 0.000");
}

TEST(Footprint, IsEmptyWithoutGeometryAndEndsInACircle) {
    TinyModel ifc;
    Geometry g(ifc);
    ifc.element("IfcWall", "Bare");
    EXPECT_TRUE(footprint(ifc.text()).empty());
    TinyModel round;
    round.raw("IFCBOOLEANRESULT(.UNION.,#1,#2)");
    round.raw("IFCBOOLEANRESULT(.UNION.,#2,#1)");
    round.raw("IFCSHAPEREPRESENTATION($,'Body',$,(#1))");
    round.raw("IFCPRODUCTDEFINITIONSHAPE($,$,(#3,#4))");
    round.element("IfcWall", "Round", {{"Representation", "#4"}});
    EXPECT_TRUE(footprint(round.text()).empty());
}

}  // namespace
