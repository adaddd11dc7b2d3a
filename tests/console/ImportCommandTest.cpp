// modelhost import: review, ticking, applying, saving, and the three formats.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

namespace console_tests {
namespace {

constexpr const char* Same = " Old and new values are the same.";

/// An array of texts of which one holds the part.
testing::Matcher<Json> HasText(const std::string& part) {
    return testing::Contains(
        testing::ResultOf([](const Json& text) { return text.get<std::string>(); }, HasSubstr(part)));
}

class ImportCommand : public ConsoleTest {
protected:
    /// Three rows: one to apply, one that is the same already, one of an unnamed element; and a line without a row.
    void writeFourLines() {
        updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 120"},
                 {WallGuid, "IsExternal", "", ".T."},
                 {NamelessGuid, "Name", "", "Column-01"},
                 {UnknownGuid, "Name", "", "nothing"}});
    }
};

TEST_F(ImportCommand, DryRunShowsTheReviewAndLeavesTheModelAlone) {
    writeFourLines();
    const std::string before = bytes("house.ifc");
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_EQ(document["model"], (Json{{"path", "house.ifc"},
                                       {"schema", "IFC4"},
                                       {"elements", 3},
                                       {"duplicateGlobalIds", 0},
                                       {"invalidGlobalIds", 0}}));
    EXPECT_EQ(document["updates"], (Json{{"path", "updates.txt"}}));
    EXPECT_THAT(document["header"], SizeIs(8));
    EXPECT_EQ(document["review"][0]["columns"],
              (Fields{"[X]", "Wall-01", "Wall", WallGuid, "FireRating[WallCommon]", "F 90", "F 120", ""}));
    EXPECT_EQ(document["review"][0]["status"], 0);
    EXPECT_EQ(document["review"][0]["color"], nullptr);
    EXPECT_EQ(document["review"][1]["columns"][7], Same);
    EXPECT_EQ(document["review"][1]["status"], 2);
    EXPECT_EQ(document["review"][2]["color"], Json({65535, 0, 0}));
    EXPECT_EQ(document["summary"], (Json{{"lines", 4},
                                         {"rows", 3},
                                         {"tickable", 1},
                                         {"ticked", 1},
                                         {"done", 0},
                                         {"errors", 0},
                                         {"rowsLost", 0},
                                         {"notAsAsked", 0},
                                         {"conflicts", 0},
                                         {"linesWithoutRow", 1},
                                         {"exact", 0}}));
    EXPECT_THAT(document["hints"], SizeIs(1));
    EXPECT_EQ(document["report"], Json::array());
    EXPECT_FALSE(document.contains("result"));
    EXPECT_FALSE(document.contains("saved"));
    EXPECT_EQ(bytes("house.ifc"), before);
}

TEST_F(ImportCommand, ApplySavesTheTickedRowsToTheFileNamed) {
    writeFourLines();
    const std::string before = bytes("house.ifc");
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(document["result"][0]["columns"][0], "[  ]");
    EXPECT_EQ(document["result"][0]["columns"][7], "Done");
    EXPECT_EQ(document["result"][0]["status"], 2);
    EXPECT_EQ(document["review"][0]["columns"][7], "");
    EXPECT_EQ(document["summary"]["done"], 1);
    EXPECT_EQ(document["saved"], "out.ifc");
    EXPECT_EQ(bytes("house.ifc"), before);
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'F 120'"));
}

TEST_F(ImportCommand, InPlaceSavesOverTheModel) {
    writeFourLines();
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "--in-place"});
    EXPECT_EQ(document["saved"], "house.ifc");
    EXPECT_THAT(bytes("house.ifc"), HasSubstr("'F 120'"));
}

