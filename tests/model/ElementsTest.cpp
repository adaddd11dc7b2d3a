#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Elements, AreTheInstancesOfConcreteProductsInFileOrder) {
    TinyModel ifc;
    ifc.add("IfcProject", {{"Name", "'Project'"}});
    ifc.element("IfcWall", "Wall");
    ifc.add("IfcWallType", {{"Name", "'Type'"}});
    ifc.element("IfcGrid", "Grid");
    ifc.raw("IFCPRODUCT('" + TinyModel::globalIdText(900) + "',$,'Abstract',$,$,$,$)");
    ifc.raw("IFCFUTURETHING('" + TinyModel::globalIdText(901) + "',$,'Unknown',$,$,$,$)");
    Opened model(ifc);
    ASSERT_EQ(model->elementCount(), 2U);
    EXPECT_EQ(model->info(0).ifcClass, "IfcWall");
    EXPECT_EQ(model->info(1).ifcClass, "IfcGrid");
    EXPECT_EQ(model->info(1).instanceId, 4U);
}

TEST(Elements, AreFoundByTheirGuid) {
    TinyModel ifc;
    ifc.element("IfcWall", "A");
    ifc.element("IfcWall", "B");
    Opened model(ifc);
    EXPECT_EQ(model->find(model->info(1).guid), 1U);
    EXPECT_EQ(model->find(*model::fromGlobalId(TinyModel::globalIdText(77))), std::nullopt);
    EXPECT_EQ(model->find(model::Guid{}), std::nullopt);
}

TEST(Elements, AreFoundAmongThousands) {
    TinyModel ifc;
    for (int i = 0; i < 5000; ++i) ifc.add("IfcWall");
    Opened model(ifc);
    ASSERT_EQ(model->elementCount(), 5000U);
    for (model::Element element = 0; element < 5000; ++element) {
        ASSERT_EQ(model->find(model->info(element).guid), element);
    }
}

TEST(Elements, OfOneGlobalIdTheFirstCountsAndTheOthersAreCounted) {
    TinyModel ifc;
    const std::string id = "'" + TinyModel::globalIdText(500) + "'";
    ifc.element("IfcWall", "First", {{"GlobalId", id}});
    ifc.element("IfcWall", "Second", {{"GlobalId", id}});
    ifc.element("IfcDoor", "Third", {{"GlobalId", id}});
    ifc.element("IfcWall", "Other");
    Opened model(ifc);
    EXPECT_EQ(model->elementCount(), 2U);
    EXPECT_EQ(model->duplicateGlobalIds(), 2U);
    EXPECT_TRUE(model->hasDuplicates(model.find("First")));
    EXPECT_FALSE(model->hasDuplicates(model.find("Other")));
    EXPECT_THAT(model->remarks(), ElementsAre(HasSubstr("2 instances have the GlobalId of an earlier one")));
}

TEST(Elements, OfInvalidGlobalIdsAreCountedAndLeftOut) {
    TinyModel ifc;
    for (const std::string id :
         {"'short'", "'4000000000000000000000'", "$", "'A32931C7-B3B2-4117-8D6A-3038DD4E9A78'"}) {
        ifc.element("IfcWall", "Wall", {{"GlobalId", id}});
    }
    Opened model(ifc);
    EXPECT_EQ(model->elementCount(), 0U);
    EXPECT_EQ(model->invalidGlobalIds(), 4U);
    EXPECT_THAT(model->remarks(), ElementsAre(HasSubstr("4 instances have no valid GlobalId")));
}

TEST(Elements, AreReadWhateverTheLayoutAndCase) {
    TinyModel ifc;
    ifc.raw(" /* a ( ' */ IfcWall /*b*/ (\r\n /*c*/ '" + TinyModel::globalIdText(1) +
            "' , $,\n'It''s (#1),;',$,$,$,$,$,$ )");
    Opened model(ifc);
    ASSERT_EQ(model->elementCount(), 1U);
    EXPECT_EQ(utf8(model->name(0)), "It's (#1),;");
    EXPECT_THAT(model->remarks(), IsEmpty());
}

struct TypeRow {
    std::string_view schema, ifcClass;
    std::int32_t id;
    std::string_view name;
};

