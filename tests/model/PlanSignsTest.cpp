// What a plan shows beside the areas that elements cover: signs of doors and windows, steps, grids, rooms, directions.

#include "Geometry.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace {

using model::PlanKind;
using model::PlanOutline;
using model::Point;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Line = std::vector<Point>;

auto at(double x, double y) {
    return testing::AllOf(testing::Field(&Point::x, DoubleNear(x, 1e-6)),
                          testing::Field(&Point::y, DoubleNear(y, 1e-6)));
}

double lowest(const std::vector<Line>& lines, double Point::*axis) {
    double least = 1e300;
    for (const Line& line : lines)
        for (const Point& point : line) least = std::min(least, point.*axis);
    return least;
}

double highest(const std::vector<Line>& lines, double Point::*axis) {
    double most = -1e300;
    for (const Line& line : lines)
        for (const Point& point : line) most = std::max(most, point.*axis);
    return most;
}

/// A door of 1.00 by 0.10 whose leaf begins at its own origin.
class DoorModel {
public:
    explicit DoorModel(const std::string& schema = "IFC4") : ifc(schema), g(ifc) {}

    Values shaped(Id placement = 0) {
        const Id profile =
            ifc.add("IfcRectangleProfileDef",
                    {{"Position", ref(ifc.add("IfcAxis2Placement2D", {{"Location", ref(g.point("(0.5,0.05)"))}}))},
                     {"XDim", "1."},
                     {"YDim", "0.1"}});
        return {{"ObjectPlacement", ref(placement != 0 ? placement : g.placement(g.axes("(0.,0.,0.)")))},
                {"Representation", g.shape({g.extruded(profile, "2.")})},
                {"OverallWidth", "1."}};
    }
    Id door(const std::string& operation, Id placement = 0) {
        Values values = shaped(placement);
        if (!operation.empty()) values.emplace_back("OperationType", operation);
        return ifc.element("IfcDoor", "Door", values);
    }
    PlanOutline outline() {
        Opened model(ifc.text());
        return model->outline(model.find("Door"));
    }

    TinyModel ifc;
    Geometry g;
};

struct Swing {
    const char* operation;
    std::size_t lines;
    double left, right, back, front;  ///< The extent of the sign; a door's middle is at y = 0.05.
};

std::ostream& operator<<(std::ostream& out, const Swing& swing) {
    return out << swing.operation;
}

class DoorOfAnOperation : public testing::TestWithParam<Swing> {};

