// modelhost export as a table: a line for each element, or for each value in a file that is no update file.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"
#include "tables/Asking.hpp"
#include "tables/Reading.hpp"

namespace console_tests {
namespace {

class GridExport : public ConsoleTest {
protected:
    Outcome exported(const std::string& file, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"export", "house.ifc", "--items", "Name,FireRating[WallCommon]", "-o", file};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    tables::Asked asked(const std::string& file) {
        const auto read = tables::readFile(folder_.path() / file);
        EXPECT_TRUE(read) << read.error().message;
        const auto asked = tables::findUpdates(*read, file, {});
        EXPECT_TRUE(asked) << asked.error().message;
        return *asked;
    }
};

TEST_F(GridExport, HasALineForEachElementAndAColumnForEachItem) {
    EXPECT_THAT(exported("doors.csv").err, HasSubstr("3 lines written to doors.csv"));
    EXPECT_EQ(bytes("doors.csv"), "GUID,#Storey,#Class,#Type,#Name,Name,FireRating[WallCommon]\n" + WallGuid +
                                      ",,IfcWall,Wall,Wall-01,Wall-01,F 90\n" + DoorGuid +
                                      ",,IfcDoor,Door,Door-01,Door-01,\n" + NamelessGuid + ",,IfcColumn,Column,,,\n");
}

TEST_F(GridExport, TakesItsFormFromTheEnding) {
    exported("doors.tsv");
    EXPECT_THAT(bytes("doors.tsv"), testing::StartsWith("GUID\t#Storey\t"));
    exported("doors.XLSX");
    EXPECT_THAT(bytes("doors.XLSX"), testing::StartsWith("PK"));
    exported("doors.txt");
    EXPECT_THAT(bytes("doors.txt"), testing::StartsWith(WallGuid + "\tName\tWall-01\tWall-01\n"));
}

TEST_F(GridExport, ComesBackAsItWas) {
    for (const char* file : {"doors.csv", "doors.tsv", "doors.xlsx"}) {
        exported(file);
        const tables::Asked back = asked(file);
        ASSERT_THAT(back.updates, SizeIs(std::string(file) == "doors.xlsx" ? 0 : 3)) << file;
        EXPECT_EQ(back.unchanged, std::string(file) == "doors.xlsx" ? 3U : 0U);
    }
}

TEST_F(GridExport, LeavesOutElementsThatHaveNoneOfTheItems) {
    run({"export", "house.ifc", "--items", "FireRating", "-o", "with.csv", "--missing", "leave-out"});
    EXPECT_EQ(bytes("with.csv"),
              "GUID,#Storey,#Class,#Type,#Name,FireRating\n" + WallGuid + ",,IfcWall,Wall,Wall-01,F 90\n");
}

TEST_F(GridExport, PrintsColumnsAndRowsAsJson) {
    const Json document = json({"export", "house.ifc", "--items", "FireRating[WallCommon]", "--layout", "grid",
                                "--where", "IfcDoor + IfcWall"});
    EXPECT_EQ(document["columns"], Json({"GUID", "#Storey", "#Class", "#Type", "#Name", "FireRating[WallCommon]"}));
    EXPECT_EQ(document["rows"], Json({{WallGuid, "", "IfcWall", "Wall", "Wall-01", "F 90"},
                                      {DoorGuid, "", "IfcDoor", "Door", "Door-01", nullptr}}));
}

TEST_F(GridExport, GoesToStandardOutput) {
    const std::string expected =
        "GUID\t#Storey\t#Class\t#Type\t#Name\tName\n" + WallGuid + "\t\tIfcWall\tWall\tWall-01\tWall-01\n";
    for (const Fields& output : {Fields{}, Fields{"-o", "-"}}) {
        Fields arguments{"export", "house.ifc", "--items", "Name", "--layout", "grid", "--type", "Wall"};
        arguments.insert(arguments.end(), output.begin(), output.end());
        EXPECT_EQ(run(arguments).out, expected);
    }
    EXPECT_EQ(run({"export", "house.ifc", "--items", "Name", "--type", "Wall", "-o", "-"}).out,
              WallGuid + "\tName\tWall-01\tWall-01\n");
}

TEST_F(GridExport, NamesTheStorey) {
    std::filesystem::copy_file(testing_support::projectFile("samples/house.ifc"), folder_.path() / "sample.ifc");
    run({"export", "sample.ifc", "--items", "Name", "--where", "Name=Haustür", "-o", "door.csv"});
    EXPECT_THAT(bytes("door.csv"), HasSubstr(",Erdgeschoss,IfcDoor,Door,Haustür,Haustür\n"));
}

class LongExport : public ConsoleTest {};

TEST_F(LongExport, IsATableOfItsOwnWhereTheFileIsOne) {
    run({"export", "house.ifc", "--items", "Name", "--type", "Wall", "--layout", "long", "-o", "names.csv"});
    EXPECT_EQ(bytes("names.csv"), "GUID,Item,Old,New\n" + WallGuid + ",Name,Wall-01,Wall-01\n");
}

TEST_F(LongExport, HasALineForWhatIsMissingWhereThatIsAskedFor) {
    EXPECT_EQ(
        run({"export", "house.ifc", "--items", "FireRating[DoorCommon]", "--type", "Door", "--missing", "include"}).out,
        DoorGuid + "\tFireRating[DoorCommon]\t\t\n");
}

TEST_F(LongExport, PrintsColumnsAndRowsBesideItsLines) {
    const Json document = json({"export", "house.ifc", "--items", "FireRating"});
    EXPECT_EQ(document["columns"], Json({"GUID", "Item", "Old", "New"}));
    EXPECT_EQ(document["rows"], document["lines"]);
}

class ExportUsage : public ConsoleTest {};

TEST_F(ExportUsage, RefusesWhatNoFileCanHold) {
    const auto exported = [this](const Fields& more) {
        Fields arguments{"export", "house.ifc"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    };
    expectError(exported({"--items", "Name", "-o", "a.txt", "--layout", "grid"}),
                {"-o a.txt: a grid goes into a file that ends in .xlsx, .csv or .tsv"});
    expectError(exported({"--items", "Name", "-o", "a.ods"}), {"-o a.ods: tables are written as .xlsx, .csv or .tsv"});
    expectError(exported({"--items", "Name,Name", "-o", "a.csv"}), {"--items: Name stands there twice"});
    expectError(exported({"--items", "#x", "-o", "a.csv"}), {"--items: #x: a column whose name begins with #"});
    EXPECT_FALSE(exists("a.txt") || exists("a.ods") || exists("a.csv"));
}

}  // namespace
}  // namespace console_tests
