// modelhost lookup and list.

#include "ConsoleTest.hpp"

namespace console_tests {
namespace {

class LookupCommand : public ConsoleTest {};

TEST_F(LookupCommand, ShowsTheRowsOfTheElement) {
    const Json rows = json({"lookup", "house.ifc", WallGuid})["rows"];
    EXPECT_EQ(rows[0], Json({"GUID", WallGuid}));
    EXPECT_EQ(rows[1], Json({"Type", "Wall"}));
    EXPECT_THAT(rows, testing::Contains(Json({"FireRating[Pset_WallCommon]", "F 90"})));
    EXPECT_THAT(rows, testing::Contains(Json({"ThermalTransmittance[Pset_WallCommon]", "0.250000"})));
    EXPECT_THAT(rows, testing::Contains(Json({"UniFormat Classification", "B2010 {Exterior Walls}"})));
}

TEST_F(LookupCommand, TakesGlobalIdsAndPrintsGuids) {
    const Json rows = json({"lookup", "house.ifc", testing_support::globalId(DoorGuid)})["rows"];
    EXPECT_EQ(rows[0], Json({"GUID", DoorGuid}));
    EXPECT_EQ(rows[1], Json({"Type", "Door"}));
}

TEST_F(LookupCommand, TakesGuidsInBraces) {
    const Json rows = json({"lookup", "house.ifc", "{" + std::string(DoorGuid) + "}"})["rows"];
    EXPECT_EQ(rows[0], Json({"GUID", DoorGuid}));
    EXPECT_EQ(rows[1], Json({"Type", "Door"}));
}

TEST_F(LookupCommand, AppendsTheRowsOfSeveralElements) {
    const Json rows = json({"lookup", "house.ifc", WallGuid, DoorGuid})["rows"];
    EXPECT_EQ(std::count(rows.begin(), rows.end(), Json({"Type", "Wall"})), 1);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), Json({"Type", "Door"})), 1);
}

TEST_F(LookupCommand, WithoutAGuidLooksUpTheOneThatTheDialogOpensWith) {
    const Json rows = json({"lookup", "house.ifc"}, 1)["rows"];
    EXPECT_EQ(rows[0], Json({"GUID", "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"}));
}

TEST_F(LookupCommand, AnUnknownElementIsAnErrorAndTheOthersAreShown) {
    const Outcome outcome = run({"lookup", "house.ifc", UnknownGuid, WallGuid});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("no element of house.ifc has the GUID " + UnknownGuid + " (BADID)"));
    EXPECT_THAT(outcome.out, HasSubstr("BADID"));
    EXPECT_THAT(outcome.out, HasSubstr("F 90"));
}