TEST_P(DoorOfAnOperation, HasItsSign) {
    DoorModel model;
    model.door(std::string(".") + GetParam().operation + ".");
    const PlanOutline outline = model.outline();
    ASSERT_THAT(outline.lines, SizeIs(GetParam().lines));
    EXPECT_THAT(outline.rings, SizeIs(1));
    EXPECT_NEAR(lowest(outline.lines, &Point::x), GetParam().left, 1e-6);
    EXPECT_NEAR(highest(outline.lines, &Point::x), GetParam().right, 1e-6);
    EXPECT_NEAR(lowest(outline.lines, &Point::y), GetParam().back, 1e-6);
    EXPECT_NEAR(highest(outline.lines, &Point::y), GetParam().front, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, DoorOfAnOperation,
    testing::Values(
        Swing{"SINGLE_SWING_LEFT", 2, 0, 1, 0.05, 1.05}, Swing{"SINGLE_SWING_RIGHT", 2, 0, 1, 0.05, 1.05},
        Swing{"DOUBLE_SWING_LEFT", 4, 0, 1, -0.95, 1.05}, Swing{"DOUBLE_SWING_RIGHT", 4, 0, 1, -0.95, 1.05},
        Swing{"DOUBLE_DOOR_SINGLE_SWING", 4, 0, 1, 0.05, 0.55}, Swing{"DOUBLE_DOOR_DOUBLE_SWING", 8, 0, 1, -0.45, 0.55},
        Swing{"DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_LEFT", 4, 0, 1, -0.45, 0.55},
        Swing{"DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_RIGHT", 4, 0, 1, -0.45, 0.55}, Swing{"ROLLINGUP", 6, 0, 1, 0.05, 0.05},
        Swing{"SWING_FIXED_LEFT", 2, 0, 0.5, 0.05, 0.55}, Swing{"SWING_FIXED_RIGHT", 2, 0.5, 1, 0.05, 0.55},
        Swing{"SLIDING_TO_LEFT", 1, -0.5, 0.5, 0.125, 0.125}, Swing{"SLIDING_TO_RIGHT", 1, 0.5, 1.5, 0.125, 0.125},
        Swing{"DOUBLE_DOOR_SLIDING", 2, -0.25, 1.25, 0.125, 0.125}, Swing{"FOLDING_TO_LEFT", 1, 0, 0.5, 0.05, 0.3},
        Swing{"FOLDING_TO_RIGHT", 1, 0.5, 1, 0.05, 0.3}, Swing{"DOUBLE_DOOR_FOLDING", 2, 0, 1, 0.05, 0.175},
        Swing{"REVOLVING", 3, 0, 1, -0.45, 0.55}),
    [](const auto& tested) { return tested.param.operation; });

TEST(DoorSign, HasItsHingeWhereTheOperationSays) {
    for (const auto& [operation, hinge] : {std::pair(".SINGLE_SWING_LEFT.", 0.0), {".SINGLE_SWING_RIGHT.", 1.0}}) {
        DoorModel model;
        model.door(operation);
        EXPECT_THAT(model.outline().lines.at(0), ElementsAre(at(hinge, 0.05), at(hinge, 1.05))) << operation;
    }
}

TEST(DoorSign, OfLeavesInOppositeDirectionsHasTheNamedOneOnTheOtherSide) {
    for (const auto& [operation, left, right] : {std::tuple(".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_LEFT.", -0.45, 0.55),
                                                 {".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_RIGHT.", 0.55, -0.45}}) {
        DoorModel model;
        model.door(operation);
        const PlanOutline outline = model.outline();
        EXPECT_THAT(outline.lines.at(0), ElementsAre(at(0, 0.05), at(0, left))) << operation;
        EXPECT_THAT(outline.lines.at(2), ElementsAre(at(1, 0.05), at(1, right))) << operation;
    }
}

TEST(DoorSign, TurnsWithTheDoor) {
    DoorModel model;
    // Its x axis points down the model's y, its y axis along the model's x.
    model.door(".SINGLE_SWING_LEFT.", model.g.placement(model.g.axes("(10.,20.,3.)", "(0.,0.,1.)", "(0.,-1.,0.)")));
    EXPECT_THAT(model.outline().lines.at(0), ElementsAre(at(10.05, 20), at(11.05, 20)));
}

TEST(DoorSign, IsThatOfTheTypeObjectInEverySchema) {
    for (const auto& [schema, typeClass] :
         {std::pair("IFC2X3", "IfcDoorStyle"), {"IFC4", "IfcDoorType"}, {"IFC4X3", "IfcDoorType"}}) {
        DoorModel model(schema);
        const Id door = model.door("");
        const Id type = model.ifc.add(typeClass, {{"OperationType", ".SINGLE_SWING_RIGHT."}});
        model.ifc.add("IfcRelDefinesByType", {{"RelatedObjects", refs({door})}, {"RelatingType", ref(type)}});
        EXPECT_THAT(model.outline().lines, SizeIs(2)) << schema;
    }
}

TEST(DoorSign, LeavesOutTheFrameAroundTheLeaf) {
    DoorModel model;
    Values values = model.shaped();
    values.back().second = "0.8";
    values.emplace_back("OperationType", ".SINGLE_SWING_LEFT.");
    model.ifc.element("IfcDoor", "Door", values);
    EXPECT_THAT(model.outline().lines.at(0), ElementsAre(at(0.1, 0.05), at(0.1, 0.85)));
}

TEST(DoorSign, IsNoneWhereNothingIsKnownOfItsOperation) {
    for (const char* operation : {"", ".NOTDEFINED.", ".USERDEFINED.", ".NONSENSE.", "'TEXT'", "$"}) {
        DoorModel model;
        model.door(operation);
        const PlanOutline outline = model.outline();
        EXPECT_THAT(outline.lines, IsEmpty()) << operation;
        EXPECT_THAT(outline.rings, SizeIs(1)) << operation;
    }
}

TEST(DoorSign, IsNoneOfAHatchInAFloor) {
    DoorModel model;
    model.door(".SINGLE_SWING_LEFT.", model.g.placement(model.g.axes("(0.,0.,0.)", "(0.,1.,0.)", "(1.,0.,0.)")));
    EXPECT_THAT(model.outline().lines, IsEmpty());
}

TEST(DoorSign, OfNonsenseIsNone) {
    for (const char* width : {"1.E400", "-1.", "'wide'", "(1.)"}) {
        TinyModel ifc;
        ifc.element("IfcDoor", "Door", {{"OverallWidth", width}, {"OperationType", ".SINGLE_SWING_LEFT."}});
        EXPECT_THAT(Opened(ifc.text())->outline(0).lines, IsEmpty()) << width;
    }
    DoorModel model;
    Values values = model.shaped();
    values.back().second = "1.E300";
    values.emplace_back("OperationType", ".SINGLE_SWING_LEFT.");
    model.ifc.element("IfcDoor", "Door", values);
    for (const Line& line : model.outline().lines)
        for (const Point& point : line) EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
}

TEST(WindowSign, IsItsGlassAlongItsOutline) {
    DoorModel model;
    model.ifc.element("IfcWindow", "Door", model.shaped());
    const auto lines = model.outline().lines;
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_THAT(lines[0], ElementsAre(at(0, 0.04), at(1, 0.04)));
    EXPECT_THAT(lines[1], ElementsAre(at(0, 0.06), at(1, 0.06)));
}

// --- Stairs ---

TEST(Steps, AreTheLevelFacesOfAFlight) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id outline =
        g.polyline({"(0.,0.)", "(0.,0.2)", "(0.3,0.2)", "(0.3,0.4)", "(0.6,0.4)", "(0.6,0.)", "(0.,0.)"});
    const Id profile = ifc.add("IfcArbitraryClosedProfileDef", {{"OuterCurve", ref(outline)}});
    // Upright: the profile's y is the model's z.
    ifc.element(
        "IfcStairFlight", "Flight",
        {{"Representation",
          g.shape({g.extruded(profile, "1.", "(0.,0.,1.)", g.axes("(0.,0.,0.)", "(0.,-1.,0.)", "(1.,0.,0.)"))})}});
    Opened model(ifc.text());
    const PlanOutline outlineOfIt = model->outline(0);
    EXPECT_THAT(outlineOfIt.rings, SizeIs(1));
    ASSERT_THAT(outlineOfIt.lines, SizeIs(3)) << "the floor and two steps";
    EXPECT_NEAR(highest({outlineOfIt.lines[1]}, &Point::x), 0.3, 1e-6);
    EXPECT_NEAR(lowest({outlineOfIt.lines[2]}, &Point::x), 0.3, 1e-6);
    EXPECT_NEAR(*outlineOfIt.bottom, 0, 1e-6);
    EXPECT_NEAR(*outlineOfIt.top, 0.4, 1e-6);
}

