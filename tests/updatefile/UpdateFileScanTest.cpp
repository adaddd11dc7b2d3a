#include "support/IfcText.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace updatefile {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Known = testing_support::guidText(1);
const std::string Line = Known + "\tName\told\tnew";

/// The model of these tests has one element.
bool knows(const Guid& guid) {
    return guid.back() == 1;
}

UpdateFileFindings scan(const std::string& bytes) {
    UpdateFileScan scan(knows);
    scan.read(bytes);
    return scan.finish();
}

struct Count {
    const char* what;
    std::string bytes;
    std::uint64_t lines;
    std::uint64_t pieces;
};

class UpdateFileLines : public testing::TestWithParam<Count> {};

TEST_P(UpdateFileLines, AreCountedAsTheAddOnCutsThem) {
    const UpdateFileFindings findings = scan(GetParam().bytes);
    EXPECT_EQ(findings.lines, GetParam().lines) << GetParam().what;
    EXPECT_EQ(findings.pieces, GetParam().pieces) << GetParam().what;
}

TEST_P(UpdateFileLines, AreTheSameInBlocksOfAnySize) {
    UpdateFileScan scan(knows);
    for (const char byte : GetParam().bytes) scan.read({&byte, 1});
    const UpdateFileFindings findings = scan.finish();
    EXPECT_EQ(findings.lines, GetParam().lines) << GetParam().what;
    EXPECT_EQ(findings.pieces, GetParam().pieces) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(Files, UpdateFileLines,
                         testing::Values(Count{"empty", "", 0, 0}, Count{"only line ends", "\r\n\n\r\r", 0, 0},
                                         Count{"LF", Line + "\n" + Line + "\n", 2, 2},
                                         Count{"CRLF", Line + "\r\n" + Line + "\r\n", 2, 2},
                                         Count{"CR", Line + "\r" + Line + "\r", 2, 2},
                                         Count{"blank lines", "\n\n" + Line + "\n\n", 1, 1},
                                         Count{"last line without end", Line + "\n" + Line, 2, 1},
                                         Count{"2047 bytes", std::string(2047, 'x') + "\n", 1, 1},
                                         Count{"2048 bytes", std::string(2048, 'x') + "\n", 1, 2},
                                         Count{"3000 bytes", std::string(3000, 'x') + "\n", 1, 2},
                                         Count{"4094 bytes", std::string(4094, 'x') + "\n", 1, 2},
                                         Count{"2047 bytes without end", std::string(2047, 'x'), 1, 1},
                                         Count{"2048 bytes without end", std::string(2048, 'x'), 1, 1}));

TEST(UpdateFileScan, FindsNothingToSayOfAGoodFile) {
    const UpdateFileFindings findings = scan(Line + "\n");
    EXPECT_EQ(findings.noGuid.count + findings.unknownElement.count + findings.fewFields.count, 0U);
    EXPECT_EQ(findings.leadingTab.count + findings.overlong.count + findings.zeroBytes.count, 0U);
    EXPECT_EQ(findings.quoted.count + findings.notUtf8.count + findings.lineWithoutEnd, 0U);
    EXPECT_FALSE(findings.byteOrderMark || findings.utf16 || findings.binary);
}

struct Finding {
    const char* what;
    std::string line;
    LineNotes UpdateFileFindings::*notes;
};

class UpdateFileFinding : public testing::TestWithParam<Finding> {};

TEST_P(UpdateFileFinding, NamesTheLine) {
    // Blank lines count as an editor counts them; CR LF ends one line.
    const UpdateFileFindings findings = scan(Line + "\r\n\r\n" + GetParam().line + "\r\n" + Line + "\n");
    EXPECT_EQ((findings.*GetParam().notes).count, 1U) << GetParam().what;
    EXPECT_THAT((findings.*GetParam().notes).first, ElementsAre(3U)) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, UpdateFileFinding,
    testing::Values(Finding{"no GUID", "GUID\titem\told\tnew", &UpdateFileFindings::noGuid},
                    Finding{"braces", "{" + Known + "}\titem\told\tnew", &UpdateFileFindings::noGuid},
                    Finding{"blank before", " " + Line, &UpdateFileFindings::noGuid},
                    Finding{"GlobalId", testing_support::globalId(Known) + "\ta\tb\tc", &UpdateFileFindings::globalId},
                    Finding{"GlobalId is no GUID", testing_support::globalId(Known) + "\ta\tb\tc",
                            &UpdateFileFindings::noGuid},
                    Finding{"unknown", testing_support::guidText(2) + "\ta\tb\tc", &UpdateFileFindings::unknownElement},
                    Finding{"three fields", Known + "\ta\tb", &UpdateFileFindings::fewFields},
                    Finding{"one field", Known, &UpdateFileFindings::fewFields},
                    Finding{"three fields and a zero", Known + "\ta\tb\0\tc"s, &UpdateFileFindings::fewFields},
                    Finding{"leading TAB", "\ta\tb\tc", &UpdateFileFindings::leadingTab},
                    Finding{"leading zero byte", "\0x"s + Line, &UpdateFileFindings::leadingTab},
                    Finding{"too long", Line + std::string(2047, 'x'), &UpdateFileFindings::overlong},
                    Finding{"much too long", Line + std::string(9000, 'x'), &UpdateFileFindings::overlong},
                    Finding{"zero byte", Line + "\0x"s, &UpdateFileFindings::zeroBytes},
                    Finding{"quoted value", Known + "\ta\tb\t\"c\"", &UpdateFileFindings::quoted},
                    Finding{"quoted GUID", "\"" + Known + "\"\ta\tb\tc", &UpdateFileFindings::quoted},
                    Finding{"Windows-1252", Known + "\ta\tb\tT\xFCr", &UpdateFileFindings::notUtf8}));

class UpdateFileLineWithoutFinding : public testing::TestWithParam<Finding> {};

TEST_P(UpdateFileLineWithoutFinding, IsPassedOver) {
    EXPECT_THAT((scan(GetParam().line + "\n").*GetParam().notes).first, IsEmpty()) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, UpdateFileLineWithoutFinding,
    testing::Values(Finding{"lower case", "c0ffee00-1234-4abc-8def-000000000001\ta\tb\tc", &UpdateFileFindings::noGuid},
                    Finding{"empty fields", Known + "\t\t\t", &UpdateFileFindings::fewFields},
                    Finding{"five fields", Line + "\tmore", &UpdateFileFindings::fewFields},
                    Finding{"quotes in the fifth", Line + "\t\"note\"", &UpdateFileFindings::quoted},
                    Finding{"an inch mark", Known + "\ta\tb\t3\"", &UpdateFileFindings::quoted},
                    Finding{"2047 bytes", Line + std::string(2047 - Line.size(), 'x'), &UpdateFileFindings::overlong},
                    Finding{"rest of a long line", Line + std::string(3000, 'x'), &UpdateFileFindings::noGuid},
                    Finding{"UTF-8", Known + "\ta\tb\tTür 補修", &UpdateFileFindings::notUtf8}));

TEST(UpdateFileScan, KeepsTheFirstLinesAndCountsTheRest) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += "no guid\n";
    const LineNotes notes = scan(bytes).noGuid;
    EXPECT_EQ(notes.count, 1000U);
    EXPECT_THAT(notes.first, ElementsAre(1U, 2U, 3U, 4U, 5U));
}