TEST_F(ImportCommand, InPlaceWritesNothingWhereNothingChanged) {
    updates({{WallGuid, "IsExternal", "", ".T."}});
    const auto before = std::filesystem::last_write_time(folder_.path() / "house.ifc");
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "--in-place"});
    EXPECT_FALSE(document.contains("saved"));
    EXPECT_EQ(std::filesystem::last_write_time(folder_.path() / "house.ifc"), before);
}

TEST_F(ImportCommand, AnUnchangedModelIsCopiedByteForByte) {
    updates({{WallGuid, "IsExternal", "", ".T."}});
    json({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(bytes("out.ifc"), bytes("house.ifc"));
}

TEST_F(ImportCommand, TickedRowsThatFailGiveExitStatusTwoAndTheOthersAreSaved) {
    updates({{DoorGuid, "OverallHeight", "", "high"}, {DoorGuid, "Name", "", "Door-02"}});
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}, 2);
    EXPECT_THAT(column(document["result"], 7), ElementsAre("error!", "Done"));
    EXPECT_THAT(column(document["result"], 0), ElementsAre("[X]", "[  ]"));
    EXPECT_EQ(document["summary"]["errors"], 1);
    ASSERT_THAT(document["report"], SizeIs(1));
    EXPECT_THAT(document["report"][0].get<std::string>(), HasSubstr("OverallHeight"));
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'Door-02'"));
}

TEST_F(ImportCommand, RefusalsAreSaidOnStandardErrorInEveryFormat) {
    updates({{DoorGuid, "OverallHeight", "", "high"}});
    for (const char* format : {"table", "tsv", "json"}) {
        const Outcome outcome =
            run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc", "--format", format});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr("OverallHeight")) << format;
    }
}

struct Ticking {
    const char* choice;
    Fields ticks;
    int ticked;
};

class ImportTick : public ImportCommand, public testing::WithParamInterface<Ticking> {};

TEST_P(ImportTick, TicksTheRowsNamed) {
    writeFourLines();
    const Json document = json({"import", "house.ifc", "updates.txt", "--tick", GetParam().choice});
    EXPECT_EQ(column(document["review"], 0), GetParam().ticks);
    EXPECT_EQ(document["summary"]["ticked"], GetParam().ticked);
}

INSTANTIATE_TEST_SUITE_P(Choices, ImportTick,
                         testing::Values(Ticking{"all", {"[X]", "[  ]", "[  ]"}, 1},
                                         Ticking{"none", {"[  ]", "[  ]", "[  ]"}, 0},
                                         Ticking{"1", {"[X]", "[  ]", "[  ]"}, 1},
                                         // A click ticks a disabled row, too; it is not applied.
                                         Ticking{"1-2", {"[X]", "[X]", "[  ]"}, 2},
                                         Ticking{"3,1,1-1", {"[X]", "[  ]", "[X]"}, 2}));

