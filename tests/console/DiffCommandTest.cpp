// modelhost diff: its forms, its exit status, its errors.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

namespace console_tests {
namespace {

class Diff : public ConsoleTest {
protected:
    /// house.ifc with these updates, as other.ifc.
    void change(const std::vector<Fields>& lines) {
        updates(lines);
        ASSERT_EQ(run({"import", "house.ifc", "updates.txt", "--exact", "--apply", "-o", "other.ifc"}).status, 0);
    }
};

TEST_F(Diff, OfAFileWithItselfIsEmpty) {
    const Json document = json({"diff", "house.ifc", "house.ifc", "--exit-code"});
    for (const char* list : {"added", "removed", "changed"}) EXPECT_THAT(document[list], IsEmpty());
    EXPECT_EQ(document["summary"],
              Json({{"added", 0}, {"removed", 0}, {"changed", 0}, {"same", 3}, {"notWritable", 0}}));
    EXPECT_EQ(run({"diff", "house.ifc", "house.ifc"}).out, "0 elements added, 0 removed, 0 changed, 3 the same.\n");
    EXPECT_EQ(run({"diff", "house.ifc", "house.ifc", "--format", "updates"}).out, "");
}

TEST_F(Diff, TellsEachChangeInJson) {
    change({{WallGuid, "FireRating[WallCommon]", "", "F 120"}, {DoorGuid, "Name", "", "Door-02"}});
    const Json document = json({"diff", "house.ifc", "other.ifc"});
    EXPECT_EQ(document["a"]["path"], "house.ifc");
    EXPECT_EQ(document["b"]["schema"], "IFC4");
    ASSERT_THAT(document["changed"], SizeIs(2));
    const Json& wall = document["changed"][0];
    EXPECT_EQ(wall["guid"], WallGuid);
    EXPECT_EQ(wall["globalId"], testing_support::globalId(WallGuid));
    EXPECT_EQ(wall["class"], "IfcWall");
    EXPECT_EQ(wall["type"], "Wall");
    EXPECT_EQ(wall["name"], "Wall-01");
    EXPECT_EQ(wall["changes"], Json::array({{{"kind", "property"},
                                             {"item", "FireRating[WallCommon]"},
                                             {"set", "Pset_WallCommon"},
                                             {"old", "F 90"},
                                             {"new", "F 120"},
                                             {"writable", true}}}));
    EXPECT_EQ(document["changed"][1]["changes"][0], Json({{"kind", "attribute"},
                                                          {"item", "Name"},
                                                          {"set", nullptr},
                                                          {"old", "Door-01"},
                                                          {"new", "Door-02"},
                                                          {"writable", true}}));
    EXPECT_EQ(document["summary"]["changed"], 2);
}

TEST_F(Diff, TellsWhatIsNotThereAsNull) {
    change({{DoorGuid, "Note[Handover]", "", "new"}});
    EXPECT_EQ(json({"diff", "house.ifc", "other.ifc"})["changed"][0]["changes"][0]["old"], nullptr);
    const Json back = json({"diff", "other.ifc", "house.ifc"});
    EXPECT_EQ(back["changed"][0]["changes"][0]["new"], nullptr);
    EXPECT_EQ(back["changed"][0]["changes"][0]["writable"], false);
    EXPECT_EQ(back["summary"]["notWritable"], 1);
}

TEST_F(Diff, EndsWithStatus2ForDifferencesOnlyWhereAsked) {
    change({{DoorGuid, "Name", "", "Door-02"}});
    EXPECT_EQ(run({"diff", "house.ifc", "other.ifc"}).status, 0);
    EXPECT_EQ(run({"diff", "house.ifc", "other.ifc", "--exit-code"}).status, 2);
    EXPECT_EQ(run({"diff", "house.ifc", "other.ifc", "--exit-code", "--type", "Wall"}).status, 0);
}

TEST_F(Diff, IsAboutTheElementsThatEitherModelChooses) {
    change({{DoorGuid, "Name", "", "Door-02"}, {WallGuid, "Name", "", "Wall-02"}});
    const auto changed = [this](const std::vector<std::string>& options) {
        std::vector<std::string> command = {"diff", "house.ifc", "other.ifc"};
        command.insert(command.end(), options.begin(), options.end());
        Fields names;
        const Json document = json(command);
        for (const Json& element : document["changed"]) names.push_back(element["name"]);
        return names;
    };
    EXPECT_THAT(changed({"--type", "Door"}), ElementsAre("Door-01"));
    EXPECT_THAT(changed({"--class", "IfcWall"}), ElementsAre("Wall-01"));
    EXPECT_THAT(changed({"--where", "Name=Wall-02"}), ElementsAre("Wall-01"));
    EXPECT_THAT(changed({"--where", "Name=Wall-01"}), ElementsAre("Wall-01"));
}

TEST_F(Diff, ListsAddedAndRemovedElements) {
    testing_support::IfcText ifc;
    ifc.element("IfcDoor", DoorGuid, "Door-01");
    ifc.element("IfcSlab", testing_support::guidText(7), "Slab-07");
    write("other.ifc", ifc.text());
    const Json document = json({"diff", "house.ifc", "other.ifc"});
    ASSERT_THAT(document["added"], SizeIs(1));
    EXPECT_EQ(document["added"][0], Json({{"guid", testing_support::guidText(7)},
                                          {"globalId", testing_support::globalId(testing_support::guidText(7))},
                                          {"class", "IfcSlab"},
                                          {"type", "Slab"},
                                          {"name", "Slab-07"}}));
    ASSERT_THAT(document["removed"], SizeIs(2));
    EXPECT_EQ(document["removed"][0]["name"], "Wall-01");
    const Outcome table = run({"diff", "house.ifc", "other.ifc"});
    EXPECT_THAT(table.out, HasSubstr("added    Slab-07"));
    EXPECT_THAT(table.out, HasSubstr("1 element added, 2 removed, 0 changed, 1 the same."));
    const Outcome made = run({"diff", "house.ifc", "other.ifc", "--format", "updates"});
    EXPECT_EQ(made.out, "");
    EXPECT_EQ(made.err,
              "modelhost: 1 added element left out: an update file adds no elements\n"
              "modelhost: 2 removed elements left out: an update file removes no elements\n");
}

TEST_F(Diff, SaysThatNothingIsChosenAndWhatWasMeant) {
    change({{WallGuid, "Name", "", "Wall-02"}});
    const Outcome none = run({"diff", "house.ifc", "other.ifc", "--class", "IfcRamp"});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "0 elements added, 0 removed, 0 changed, 0 the same.\n");
    EXPECT_THAT(none.err, HasSubstr("no element of house.ifc or other.ifc is chosen"));
    EXPECT_EQ(run({"diff", "house.ifc", "other.ifc", "--where", "Nmae=x"}).err,
              "modelhost: --where: no element has an item Nmae; nearest: Name\n");
    expectError(run({"diff", "house.ifc", "other.ifc", "--type", "Dor"}),
                {"there is no such type; did you mean Door?"});
}

TEST_F(Diff, LeavesBlankOnATerminalWhatTheLineAboveSays) {
    change({{WallGuid, "Name", "", "Wall-02"}, {WallGuid, "FireRating[WallCommon]", "", "F 120"}});
    const Outcome fitted = modelhost().with("COLUMNS", "80").run({"diff", "house.ifc", "other.ifc"});
    EXPECT_THAT(fitted.out, testing::ContainsRegex("\nchanged +Wall-01 +Wall +C0FFEE.+ Name +Wall-01 +Wall-02\n"
                                                   " +FireRating.* +F 90 +F 120\n"));
    const Outcome whole = run({"diff", "house.ifc", "other.ifc"});
    EXPECT_THAT(whole.out, testing::ContainsRegex("\nchanged +Wall-01 +Wall +" + WallGuid + " +FireRating"));
}

TEST_F(Diff, PrintsALineAChangeForOtherPrograms) {
    change({{WallGuid, "FireRating[WallCommon]", "", "F\\t120"}});
    EXPECT_EQ(
        run({"diff", "house.ifc", "other.ifc", "--format", "tsv"}).out,
        "What\tGUID\tGlobalId\tClass\tType\tName\tKind\tItem\tSet\tOld\tNew\tWritable\n"
        "changed\t" +
            WallGuid + "\t" + testing_support::globalId(WallGuid) +
            "\tIfcWall\tWall\tWall-01\tproperty\tFireRating[WallCommon]\tPset_WallCommon\tF 90\tF\\\\t120\ttrue\n");
}

TEST_F(Diff, WritesUpdatesThatMakeTheOtherModel) {
    change({{WallGuid, "FireRating[WallCommon]", "", "F 120"},
            {WallGuid, "IsExternal", "", "false"},
            {WallGuid, "ThermalTransmittance", "", "0.12345678"},
            {WallGuid, "UniFormat Classification", "", "B3010{Roof}"},
            {DoorGuid, "SpecSection Classification", "", "08 14 00"},
            {DoorGuid, "Note[Handover]", "", "12 abc"}});
    const Outcome made = run({"diff", "house.ifc", "other.ifc", "--format", "updates", "-o", "back.txt"});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.out + made.err, "");
    const std::string lines = bytes("back.txt");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 6);
    ASSERT_EQ(run({"import", "house.ifc", "back.txt", "--exact", "--apply", "-o", "again.ifc"}).status, 0);
    EXPECT_EQ(run({"diff", "again.ifc", "other.ifc", "--exit-code"}).status, 0);
}

