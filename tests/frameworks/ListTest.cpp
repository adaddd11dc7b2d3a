#include "DialogFixture.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <chrono>

using frontend::Color;
using frontend::Dialog;
using frontend::TabField;
using testing_support::DialogTest;
using testing_support::utf8;

namespace {

class ListTest : public DialogTest {
protected:
    /// Runs an add-on's calls while the dialog is open.
    void inDialog(const std::function<void(const frontend::List&)>& calls) {
        open([&](Dialog& dialog) { calls(*dialog.list(List)); });
    }
    void append(const GS::UniString& text) {
        EXPECT_EQ(DGListInsertItem(id_, List, DG_LIST_BOTTOM), NoError);
        EXPECT_EQ(DGListSetItemText(id_, List, DG_LIST_BOTTOM, text), NoError);
    }
    /// Fills the list with rows whose text is their number.
    void fill(int rows) {
        DGListDisableDraw(id_, List);
        for (int row = 1; row <= rows; ++row) append(std::to_string(row).c_str());
        DGListEnableDraw(id_, List);
    }
    std::string cell(Int16 row, Int16 field) { return utf8(DGListGetTabItemText(id_, List, row, field)); }
};

constexpr Int16 UnknownRows[] = {0, -2, 3, 4, 32767, -32768};

}  // namespace

TEST_F(ListTest, RowsAreAppendedAndInsertedBeforeAnother) {
    inDialog([&](const frontend::List& list) {
        append("b");
        append("c");
        EXPECT_EQ(DGListInsertItem(id_, List, 1), NoError);
        EXPECT_EQ(DGListSetItemText(id_, List, 1, "a"), NoError);
        EXPECT_EQ(DGListGetItemCount(id_, List), 3);
        EXPECT_EQ(utf8(list.rowText(1)) + utf8(list.rowText(2)) + utf8(list.rowText(3)), "abc");
        EXPECT_EQ(utf8(list.rowText(DG_LIST_BOTTOM)), "c");
    });
}

TEST_F(ListTest, InsertionAtAnUnknownPositionIsRefused) {
    inDialog([&](const frontend::List& list) {
        for (const Int16 position : {Int16{0}, Int16{1}, Int16{-2}, Int16{32767}, Int16{-32768}})
            EXPECT_EQ(DGListInsertItem(id_, List, position), DG_ERR_BADPARS) << position;
        EXPECT_EQ(list.rowCount(), 0);
        EXPECT_EQ(list.rowsLost(), 0U);
    });
}

TEST_F(ListTest, NewRowIsEmptyEnabledAndWithoutColour) {
    inDialog([&](const frontend::List& list) {
        EXPECT_EQ(DGListInsertItem(id_, List, DG_LIST_BOTTOM), NoError);
        EXPECT_TRUE(list.rowText(1).IsEmpty());
        EXPECT_EQ(list.status(1), DG_IS_ENABLE);
        EXPECT_EQ(list.color(1), std::nullopt);
        EXPECT_EQ(DGListSetItemStatus(id_, List, 1, DG_IS_DISABLE), NoError);
        EXPECT_EQ(DGListSetItemColor(id_, List, DG_LIST_BOTTOM, 0xFFFF, 0, 1), NoError);
        EXPECT_EQ(DGListGetItemStatus(id_, List, 1), DG_IS_DISABLE);
        EXPECT_EQ(DGListGetItemStatus(id_, List, DG_LIST_BOTTOM), DG_IS_DISABLE);
        EXPECT_EQ(list.color(1), (Color{0xFFFF, 0, 1}));
    });
}

TEST_F(ListTest, RowIsCutIntoItsCellsAtTabs) {
    struct {
        const char* row;
        std::vector<std::string> cells;
    } const cases[] = {{"", {"", "", ""}},     {"a", {"a", "", ""}},     {"[  ]\tName\tWall", {"[  ]", "Name", "Wall"}},
                       {"\t\t", {"", "", ""}}, {"\tb\t", {"", "b", ""}}, {"a\tb\tc\td", {"a", "b", "c"}}};
    inDialog([&](const frontend::List& list) {
        DGListSetTabFieldCount(id_, List, 3);
        for (const auto& each : cases) {
            append(each.row);
            for (Int16 field = 1; field <= 3; ++field) {
                EXPECT_EQ(cell(DG_LIST_BOTTOM, field), each.cells[static_cast<std::size_t>(field) - 1]) << each.row;
                EXPECT_EQ(list.cell(list.rowCount(), field), DGListGetTabItemText(id_, List, list.rowCount(), field));
            }
            EXPECT_EQ(cell(DG_LIST_BOTTOM, 4), "") << "there is no fourth column";
        }
    });
}