TEST(Steps, AreNoneWhereTheyAreTooManyToBeSteps) {
    for (const int heights : {199, 200, 201}) {
        TinyModel ifc;
        Geometry g(ifc);
        Ids items;
        for (int i = 0; i < heights; ++i) {
            items.push_back(g.extruded(g.rectangle("1.", "1."), "0.01", "(0.,0.,1.)",
                                       g.axes("(" + std::to_string(i) + ".,0.," + std::to_string(i) + ".)")));
        }
        ifc.element("IfcStair", "Stair", {{"Representation", g.shape(items)}});
        Opened model(ifc.text());
        EXPECT_EQ(model->outline(0).lines.empty(), heights > 200) << heights;
    }
}

TEST(Steps, AreThoseOfStairsAlone) {
    TinyModel ifc;
    Geometry g(ifc);
    ifc.element("IfcSlab", "Slab", {{"Representation", g.shape({g.extruded(g.rectangle("1.", "1."), "1.")})}});
    EXPECT_THAT(Opened(ifc.text())->outline(0).lines, IsEmpty());
}

// --- Grids and annotations ---

Id axis(TinyModel& ifc, const std::string& tag, Id curve) {
    return ifc.add("IfcGridAxis", {{"AxisTag", tag}, {"AxisCurve", ref(curve)}, {"SameSense", ".T."}});
}

TEST(Grid, HasItsAxesWhereItStands) {
    for (const char* schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        Geometry g(ifc);
        const Id first = axis(ifc, "'A'", g.polyline({"(0.,0.)", "(10.,0.)"}));
        const Id second = axis(ifc, "$", g.polyline({"(0.,0.)", "(0.,5.)"}));
        ifc.element("IfcGrid", "Grid",
                    {{"ObjectPlacement", ref(g.placement(g.axes("(100.,200.,0.)")))},
                     {"UAxes", refs({first})},
                     {"VAxes", refs({second})}});
        Opened model(ifc.text());
        EXPECT_EQ(model->planKind(0), PlanKind::Grid) << schema;
        const auto axes = model->gridAxes(0);
        ASSERT_THAT(axes, SizeIs(2)) << schema;
        EXPECT_EQ(utf8(axes[0].tag), "A");
        EXPECT_THAT(axes[0].line, ElementsAre(at(100, 200), at(110, 200)));
        EXPECT_EQ(utf8(axes[1].tag), "");
        EXPECT_THAT(model->outline(0).lines, SizeIs(2));
        EXPECT_THAT(model->outline(0).rings, IsEmpty());
    }
}

