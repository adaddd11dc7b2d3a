// import, list, items and export on several models: a project is more than one file.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

namespace console_tests {
namespace {

const std::string SlabGuid = testing_support::guidText(11);

/// models/a.ifc with the wall, models/b.ifc with a slab that only it has.
class SeveralModels : public ConsoleTest {
protected:
    SeveralModels() {
        std::filesystem::create_directory(folder_.path() / "models");
        write("models/a.ifc", house());
        testing_support::IfcText ifc;
        ifc.element("IfcSlab", SlabGuid, "Slab-01");
        write("models/b.ifc", ifc.text());
        updates({{WallGuid, "Name", "", "North wall"}, {SlabGuid, "Name", "", "Ground slab"}});
    }
    void addUnknownElement() {
        updates({{WallGuid, "Name", "", "North wall"},
                 {SlabGuid, "Name", "", "Ground slab"},
                 {UnknownGuid, "Name", "", "Nobody"}});
    }
    void addBrokenModel() { write("models/broken.ifc", "no model\n"); }
    Outcome apply(Fields more = {"--out-dir", "out"}) {
        more.insert(more.begin(), {"import", "models", "updates.txt", "--apply"});
        return run(more);
    }
};

TEST_F(SeveralModels, OneUpdateFileGoesToAll) {
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(bytes("out/a.ifc"), HasSubstr("'North wall'"));
    EXPECT_THAT(bytes("out/b.ifc"), HasSubstr("'Ground slab'"));
    EXPECT_EQ(bytes("models/a.ifc"), house());
    EXPECT_THAT(outcome.out, Not(HasSubstr("gave no row")));
}

TEST_F(SeveralModels, AnUpdateIsMissingWhereNoModelHasItsElement) {
    EXPECT_EQ(apply({"--out-dir", "out", "--strict"}).status, 0);
    addUnknownElement();
    const Outcome outcome = apply({"--out-dir", "out", "--strict"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(
        outcome.err,
        "modelhost: no model has the element in line 3 of updates.txt; check the models and the GUIDs, 'modelhost "
        "list' prints them\n");
    EXPECT_EQ(apply().status, 0);
    updates({{UnknownGuid, "Name", "", "Nobody"}});
    const Outcome none = apply();
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.err, HasSubstr("updates.txt: 1 line and no row in any of the models"));
}

TEST_F(SeveralModels, EachIsAsIfAlone) {
    ASSERT_EQ(apply().status, 0);
    ASSERT_EQ(run({"import", "models/a.ifc", "updates.txt", "--apply", "-o", "alone.ifc"}).status, 0);
    EXPECT_EQ(bytes("out/a.ifc"), bytes("alone.ifc"));
    const Json alone = json({"import", "models/a.ifc", "updates.txt"});
    const Json several = json({"import", "models", "updates.txt"});
    EXPECT_EQ(several[0]["review"], alone["review"]);
    EXPECT_EQ(several[0]["model"], alone["model"]);
}

TEST_F(SeveralModels, TheResultIsTheSameHoweverManyAreWorkedOnAtOnce) {
    addUnknownElement();
    addBrokenModel();
    for (int i = 0; i < 6; ++i) write("models/c" + std::to_string(i) + ".ifc", house());
    const Outcome one = apply({"--out-dir", "out", "-j", "1"});
    EXPECT_EQ(one.status, 1);
    for (const char* jobs : {"2", "5", "0"}) {
        const Outcome outcome = apply({"--out-dir", "out", "-j", jobs});
        EXPECT_EQ(outcome.out, one.out) << jobs;
        EXPECT_EQ(outcome.err, one.err) << jobs;
        EXPECT_EQ(outcome.status, one.status) << jobs;
    }
}

TEST_F(SeveralModels, OneThatFailsDoesNotStopTheOthers) {
    write("models/a0.ifc", "no model\n");
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("modelhost: models/a0.ifc: "));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("models/a0.ifc +failed: models/a0.ifc: it does not begin"));
    EXPECT_TRUE(exists("out/a.ifc") && exists("out/b.ifc"));
    EXPECT_FALSE(exists("out/a0.ifc"));
    const Json documents = json({"import", "models", "updates.txt"}, 1);
    ASSERT_THAT(documents, SizeIs(3));
    EXPECT_EQ(documents[1]["model"], (Json{{"path", "models/a0.ifc"}}));
    EXPECT_THAT(documents[1]["error"].get<std::string>(), HasSubstr("it does not begin with ISO-10303-21"));
}

TEST_F(SeveralModels, ThatNothingIsChosenIsSaidOnceAndOnlyWhereNoModelHasIt) {
    constexpr const char* Nothing =
        "modelhost: no element of any of the models is chosen; 'modelhost list' without a filter prints those there "
        "are\n";
    for (const char* command : {"list", "items"}) {
        EXPECT_EQ(run({command, "models", "--type", "Beam"}).err, Nothing) << command;
        EXPECT_EQ(run({command, "models", "--type", "Slab"}).err, "") << command;
    }
    EXPECT_EQ(run({"diff", "models", "models", "--type", "Beam"}).err, Nothing);
    EXPECT_EQ(run({"diff", "models", "models", "--type", "Slab"}).err, "");
    EXPECT_EQ(run({"list", "models", "--where", "Nmae=x"}).err,
              "modelhost: --where: no element has an item Nmae; nearest: Name\n");
    EXPECT_EQ(run({"list", "models", "--where", "FireRating=x"}).err, Nothing);
    addBrokenModel();
    EXPECT_THAT(run({"list", "models", "--type", "Beam"}).err, HasSubstr(Nothing));
}

TEST_F(SeveralModels, AnUnknownTypeIsSaidOnce) {
    for (const char* command : {"list", "items"})
        expectError(run({command, "models", "--type", "Dor"}), {"--type Dor", "did you mean Door?"});
    expectError(run({"export", "models", "--items", "Name", "--type", "Dor"}), {"--type Dor"});
    expectError(run({"diff", "models", "models", "--type", "Dor"}), {"--type Dor"});
}

TEST_F(SeveralModels, OneWhoseAddOnCrashesDoesNotStopTheOthers) {
    const std::string crashing = testing_support::galleryAddOn("CrashesInApply.bundle").string();
    const Outcome outcome = apply({"--out-dir", "out", "--addon", crashing});
    EXPECT_EQ(outcome.status, 1);
    for (const char* model : {"models/a.ifc", "models/b.ifc"})
        EXPECT_THAT(outcome.out, testing::ContainsRegex(std::string(model) + " +failed: ")) << outcome.err;
}

TEST_F(SeveralModels, TheSummaryHasALineForEachModelAndTheStatusIsTheWorst) {
    updates({{WallGuid, "GlobalId", "", "x"}, {SlabGuid, "Name", "", "Ground slab"}});
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nmodels/a.ifc +1 +1 +0 +1 .*saved out/a.ifc\n"));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nmodels/b.ifc +1 +1 +1 +0 .*saved out/b.ifc\n"));
    addBrokenModel();
    EXPECT_EQ(apply().status, 1);
}

