#include "TinyModel.hpp"
#include "text/Guid.hpp"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Elements, AreTheInstancesOfProductsInFileOrder) {
    TinyModel ifc;
    ifc.add("IfcProject", {{"Name", "'Project'"}});
    ifc.element("IfcWall", "Wall");
    ifc.add("IfcWallType", {{"Name", "'Type'"}});
    ifc.element("IfcGrid", "Grid");
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
    EXPECT_EQ(model->find(*text::fromGlobalId(TinyModel::globalIdText(77))), std::nullopt);
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
        EXPECT_EQ(model->info(0).typeName.english(), row.name) << row.schema << " " << row.ifcClass;
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

TEST(Opening, RefusesAWithdrawnSchemaWithAdvice) {
    for (const std::string name : {"IFC4X1", "IFC4X2"}) {
        std::string text = TinyModel().text();
        text.replace(text.find("'IFC4'"), 6, "'" + name + "'");
        const auto opened = model::Model::fromBytes(text);
        ASSERT_FALSE(opened);
        EXPECT_EQ(opened.error().message, "the file is of schema " + name + "; IFC2X3, IFC4 and IFC4X3 can be read; " +
                                              name + " was withdrawn, so export the model again as IFC4 or IFC4X3");
    }
}

std::string ofSchema(TinyModel& ifc, const std::string& name) {
    std::string text = ifc.text();
    const std::string written = "'" + ifc.schema + "'";
    return text.replace(text.find(written), written.size(), "'" + name + "'");
}

TEST(Opening, SaysThatTheFileIsOfAReleaseCandidate) {
    TinyModel ifc("IFC4X3");
    ifc.element("IfcWall", "Wall");
    for (const std::string name : {"IFC4X3_RC1", "IFC4X3_RC4", "ifc4x3_rc2"}) {
        Opened model(ofSchema(ifc, name));
        ASSERT_EQ(model->remarks().size(), 1U);
        EXPECT_EQ(model->remarks()[0], "the file is of " + name +
                                           ", a release candidate of IFC4X3; it is read as IFC4X3, so that classes "
                                           "which the final schema has not are not understood");
    }
    for (const char* name : {"IFC4X3", "IFC4X3_ADD2", "IFC4X3_TC1"}) {
        EXPECT_TRUE(Opened(ofSchema(ifc, name))->remarks().empty()) << name;
    }
}

TEST(Elements, OfAnAbstractClassAreReadAndChangedLikeOthers) {
    TinyModel ifc("IFC4X3");
    const Id part = ifc.element("IfcFacilityPart", "Part"), wall = ifc.element("IfcWall", "Wall");
    ifc.give({part, wall}, ifc.set("S", {ifc.single("P", "IFCLABEL('old')")}));
    Opened model(ofSchema(ifc, "IFC4X3_RC2"));
    ASSERT_EQ(model->elementCount(), 2U);
    EXPECT_EQ(model->info(0).ifcClass, "IfcFacilityPart");
    EXPECT_STREQ(model->info(0).typeName.english(), "Product");
    EXPECT_TRUE(model->unknownClasses().empty());
    ASSERT_TRUE(model.setAttribute(0, "Name", "Renamed"));
    ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
    EXPECT_EQ(model.attribute(0, "Name"), "Renamed");
    EXPECT_EQ(model.property(0, "S", "P"), "new");
    EXPECT_EQ(model.property(1, "S", "P"), "old");
}

TEST(Opening, CountsTheClassesThatTheSchemaDoesNotHave) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened known(ifc);
    EXPECT_TRUE(known->unknownClasses().empty());
    EXPECT_TRUE(known->remarks().empty());
    ifc.raw("IFCZED('" + TinyModel::globalIdText(900) + "',$)");
    ifc.raw("IfcAlpha(1)");
    ifc.raw("IFCALPHA(2)");
    ifc.raw("!USERDEFINED(2)");
    ifc.raw("(IFCPART()IFCWHOLE())");
    Opened model(ifc);
    ASSERT_EQ(model->unknownClasses().size(), 3U);
    EXPECT_EQ(model->unknownClasses()[0].name, "!USERDEFINED");
    EXPECT_EQ(model->unknownClasses()[1].name, "IFCALPHA");
    EXPECT_EQ(model->unknownClasses()[1].instances, 2U);
    EXPECT_EQ(model->unknownClasses()[2].name, "IFCZED");
    EXPECT_EQ(model->elementCount(), 1U);
    ASSERT_EQ(model->remarks().size(), 1U);
    EXPECT_EQ(model->remarks()[0],
              "4 instances are of classes that IFC4 does not have, and kept in the file without being read: "
              "!USERDEFINED (1), IFCALPHA (2), IFCZED (1)");
    EXPECT_EQ(model->bytes(), ifc.text());
}

TEST(Opening, NamesTenUnknownClassesAtMost) {
    const auto remark = [](int count) {
        TinyModel ifc;
        for (int i = 0; i < count; ++i) ifc.raw("IFCUNKNOWN" + std::to_string(10 + i) + "()");
        Opened model(ifc);
        EXPECT_EQ(model->unknownClasses().size(), static_cast<std::size_t>(count));
        return model->remarks().at(0);
    };
    EXPECT_EQ(remark(1),
              "1 instance is of classes that IFC4 does not have, and kept in the file without being read: "
              "IFCUNKNOWN10 (1)");
    EXPECT_TRUE(remark(10).ends_with("IFCUNKNOWN18 (1), IFCUNKNOWN19 (1)")) << remark(10);
    EXPECT_TRUE(remark(11).ends_with("IFCUNKNOWN18 (1) and 2 more classes")) << remark(11);
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
