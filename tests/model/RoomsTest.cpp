// Which rooms elements belong to, and which elements only help to describe a building.

#include "TinyModel.hpp"
#include "model/Rooms.hpp"
#include "model/ifc/schema/Aids.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using model::ifc::Schema;
using model::ifc::SchemaVersion;

/// "chair: A B" for each element with its rooms, by their names.
std::vector<std::string> roomsIn(const TinyModel& ifc) {
    Opened model(ifc);
    std::vector<std::string> lines;
    const auto name = [&](model::Element element) { return model.attribute(element, "Name"); };
    model::Element last = 0;
    for (const model::InRoom& found : model::rooms(*model)) {
        if (lines.empty() || found.element != last) lines.push_back(name(found.element) + ":");
        lines.back() += " " + name(found.room);
        last = found.element;
    }
    return lines;
}

void contain(TinyModel& ifc, Id place, const Ids& elements) {
    ifc.add("IfcRelContainedInSpatialStructure",
            {{"RelatedElements", refs(elements)}, {"RelatingStructure", ref(place)}});
}

void bound(TinyModel& ifc, Id room, Id element) {
    ifc.add("IfcRelSpaceBoundary", {{"RelatingSpace", ref(room)}, {"RelatedBuildingElement", ref(element)}});
}

void compose(TinyModel& ifc, Id whole, const Ids& parts) {
    ifc.add("IfcRelAggregates", {{"RelatingObject", ref(whole)}, {"RelatedObjects", refs(parts)}});
}

}  // namespace

class RoomsOfASchema : public testing::TestWithParam<const char*> {};

TEST_P(RoomsOfASchema, AreThoseThatContainAnElementOrAWholeOfIt) {
    TinyModel ifc(GetParam());
    const Id kitchen = ifc.element("IfcSpace", "kitchen"), bath = ifc.element("IfcSpace", "bath");
    const Id storey = ifc.element("IfcBuildingStorey", "storey");
    const Id table = ifc.element("IfcFurnishingElement", "table"), tub = ifc.element("IfcFlowTerminal", "tub");
    const Id leg = ifc.element("IfcMember", "leg"), screw = ifc.element("IfcBuildingElementProxy", "screw");
    const Id wall = ifc.element("IfcWall", "wall");
    contain(ifc, kitchen, {table});
    contain(ifc, bath, {tub});
    contain(ifc, storey, {wall});
    compose(ifc, table, {leg});
    compose(ifc, leg, {screw});
    EXPECT_THAT(roomsIn(ifc), testing::ElementsAre("kitchen: kitchen", "bath: bath", "table: kitchen", "tub: bath",
                                                   "leg: kitchen", "screw: kitchen"));
}

TEST_P(RoomsOfASchema, OfDoorsAndWindowsAreThoseThatTheyBound) {
    TinyModel ifc(GetParam());
    const Id kitchen = ifc.element("IfcSpace", "kitchen"), bath = ifc.element("IfcSpace", "bath");
    const Id door = ifc.element("IfcDoor", "door"), window = ifc.element("IfcWindow", "window");
    const Id wall = ifc.element("IfcWall", "wall"), inner = ifc.element("IfcDoor", "inner");
    contain(ifc, bath, {inner});
    for (const Id room : {bath, kitchen, bath}) bound(ifc, room, door);
    bound(ifc, kitchen, window);
    bound(ifc, kitchen, wall);
    bound(ifc, kitchen, inner);
    EXPECT_THAT(roomsIn(ifc), testing::ElementsAre("kitchen: kitchen", "bath: bath", "door: kitchen bath",
                                                   "window: kitchen", "inner: bath"));
}

TEST_P(RoomsOfASchema, WholesThatArePartsOfOneAnotherComeToAnEnd) {
    TinyModel ifc(GetParam());
    const Id room = ifc.element("IfcSpace", "room");
    const Id a = ifc.element("IfcMember", "a"), b = ifc.element("IfcMember", "b");
    contain(ifc, room, {a});
    compose(ifc, a, {b});
    compose(ifc, b, {a});
    EXPECT_THAT(roomsIn(ifc), testing::ElementsAre("room: room", "a: room", "b: room"));
}

TEST_P(RoomsOfASchema, AreNoneInAModelWithoutRooms) {
    TinyModel ifc(GetParam());
    const Id storey = ifc.element("IfcBuildingStorey", "storey"), door = ifc.element("IfcDoor", "door");
    contain(ifc, storey, {door});
    EXPECT_TRUE(roomsIn(ifc).empty());
}

INSTANTIATE_TEST_SUITE_P(All, RoomsOfASchema, testing::Values("IFC2X3", "IFC4", "IFC4X3"));

TEST(Aids, AreOpeningsAnnotationsGridsAndWhatElseIsNotBuilt) {
    for (const auto version : {SchemaVersion::Ifc2x3, SchemaVersion::Ifc4, SchemaVersion::Ifc4x3}) {
        const Schema& schema = Schema::of(version);
        for (const char* aid :
             {"IfcOpeningElement", "IfcProjectionElement", "IfcAnnotation", "IfcGrid", "IfcVirtualElement",
              "IfcDistributionPort", "IfcStructuralCurveMember", "IfcStructuralPointAction"})
            EXPECT_TRUE(isAid(*schema.entity(aid))) << aid;
        for (const char* built : {"IfcWall", "IfcDoor", "IfcSpace", "IfcSite", "IfcBuildingStorey",
                                  "IfcBuildingElementProxy", "IfcFurnishingElement", "IfcElementAssembly"})
            EXPECT_FALSE(isAid(*schema.entity(built))) << built;
    }
    const Schema& latest = Schema::of(SchemaVersion::Ifc4x3);
    for (const char* aid : {"IfcAlignment", "IfcReferent", "IfcAlignmentSegment"})
        EXPECT_TRUE(isAid(*latest.entity(aid))) << aid;
}