struct WithoutRow {
    const char* what;
    std::string bytes;
    std::vector<std::uint64_t> lines;
};

class UpdateFileLineWithoutRow : public testing::TestWithParam<WithoutRow> {};

TEST_P(UpdateFileLineWithoutRow, IsCountedOnce) {
    const LineNotes notes = scan(GetParam().bytes).withoutRow;
    EXPECT_EQ(notes.first, GetParam().lines) << GetParam().what;
    EXPECT_EQ(notes.count, GetParam().lines.size()) << GetParam().what;
}

const std::string Unknown = testing_support::guidText(2) + "\tName\told\tnew";

INSTANTIATE_TEST_SUITE_P(
    Files, UpdateFileLineWithoutRow,
    testing::Values(WithoutRow{"all good", Line + "\n" + Line + "\n", {}},
                    WithoutRow{"no GUID, unknown GUID", "GUID\ta\tb\tc\n" + Line + "\n" + Unknown + "\n", {1, 3}},
                    WithoutRow{"a long line of a known element", Line + std::string(9000, 'x') + "\n", {}},
                    WithoutRow{"a long line of none", std::string(9000, 'x') + "\n" + Line + "\n", {1}},
                    WithoutRow{"a long line that ends with the file", std::string(2 * 2047, 'x'), {1}},
                    WithoutRow{"keeps a known element", Line + "\n\ta\tb\tc\n", {}},
                    WithoutRow{"keeps an unknown element", Unknown + "\n\ta\tb\tc\n", {1, 2}},
                    WithoutRow{"keeps it over a zero byte", Line + "\n\0x\n"s, {}},
                    WithoutRow{"keeps nothing", "\ta\tb\tc\n", {1}},
                    WithoutRow{"blank lines", "\n\n" + Unknown + "\n\n", {3}},
                    WithoutRow{"a last line without end", Unknown, {}}));

