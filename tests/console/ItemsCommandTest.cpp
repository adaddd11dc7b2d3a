// modelhost items, and --where in the commands that take it.

#include "ConsoleTest.hpp"

#include <fstream>

namespace console_tests {
namespace {

class ItemsCommand : public ConsoleTest {
protected:
    Json items(const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"items", "house.ifc"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return json(arguments)["items"];
    }
    static Json find(const Json& records, const std::string& item, const std::string& set = "") {
        for (const Json& record : records)
            if (record["item"] == item && record["set"] == set) return record;
        return {};
    }
};

TEST_F(ItemsCommand, TellsOfEachItemHowManyHaveItAndWhatItHolds) {
    testing_support::IfcText ifc;
    for (unsigned i = 1; i <= 5; ++i) {
        const auto wall = ifc.element("IfcWall", testing_support::guidText(i), "Wall " + std::to_string(i % 2));
        ifc.property(wall, "Pset_WallCommon", "FireRating", i == 5 ? "$" : "IFCLABEL('F " + std::to_string(i) + "0')");
        if (i == 1) ifc.classification(wall, "UniFormat", "B2010", "Exterior Walls");
    }
    write("house.ifc", ifc.text());
    const Json records = items();
    EXPECT_EQ(find(records, "Name"), (Json{{"kind", "attribute"},
                                           {"item", "Name"},
                                           {"set", ""},
                                           {"valueType", "IfcLabel"},
                                           {"elements", 5},
                                           {"empty", 0},
                                           {"distinct", 2},
                                           {"examples", {"Wall 1", "Wall 0"}},
                                           {"standard", "yes"},
                                           {"changeable", true}}));
    EXPECT_EQ(find(records, "FireRating[WallCommon]", "Pset_WallCommon"), (Json{{"kind", "property"},
                                                                                {"item", "FireRating[WallCommon]"},
                                                                                {"set", "Pset_WallCommon"},
                                                                                {"valueType", "IfcLabel"},
                                                                                {"elements", 5},
                                                                                {"empty", 1},
                                                                                {"distinct", 4},
                                                                                {"examples", {"F 10", "F 20", "F 30"}},
                                                                                {"standard", "yes"},
                                                                                {"changeable", true}}));
    EXPECT_EQ(find(records, "UniFormat")["examples"], Json({"B2010{Exterior Walls}"}));
    EXPECT_EQ(find(records, "UniFormat")["kind"], "classification");
    EXPECT_EQ(records.front()["kind"], "attribute");
    EXPECT_EQ(records.back()["kind"], "classification");
    EXPECT_EQ(find(records, "GlobalId")["changeable"], false);
}

TEST_F(ItemsCommand, TellsWhatTheStandardHasForTheClass) {
    testing_support::IfcText ifc;
    const auto door = ifc.element("IfcDoor", DoorGuid, "door");
    ifc.property(door, "Pset_WallCommon", "FireRating", "IFCLABEL('T 30')");
    ifc.property(door, "Pset_DoorCommon", "Colour", "IFCLABEL('red')");
    ifc.property(door, "Pset_DoorCommon", "IsExternal", "IFCBOOLEAN(.T.)");
    write("house.ifc", ifc.text());
    const Json records = items();
    EXPECT_EQ(find(records, "FireRating[WallCommon]", "Pset_WallCommon")["standard"], "other class");
    EXPECT_EQ(find(records, "Colour[DoorCommon]", "Pset_DoorCommon")["standard"], "no");
    EXPECT_EQ(find(records, "IsExternal[DoorCommon]", "Pset_DoorCommon")["standard"], "yes");
    EXPECT_TRUE(find(records, "FireRating[DoorCommon]", "Pset_DoorCommon").is_null());
}

TEST_F(ItemsCommand, AddsWhatTheStandardHasAndNobodyElse) {
    testing_support::IfcText ifc;
    ifc.property(ifc.element("IfcDoor", DoorGuid, "door"), "Pset_DoorCommon", "IsExternal", "IFCBOOLEAN(.T.)");
    write("house.ifc", ifc.text());
    const Json records = items({"--standard"});
    EXPECT_EQ(find(records, "IsExternal[DoorCommon]", "Pset_DoorCommon")["elements"], 1);
    EXPECT_EQ(find(records, "FireRating[DoorCommon]", "Pset_DoorCommon"), (Json{{"kind", "property"},
                                                                                {"item", "FireRating[DoorCommon]"},
                                                                                {"set", "Pset_DoorCommon"},
                                                                                {"valueType", "IfcLabel"},
                                                                                {"elements", 0},
                                                                                {"empty", 0},
                                                                                {"distinct", 0},
                                                                                {"examples", Json::array()},
                                                                                {"standard", "yes"},
                                                                                {"changeable", true}}));
    EXPECT_EQ(find(records, "Status[DoorCommon]", "Pset_DoorCommon")["valueType"], "enumerated");
    EXPECT_TRUE(find(records, "FireRating[WallCommon]", "Pset_WallCommon").is_null());
}

TEST_F(ItemsCommand, SaysWhatAnUpdateOfThatNameWouldNotReach) {
    testing_support::IfcText ifc;
    const auto wall = ifc.element("IfcWall", WallGuid, "wall");
    ifc.property(wall, "Pset_A", "Same", "IFCLABEL('first')");
    ifc.property(wall, "Pset_B", "Same", "IFCLABEL('second')");
    ifc.property(wall, "Pset_A", "Name", "IFCLABEL('an attribute goes before')");
    ifc.property(wall, "Own set", "Colour", "IFCLABEL('red')");
    ifc.addProperty(wall, "Pset_A",
                    ifc.add("IfcPropertyListValue", {{"Name", "'List'"}, {"ListValues", "(IFCLABEL('a'))"}}));
    write("house.ifc", ifc.text());
    const Json records = items();
    EXPECT_EQ(find(records, "Same[A]", "Pset_A")["changeable"], true);
    EXPECT_EQ(find(records, "Same[B]", "Pset_B")["changeable"], false);
    EXPECT_EQ(find(records, "Name[A]", "Pset_A")["changeable"], false);
    EXPECT_EQ(find(records, "List[A]", "Pset_A")["changeable"], false);
    EXPECT_EQ(find(records, "List[A]", "Pset_A")["valueType"], "list");
    EXPECT_EQ(find(records, "Colour", "Own set")["changeable"], true);
}

TEST_F(ItemsCommand, TakesOnlyTheElementsChosen) {
    EXPECT_TRUE(find(items({"--type", "Door"}), "FireRating[WallCommon]", "Pset_WallCommon").is_null());
    EXPECT_EQ(find(items({"--class", "IfcWall"}), "Name")["elements"], 1);
    EXPECT_EQ(find(items({"--where", "IfcWall + IfcDoor"}), "Name")["elements"], 2);
    EXPECT_THAT(items({"--where", "Name=nobody"}), IsEmpty());
}

TEST_F(ItemsCommand, PrintsTableAndTsv) {
    EXPECT_THAT(run({"items", "house.ifc"}).out, testing::StartsWith("kind "));
    EXPECT_THAT(run({"items", "house.ifc", "--format", "tsv", "--type", "Wall"}).out,
                testing::AllOf(testing::StartsWith("kind\titem\tset\tvalueType\telements\tempty\tdistinct\texamples\t"
                                                   "standard\tchangeable\n"),
                               HasSubstr("property\tFireRating[WallCommon]\tPset_WallCommon\tIfcLabel\t1\t0\t1\tF "
                                         "90\tyes\tyes\n")));
}

class Where : public ConsoleTest {};

TEST_F(Where, ChoosesTheElementsOfAList) {
    const Json elements = json({"list", "house.ifc", "--where", "FireRating=\"F 90\""})["elements"];
    ASSERT_THAT(elements, SizeIs(1));
    EXPECT_EQ(elements[0]["guid"], WallGuid);
    EXPECT_THAT(json({"list", "house.ifc", "--where", "FireRating=NULL"})["elements"], SizeIs(2));
    EXPECT_THAT(json({"list", "house.ifc", "--where", "FireRating=NULL", "--type", "Door"})["elements"], SizeIs(1));
}

TEST_F(Where, ChoosesTheElementsOfAnExport) {
    EXPECT_EQ(run({"export", "house.ifc", "--items", "Name", "--where", "IfcDoor"}).out,
              DoorGuid + "\tName\tDoor-01\tDoor-01\n");
}

TEST_F(Where, ChoosesTheElementsOfALookUp) {
    const Json rows = json({"lookup", "house.ifc", "--where", "IfcWall + IfcDoor"})["rows"];
    EXPECT_EQ(std::count(rows.begin(), rows.end(), Json({"Type", "Wall"})), 1);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), Json({"Type", "Door"})), 1);
    EXPECT_THAT(json({"lookup", "house.ifc", "--where", "IfcSlab"})["rows"], IsEmpty());
}

TEST_F(Where, MarksThePlaceOfAMistake) {
    for (const char* command : {"list", "items", "lookup"})
        expectError(run({command, "house.ifc", "--where", "IfcDoor, Name="}),
                    {"--where: a value is missing, at character 15: IfcDoor, Name=<<here>>"});
    expectError(run({"list", "house.ifc", "--where", "IfcHaus"}), {"--where: IFC4 has no class IfcHaus"});
}

}  // namespace
}  // namespace console_tests