TEST_F(Diff, NamesWhatAnUpdateFileCannotExpress) {
    change({{DoorGuid, "Note[Handover]", "", "new"}});
    const Outcome made = run({"diff", "other.ifc", "house.ifc", "--format", "updates"});
    EXPECT_EQ(made.out, "");
    EXPECT_EQ(
        made.err,
        "modelhost: 1 change of Note[Handover] left out: an update file takes no item away but a classification (" +
            DoorGuid + ")\n");
}

TEST_F(Diff, WritesAPageWhereAsked) {
    change({{DoorGuid, "Name", "", "Door-02"}});
    const Outcome printed = run({"diff", "house.ifc", "other.ifc", "--format", "html"});
    EXPECT_THAT(printed.out, testing::StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(printed.out, HasSubstr("<td>Name</td><td>Door-01</td><td>Door-02</td><td>changed</td>"));
    const Outcome beside = run({"diff", "house.ifc", "other.ifc", "--report", "page.HTML"});
    EXPECT_THAT(beside.out, HasSubstr("1 changed"));
    EXPECT_EQ(beside.err, "modelhost: report written to page.HTML\n");
    EXPECT_EQ(bytes("page.HTML").size(), printed.out.size());
}

TEST_F(Diff, ReadsOneModelFromStandardInput) {
    change({{DoorGuid, "Name", "", "Door-02"}});
    const Outcome piped = modelhost().input(bytes("other.ifc")).run({"diff", "house.ifc", "-"});
    EXPECT_THAT(piped.out, HasSubstr("Door-02"));
    expectError(run({"diff", "-", "-"}), {"A and B cannot both be standard input"});
}

TEST_F(Diff, RefusesAReportThatItCannotWriteBeforeTheWork) {
    const auto refused = [this](const std::string& file) {
        return run({"diff", "house.ifc", "house.ifc", "--report", file});
    };
    expectError(refused("page.pdf"), {"--report page.pdf", "ends in .html, .json or .xlsx"});
    expectError(refused("none/page.html"), {"none"});
    std::filesystem::copy_file(folder_.path() / "house.ifc", folder_.path() / "model.html");
    expectError(run({"diff", "model.html", "house.ifc", "--report", "model.html"}),
                {"--report model.html", "read or written by the command itself"});
    updates({{DoorGuid, "Name", "", "Door-02"}});
    std::filesystem::rename(folder_.path() / "updates.txt", folder_.path() / "updates.html");
    expectError(run({"import", "house.ifc", "updates.html", "--report", "updates.html"}), {"--report updates.html"});
}

TEST_F(Diff, RefusesWhatItCannotDo) {
    expectError(run({"diff", "house.ifc"}), {"B is required"});
    expectError(run({"diff", "house.ifc", "missing.ifc"}), {"missing.ifc"});
    expectError(run({"diff", "house.ifc", "house.ifc", "--where", "Name="}), {"--where"});
    expectError(run({"diff", "house.ifc", "house.ifc", "-o", "x.txt"}), {"-o x.txt: only --format updates and html"});
    expectError(run({"diff", "house.ifc", "house.ifc", "--format", "updates", "-o", "house.ifc"}),
                {"is one of the models"});
    expectError(run({"diff", "house.ifc", "house.ifc", "--format", "updates", "-o", "none/x.txt"}), {"none"});
}

}  // namespace
}  // namespace console_tests