TEST(UpdateFileScan, NamesALastLineWithoutEnd) {
    EXPECT_EQ(scan(Line + "\n" + Line).lineWithoutEnd, 2U);
    EXPECT_EQ(scan(Line + "\n" + Line + "\n").lineWithoutEnd, 0U);
    EXPECT_EQ(scan(std::string(2048, 'x')).lineWithoutEnd, 1U);
    // Handed on by its length.
    EXPECT_EQ(scan(std::string(2047, 'x')).lineWithoutEnd, 0U);
}

std::string inUtf16(const std::string& ascii, bool bigEndian) {
    std::string bytes;
    for (const char c : ascii) bytes.append(bigEndian ? std::string{'\0', c} : std::string{c, '\0'});
    return bytes;
}

struct Kind {
    const char* what;
    std::string bytes;
    bool byteOrderMark, utf16, binary;
};

class UpdateFileKind : public testing::TestWithParam<Kind> {};

TEST_P(UpdateFileKind, IsToldByTheFirstBytes) {
    const UpdateFileFindings findings = scan(GetParam().bytes);
    EXPECT_EQ(findings.byteOrderMark, GetParam().byteOrderMark) << GetParam().what;
    EXPECT_EQ(findings.utf16, GetParam().utf16) << GetParam().what;
    EXPECT_EQ(findings.binary, GetParam().binary) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Files, UpdateFileKind,
    testing::Values(Kind{"UTF-8", Line + "\n", false, false, false},
                    Kind{"UTF-8 with mark", "\xEF\xBB\xBF" + Line + "\n", true, false, false},
                    Kind{"UTF-16 LE with mark", "\xFF\xFE" + inUtf16(Line + "\n", false), false, true, false},
                    Kind{"UTF-16 BE with mark", "\xFE\xFF" + inUtf16(Line + "\n", true), false, true, false},
                    Kind{"UTF-16 LE", inUtf16(Line + "\n", false), false, true, false},
                    Kind{"UTF-16 BE", inUtf16(Line + "\n", true), false, true, false},
                    Kind{"one zero byte", Line + "\0\n"s, false, false, false},
                    Kind{"spreadsheet", "PK\x03\x04" + Line + "\n", false, false, true},
                    Kind{"old spreadsheet", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", false, false, true},
                    Kind{"program",
                         "\x7F"
                         "ELF\x02\x01\x01",
                         false, false, true},
                    Kind{"noise", std::string("\x01\x02\x03\x04\x05\x06\x07", 7) + "x\n", false, false, true}));

}  // namespace
}  // namespace updatefile
