// Choosing the update file, reading it, and cutting its lines into fields.

#include "FakeHost.hpp"
#include "HostCalls.hpp"
#include "support/ActingAsNobody.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The fields of each row that the file supplies: GUID, property designation, new value.
struct Fields {
    std::string guid, item, value;
    friend bool operator==(const Fields&, const Fields&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Fields& fields) {
        return stream << "(" << fields.guid << "|" << fields.item << "|" << fields.value << ")";
    }
};

/// Here every text names an element, so that no line is dropped for want of one.
class UpdateFile : public FakeHostTest {
protected:
    std::vector<Fields> read(std::string_view content) {
        std::vector<Fields> fields;
        for (const ImportRow& row : review(content)) fields.push_back({row.guid, row.item, row.proposed});
        return fields;
    }

    /// The number of rows that the import dialog shows for a file of this path.
    int rowsOf(const std::filesystem::path& file) {
        int rows = -1;
        view_.pickNextFile(file.string());
        view_.inNextDialog([&](frontend::Dialog& dialog) { rows = ImportDialog(dialog).list().rowCount(); });
        EXPECT_EQ(host_.pickMenuItem(1), NoError);
        return rows;
    }
};

// --- Choosing ------------------------------------------------------------------------------------------------------

TEST_F(UpdateFile, DialogOffersTextFiles) {
    view_.cancelNextFile();
    host_.pickMenuItem(1);
    const frontend::FileRequest& request = view_.fileRequests().at(0);
    EXPECT_EQ(narrow(request.title), "Select a TXT file");
    ASSERT_EQ(request.filters.size(), 1U);
    EXPECT_EQ(narrow(request.filters[0].description), "TXT File");
    EXPECT_EQ(narrow(request.filters[0].extension), "txt");
    EXPECT_EQ(request.currentFilter, 0U);
}

TEST_F(UpdateFile, CancelledChoiceOpensNoImportDialog) {
    view_.cancelNextFile();
    EXPECT_EQ(host_.pickMenuItem(1), NoError);
    EXPECT_TRUE(frontend::openDialogs().empty());
}

TEST_F(UpdateFile, EachCommandAsksAnew) {
    EXPECT_EQ(rowsOf(folder_.write("first.txt", "a\tb\tc\td\n")), 1);
    EXPECT_EQ(rowsOf(folder_.write("second.txt", "a\tb\tc\td\ne\tf\tg\th\n")), 2);
}

TEST_F(UpdateFile, MissingFileGivesAnEmptyList) {
    EXPECT_EQ(rowsOf(folder_.path() / "missing.txt"), 0);
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "missing.txt"));
}

TEST_F(UpdateFile, FolderInPlaceOfAFileGivesAnEmptyList) {
    EXPECT_EQ(rowsOf(folder_.path()), 0);
}

TEST_F(UpdateFile, UnreadableFileGivesAnEmptyList) {
    const std::filesystem::path secret = folder_.write("secret.txt", "a\tb\tc\td\n");
    const std::filesystem::path open = folder_.write("open.txt", "a\tb\tc\td\n");
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    const testing_support::ActingAsNobody nobody;
    EXPECT_EQ(rowsOf(secret), 0);
    EXPECT_EQ(rowsOf(open), 1);
}

TEST_F(UpdateFile, ReadErrorCountsAsTheEnd) {
    EXPECT_EQ(rowsOf("/proc/self/mem"), 0);  // Opens, but nothing can be read at its beginning.
}

// --- Lines ---------------------------------------------------------------------------------------------------------

TEST_F(UpdateFile, EmptyFileGivesNoRows) {
    EXPECT_THAT(read(""), IsEmpty());
}

TEST_F(UpdateFile, OnlyLineEndsGiveNoRows) {
    EXPECT_THAT(read("\n\n\r\n\r\r\n"), IsEmpty());
}

TEST_F(UpdateFile, LineWithoutLineEndIsNotImported) {
    EXPECT_THAT(read("a\tb\tc\td"), IsEmpty());
    EXPECT_THAT(read("a\tb\tc\td\ne\tf\tg\th"), ElementsAre(Fields{"a", "b", "d"}));
}

TEST_F(UpdateFile, LineWithLineEndGivesItsFields) {
    EXPECT_THAT(read("a\tb\tc\td\n"), ElementsAre(Fields{"a", "b", "d"}));
}

TEST_F(UpdateFile, AllLineEndsGiveTheSameRows) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        EXPECT_THAT(read("a\tb\tc\td" + end + "e\tf\tg\th" + end),
                    ElementsAre(Fields{"a", "b", "d"}, Fields{"e", "f", "h"}));
    }
}