TEST_F(LookupCommand, ATextThatIsNoGuidIsExplained) {
    const Outcome outcome = run({"lookup", "house.ifc", "wall"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("'wall' is no GUID of 36 characters and no GlobalId of 22"));
}

TEST_F(LookupCommand, PrintsATableWithTheListsHeader) {
    const Outcome outcome = run({"lookup", "house.ifc", WallGuid});
    EXPECT_THAT(outcome.out, testing::StartsWith("Property"));
    EXPECT_THAT(outcome.out, HasSubstr("\nFireRating[Pset_WallCommon]"));
}

TEST_F(LookupCommand, PrintsTsv) {
    const Outcome outcome = run({"lookup", "house.ifc", WallGuid, "--format", "tsv"});
    EXPECT_THAT(outcome.out, testing::StartsWith("Property\tValue\nGUID\t" + WallGuid + "\n"));
}

class ListCommand : public ConsoleTest {
protected:
    Fields guids(const std::vector<std::string>& filter) {
        std::vector<std::string> arguments{"list", "house.ifc"};
        arguments.insert(arguments.end(), filter.begin(), filter.end());
        Fields result;
        const Json document = json(arguments);
        for (const Json& element : document["elements"]) result.push_back(element["guid"]);
        return result;
    }
};

TEST_F(ListCommand, ListsTheElementsInTheOrderOfTheFile) {
    const Json elements = json({"list", "house.ifc"})["elements"];
    ASSERT_THAT(elements, SizeIs(3));
    EXPECT_EQ(elements[0], (Json{{"guid", WallGuid},
                                 {"globalId", testing_support::globalId(WallGuid)},
                                 {"class", "IfcWall"},
                                 {"type", "Wall"},
                                 {"name", "Wall-01"}}));
    EXPECT_EQ(elements[2]["name"], "");
}

TEST_F(ListCommand, NamesTheClassesThatTheSchemaDoesNotHave) {
    EXPECT_EQ(json({"list", "house.ifc"})["model"]["unknownClasses"], Json::array());
    std::string model = house();
    model.insert(model.find("DATA;") + 5, "\n#9001=IFCHOVERCRAFT();\n#9002=IFCHOVERCRAFT();");
    write("house.ifc", model);
    EXPECT_EQ(json({"list", "house.ifc"})["model"]["unknownClasses"],
              Json::array({Json{{"class", "IFCHOVERCRAFT"}, {"instances", 2}}}));
    EXPECT_THAT(run({"list", "house.ifc"}).err, HasSubstr("IFCHOVERCRAFT (2)"));
}

TEST_F(ListCommand, FiltersByTypeInAnyCase) {
    EXPECT_THAT(guids({"--type", "Door"}), ElementsAre(DoorGuid));
    EXPECT_THAT(guids({"--type", "wall"}), ElementsAre(WallGuid));
    EXPECT_THAT(guids({"--type", "Curtain Wall"}), IsEmpty());
}

TEST_F(ListCommand, FiltersByClassAndTheClassesBelowIt) {
    EXPECT_THAT(guids({"--class", "IfcDoor"}), ElementsAre(DoorGuid));
    EXPECT_THAT(guids({"--class", "ifcwall"}), ElementsAre(WallGuid));
    EXPECT_THAT(guids({"--class", "IfcBuildingElement"}), SizeIs(3));
    EXPECT_THAT(guids({"--class", "IfcWall", "--type", "Door"}), IsEmpty());
}

TEST_F(ListCommand, PrintsTableAndTsv) {
    EXPECT_THAT(run({"list", "house.ifc"}).out, HasSubstr("IfcDoor    Door    Door-01\n"));
    EXPECT_THAT(run({"list", "house.ifc", "--format", "tsv"}).out,
                HasSubstr("\n" + DoorGuid + "\t" + testing_support::globalId(DoorGuid) + "\tIfcDoor\tDoor\tDoor-01\n"));
}

TEST_F(ListCommand, PrintsValidJsonWhateverTheNames) {
    testing_support::IfcText ifc;
    ifc.element("IfcWall", WallGuid, "placeholder");
    std::string text = ifc.text();
    text.replace(text.find("'placeholder'"), 13, "'T\xFCr\\X2\\0009\\X0\\\\X2\\548C5BA4\\X0\\'");
    write("house.ifc", text);
    EXPECT_EQ(json({"list", "house.ifc"})["elements"][0]["name"], "Tür\t和室");
}

TEST_F(ListCommand, ClassesThatTheSchemaLacksAreInTheListsJson) {
    std::string text = house();
    text.insert(text.rfind("ENDSEC;"), "#90001=IFCALPHA(1);\n#90002=IFCALPHA(2);\n");
    write("house.ifc", text);
    EXPECT_EQ(json({"list", "house.ifc"})["model"]["unknownClasses"],
              Json::parse(R"([{"class":"IFCALPHA","instances":2}])"));
    write("house.ifc", house());
    EXPECT_EQ(json({"list", "house.ifc"})["model"]["unknownClasses"], Json::array());
}

}  // namespace
}  // namespace console_tests
