// modelhost export: what it writes comes back from the import as "the same".

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

#include <sys/stat.h>

namespace console_tests {
namespace {

using namespace std::string_literals;

constexpr const char* Same = " Old and new values are the same.";

class ExportCommand : public ConsoleTest {
protected:
    Fields lines(const Outcome& outcome) {
        Fields result;
        std::istringstream stream(outcome.out);
        for (std::string line; std::getline(stream, line);) result.push_back(line);
        return result;
    }
};

TEST_F(ExportCommand, WritesGuidItemAndTheCurrentValueTwice) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Name, FireRating[WallCommon]", "--type", "Wall"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              WallGuid + "\tName\tWall-01\tWall-01\n" + WallGuid + "\tFireRating[WallCommon]\tF 90\tF 90\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(ExportCommand, WritesAClassificationWithItsName) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "UniFormat Classification", "--class", "IfcWall"});
    EXPECT_EQ(outcome.out, WallGuid + "\tUniFormat Classification\tB2010{Exterior Walls}\tB2010{Exterior Walls}\n");
}

TEST_F(ExportCommand, LeavesOutWhatIsNotThereAndSaysSo) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "FireRating"});
    EXPECT_THAT(lines(outcome), SizeIs(1));
    EXPECT_THAT(outcome.err, HasSubstr("2 values of FireRating left out: the element has no such item (" + DoorGuid +
                                       ", " + NamelessGuid + ")"));
}

TEST_F(ExportCommand, LeavesOutElementsWithoutAName) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Name", "--type", "Column"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("has no Name"));
}

TEST_F(ExportCommand, WritesAFileAndSaysHowManyLines) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Name", "--type", "Wall", "-o", "updates.txt"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("1 line written to updates.txt"));
    EXPECT_EQ(bytes("updates.txt"), WallGuid + "\tName\tWall-01\tWall-01\n");
}

TEST_F(ExportCommand, TakesAnItemWithACommaAsItStands) {
    testing_support::IfcText ifc;
    ifc.property(ifc.element("IfcWall", WallGuid, "Wall-01"), "Pset_X", "Width, net ", "IFCLABEL('3')");
    write("house.ifc", ifc.text());
    EXPECT_EQ(run({"export", "house.ifc", "--item", "Width, net [X]"}).out, WallGuid + "\tWidth, net [X]\t3\t3\n");
}

TEST_F(ExportCommand, TakesSeveralItemsAsTheyStand) {
    testing_support::IfcText ifc;
    const auto wall = ifc.element("IfcWall", WallGuid, "Wall-01");
    for (const char* name : {"Width, net ", "-x", "Name"}) ifc.property(wall, "Pset_X", name, "IFCLABEL('3')");
    write("house.ifc", ifc.text());
    EXPECT_EQ(
        run({"export", "--item", "Width, net [X]", "--item=-x", "house.ifc", "--items", "Name"}).out,
        WallGuid + "\tName\tWall-01\tWall-01\n" + WallGuid + "\tWidth, net [X]\t3\t3\n" + WallGuid + "\t-x\t3\t3\n");
}

TEST_F(ExportCommand, PrintsJson) {
    const Json document = json({"export", "house.ifc", "--items", "FireRating"});
    EXPECT_EQ(document["lines"], Json({{WallGuid, "FireRating", "F 90", "F 90"}}));
    ASSERT_THAT(document["leftOut"], SizeIs(1));
    EXPECT_EQ(document["leftOut"][0]["count"], 2);
    EXPECT_EQ(document["leftOut"][0]["item"], "FireRating");
}

TEST_F(ExportCommand, ATargetThatCannotBeWrittenIsNamed) {
    expectError(run({"export", "house.ifc", "--items", "Name", "-o", "no/folder/updates.txt"}),
                {"no/folder/updates.txt: there is no folder no/folder; make it first"});
    const Outcome full = run({"export", "house.ifc", "--items", "Name", "-o", "/dev/full"});
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.err, HasSubstr("No space left"));
}