TEST(Grid, LeavesOutAxesThatCannotBeDrawn) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id endless = ifc.add("IfcLine", {{"Pnt", ref(g.point("(0.,0.)"))}});
    const Id good = axis(ifc, "'1'", g.polyline({"(0.,0.)", "(1.,0.)"}));
    const Ids axes{axis(ifc, "'2'", endless),
                   axis(ifc, "'3'", 99999),
                   axis(ifc, "'4'", g.polyline({"(0.,0.)"})),
                   axis(ifc, "'5'", g.polyline({"(0.,1.E400)", "(1.,1.)"})),
                   good,
                   88888};
    ifc.element("IfcGrid", "Grid", {{"UAxes", refs(axes)}, {"VAxes", "$"}, {"WAxes", "#1"}});
    Opened model(ifc.text());
    const auto drawn = model->gridAxes(0);
    ASSERT_THAT(drawn, SizeIs(1));
    EXPECT_EQ(utf8(drawn[0].tag), "1");
}

/// A file of some pages can name one curve of thousands of points thousands of times.
TEST(Grid, AndAnnotationHaveSoManyPoints) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id list = ifc.raw("IFCCARTESIANPOINTLIST2D((" + [] {
        std::string points;
        for (int i = 0; i < 10'000; ++i) points += (i == 0 ? "(" : ",(") + std::to_string(i) + ".,0.)";
        return points;
    }() + "))");
    const Id curve = ifc.raw("IFCINDEXEDPOLYCURVE(" + ref(list) + ",$,.F.)");
    const Id one = axis(ifc, "'1'", curve);
    ifc.element("IfcGrid", "Grid", {{"UAxes", refs(Ids(1000, one))}, {"VAxes", "$"}});
    ifc.element("IfcAnnotation", "Lines",
                {{"Representation",
                  g.shape({ifc.add("IfcGeometricCurveSet", {{"Elements", refs(Ids(1000, curve))}})}, "Annotation")}});
    Opened model(ifc.text());
    EXPECT_THAT(model->gridAxes(model.find("Grid")), SizeIs(6));
    EXPECT_THAT(model->outline(model.find("Lines")).lines, SizeIs(6));
}

TEST(Annotation, IsItsLines) {
    TinyModel ifc;
    Geometry g(ifc);
    const Id set =
        ifc.add("IfcGeometricCurveSet",
                {{"Elements", refs({g.polyline({"(0.,0.)", "(3.,0.)"}), g.polyline({"(0.,1.)", "(0.,-1.)"})})}});
    const Id filled =
        ifc.add("IfcAnnotationFillArea", {{"OuterBoundary", ref(g.polyline({"(0.,0.)", "(1.,0.)", "(1.,1.)"}))}});
    ifc.element("IfcAnnotation", "Dimension", {{"Representation", g.shape({set, filled}, "Annotation")}});
    const PlanOutline outline = Opened(ifc.text())->outline(0);
    EXPECT_THAT(outline.rings, IsEmpty()) << "it covers nothing";
    ASSERT_THAT(outline.lines, SizeIs(3));
    EXPECT_THAT(outline.lines[0], ElementsAre(at(0, 0), at(3, 0)));
}

TEST(Annotation, ThatGoesRoundInACircleEnds) {
    TinyModel round;
    round.raw("IFCGEOMETRICCURVESET((#2,#2))");
    round.raw("IFCGEOMETRICCURVESET((#1,#1))");
    round.raw("IFCSHAPEREPRESENTATION($,'Annotation',$,(#1))");
    round.raw("IFCPRODUCTDEFINITIONSHAPE($,$,(#3))");
    round.element("IfcAnnotation", "Round", {{"Representation", "#4"}});
    EXPECT_THAT(Opened(round.text())->outline(0).lines, IsEmpty());
}

// --- Rooms ---

