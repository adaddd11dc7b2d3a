#include "updatefile/Hints.hpp"
#include "updatefile/Wording.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace updatefile {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const Shows = "'modelhost list' prints";

LineNotes notes(std::initializer_list<std::uint64_t> lines) {
    LineNotes result;
    for (const std::uint64_t line : lines) result.add(line);
    return result;
}

TEST(LineNumbers, AreReadAsASentence) {
    EXPECT_EQ(numberedLines(notes({4})), "line 4");
    EXPECT_EQ(numberedLines(notes({4, 17})), "lines 4 and 17");
    EXPECT_EQ(numberedLines(notes({1, 2, 3, 4, 5})), "lines 1, 2, 3, 4 and 5");
    EXPECT_EQ(numberedLines(notes({1, 2, 3, 4, 5, 6, 7})), "lines 1, 2, 3, 4, 5 and 2 more");
}

TEST(Hints, AreNoneWhereEveryLineGaveARow) {
    UpdateFileFindings findings;
    findings.lines = findings.pieces = 3;
    EXPECT_THAT(hintsFor(findings, {3, 0}, Shows), IsEmpty());
}

TEST(Hints, CountTheLinesThatGaveNoRowAndSayWhy) {
    UpdateFileFindings findings;
    findings.lines = 10;
    findings.withoutRow = notes({1, 4, 6});
    findings.noGuid = notes({1});
    findings.unknownElement = notes({4, 6});
    EXPECT_THAT(hintsFor(findings, {7, 0}, Shows),
                ElementsAre(AllOf(HasSubstr("3 lines gave no row"), HasSubstr("no GUID of 36 characters in line 1"),
                                  HasSubstr("no element has the GUID in lines 4 and 6"))));
}

TEST(Hints, DoNotCountLostRowsAsLinesWithoutRow) {
    UpdateFileFindings findings;
    findings.lines = 32770;
    EXPECT_THAT(hintsFor(findings, {32767, 3}, Shows),
                ElementsAre(AllOf(HasSubstr("3 rows did not fit"), HasSubstr("split the update file"))));
}

TEST(Hints, OfAUtf16FileAreOnlyThatItIsOne) {
    UpdateFileFindings findings;
    findings.lines = 1;
    findings.pieces = 2;
    findings.utf16 = true;
    findings.zeroBytes = notes({1, 2});
    EXPECT_THAT(hintsFor(findings, {0, 0}, Shows),
                ElementsAre(AllOf(HasSubstr("UTF-16"), HasSubstr("save it as UTF-8"))));
}

struct Advice {
    LineNotes UpdateFileFindings::*notes;
    const char* what;
    const char* remedy;
};

class HintOfLines : public testing::TestWithParam<Advice> {};

TEST_P(HintOfLines, SaysWhatAndWhatToDo) {
    UpdateFileFindings findings;
    findings.lines = 1;
    findings.*GetParam().notes = notes({7});
    EXPECT_THAT(hintsFor(findings, {0, 0}, Shows),
                ElementsAre(AllOf(HasSubstr("Line 7: "), HasSubstr(GetParam().what), HasSubstr(GetParam().remedy))));
}

INSTANTIATE_TEST_SUITE_P(
    Findings, HintOfLines,
    testing::Values(Advice{&UpdateFileFindings::fewFields, "fewer than four fields", "write GUID, item, old and new"},
                    Advice{&UpdateFileFindings::leadingTab, "begins with a TAB", "write the GUID first"},
                    Advice{&UpdateFileFindings::overlong, "longer than 2047 bytes", "shorten"},
                    Advice{&UpdateFileFindings::zeroBytes, "zero bytes", "remove"},
                    Advice{&UpdateFileFindings::quoted, "cells in quotes", "without them"},
                    Advice{&UpdateFileFindings::notUtf8, "Windows-1252", "as UTF-8"},
                    Advice{&UpdateFileFindings::globalId, "GlobalId of 22 characters", "modelhost list"}));

TEST(Hints, NameALastLineWithoutEndAndAByteOrderMark) {
    UpdateFileFindings findings;
    findings.lines = 1;
    findings.byteOrderMark = true;
    findings.lineWithoutEnd = 12;
    EXPECT_THAT(hintsFor(findings, {0, 0}, Shows),
                ElementsAre(HasSubstr("byte-order mark"), AllOf(HasSubstr("Line 12"), HasSubstr("not imported"))));
}

TEST(Hints, OfAFileThatIsNoUpdateFileAreOnlyWhy) {
    UpdateFileFindings findings;
    findings.pieces = findings.lines = 1;
    findings.zeroBytes = notes({1});
    findings.binary = true;
    EXPECT_THAT(hintsFor(findings, {0, 0}, Shows), ElementsAre(HasSubstr("no text file; save the table as")));
    EXPECT_THAT(hintsFor({}, {0, 0}, Shows), ElementsAre(HasSubstr("no lines; write one change a line")));
}

}  // namespace
}  // namespace updatefile