TEST_F(ExportCommand, KeepsModeAndLinkOfTheFileThatItReplaces) {
    write("target.txt", "old");
    chmod((folder_.path() / "target.txt").c_str(), 0640);
    std::filesystem::create_symlink("target.txt", folder_.path() / "link.txt");
    run({"export", "house.ifc", "--items", "Name", "--type", "Wall", "-o", "link.txt"});
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.path() / "link.txt"));
    EXPECT_THAT(bytes("target.txt"), HasSubstr("Wall-01"));
    struct stat status {};
    stat((folder_.path() / "target.txt").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

/// A property of every kind of value, and texts that are hard on a line.
struct HardValue {
    const char* name;
    const char* value;
    const char* leftOut;  ///< The reason; null where the line is written.
};

const std::vector<HardValue> HardValues{
    {"Integer", "IFCINTEGER(-7)", nullptr},
    {"Real", "IFCREAL(12.5)", nullptr},
    {"SmallReal", "IFCREAL(1.E-10)", nullptr},
    {"LargeReal", "IFCREAL(1.E20)", nullptr},
    {"Boolean", "IFCBOOLEAN(.F.)", nullptr},
    {"Logical", "IFCLOGICAL(.U.)", nullptr},
    {"Unset", "$", nullptr},
    {"Empty", "IFCLABEL('')", nullptr},
    {"Blanks", "IFCLABEL('  two  ')", nullptr},
    {"Quotes", "IFCLABEL('\"quoted\"')", nullptr},
    {"Braces", "IFCLABEL('a}b')", nullptr},
    {"Wide", "IFCLABEL('\\X2\\548C5BA4\\X0\\')", nullptr},
    {"Emoji", "IFCLABEL('\\X4\\0001F3E0\\X0\\')", nullptr},
    {"Escape", "IFCLABEL('\\X2\\001B\\X0\\[2J')", nullptr},
    {"LowerCode", "IFCLABEL('.t.')", nullptr},
    {"Tab", "IFCLABEL('a\\X2\\0009\\X0\\b')", "a TAB"},
    {"LineEnd", "IFCLABEL('a\\X2\\000D000A\\X0\\b')", "a TAB"},
    {"Zero", "IFCLABEL('a\\X2\\0000\\X0\\b')", "a TAB"},
    {"Brace", "IFCLABEL('a{b}')", "a '{'"},
    {"TrueCode", "IFCLABEL('.T.')", ".T. or .F."},
    {"FalseCode", "IFCLABEL('.F.')", ".T. or .F."},
    {"HalfCharacter", "IFCLABEL('a\\X2\\D83C\\X0\\')", nullptr},
};

class ExportRoundTrip : public ConsoleTest, public testing::WithParamInterface<HardValue> {
protected:
    void writeModel(const std::string& name, const std::string& value) {
        testing_support::IfcText ifc;
        ifc.property(ifc.element("IfcWall", WallGuid, "Wall-01"), "Pset_Hard", name, value);
        write("house.ifc", ifc.text());
    }
};

TEST_P(ExportRoundTrip, ImportedUnchangedALineIsTheSame) {
    writeModel(GetParam().name, GetParam().value);
    const Outcome exported = run({"export", "house.ifc", "--items", GetParam().name + "[Hard]"s, "-o", "updates.txt"});
    EXPECT_EQ(exported.status, 0);
    if (GetParam().leftOut != nullptr) {
        EXPECT_EQ(bytes("updates.txt"), "");
        EXPECT_THAT(exported.err, HasSubstr(GetParam().leftOut));
        return;
    }
    const Json review = json({"import", "house.ifc", "updates.txt"})["review"];
    EXPECT_THAT(column(review, 7), ElementsAre(Same)) << bytes("updates.txt");
}

INSTANTIATE_TEST_SUITE_P(Values, ExportRoundTrip, testing::ValuesIn(HardValues),
                         [](const auto& value) { return value.param.name; });

TEST_F(ExportRoundTrip, ALineIsWrittenUpToTheLengthThatTheImportReads) {
    const std::size_t rest = 2047 - WallGuid.size() - std::string("\tLong\t\t").size();
    writeModel("Long", "IFCTEXT('" + std::string(rest / 2, 'x') + "')");
    run({"export", "house.ifc", "--items", "Long", "-o", "updates.txt"});
    EXPECT_GE(bytes("updates.txt").size(), 2046U);
    EXPECT_THAT(column(json({"import", "house.ifc", "updates.txt"})["review"], 7), ElementsAre(Same));
    writeModel("Long", "IFCTEXT('" + std::string(rest / 2 + 1, 'x') + "')");
    EXPECT_THAT(run({"export", "house.ifc", "--items", "Long"}).err, HasSubstr("longer than 2047 bytes"));
}

TEST_F(ExportRoundTrip, ListsAndRangesAreNoText) {
    testing_support::IfcText ifc;
    const auto wall = ifc.element("IfcWall", WallGuid, "Wall-01");
    ifc.addProperty(wall, "Pset_Hard",
                    ifc.add("IfcPropertyListValue", {{"Name", "'List'"}, {"ListValues", "(IFCLABEL('a'))"}}));
    ifc.addProperty(wall, "Pset_Hard", ifc.add("IfcPropertyBoundedValue", {{"Name", "'Range'"}}));
    write("house.ifc", ifc.text());
    const Outcome outcome = run({"export", "house.ifc", "--items", "List,Range"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("1 value of List left out: a list, range"));
    EXPECT_THAT(outcome.err, HasSubstr("1 value of Range left out: a list, range"));
}

TEST_F(ExportRoundTrip, OfSeveralPropertiesOfOneNameTheLastIsWrittenAndItIsSaid) {
    testing_support::IfcText ifc;
    const auto wall = ifc.element("IfcWall", WallGuid, "Wall-01");
    ifc.property(wall, "Pset_A", "Note", "IFCLABEL('first')");
    ifc.property(wall, "Pset_B", "Note", "IFCLABEL('last')");
    write("house.ifc", ifc.text());
    const Outcome outcome = run({"export", "house.ifc", "--items", "Note", "-o", "updates.txt"});
    EXPECT_EQ(bytes("updates.txt"), WallGuid + "\tNote\tlast\tlast\n");
    EXPECT_THAT(outcome.err, HasSubstr("several property sets"));
    EXPECT_THAT(column(json({"import", "house.ifc", "updates.txt"})["review"], 7), ElementsAre(Same));
}

TEST_F(ExportRoundTrip, ClassificationsWithoutNameOrWithBracesComeBack) {
    testing_support::IfcText ifc;
    const auto wall = ifc.element("IfcWall", WallGuid, "Wall-01");
    ifc.classification(wall, "UniFormat Classification", "B2010", "");
    ifc.classification(wall, "SpecSection Classification", "04 20 00", "Unit} {Masonry");
    ifc.classification(wall, "Brace Classification", "A{B", "x");
    write("house.ifc", ifc.text());
    const Outcome outcome =
        run({"export", "house.ifc", "--items",
             "UniFormat Classification,SpecSection Classification,Brace Classification", "-o", "updates.txt"});
    EXPECT_THAT(bytes("updates.txt"), HasSubstr("\tB2010\tB2010\n"));
    EXPECT_THAT(bytes("updates.txt"), HasSubstr("\t04 20 00{Unit} {Masonry}\n"));
    EXPECT_THAT(outcome.err, HasSubstr("1 value of Brace Classification left out"));
    EXPECT_THAT(column(json({"import", "house.ifc", "updates.txt"})["review"], 7), ElementsAre(Same, Same));
}

class ExportOfModel : public ConsoleTest, public testing::WithParamInterface<std::string> {};

TEST_P(ExportOfModel, ComesBackAsTheSameFromEveryElement) {
    const std::string path = GetParam();
    const Outcome exported = run({"export", path, "--items",
                                  "Name,Tag,ObjectType,IsExternal,Reference,LoadBearing,FireRating,"
                                  "UniFormat Classification,Uniclass",
                                  "-o", "updates.txt"});
    EXPECT_EQ(exported.status, 0) << exported.err;
    const Json document = json({"import", path, "updates.txt"});
    EXPECT_GT(document["summary"]["rows"], 0);
    EXPECT_EQ(document["summary"]["tickable"], 0);
    EXPECT_EQ(document["summary"]["rows"], document["summary"]["lines"]);
    for (const std::string& remark : column(document["review"], 7)) ASSERT_EQ(remark, Same);
}

INSTANTIATE_TEST_SUITE_P(Models, ExportOfModel, testing::ValuesIn(testing_support::models()),
                         testing_support::nameOfModel);

}  // namespace
}  // namespace console_tests