class RoomModel {
public:
    explicit RoomModel(const std::string& unit = "IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)") : g(ifc) {
        const Id assignment = ifc.add("IfcUnitAssignment", {{"Units", refs({ifc.raw(unit)})}});
        ifc.add("IfcProject", {{"UnitsInContext", ref(assignment)}});
        room = ifc.element("IfcSpace", "001", {{"LongName", "'Kitchen'"}});
    }
    Id quantity(const std::string& name, const std::string& value, const std::string& unit = "$") {
        return ifc.add("IfcQuantityArea", {{"Name", "'" + name + "'"}, {"Unit", unit}, {"AreaValue", value}});
    }
    void give(const Ids& quantities) {
        ifc.give({room}, ifc.add("IfcElementQuantity", {{"Name", "'Q'"}, {"Quantities", refs(quantities)}}));
    }
    model::RoomFacts facts() {
        Opened model(ifc.text());
        return model->room(model.find("001"));
    }

    TinyModel ifc;
    Geometry g;
    Id room;
};

TEST(Room, HasNumberNameAndTheBestArea) {
    RoomModel model;
    model.give({model.quantity("GrossFloorArea", "12."), model.quantity("NetWallArea", "50.")});
    model.give({model.quantity("NetFloorArea", "10.5")});
    const model::RoomFacts facts = model.facts();
    EXPECT_EQ(utf8(facts.number), "001");
    EXPECT_EQ(utf8(facts.name), "Kitchen");
    EXPECT_EQ(facts.area, 10.5);
}

TEST(Room, AreaIsGivenInSquareMetres) {
    for (const auto& [unit, area] :
         {std::pair<std::string, double>("IFCSIUNIT(*,.AREAUNIT.,.MILLI.,.SQUARE_METRE.)", 1e-5),
          {"IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)", 10}}) {
        RoomModel model(unit);
        model.give({model.quantity("NetFloorArea", "10.")});
        EXPECT_NEAR(model.facts().area.value_or(0), area, 1e-9) << unit;
    }
    RoomModel model;
    const Id base = model.ifc.raw("IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)");
    const Id factor = model.ifc.raw("IFCMEASUREWITHUNIT(IFCAREAMEASURE(0.09290304)," + ref(base) + ")");
    const Id feet = model.ifc.raw("IFCCONVERSIONBASEDUNIT($,.AREAUNIT.,'SQUARE FOOT'," + ref(factor) + ")");
    model.give({model.quantity("NetFloorArea", "100.", ref(feet))});
    EXPECT_NEAR(model.facts().area.value_or(0), 9.290304, 1e-9);
}

TEST(Room, WithoutAUsableAreaHasNone) {
    for (const char* value : {"$", "0.", "-3.", "1.E400", "'big'", "(1.)"}) {
        RoomModel model;
        model.give({model.quantity("NetFloorArea", value), 77777});
        EXPECT_EQ(model.facts().area, std::nullopt) << value;
    }
    RoomModel ofAnotherUnit;
    const Id length = ofAnotherUnit.ifc.raw("IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)");
    ofAnotherUnit.give({ofAnotherUnit.quantity("NetFloorArea", "3.", ref(length))});
    EXPECT_EQ(ofAnotherUnit.facts().area, std::nullopt);
}

/// Rooms may share a set, so one that never ends is not read to its end for each of them.
TEST(Room, ReadsSoManyQuantitiesOfASet) {
    for (const std::size_t before : {254U, 255U, 256U}) {
        RoomModel model;
        Ids quantities(before, model.quantity("NetWallArea", "1."));
        quantities.push_back(model.quantity("NetFloorArea", "3."));
        model.give(quantities);
        EXPECT_EQ(model.facts().area.has_value(), before < 256) << before;
    }
}

// --- The project ---

struct Unit {
    const char* name;
    std::string text;
    std::optional<double> metres;
};

std::ostream& operator<<(std::ostream& out, const Unit& unit) {
    return out << unit.text;
}

class LengthUnit : public testing::TestWithParam<Unit> {};