TEST_F(ImportCommand, ATickedRowThatIsDisabledIsNotApplied) {
    writeFourLines();
    const Json document = json({"import", "house.ifc", "updates.txt", "--tick", "3", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(document["summary"]["done"], 0);
    EXPECT_EQ(document["summary"]["errors"], 0);
    EXPECT_EQ(bytes("out.ifc"), bytes("house.ifc"));
}

TEST_F(ImportCommand, ARowThatIsNotThereIsRefusedBeforeAnythingIsApplied) {
    writeFourLines();
    expectError(run({"import", "house.ifc", "updates.txt", "--tick", "1-4", "--apply", "-o", "out.ifc"}),
                {"no row 4", "has 3", "nothing was applied"});
    EXPECT_FALSE(exists("out.ifc"));
}

TEST_F(ImportCommand, TableShowsRowNumbersOutcomeHintsAndTheFileSaved) {
    writeFourLines();
    const Outcome outcome = run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("4 lines, 3 rows: 1 tickable, 1 ticked, 1 done, 0 errors."));
    EXPECT_THAT(outcome.out, HasSubstr("Hint: 1 line gave no row; no element has the GUID in line 4"));
    EXPECT_THAT(outcome.out, HasSubstr("Saved out.ifc"));
    EXPECT_THAT(outcome.out, HasSubstr("\n1    [  ]"));
    EXPECT_THAT(outcome.out, HasSubstr("Done"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\x1B")));
    EXPECT_EQ(outcome.err, "");
}

TEST_F(ImportCommand, TableOfADryRunSaysHowToApply) {
    writeFourLines();
    const Outcome outcome = run({"import", "house.ifc", "updates.txt"});
    EXPECT_THAT(outcome.out, HasSubstr("Dry run: nothing was changed."));
}

TEST_F(ImportCommand, TsvHoldsHeaderAndRowsOnlyAndHintsGoToStandardError) {
    writeFourLines();
    const Outcome outcome = run({"import", "house.ifc", "updates.txt", "--format", "tsv"});
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4);
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\t'), 4 * 7);
    EXPECT_THAT(outcome.out,
                HasSubstr("\n[X]\tWall-01\tWall\t" + WallGuid + "\tFireRating[WallCommon]\tF 90\tF 120\t\n"));
    EXPECT_THAT(outcome.err, HasSubstr("hint: 1 line gave no row"));
}

TEST_F(ImportCommand, ReadsTheUpdateFileFromStandardInput) {
    const Outcome outcome =
        modelhost().input(WallGuid + "\tName\t\tNorth wall\n").run({"import", "house.ifc", "-", "--format", "json"});
    const Json document = Json::parse(outcome.out);
    EXPECT_EQ(document["review"][0]["columns"][6], "North wall");
    EXPECT_EQ(document["updates"]["path"], "-");
}

TEST_F(ImportCommand, ReadsAnUpdateFileWhoseNameIsNoText) {
    write("\xFCpdates.txt", WallGuid + "\tName\t\tNorth wall\n");
    const Json document = json({"import", "house.ifc", "\xFCpdates.txt"});
    EXPECT_EQ(document["summary"]["rows"], 1);
}

TEST_F(ImportCommand, ControlCharactersOfTheModelDoNotReachTheTerminal) {
    updates({{WallGuid, "Name", "", "\x1B[2Jgone"}});
    EXPECT_THAT(run({"import", "house.ifc", "updates.txt"}).out, HasSubstr("␛[2Jgone"));
    EXPECT_THAT(run({"import", "house.ifc", "updates.txt", "--format", "tsv"}).out, HasSubstr("\\u001B[2Jgone"));
    EXPECT_EQ(json({"import", "house.ifc", "updates.txt"})["review"][0]["columns"][6], "\x1B[2Jgone");
}

TEST_F(ImportCommand, NumbersAreTheSameInEveryLanguage) {
    updates({{WallGuid, "ThermalTransmittance", "", "0.250000"}, {WallGuid, "ThermalTransmittance", "", "0.5"}});
    const Outcome outcome =
        modelhost()
            .with("LANG", "de_DE.UTF-8")
            .with("LC_ALL", "de_DE.UTF-8")
            .run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc", "--format", "json"});
    const Json document = Json::parse(outcome.out);
    EXPECT_THAT(column(document["result"], 7), ElementsAre(Same, "Done"));
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("IFCREAL(0.5)"));
}

TEST_F(ImportCommand, RowsThatTheListCannotHoldAreCountedAndSaid) {
    std::string text;
    for (int i = 0; i < 32769; ++i) text += WallGuid + "\tName\t\tNorth wall\n";
    write("updates.txt", text);
    const Json document = json({"import", "house.ifc", "updates.txt", "--tick", "none"});
    EXPECT_EQ(document["summary"]["rows"], 32767);
    EXPECT_EQ(document["summary"]["rowsLost"], 2);
    ASSERT_THAT(document["hints"], SizeIs(1));
    EXPECT_THAT(document["hints"][0].get<std::string>(), HasSubstr("split the update file"));
}

TEST_F(ImportCommand, DebugShowsTheAddOnsDebugOutput) {
    updates({{WallGuid, "Name", "", "North wall"}});
    EXPECT_THAT(run({"import", "house.ifc", "updates.txt", "--debug"}).err, HasSubstr("Property: GlobalId"));
    EXPECT_EQ(run({"import", "house.ifc", "updates.txt"}).err, "");
}

struct HintOfFile {
    const char* what;
    std::string bytes;
    const char* hint;
};

class ImportHint : public ImportCommand, public testing::WithParamInterface<HintOfFile> {};

TEST_F(ImportCommand, RefusesAFileOfWhichNoLineGivesARow) {
    using namespace std::string_literals;
    for (const auto& [bytes, why] :
         {std::pair{UnknownGuid + "\tName\t\tx\n", "1 line gave no row"s}, std::pair{"\xFF\xFE"
                                                                                     "4\0B\0\n\0"s,
                                                                                     "UTF-16"s}}) {
        write("updates.txt", bytes);
        expectError(run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}),
                    {"updates.txt", "no row", why});
        EXPECT_FALSE(exists("out.ifc"));
    }
}