TEST_F(ListTest, CellIsReplacedAndTheOthersStay) {
    inDialog([&](const frontend::List& list) {
        DGListSetTabFieldCount(id_, List, 4);
        append("[  ]\tName\t");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 1, "[X]"), NoError);
        EXPECT_EQ(utf8(list.rowText(1)), "[X]\tName\t");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 3, "Done"), NoError);
        EXPECT_EQ(utf8(list.rowText(1)), "[X]\tName\tDone");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 2, ""), NoError);
        EXPECT_EQ(utf8(list.rowText(1)), "[X]\t\tDone");
    });
}

TEST_F(ListTest, CellBeyondThePresentOnesComesWithEmptyOnes) {
    inDialog([&](const frontend::List& list) {
        DGListSetTabFieldCount(id_, List, 4);
        append("");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 4, "d"), NoError);
        EXPECT_EQ(utf8(list.rowText(1)), "\t\t\td");
        append("a\tb");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 2, 3, ""), NoError);
        EXPECT_EQ(utf8(list.rowText(2)), "a\tb\t");
    });
}

TEST_F(ListTest, UnknownColumnsAreRefused) {
    inDialog([&](const frontend::List& list) {
        append("a\tb");
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 5, "e"), NoError) << "without tab fields any column may be set";
        EXPECT_EQ(DGListSetTabItemText(id_, List, 1, 32767, "far"), DG_ERR_BADPARS) << "within reason";
        DGListSetTabFieldCount(id_, List, 2);
        for (const Int16 field : UnknownRows) {
            EXPECT_EQ(DGListSetTabItemText(id_, List, 1, field, "x"), DG_ERR_BADPARS) << field;
            EXPECT_TRUE(DGListGetTabItemText(id_, List, 1, field).IsEmpty()) << field;
            EXPECT_TRUE(list.cell(1, field).IsEmpty()) << field;
        }
        EXPECT_EQ(utf8(list.rowText(1)), "a\tb\t\t\te");
    });
}

TEST_F(ListTest, UnknownRowsAreRefused) {
    inDialog([&](const frontend::List& list) {
        EXPECT_EQ(DGListSetItemText(id_, List, DG_LIST_BOTTOM, "x"), DG_ERR_BADPARS) << "there is no last row";
        append("a");
        append("b");
        for (const Int16 row : UnknownRows) {
            EXPECT_EQ(DGListSetItemText(id_, List, row, "x"), DG_ERR_BADPARS) << row;
            EXPECT_EQ(DGListSetItemStatus(id_, List, row, 2), DG_ERR_BADPARS) << row;
            EXPECT_EQ(DGListGetItemStatus(id_, List, row), 0) << row;
            EXPECT_EQ(DGListSetItemColor(id_, List, row, 1, 1, 1), DG_ERR_BADPARS) << row;
            EXPECT_EQ(DGListSetTabItemText(id_, List, row, 1, "x"), DG_ERR_BADPARS) << row;
            EXPECT_TRUE(DGListGetTabItemText(id_, List, row, 1).IsEmpty()) << row;
            EXPECT_TRUE(list.rowText(row).IsEmpty()) << row;
            EXPECT_EQ(list.color(row), std::nullopt) << row;
        }
        EXPECT_EQ(utf8(list.rowText(1)) + utf8(list.rowText(2)), "ab");
    });
}

TEST_F(ListTest, UnknownListsAreRefused) {
    const auto refused = [](Int16 dialog, Int16 item) {
        Int16 begin = 7, end = 7;
        bool status = true;
        EXPECT_EQ(DGListDisableDraw(dialog, item), DG_ERR_BADPARS);
        EXPECT_EQ(DGListEnableDraw(dialog, item), DG_ERR_BADPARS);
        EXPECT_EQ(DGListGetItemWidth(dialog, item), 0);
        EXPECT_EQ(DGListSetTabFieldCount(dialog, item, 1), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetTabFieldData(dialog, item, 1, 0, 0, 0, 0, true, true), DG_ERR_BADPARS);
        EXPECT_EQ(DGListGetTabFieldData(dialog, item, 1, &begin, &end, nullptr, nullptr, nullptr, &status),
                  DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetHeaderItemCount(dialog, item, 1), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetHeaderFlags(dialog, item, true, true, true), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetHeaderItemFlags(dialog, item, 1, true, true), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetHeaderItemText(dialog, item, 1, "x"), DG_ERR_BADPARS);
        EXPECT_EQ(DGListGetItemCount(dialog, item), 0);
        EXPECT_EQ(DGListInsertItem(dialog, item, DG_LIST_BOTTOM), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetItemText(dialog, item, 1, "x"), DG_ERR_BADPARS);
        EXPECT_EQ(DGListGetItemStatus(dialog, item, 1), 0);
        EXPECT_TRUE(DGListGetTabItemText(dialog, item, 1, 1).IsEmpty());
        EXPECT_EQ(begin, 0);
        EXPECT_EQ(end, 0);
        EXPECT_FALSE(status) << "a caller that does not look at the code sees a field that is not in use";
    };
    open([&](Dialog&) {
        append("row");
        for (const Int16 item : {Int16{1}, Int16{3}, Int16{4}, Int16{0}, Int16{-1}, Int16{32767}}) refused(id_, item);
        for (const Int16 dialog : {Int16{0}, Int16{-1}, static_cast<Int16>(id_ + 1), Int16{32767}})
            refused(dialog, List);
    });
    refused(id_, List);  // The number of a dialog that has ended.
}