TEST_F(SeveralModels, InPlaceEachKeepsItsBackup) {
    const std::string before = bytes("models/b.ifc");
    EXPECT_EQ(apply({"--in-place", "--backup"}).status, 0);
    EXPECT_THAT(bytes("models/b.ifc"), HasSubstr("'Ground slab'"));
    EXPECT_EQ(bytes("models/a.ifc.bak"), house());
    EXPECT_EQ(bytes("models/b.ifc.bak"), before);
}

TEST_F(SeveralModels, EachHasAReportOfItsOwn) {
    std::filesystem::create_directory(folder_.path() / "more");
    write("more/a.ifc", house());
    EXPECT_EQ(apply({"--out-dir", "out", "--report", "changes.json"}).status, 0);
    EXPECT_THAT(bytes("changes-a.json"), testing::AllOf(HasSubstr("North wall"), Not(HasSubstr("Ground slab"))));
    EXPECT_THAT(bytes("changes-b.json"), HasSubstr("Ground slab"));
    EXPECT_FALSE(exists("changes.json"));
    expectError(run({"import", "models", "more", "updates.txt", "--report", "changes.html"}),
                {"the reports on models/a.ifc and more/a.ifc would both be written to changes-a.html"});
}

TEST_F(SeveralModels, UpdatesMayComeByStandardInput) {
    const Outcome outcome =
        modelhost().input(bytes("updates.txt")).run({"import", "models", "-", "--apply", "--out-dir", "out", "-j2"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(bytes("out/a.ifc"), HasSubstr("'North wall'"));
    EXPECT_THAT(bytes("out/b.ifc"), HasSubstr("'Ground slab'"));
}

TEST_F(SeveralModels, AreNamedByFoldersAndWildcardsEachOnce) {
    write("models/notes.txt", "no model");
    write("models/.hidden.ifc", house());
    const Fields byName{"list", "models/a.ifc", "models/b.ifc", "--format", "json"};
    const std::string expected = run(byName).out;
    for (const Fields& names : {Fields{"models"}, Fields{"models/[ab].ifc"}, Fields{"models", "models/a.ifc"},
                                Fields{"models/a.ifc", "./models/a.ifc", "models/b.ifc"}}) {
        Fields arguments{"list", "--format", "json"};
        arguments.insert(arguments.end(), names.begin(), names.end());
        EXPECT_EQ(run(arguments).out, expected);
    }
    std::filesystem::create_directory(folder_.path() / "empty");
    expectError(run({"list", "empty"}), {"the folder empty holds no .ifc or .ifczip file"});
    expectError(run({"list", "none*.ifc"}), {"no file is called none*.ifc"});
    expectError(run({"list", "-", "house.ifc"}), {"standard input is one model"});
}

TEST_F(SeveralModels, OneFileAloneIsAsEver) {
    EXPECT_TRUE(json({"list", "models/a.ifc"}).is_object());
    EXPECT_TRUE(json({"list", "models"}).is_array());
    std::filesystem::remove(folder_.path() / "models/b.ifc");
    EXPECT_THAT(json({"list", "models"}), SizeIs(1));
    write("odd[name].ifc", house());
    EXPECT_TRUE(json({"list", "odd[name].ifc"}).is_object());
}

TEST_F(SeveralModels, AFileAloneMayGoToAFolderToo) {
    EXPECT_EQ(run({"import", "house.ifc", "updates.txt", "--apply", "--out-dir", "new"}).status, 0);
    EXPECT_THAT(bytes("new/house.ifc"), HasSubstr("'North wall'"));
}

TEST_F(SeveralModels, NoFileIsLost) {
    std::filesystem::create_directory(folder_.path() / "more");
    write("more/a.ifc", house());
    const Fields importing{"import", "models", "updates.txt", "--apply"};
    const auto with = [&importing](Fields more) {
        more.insert(more.begin(), importing.begin(), importing.end());
        return more;
    };
    expectError(run({"import", "models", "more", "updates.txt", "--apply", "--out-dir", "out"}),
                {"models/a.ifc and more/a.ifc would both be written to out/a.ifc"});
    expectError(run(with({"--out-dir", "models"})), {"--out-dir models: models/a.ifc would be lost there"});
    expectError(run(with({"--out-dir", "updates.txt"})), {"--out-dir updates.txt: it cannot be made"});
    expectError(run(with({"-o", "all.ifc"})), {"-o is for one model; write --out-dir DIR or --in-place for several"});
    expectError(run(with({"--out-dir", "out", "--tick", "1"})), {"--tick with rows is for one model"});
    expectError(run(with({"--out-dir", "out", "--in-place"})), {"--in-place and --out-dir exclude each other"});
}

TEST_F(SeveralModels, AreListedInOneTable) {
    const Outcome outcome = run({"list", "models", "--format", "tsv"});
    EXPECT_THAT(outcome.out,
                testing::StartsWith("Model\tGUID\tGlobalId\tClass\tType\tName\nmodels/a.ifc\t" + WallGuid));
    EXPECT_THAT(outcome.out, HasSubstr("\nmodels/b.ifc\t" + SlabGuid + "\t"));
    addBrokenModel();
    const Outcome table = run({"list", "models"});
    EXPECT_EQ(table.status, 1);
    EXPECT_THAT(table.out, testing::ContainsRegex("\nmodels/a.ifc +3 +read\nmodels/b.ifc +1 +read\n"));
    EXPECT_THAT(table.out, testing::ContainsRegex("\nmodels/broken.ifc +failed: "));
}

TEST_F(SeveralModels, HaveTheirItemsInOneTable) {
    const Outcome outcome = run({"items", "models", "--format", "tsv"});
    EXPECT_THAT(outcome.out,
                HasSubstr("\nmodels/a.ifc\tproperty\tFireRating[WallCommon]\tPset_WallCommon\tIfcLabel\t1\t"));
    EXPECT_THAT(outcome.out, HasSubstr("\nmodels/b.ifc\tattribute\tName\t"));
    Json several = json({"items", "models"});
    EXPECT_EQ(several[1], json({"items", "models/b.ifc"}));
}

TEST_F(SeveralModels, AreExportedToOneTableThatGoesBackToAll) {
    ASSERT_EQ(run({"export", "models", "--items", "Name", "-o", "names.csv"}).status, 0);
    std::string table = bytes("names.csv");
    EXPECT_THAT(table, testing::StartsWith("GUID,#Model,#Storey,#Class,#Type,#Name,Name\n" + WallGuid + ",a.ifc,"));
    for (const auto& [old, now] : {std::pair("Wall-01\n", "North wall\n"), std::pair("Slab-01\n", "Ground slab\n")})
        table.replace(table.find(old), std::strlen(old), now);
    write("names.csv", table);
    EXPECT_EQ(run({"import", "models", "names.csv", "--apply", "--in-place", "--strict"}).status, 0);
    EXPECT_THAT(bytes("models/a.ifc"), HasSubstr("'North wall'"));
    EXPECT_THAT(bytes("models/b.ifc"), HasSubstr("'Ground slab'"));
}

TEST_F(SeveralModels, AreExportedAsTheLinesOfOneUpdateFile) {
    const std::string a = run({"export", "models/a.ifc", "--items", "Name"}).out;
    const std::string b = run({"export", "models/b.ifc", "--items", "Name"}).out;
    EXPECT_EQ(run({"export", "models", "--items", "Name"}).out, a + b);
    EXPECT_EQ(run({"export", "models", "--items", "Name", "-o", "all.txt"}).status, 0);
    EXPECT_EQ(bytes("all.txt"), a + b);
}

TEST_F(SeveralModels, AreExportedToAFileEach) {
    EXPECT_EQ(run({"export", "models", "--items", "Name", "--out-dir", "out", "--as", "csv"}).status, 0);
    ASSERT_EQ(run({"export", "models/b.ifc", "--items", "Name", "-o", "alone.csv"}).status, 0);
    EXPECT_EQ(bytes("out/b.csv"), bytes("alone.csv"));
    EXPECT_TRUE(exists("out/a.csv"));
}

TEST_F(SeveralModels, AnItemIsNobodysWhereNoModelHasIt) {
    const Outcome found = run({"export", "models", "--items", "FireRating[WallCommon],Name"});
    EXPECT_EQ(found.status, 0);
    EXPECT_THAT(found.err, Not(HasSubstr("no element has an item FireRating")));
    const Outcome nobodys = run({"export", "models", "--items", "FireRatign"});
    EXPECT_EQ(nobodys.status, 1);
    EXPECT_THAT(nobodys.err,
                HasSubstr("modelhost: no element has an item FireRatign; nearest: FireRating[WallCommon]\n"));
}

/// A pipe that nobody writes to: who reads updates from it waits.
TEST_F(SeveralModels, AnInterruptEndsAllOfThem) {
    const std::string pipe = (folder_.path() / "updates.pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const Outcome outcome =
        modelhost().runAndSignal({"import", "models", "updates.pipe", "-j2"}, SIGTERM, std::chrono::milliseconds(500));
    EXPECT_EQ(outcome.signal, SIGTERM);
    const int writing = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
    EXPECT_EQ(writing, -1) << "somebody still reads";
    if (writing >= 0) ::close(writing);
}

/// The folder models with one more, and the folder newer with the models as updates.txt changes them.
class DiffOfFolders : public SeveralModels {
protected:
    DiffOfFolders() {
        testing_support::IfcText beam;
        beam.element("IfcBeam", testing_support::guidText(12), "Beam-01");
        write("models/c.ifc", beam.text());
        updates({{WallGuid, "Name", "", "North wall"}, {SlabGuid, "Name", "", "Ground slab"}});
        EXPECT_EQ(apply({"--out-dir", "newer"}).status, 0);
        write("newer/c.ifc", beam.text());
    }
    Outcome diff(Fields more = {}) {
        more.insert(more.begin(), {"diff", "models", "newer"});
        return run(more);
    }
};

TEST_F(DiffOfFolders, ComparesModelsByFileNameWithALineForEachInTheSummary) {
    const Outcome outcome = diff();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\na.ifc +0 +0 +1 +2 +different\n"));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nb.ifc +0 +0 +1 +0 +different\n"));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nc.ifc +0 +0 +0 +1 +the same\n$"));
    EXPECT_THAT(outcome.out, HasSubstr("a.ifc:\nWhat "));
    EXPECT_THAT(outcome.out, Not(HasSubstr("c.ifc:")));
    EXPECT_EQ(diff({"-j", "2"}).out, outcome.out);
}

TEST_F(DiffOfFolders, TakesWildcardsToo) {
    const Outcome outcome = run({"diff", "models/[ac].ifc", "newer/*"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\na.ifc +0 +0 +1 +2 +different\n"));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nb.ifc +only in B\n$"));
    EXPECT_EQ(run({"diff", "models", "newer/*.ifc"}).out, diff().out);
    expectError(run({"diff", "models/*.ifczip", "newer"}), {"no file is called models/*.ifczip"});
    expectError(run({"diff", "models", "[mn]*/a.ifc"}),
                {"models/a.ifc and newer/a.ifc have the same file name", "name one of them"});
}

TEST_F(DiffOfFolders, IsAnArrayInJson) {
    write("models/broken.ifc", "no model\n");
    write("newer/broken.ifc", "no model\n");
    write("models/old.ifc", house());
    const Json documents = json({"diff", "models", "newer"}, 1);
    ASSERT_THAT(documents, SizeIs(5));
    EXPECT_EQ(documents[0], json({"diff", "models/a.ifc", "newer/a.ifc"}));
    EXPECT_EQ(documents[2]["a"], (Json{{"path", "models/broken.ifc"}}));
    EXPECT_EQ(documents[2]["b"], (Json{{"path", "newer/broken.ifc"}}));
    EXPECT_THAT(documents[2]["error"].get<std::string>(), HasSubstr("it does not begin with ISO-10303-21"));
    EXPECT_EQ(documents[4], (Json{{"a", {{"path", "models/old.ifc"}}}, {"b", nullptr}}));
}

TEST_F(DiffOfFolders, TellsWhichModelIsInOneOfThemAlone) {
    std::filesystem::remove(folder_.path() / "newer/a.ifc");
    std::filesystem::remove(folder_.path() / "models/b.ifc");
    const Outcome outcome = diff({"--exit-code"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\na.ifc +only in A\nb.ifc +only in B\n$"));
    EXPECT_EQ(diff().status, 0);
    std::filesystem::remove(folder_.path() / "newer/c.ifc");
    expectError(diff(), {"no model in models has the file name of one in newer"});
}

TEST_F(DiffOfFolders, EndsWithTheWorstStatus) {
    EXPECT_EQ(diff({"--exit-code"}).status, 2);
    EXPECT_EQ(diff({"--exit-code", "--type", "Door"}).status, 0);
    write("newer/b.ifc", "no model\n");
    const Outcome outcome = diff({"--exit-code"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nb.ifc +failed: newer/b.ifc: it does not begin"));
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\na.ifc .* different\n"));
}

TEST_F(DiffOfFolders, GivesOneUpdateFileForAll) {
    EXPECT_EQ(diff({"--format", "updates", "-o", "changes.txt"}).status, 0);
    const Outcome outcome = run({"import", "models", "changes.txt", "--apply", "--exact", "--out-dir", "again"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(run({"diff", "again", "newer", "--exit-code"}).status, 0);
    expectError(diff({"--format", "updates", "-o", "newer/a.ifc"}), {"newer/a.ifc: that is one of the models"});
}

TEST_F(DiffOfFolders, GivesEachPairItsReportAndItsLines) {
    EXPECT_EQ(diff({"--report", "page.json"}).status, 0);
    EXPECT_THAT(bytes("page-a.json"), HasSubstr("North wall"));
    EXPECT_THAT(bytes("page-b.json"), HasSubstr("Ground slab"));
    const Outcome lines = diff({"--format", "tsv"});
    EXPECT_THAT(lines.out, testing::StartsWith("Model\tWhat\tGUID\t"));
    EXPECT_THAT(lines.out, HasSubstr("\na.ifc\tchanged\t" + WallGuid));
    expectError(diff({"--format", "html"}), {"--format html is a page on two files", "--report FILE.html"});
}

TEST_F(DiffOfFolders, WithOneThatIsNotThereSaysSo) {
    expectError(run({"diff", "models", "nowhere"}), {"nowhere: there is no such file or folder"});
    expectError(run({"diff", "nowhere", "models"}), {"nowhere: there is no such file or folder"});
}

TEST_F(DiffOfFolders, BesideAFileMeansItsNamesake) {
    const Outcome outcome = run({"diff", "models/a.ifc", "newer"});
    EXPECT_EQ(outcome.out, run({"diff", "models/a.ifc", "newer/a.ifc"}).out);
    EXPECT_EQ(run({"diff", "models", "newer/a.ifc"}).out, outcome.out);
    EXPECT_THAT(outcome.out, HasSubstr("North wall"));
    expectError(modelhost().input(house()).run({"diff", "-", "newer"}), {"standard input has no name"});
}

}  // namespace
}  // namespace console_tests