TEST_P(LengthUnit, IsKnownInMetres) {
    TinyModel ifc;
    const Id metre = ifc.raw("IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)");
    ifc.raw("IFCMEASUREWITHUNIT(IFCLENGTHMEASURE(0.3048)," + ref(metre) + ")");
    ifc.raw("IFCMEASUREWITHUNIT(IFCLENGTHMEASURE(1.),#5)");
    const Id unit = ifc.raw(GetParam().text);
    ifc.raw("IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'ROUND',#3)");
    const Id assignment = ifc.add("IfcUnitAssignment", {{"Units", refs({99999, unit})}});
    ifc.add("IfcProject", {{"UnitsInContext", ref(assignment)}});
    const auto metres = Opened(ifc.text())->metresPerUnit();
    ASSERT_EQ(metres.has_value(), GetParam().metres.has_value());
    EXPECT_NEAR(metres.value_or(0), GetParam().metres.value_or(0), 1e-12);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LengthUnit,
    testing::Values(Unit{"Metre", "IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)", 1},
                    Unit{"Millimetre", "IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.)", 1e-3},
                    Unit{"Foot", "IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'FOOT',#2)", 0.3048},
                    Unit{"AreaOnly", "IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)", std::nullopt},
                    Unit{"Circle", "IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'ROUND',#3)", std::nullopt},
                    Unit{"Missing", "IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'FOOT',#99999)", std::nullopt},
                    Unit{"Nonsense", "IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.)", std::nullopt}),
    [](const auto& tested) { return tested.param.name; });

TEST(TrueNorth, IsThatOfTheFirstContextThatSaysIt) {
    TinyModel ifc;
    Geometry g(ifc);
    const auto context = [&](const std::string& north) {
        return ifc.add("IfcGeometricRepresentationContext", {{"TrueNorth", north}});
    };
    const Ids contexts{99999, context("$"), context(ref(g.direction("(0.,0.)"))), context(ref(g.direction("(3.,4.)"))),
                       context(ref(g.direction("(0.,1.)")))};
    ifc.add("IfcProject", {{"RepresentationContexts", refs(contexts)}, {"UnitsInContext", "$"}});
    const auto north = Opened(ifc.text())->trueNorth();
    ASSERT_TRUE(north);
    EXPECT_THAT(*north, at(0.6, 0.8));
}

TEST(TrueNorth, IsNotMadeUp) {
    for (const char* ratios : {"(0.,0.,1.)", "(1.E400,0.)", "('n',1.)", "()"}) {
        TinyModel ifc;
        Geometry g(ifc);
        const Id context = ifc.add("IfcGeometricRepresentationContext", {{"TrueNorth", ref(g.direction(ratios))}});
        ifc.add("IfcProject", {{"RepresentationContexts", refs({context})}, {"UnitsInContext", "$"}});
        EXPECT_EQ(Opened(ifc.text())->trueNorth().has_value(), false) << ratios;
    }
    EXPECT_FALSE(Opened(TinyModel().text())->trueNorth()) << "there is no project";
    EXPECT_FALSE(Opened(TinyModel().text())->metresPerUnit());
}

// --- Kinds ---

TEST(PlanKinds, FollowTheSchemasSubtypes) {
    const std::vector<std::tuple<const char*, const char*, PlanKind>> rows = {
        {"IFC2X3", "IfcWallStandardCase", PlanKind::Structure},
        {"IFC2X3", "IfcFurnishingElement", PlanKind::Furniture},
        {"IFC2X3", "IfcOpeningElement", PlanKind::Opening},
        {"IFC2X3", "IfcGrid", PlanKind::Grid},
        {"IFC2X3", "IfcSite", PlanKind::Terrain},
        {"IFC2X3", "IfcFlowTerminal", PlanKind::Furniture},
        {"IFC4", "IfcOpeningStandardCase", PlanKind::Opening},
        {"IFC4", "IfcVoidingFeature", PlanKind::Opening},
        {"IFC4", "IfcSpace", PlanKind::Room},
        {"IFC4", "IfcBuildingStorey", PlanKind::Terrain},
        {"IFC4", "IfcSanitaryTerminal", PlanKind::Furniture},
        {"IFC4", "IfcSystemFurnitureElement", PlanKind::Furniture},
        {"IFC4", "IfcStairFlight", PlanKind::Stair},
        {"IFC4", "IfcWindow", PlanKind::Window},
        {"IFC4", "IfcDoorStandardCase", PlanKind::Door},
        {"IFC4", "IfcRoof", PlanKind::Floor},
        {"IFC4", "IfcBuildingElementProxy", PlanKind::Object},
        {"IFC4", "IfcAnnotation", PlanKind::Annotation},
        {"IFC4X3", "IfcAlignment", PlanKind::Annotation},
        {"IFC4X3", "IfcGrid", PlanKind::Grid},
        {"IFC4X3", "IfcSignal", PlanKind::Furniture},
    };
    for (const auto& [schema, ifcClass, kind] : rows) {
        TinyModel ifc(schema);
        ifc.element(ifcClass, "One");
        EXPECT_EQ(Opened(ifc.text())->planKind(0), kind) << ifcClass;
    }
}

}  // namespace