TEST_P(ImportHint, IsGiven) {
    write("updates.txt", GetParam().bytes);
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_THAT(document["hints"], HasText(GetParam().hint)) << GetParam().what;
}

using namespace std::string_literals;
const std::string GoodLine = WallGuid + "\tName\t\tNorth wall\n";

INSTANTIATE_TEST_SUITE_P(
    Files, ImportHint,
    testing::Values(HintOfFile{"heading", "GUID\tItem\tOld\tNew\n" + GoodLine, "1 line gave no row"},
                    HintOfFile{"truncated", GoodLine + WallGuid + "\tNa", "Line 2: the last line has no line end"},
                    HintOfFile{"mark", "\xEF\xBB\xBF" + GoodLine + GoodLine, "byte-order mark"},
                    HintOfFile{"zero byte", WallGuid + "\tName\t\tx\0y\n"s, "zero bytes"},
                    HintOfFile{"few fields", GoodLine + WallGuid + "\tName\n", "Line 2: fewer than four fields"},
                    HintOfFile{"leading TAB", GoodLine + "\tName\t\tx\n", "Line 2: begins with a TAB"},
                    HintOfFile{"long", WallGuid + "\tName\t\t" + std::string(3000, 'x') + "\n", "2047 bytes"},
                    HintOfFile{"quotes", WallGuid + "\tName\t\t\"x\"\n", "cells in quotes"}));

TEST_F(ImportCommand, ACutLineGivesARowAndItsRestNone) {
    write("updates.txt", WallGuid + "\tName\t\t" + std::string(3000, 'x') + "\n");
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_EQ(document["summary"]["lines"], 1);
    EXPECT_EQ(document["summary"]["rows"], 1);
}

class ImportOfSchema : public ImportCommand, public testing::WithParamInterface<const char*> {};

TEST_P(ImportOfSchema, Works) {
    write("house.ifc", house(GetParam()));
    writeFourLines();
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(document["model"]["schema"], GetParam());
    EXPECT_EQ(document["summary"]["done"], 1);
}

INSTANTIATE_TEST_SUITE_P(Schemas, ImportOfSchema, testing::Values("IFC2X3", "IFC4", "IFC4X3"));

TEST_F(ImportCommand, EveryErrorOfTheSampleIsExplained) {
    const std::string samples = testing_support::projectFile("samples/").string();
    const Json document =
        json({"import", samples + "house.ifc", samples + "updates.txt", "--apply", "-o", "out.ifc"}, 2);
    EXPECT_GT(document["summary"]["done"], 0);
    EXPECT_THAT(document["report"], HasText("CEILING"));
    EXPECT_THAT(document["hints"], HasText("Slope[Custom]"));
}

}  // namespace
}  // namespace console_tests
