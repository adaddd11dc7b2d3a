#include "importing/ListRows.hpp"

#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gtest/gtest.h>

namespace importing {
namespace {

using testing_support::guidText;
using testing_support::ImportDialog;

class ListRows : public testing_support::HostFixture {
protected:
    void SetUp() override {
        testing_support::IfcText ifc;
        ifc.element("IfcWall", guidText(1), "Wall A");
        ifc.element("IfcWall", guidText(2), "Wall B");
        openText(ifc.text());
    }

    static const std::string* textAt(const std::vector<ListRow>& rows, std::size_t row, std::size_t column) {
        return &rows.at(row).columns.at(column).get();
    }

    const std::string updates_ =
        guidText(1) + "\tName\t\tC\n" + guidText(1) + "\tDescription\t\tD\n" + guidText(2) + "\tName\t\tE\n";
};

/// A list of 32,767 rows takes a kilobyte less for each of them.
TEST_F(ListRows, KeepOnceWhatStandsInTheRowAboveOrStoodThereBefore) {
    constexpr std::size_t Tick = 0, Name = 1, Guid = 3;
    std::vector<ListRow> before, after;
    importUpdates(updates_, [&](ImportDialog& dialog) {
        before = RowReader().readFrom(dialog.list());
        dialog.selectAll();
        after = RowReader().readFrom(dialog.list(), 1, before);
    });
    ASSERT_EQ(before.size(), 3U);
    ASSERT_EQ(after.size(), 3U);
    EXPECT_EQ(textAt(before, 1, Guid), textAt(before, 0, Guid));
    EXPECT_EQ(*textAt(before, 2, Guid), guidText(2));
    EXPECT_EQ(*textAt(before, 2, Name), "Wall B");
    EXPECT_EQ(*textAt(before, 0, Tick), "[  ]");
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_EQ(textAt(after, row, Name), textAt(before, row, Name)) << row;
        EXPECT_EQ(*textAt(after, row, Tick), "[X]") << row;
    }
}

TEST_F(ListRows, FromALaterRowOnAreComparedWithThoseOfTheSameNumber) {
    std::vector<ListRow> before, after;
    importUpdates(updates_, [&](ImportDialog& dialog) {
        before = RowReader().readFrom(dialog.list());
        after = RowReader().readFrom(dialog.list(), 3, before);
    });
    ASSERT_EQ(after.size(), 1U);
    for (std::size_t column = 0; column < after[0].columns.size(); ++column)
        EXPECT_EQ(textAt(after, 0, column), textAt(before, 2, column)) << column;
}

}  // namespace
}  // namespace importing