TEST_F(UpdateFile, BlankLinesGiveNoRows) {
    EXPECT_THAT(read("\n\na\tb\tc\td\n\r\n\n\ne\tf\tg\th\n\n"),
                ElementsAre(Fields{"a", "b", "d"}, Fields{"e", "f", "h"}));
}

TEST_F(UpdateFile, LineOf3000BytesGivesTwoRows) {
    const std::string line(3000, 'x');
    EXPECT_THAT(read(line + "\n"),
                ElementsAre(Fields{std::string(2047, 'x'), "", ""}, Fields{std::string(953, 'x'), "", ""}));
}

TEST_F(UpdateFile, LineOf2047BytesGivesOneRow) {
    const std::string line(2047, 'x');
    EXPECT_THAT(read(line + "\n" + "a\tb\tc\td\n"), ElementsAre(Fields{line, "", ""}, Fields{"a", "b", "d"}));
}

TEST_F(UpdateFile, RestOfALongLineWithoutLineEndIsNotImported) {
    EXPECT_THAT(read(std::string(3000, 'x')), ElementsAre(Fields{std::string(2047, 'x'), "", ""}));
}

TEST_F(UpdateFile, ZeroByteEndsTheTextOfItsLine) {
    using namespace std::string_literals;
    EXPECT_THAT(read("a\tb\tc\td\0lost\tmore\ne\tf\tg\th\n"s),
                ElementsAre(Fields{"a", "b", "d"}, Fields{"e", "f", "h"}));
}

TEST_F(UpdateFile, LineThatBeginsWithAZeroByteRepeatsTheLineBefore) {
    using namespace std::string_literals;
    EXPECT_THAT(read("a\tb\tc\td\n\0x\ty\n"s), ElementsAre(Fields{"a", "b", "d"}, Fields{"a", "b", "d"}));
}

TEST_F(UpdateFile, ByteOrderMarkBelongsToTheFirstField) {
    EXPECT_THAT(read("\xEF\xBB\xBF"
                     "a\tb\tc\td\n"),
                ElementsAre(Fields{"\xEF\xBB\xBF"
                                   "a",
                                   "b", "d"}));
}

TEST_F(UpdateFile, BytesThatAreNoUTF8ReadAsWindows1252) {
    EXPECT_THAT(read("a\tb\tc\tT\xFCr 5 \x80\n"), ElementsAre(Fields{"a", "b", "Tür 5 €"}));
}

TEST_F(UpdateFile, ReadErrorInTheMiddleKeepsTheRowsBeforeIt) {
    const FailingReads disk;
    EXPECT_THAT(read("a\tb\tc\td\ne\tf\tg\th\nlost\tp\tq\tr"),
                ElementsAre(Fields{"a", "b", "d"}, Fields{"e", "f", "h"}));
}

// --- Fields --------------------------------------------------------------------------------------------------------

TEST_F(UpdateFile, MissingFieldsKeepThePreviousLines) {
    EXPECT_THAT(read("g1\tp1\tx1\tw1\ng2\tp2\n"), ElementsAre(Fields{"g1", "p1", "w1"}, Fields{"g2", "p2", "w1"}));
}

TEST_F(UpdateFile, LineThatBeginsWithATabRepeatsTheLineBefore) {
    EXPECT_THAT(read("g\tp\tx\tw\n\tp2\tx2\tw2\n"), ElementsAre(Fields{"g", "p", "w"}, Fields{"g", "p", "w"}));
}

TEST_F(UpdateFile, FirstLineThatBeginsWithATabHasEmptyFields) {
    EXPECT_THAT(read("\tp\tx\tw\n"), ElementsAre(Fields{"", "", ""}));
}

TEST_F(UpdateFile, EmptyFieldsBehindTheFirstAreEmpty) {
    EXPECT_THAT(read("a\tb\tc\td\ng\t\t\tw\n"), ElementsAre(Fields{"a", "b", "d"}, Fields{"g", "", "w"}));
    EXPECT_THAT(read("a\tb\tc\td\ng\tp\tx\t\n"), ElementsAre(Fields{"a", "b", "d"}, Fields{"g", "p", ""}));
}

TEST_F(UpdateFile, FieldsBehindTheFourthAreIgnored) {
    EXPECT_THAT(read("a\tb\tc\td\te\tf\n"), ElementsAre(Fields{"a", "b", "d"}));
}

TEST_F(UpdateFile, FieldsAreNotTrimmed) {
    EXPECT_THAT(read(" a \t b\tc\td \n"), ElementsAre(Fields{" a ", " b", "d "}));
}

TEST_F(UpdateFile, ConvertedBooleanIsWhatTheNextLineInherits) {
    EXPECT_THAT(read("g\tp\tx\t.T.\ng\tq\n"), ElementsAre(Fields{"g", "p", "true"}, Fields{"g", "q", "true"}));
}

}  // namespace
