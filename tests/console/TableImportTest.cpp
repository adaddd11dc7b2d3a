// Tables of people's: spreadsheets and delimited text through the import.

#include "ConsoleTest.hpp"

namespace console_tests {
namespace {

class TableImport : public ConsoleTest {
protected:
    Json importTable(const std::string& name, const std::string& content, std::vector<std::string> more = {}) {
        write(name, content);
        std::vector<std::string> words{"import", "house.ifc", name, "--apply", "-o", "out.ifc"};
        words.insert(words.end(), more.begin(), more.end());
        return json(words);
    }
};

TEST_F(TableImport, OfACommaFileChangesTheModel) {
    const Json document =
        importTable("doors.csv", "GUID,FireRating[WallCommon],#Remark\n" + WallGuid + ",F 120,why not\n");
    EXPECT_EQ(document["table"]["format"], "csv");
    EXPECT_EQ(document["table"]["delimiter"], ",");
    EXPECT_EQ(document["table"]["layout"], "grid");
    EXPECT_EQ(document["table"]["updates"], 1);
    EXPECT_EQ(document["result"][0]["stored"], "F 120");
    EXPECT_EQ(document["result"][0]["line"], 2);
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'F 120'"));
}

TEST_F(TableImport, SaysHowTheFileWasRead) {
    write("doors.csv", "GUID;Name\r\n" + DoorGuid + ";T\xFCr\r\n");
    const Outcome outcome = run({"import", "house.ifc", "doors.csv"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("Read doors.csv: semicolon, Windows-1252, grid, 1 element, 1 item: 1 update, "));
}

TEST_F(TableImport, OfAnUnchangedExportChangesNothing) {
    for (const char* name : {"out.csv", "out.tsv", "out.xlsx"}) {
        ASSERT_EQ(run({"export", "house.ifc", "--items", "Name,FireRating[WallCommon]", "--layout", "grid", "-o", name})
                      .status,
                  0);
        const Json document = json({"import", "house.ifc", name, "--apply", "--in-place"});
        EXPECT_EQ(document["table"]["updates"], 0) << name;
        EXPECT_THAT(document["review"], IsEmpty()) << name;
        EXPECT_THAT(document["hints"], IsEmpty()) << name;
        EXPECT_FALSE(document.contains("saved")) << name;
    }
}

TEST_F(TableImport, TakesADecimalCommaWhereTheColumnShowsIt) {
    const Json document =
        importTable("widths.csv", "GUID;W[Custom]\n" + WallGuid + ";9,5\n" + DoorGuid + ";10,25\n", {"--exact"});
    EXPECT_EQ(document["result"][0]["stored"], "9.5");
    EXPECT_EQ(document["result"][0]["asAsked"], true);
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("IFCREAL(10.25)"));
}

TEST_F(TableImport, GoesThroughInSeveralListsAboveOneListsRows) {
    std::string text = "GUID,Item,New\n";
    for (int i = 0; i < 32768; ++i) text += WallGuid + ",P" + std::to_string(i) + "[Custom],x\n";
    const Json document = importTable("long.csv", text, {"--tick", "32768"});
    EXPECT_EQ(document["summary"]["rows"], 32768);
    EXPECT_EQ(document["summary"]["rowsLost"], 0);
    EXPECT_EQ(document["summary"]["ticked"], 1);
    EXPECT_EQ(document["summary"]["done"], 1);
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'P32767'"));
}

TEST_F(TableImport, ReadsAnUpdateFileByteForByte) {
    updates({{WallGuid, "FireRating[WallCommon]", "", "\"F 120\""}});
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_FALSE(document.contains("table"));
    EXPECT_EQ(document["review"][0]["new"], "\"F 120\"");
}

struct BadTable {
    const char* name;
    std::string content;
    std::vector<std::string> words;
    std::vector<std::string> parts;
};

TEST_F(TableImport, RefusesInOneLineWhatItCannotRead) {
    const std::vector<BadTable> table = {
        {"a.csv", "GUID,Name\n\"open", {}, {"a.csv", "2"}},
        {"a.xlsx", "no workbook", {}, {"a.xlsx"}},
        {"a.csv", "nothing,here\n1,2\n", {}, {"a.csv"}},
        {"a.csv", "GUID,Name\n", {"--delimiter", "x"}, {"--delimiter x", ", ; | or tab"}},
        {"a.csv", "GUID,Name\n", {"--as", "doc"}, {"--as doc", "txt, csv, tsv, xlsx, ods"}},
        {"a.txt", "x\ty\n", {"--sheet", "s"}, {"a.txt", "tables"}},
    };
    for (const BadTable& row : table) {
        write(row.name, row.content);
        std::vector<std::string> words{"import", "house.ifc", row.name};
        words.insert(words.end(), row.words.begin(), row.words.end());
        expectError(run(words), row.parts);
    }
}

}  // namespace
}  // namespace console_tests