TEST_F(ListTest, TabFieldsAreKeptAsTheyAreSet) {
    inDialog([&](const frontend::List& list) {
        EXPECT_EQ(DGListSetTabFieldCount(id_, List, 2), NoError);
        EXPECT_EQ(DGListSetTabFieldData(id_, List, 2, 100, 199, 1, 2, true, true), NoError);
        EXPECT_EQ(list.tabFields()[1], (TabField{100, 199, 1, 2, true, true}));
        Int16 begin = 0, end = 0, justification = 0, truncation = 0;
        bool separator = false, status = false;
        EXPECT_EQ(DGListGetTabFieldData(id_, List, 2, &begin, &end, &justification, &truncation, &separator, &status),
                  NoError);
        EXPECT_EQ((TabField{begin, end, justification, truncation, separator, status}), list.tabFields()[1]);
        EXPECT_EQ(DGListGetTabFieldData(id_, List, 1, nullptr, nullptr, nullptr, nullptr, nullptr, &status), NoError);
        EXPECT_FALSE(status) << "a new field is not in use";
        for (const Int16 field : UnknownRows)
            EXPECT_EQ(DGListSetTabFieldData(id_, List, field, 0, 0, 0, 0, true, true), DG_ERR_BADPARS) << field;
        for (const Int16 count : {Int16{-1}, Int16{32767}, Int16{-32768}}) {
            EXPECT_EQ(DGListSetTabFieldCount(id_, List, count), DG_ERR_BADPARS) << count;
            EXPECT_EQ(DGListSetHeaderItemCount(id_, List, count), DG_ERR_BADPARS) << count;
        }
        EXPECT_EQ(list.tabFields().size(), 2U);
    });
}

TEST_F(ListTest, HeaderIsKeptAsItIsSet) {
    inDialog([&](const frontend::List& list) {
        EXPECT_FALSE(list.headerVisible());
        EXPECT_EQ(DGListSetHeaderFlags(id_, List, true, false, true), NoError);
        EXPECT_TRUE(list.headerVisible());
        EXPECT_FALSE(list.headerMovable());
        EXPECT_TRUE(list.headerSortable());
        EXPECT_EQ(DGListSetHeaderItemCount(id_, List, 2), NoError);
        EXPECT_EQ(DGListSetHeaderItemText(id_, List, 2, "Value"), NoError);
        EXPECT_EQ(DGListSetHeaderItemFlags(id_, List, 2, false, true), NoError);
        EXPECT_EQ(utf8(list.header()[1].text), "Value");
        EXPECT_FALSE(list.header()[1].clickable);
        EXPECT_TRUE(list.header()[1].truncated);
        for (const Int16 headerItem : UnknownRows) {
            EXPECT_EQ(DGListSetHeaderItemText(id_, List, headerItem, "x"), DG_ERR_BADPARS) << headerItem;
            EXPECT_EQ(DGListSetHeaderItemFlags(id_, List, headerItem, true, true), DG_ERR_BADPARS) << headerItem;
        }
    });
}

TEST_F(ListTest, WidthIsThatOfTheListsRectangle) {
    inDialog([&](const frontend::List&) {
        EXPECT_EQ(DGListGetItemWidth(id_, List), 380);
        DGMoveGrowItem(id_, List, 5, 5, 31, 10);
        EXPECT_EQ(DGListGetItemWidth(id_, List), 411);
        DGMoveItem(id_, List, -32768, 0);
        DGGrowItem(id_, List, 32767, 0);
        DGGrowItem(id_, List, 32767, 0);
        EXPECT_EQ(DGListGetItemWidth(id_, List), 32767) << "the widest that 16 bits hold";
    });
}

// --- A full list ---------------------------------------------------------------------------------------------------

