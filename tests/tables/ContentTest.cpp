#include "tables/Workbooks.hpp"

#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

using namespace std::string_literals;

const std::string Csv = "GUID;A\nx;1\n";
const std::string Xlsx = xlsxOf(R"(<row r="1"><c r="A1"><v>1</v></c></row>)");
const std::string Ods =
    odsSheet("<table:table-row><table:table-cell><text:p>1</text:p></table:table-cell></table:table-row>");

std::string notesOf(const std::string& bytes, const std::string& name, const ReadOptions& options = {}) {
    const auto read = readBytes(bytes, name, options);
    if (!read) return read.error().message;
    std::string text(formatName(read->format));
    for (const std::string& note : read->notes) text += ": " + note;
    return text;
}

TEST(Content, AsItsEndingSaysIsNotSpokenOf) {
    EXPECT_EQ(notesOf(Csv, "doors.CSV"), "csv");
    EXPECT_EQ(notesOf(Csv, "doors.tsv"), "tsv");
    EXPECT_EQ(notesOf(Xlsx, "doors.xlsx"), "xlsx");
    EXPECT_EQ(notesOf(Ods, "doors.ods"), "ods");
    EXPECT_EQ(notesOf(Xlsx, "doors"), "xlsx");
    EXPECT_EQ(notesOf(Csv, "-"), "csv");
}

TEST(Content, ThatBeliesTheEndingIsReadAsWhatItIsAndSaid) {
    EXPECT_EQ(notesOf(Xlsx, "doors.csv"),
              "xlsx: By its content it is an Excel workbook (.xlsx) and no .csv, and was read as what it is");
    EXPECT_EQ(notesOf(Ods, "doors.xlsx"),
              "ods: By its content it is an OpenDocument spreadsheet (.ods) and no .xlsx, and was read as what it is");
    EXPECT_EQ(notesOf(Csv, "doors.xlsx"),
              "csv: By its content it is delimited text and no .xlsx, and was read as what it is");
}

TEST(Content, MayBeSaidInPlaceOfTheEnding) {
    ReadOptions options;
    options.as = Format::Tsv;
    EXPECT_EQ(notesOf(Csv, "doors.xlsx", options), "tsv");
    options.as = Format::Ods;
    EXPECT_EQ(notesOf(Xlsx, "-", options),
              "xlsx: By its content it is an Excel workbook (.xlsx) and no .ods, and was read as what it is");
}

struct NoTable {
    const char* what;
    std::string bytes;
    std::string message;
};

void PrintTo(const NoTable& row, std::ostream* out) {
    *out << row.what;
}

class FileWithoutTable : public testing::TestWithParam<NoTable> {};

TEST_P(FileWithoutTable, IsRefusedInOneLineThatSaysWhatToDo) {
    EXPECT_EQ(errorOf(GetParam().bytes, "doors.xlsx"), "doors.xlsx: " + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Content, FileWithoutTable,
    testing::Values(
        NoTable{"nothing", "", "it is empty; save it with the table in it"},
        NoTable{"PDF", "%PDF-1.7", "it is a PDF and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"web page", "<html><table>", "it is a web page and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"model", "ISO-10303-21;\n",
                "it is a STEP file, perhaps the model itself and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"bytes", "\x01\x02\x03\x04", "it is no text and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"old workbook", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1W\0o\0r\0k\0b\0o\0o\0k\0"s,
                "it is in Microsoft's older format (.xls); save it as .xlsx"},
        NoTable{"encrypted workbook",
                "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"s + "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"s,
                "the workbook is encrypted; save it without a password"},
        NoTable{"binary workbook", zipOf({{"xl/workbook.bin", "x"}}),
                "it is a binary workbook (.xlsb); save it as .xlsx"},
        NoTable{"text document", zipOf({{"word/document.xml", "x"}}),
                "it is a text or presentation and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"text of OpenDocument",
                zipOf({{"mimetype", "application/vnd.oasis.opendocument.text"}, {"content.xml", "x"}}),
                "it is a text or drawing and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"packed model", zipOf({{"house.ifc", "x"}}),
                "it is a zip archive and no table; save the table as .xlsx, .ods or .csv"},
        NoTable{"empty archive", "PK\x05\x06"s + std::string(18, '\0'),
                "it is an empty zip archive and no table; save the table as .xlsx, .ods or .csv"}));

TEST(File, ThatIsNotThereOrAFolderIsRefused) {
    const testing_support::TempFolder folder;
    const std::string path = (folder.path() / "no.csv").string();
    EXPECT_EQ(readFile(path).error().message, path + ": it cannot be opened; check the path and the rights to read it");
    EXPECT_EQ(readFile(folder.path()).error().message, folder.path().string() + ": it is a folder; name a file");
}

TEST(File, IsReadLikeItsBytes) {
    const testing_support::TempFolder folder;
    std::string rows;
    for (int i = 0; i < 20000; ++i) rows += "x;" + std::to_string(i) + "\n";
    const auto read = readFile(folder.write("doors.csv", "GUID;A\n" + rows));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->table.rowCount(), 20001U);
    EXPECT_EQ(read->delimiter, ';');
}

TEST(Format, IsFoundByItsNameOrEnding) {
    EXPECT_EQ(parseFormat("csv"), Format::Csv);
    EXPECT_EQ(parseFormat(".XLSX"), Format::Xlsx);
    EXPECT_EQ(parseFormat("ods"), Format::Ods);
    EXPECT_EQ(parseFormat(".tsv"), Format::Tsv);
    EXPECT_EQ(parseFormat(".txt"), std::nullopt);
    EXPECT_EQ(parseFormat(""), std::nullopt);
}

}  // namespace
}  // namespace tables
