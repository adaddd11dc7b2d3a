// Tables as LibreOffice itself saves them. Skipped where it is not installed.

#include "tables/Workbooks.hpp"
#include "tables/Writing.hpp"

#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace tables {
namespace {

using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string D = Door;
const std::string W = Window;

std::string textCell(const std::string& text) {
    return "<table:table-cell office:value-type=\"string\"><text:p>" + text + "</text:p></table:table-cell>";
}

std::string row(const std::string& cells) {
    return "<table:table-row>" + cells + "</table:table-row>";
}

/// Two doors with a value of each kind. The document is flat XML, so that LibreOffice alone makes the packages.
std::string document() {
    const std::string date =
        "<table:table-cell table:style-name=\"d\" office:value-type=\"date\" office:date-value=\"2024-05-17\"/>";
    const std::string moment =
        "<table:table-cell table:style-name=\"t\" office:value-type=\"date\" "
        "office:date-value=\"2024-05-17T08:30:00\"/>";
    const std::string number = "<table:table-cell office:value-type=\"float\" office:value=\"9.5\"/>";
    const std::string sum =
        "<table:table-cell table:formula=\"of:=1.5+2\" office:value-type=\"float\" office:value=\"3.5\"/>";
    const std::string joined =
        "<table:table-cell table:formula=\"of:=&quot;T &quot;&amp;&quot;30&quot;\" office:value-type=\"string\"/>";
    const std::string fault =
        "<table:table-cell table:formula=\"of:=NA()\" office:value-type=\"float\" office:value=\"0\"/>";
    const std::string header = textCell("GUID") + textCell("#Name") + textCell("A") + textCell("B") + textCell("C");
    const std::string space = R"(urn:oasis:names:tc:opendocument:xmlns:)";
    const std::string digits = "number:style=\"long\"/>";
    const std::string day = "<number:year " + digits + "<number:text>-</number:text><number:month " + digits +
                            "<number:text>-</number:text><number:day " + digits;
    const std::string time = "<number:text>T</number:text><number:hours " + digits +
                             "<number:text>:</number:text><number:minutes " + digits +
                             "<number:text>:</number:text><number:seconds " + digits;
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:document xmlns:office=\"" + space +
           "office:1.0\" xmlns:table=\"" + space + "table:1.0\" xmlns:text=\"" + space + "text:1.0\" xmlns:style=\"" +
           space + "style:1.0\" xmlns:number=\"" + space + "datastyle:1.0\" xmlns:of=\"" + space +
           "of:1.2\" office:version=\"1.3\" office:mimetype=\"application/vnd.oasis.opendocument.spreadsheet\">"
           "<office:automatic-styles><number:date-style style:name=\"N1\">" +
           day + "</number:date-style><number:date-style style:name=\"N2\">" + day + time +
           "</number:date-style><style:style style:name=\"d\" style:family=\"table-cell\" "
           "style:data-style-name=\"N1\"/>"
           "<style:style style:name=\"t\" style:family=\"table-cell\" "
           "style:data-style-name=\"N2\"/></office:automatic-styles>"
           "<office:body><office:spreadsheet><table:table table:name=\"Türen\">" +
           row(header) + "<table:table-row table:number-rows-repeated=\"3\"><table:table-cell/></table:table-row>" +
           row(textCell(D) + textCell("Haustür") + number + date + textCell("007")) +
           row(textCell(WindowGlobalId) + textCell("") + joined + moment + textCell("a, \"b\"; c|d")) +
           row(textCell("Sum") + textCell("") + sum + fault + textCell("=1")) +
           "</table:table></office:spreadsheet></office:body></office:document>";
}

const std::string Expected = D + " A (none)->9.5\n" + D + " B (none)->2024-05-17\n" + D + " C (none)->007\n" + W +
                             " A (none)->T 30\n" + W + " B (none)->2024-05-17T08:30:00\n" + W +
                             " C (none)->a, \"b\"; c|d\n"
                             "line 7 GUID: 'Sum' is no GUID of 36 characters and no GlobalId of 22\n";

class LibreOffice : public testing::Test {
protected:
    void SetUp() override {
        if (std::system("soffice --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "soffice is not installed";
    }

    /// @param target  as --convert-to takes it. @return the bytes of the file that it wrote.
    std::string saved(const std::string& source, const std::string& target) {
        const std::string out = (folder_.path() / ("out" + std::to_string(++runs_))).string();
        const std::string command = "soffice --headless -env:UserInstallation=file://" +
                                    (folder_.path() / "profile").string() + " --convert-to '" + target +
                                    "' --outdir '" + out + "' '" + (folder_.path() / source).string() +
                                    "' >/dev/null 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        const std::string name = source.substr(0, source.rfind('.')) + "." + target.substr(0, target.find(':'));
        return bytesOf(std::filesystem::path(out) / name);
    }

    TempFolder folder_;
    int runs_ = 0;
};

constexpr const char* CsvFilter = "csv:Text - txt - csv (StarCalc):";

TEST_F(LibreOffice, SavesATableInAnyFormatAndTheSameIsAskedFor) {
    folder_.write("doors.fods", document());
    EXPECT_EQ(askedOf(saved("doors.fods", "xlsx"), "doors.xlsx"), Expected);
    EXPECT_EQ(askedOf(saved("doors.fods", "ods"), "doors.ods"), Expected);
    // Delimiter, quote, encoding: UTF-8, Windows-1252, UTF-16.
    for (const char* form : {"44,34,76,1", "59,34,1,1", "9,34,65535,1", "59,34,65535,1"})
        EXPECT_EQ(askedOf(saved("doors.fods", std::string(CsvFilter) + form), "doors.csv"), Expected) << form;
}

TEST_F(LibreOffice, SavesAnExportedWorkbookWithoutTouchingAnything) {
    Grid grid{{"GUID", "#Name", "A", "B[C D]"},
              {{D, "Haustür", "007", "_x0041_ \x07 \"x\""}, {W, "", "=1+1", "9.500000"}}};
    const auto workbook = writeWorkbook(grid, true);
    ASSERT_TRUE(workbook);
    folder_.write("doors.xlsx", *workbook);
    for (const std::string format : {"xlsx", "ods"}) {
        const std::string bytes = saved("doors.xlsx", format);
        const auto read = readBytes(bytes, "doors." + format);
        ASSERT_TRUE(read) << read.error().message;
        EXPECT_EQ(read->sheet, "updates");
        EXPECT_TRUE(read->exported.has_value()) << format;
        EXPECT_EQ(askedOf(bytes, "doors." + format), "") << format;
        EXPECT_EQ(findUpdates(*read, "doors", {})->unchanged, 4U) << format;
    }
}

}  // namespace
}  // namespace tables