TEST_F(ListTest, HoldsAtMostAsManyRowsAsARowNumberCanName) {
    struct {
        int inserted;
        Int16 kept;
        unsigned lost;
    } const cases[] = {{32766, 32766, 0}, {32767, 32767, 0}, {32768, 32767, 1}, {40000, 32767, 7233}};
    for (const auto& each : cases) {
        inDialog([&](const frontend::List& list) {
            DGListDisableDraw(id_, List);
            for (int row = 1; row <= each.inserted; ++row) {
                const GSErrCode error = DGListInsertItem(id_, List, DG_LIST_BOTTOM);
                EXPECT_EQ(error, row <= DG_LIST_MAX_ROWS ? NoError : DG_ERR_LISTFULL) << row;
            }
            EXPECT_EQ(DGListGetItemCount(id_, List), each.kept);
            EXPECT_EQ(list.rowsLost(), each.lost);
        });
    }
}

TEST_F(ListTest, LostRowTouchesNoKeptOne) {
    inDialog([&](const frontend::List& list) {
        fill(DG_LIST_MAX_ROWS);
        EXPECT_EQ(DGListSetItemStatus(id_, List, DG_LIST_BOTTOM, 2), NoError) << "the last row is there still";
        EXPECT_EQ(DGListInsertItem(id_, List, DG_LIST_BOTTOM), DG_ERR_LISTFULL);
        EXPECT_EQ(DGListSetItemText(id_, List, DG_LIST_BOTTOM, "lost"), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetItemStatus(id_, List, DG_LIST_BOTTOM, 0), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetItemColor(id_, List, DG_LIST_BOTTOM, 1, 1, 1), DG_ERR_BADPARS);
        EXPECT_EQ(DGListSetTabItemText(id_, List, DG_LIST_BOTTOM, 1, "lost"), DG_ERR_BADPARS);
        EXPECT_TRUE(DGListGetTabItemText(id_, List, DG_LIST_BOTTOM, 1).IsEmpty());
        EXPECT_EQ(DGListGetItemStatus(id_, List, DG_LIST_BOTTOM), 0);
        EXPECT_EQ(utf8(list.rowText(DG_LIST_MAX_ROWS)), "32767");
        EXPECT_EQ(list.status(DG_LIST_MAX_ROWS), 2);
        EXPECT_EQ(list.color(DG_LIST_MAX_ROWS), std::nullopt);
        EXPECT_EQ(DGListInsertItem(id_, List, 1), DG_ERR_LISTFULL);
        EXPECT_EQ(utf8(list.rowText(1)), "1");
        EXPECT_EQ(list.rowsLost(), 2U);
    });
}

TEST_F(ListTest, FullListIsFilledTickedAndReadQuickly) {
    const GS::UniString row(
        "[  ]\tBasic Wall:Exterior\tWall\tA32931C7-B3B2-4117-8D6A-3038DD4E9A78\tFireRating[WallCommon]"
        "\tF30\tF90\t Old and new values are the same.");
    inDialog([&](const frontend::List&) {
        const auto begin = std::chrono::steady_clock::now();
        DGListDisableDraw(id_, List);
        DGListSetTabFieldCount(id_, List, 8);
        for (int i = 0; i < DG_LIST_MAX_ROWS; ++i) append(row);
        for (int i = 1; i <= DG_LIST_MAX_ROWS; ++i) DGListSetTabItemText(id_, List, static_cast<Int16>(i), 1, "[X]");
        int ticked = 0;
        for (int i = 1; i <= DG_LIST_MAX_ROWS; ++i)
            if (DGListGetTabItemText(id_, List, static_cast<Int16>(i), 1) == GS::UniString("[X]")) ++ticked;
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
        EXPECT_EQ(ticked, DG_LIST_MAX_ROWS);
        RecordProperty("milliseconds", static_cast<int>(seconds.count() * 1000));
        EXPECT_LT(seconds.count(), 5.0) << "far from what it takes; a search through all rows for each takes longer";
    });
}

RC_GTEST_FIXTURE_PROP(ListTest, CellsSetAreTheCellsRead, ()) {
    const auto texts =
        *rc::gen::container<std::vector<std::string>>(8, rc::gen::container<std::string>(rc::gen::inRange('a', 'e')));
    const auto order = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 8));
    std::vector<std::string> read(8), expected(8);
    inDialog([&](const frontend::List& list) {
        DGListSetTabFieldCount(id_, List, 8);
        append("");
        for (const int field : order) {
            const auto at = static_cast<std::size_t>(field);
            expected[at] = texts[at];
            DGListSetTabItemText(id_, List, 1, static_cast<Int16>(field + 1), texts[at].c_str());
        }
        for (std::size_t at = 0; at < 8; ++at) read[at] = utf8(list.cell(1, static_cast<Int16>(at + 1)));
    });
    RC_ASSERT(read == expected);
}