TEST(ElementTypes, FollowTheNearestListedAncestor) {
    const TypeRow table[] = {
        {"IFC4", "IfcWall", 1, "Wall"},
        {"IFC4", "IfcWallStandardCase", 1, "Wall"},
        {"IFC4", "IfcWallElementedCase", 1, "Wall"},
        {"IFC4", "IfcColumn", 2, "Column"},
        {"IFC4", "IfcBeam", 3, "Beam"},
        {"IFC4", "IfcMember", 3, "Beam"},
        {"IFC4", "IfcMemberStandardCase", 3, "Beam"},
        {"IFC4", "IfcWindow", 4, "Window"},
        {"IFC4", "IfcDoorStandardCase", 5, "Door"},
        {"IFC4", "IfcFurniture", 6, "Object"},
        {"IFC4", "IfcStair", 6, "Object"},
        {"IFC4", "IfcLightFixture", 7, "Lamp"},
        {"IFC4", "IfcLamp", 6, "Object"},
        {"IFC4", "IfcSlab", 8, "Slab"},
        {"IFC4", "IfcRoof", 9, "Roof"},
        {"IFC4", "IfcGeographicElement", 10, "Mesh"},
        {"IFC4", "IfcSpace", 17, "Zone"},
        {"IFC4", "IfcCurtainWall", 37, "Curtain Wall"},
        {"IFC4", "IfcOpeningElement", 1006, "Opening"},
        {"IFC4", "IfcSurfaceFeature", 1006, "Opening"},
        {"IFC4", "IfcSite", 1001, "Site"},
        {"IFC4", "IfcBuilding", 1002, "Building"},
        {"IFC4", "IfcBuildingStorey", 1003, "Storey"},
        {"IFC4", "IfcGrid", 1005, "Product"},
        {"IFC4", "IfcSpatialZone", 1005, "Product"},
        {"IFC2X3", "IfcWallStandardCase", 1, "Wall"},
        {"IFC2X3", "IfcMember", 3, "Beam"},
        {"IFC2X3", "IfcFlowTerminal", 6, "Object"},
        {"IFC2X3", "IfcOpeningElement", 1006, "Opening"},
        {"IFC2X3", "IfcProxy", 1005, "Product"},
        {"IFC2X3", "IfcSpace", 17, "Zone"},
        {"IFC4X3", "IfcWall", 1, "Wall"},
        {"IFC4X3", "IfcEarthworksCut", 1006, "Opening"},
        {"IFC4X3", "IfcRailway", 1005, "Product"},
        {"IFC4X3", "IfcPavement", 6, "Object"},
        {"IFC4X3", "IfcReferent", 1005, "Product"},
    };
    for (const TypeRow& row : table) {
        TinyModel ifc{std::string(row.schema)};
        ifc.element(row.ifcClass, "Element");
        Opened model(ifc);
        ASSERT_EQ(model->elementCount(), 1U) << row.ifcClass;
        EXPECT_EQ(model->info(0).typeId, row.id) << row.schema << " " << row.ifcClass;
        EXPECT_EQ(model->info(0).typeName, row.name) << row.schema << " " << row.ifcClass;
    }
}

TEST(Opening, RefusesASchemaThatCannotBeRead) {
    TinyModel ifc;
    std::string text = ifc.text();
    text.replace(text.find("'IFC4'"), 6, "'AP214'");
    const auto opened = model::Model::fromBytes(text);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().kind, model::ErrorKind::CannotRead);
    EXPECT_EQ(opened.error().message, "the file is of schema AP214; IFC2X3, IFC4 and IFC4X3 can be read");
}

TEST(Storey, IsFoundUpContainmentAggregatesAndOpenings) {
    TinyModel ifc;
    const Id storey = ifc.element("IfcBuildingStorey", "Ground floor");
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id part = ifc.element("IfcBuildingElementPart", "Part");
    const Id opening = ifc.element("IfcOpeningElement", "Opening");
    const Id window = ifc.element("IfcWindow", "Window");
    const Id space = ifc.element("IfcSpace", "Space");
    const Id desk = ifc.element("IfcFurniture", "Desk");
    ifc.element("IfcWall", "Lost");
    ifc.add("IfcRelContainedInSpatialStructure",
            {{"RelatedElements", refs({wall})}, {"RelatingStructure", ref(storey)}});
    ifc.add("IfcRelAggregates", {{"RelatingObject", ref(wall)}, {"RelatedObjects", refs({part})}});
    ifc.add("IfcRelVoidsElement", {{"RelatingBuildingElement", ref(wall)}, {"RelatedOpeningElement", ref(opening)}});
    ifc.add("IfcRelFillsElement", {{"RelatingOpeningElement", ref(opening)}, {"RelatedBuildingElement", ref(window)}});
    ifc.add("IfcRelAggregates", {{"RelatingObject", ref(storey)}, {"RelatedObjects", refs({space})}});
    ifc.add("IfcRelContainedInSpatialStructure",
            {{"RelatedElements", refs({desk})}, {"RelatingStructure", ref(space)}});
    Opened model(ifc);
    for (const std::string_view name : {"Wall", "Part", "Opening", "Window", "Space", "Desk"}) {
        EXPECT_EQ(model->storey(model.find(name)), "Ground floor") << name;
    }
    EXPECT_EQ(model->storey(model.find("Lost")), "");
}

TEST(Storey, OfACircleIsNone) {
    TinyModel ifc;
    const Id a = ifc.element("IfcWall", "A");
    const Id b = ifc.element("IfcWall", "B");
    ifc.add("IfcRelAggregates", {{"RelatingObject", ref(a)}, {"RelatedObjects", refs({b})}});
    ifc.add("IfcRelAggregates", {{"RelatingObject", ref(b)}, {"RelatedObjects", refs({a})}});
    Opened model(ifc);
    EXPECT_EQ(model->storey(model.find("A")), "");
}

}  // namespace
