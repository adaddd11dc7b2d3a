// The import dialog: its list, its buttons, its clicks, its resizing.

#include "FakeHost.hpp"
#include "HostCalls.hpp"
#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

#include <regex>

using namespace testing_support;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;

namespace {

/// Three walls: the first two can be renamed, the third has the name that is proposed.
class ReviewDialog : public HostFixture {
protected:
    void SetUp() override {
        IfcText ifc;
        for (unsigned i = 1; i <= 3; ++i) ifc.element("IfcWall", guidText(i), "Wall " + std::to_string(i));
        openText(ifc.text());
    }

    static std::string renaming(unsigned wall, const std::string& name) {
        return guidText(wall) + "\tName\t\t" + name + "\n";
    }
    const std::string updates_ = renaming(1, "A") + renaming(2, "B") + renaming(3, "Wall 3");

    std::vector<ImportRow> importUpdates(const std::function<void(ImportDialog&)>& user) {
        return HostFixture::importUpdates(updates_, user);
    }
    std::vector<std::string> ticksAfter(const std::function<void(ImportDialog&)>& user) {
        std::vector<std::string> ticks;
        for (const ImportRow& row : importUpdates(user)) ticks.push_back(row.tick);
        return ticks;
    }

    /// Loads the add-on with what `pattern` matches in its definitions replaced.
    void loadWithDefinitions(const char* pattern, const std::string& replacement) {
        const std::filesystem::path bundle = folder_.path() / realBundle().filename();
        std::filesystem::copy(realBundle(), bundle, std::filesystem::copy_options::recursive);
        const std::string definitions = bytesOf(bundle / "Contents/Resources/ZUNACAddin19.res");
        const std::string changed = std::regex_replace(definitions, std::regex(pattern), replacement);
        ASSERT_NE(changed, definitions);
        folder_.write("ZUNACAddin19.bundle/Contents/Resources/ZUNACAddin19.res", changed);
        const model::Status loaded = host_.loadAddOn(bundle);
        ASSERT_TRUE(loaded) << loaded.error().message;
    }
    /// Loads it with a review list of another width.
    void loadWithListWidth(int width) {
        loadWithDefinitions("(list 5 at \\d+ \\d+ size )\\d+", "$01" + std::to_string(width));
    }

    static void setTickText(ImportDialog& dialog, const char* text) {
        DGListSetTabItemText(dialog.shown().id(), ImportDialog::Review, 1, 1, text);
    }
};

using Ticks = std::vector<std::string>;
constexpr const char* On = "[X]";
constexpr const char* Off = "[  ]";

// --- Layout --------------------------------------------------------------------------------------------------------

TEST_F(ReviewDialog, ColumnsShareTheWidthAndTheLastTakesTheRest) {
    loadWithListWidth(803);
    importUpdates([](ImportDialog& dialog) {
        const std::vector<frontend::TabField>& fields = dialog.list().tabFields();
        ASSERT_EQ(fields.size(), 8U);
        for (Int16 i = 0; i < 7; ++i) {
            const auto begin = static_cast<Int16>(100 * i), end = static_cast<Int16>(begin + 99);
            EXPECT_EQ(fields[static_cast<std::size_t>(i)], (frontend::TabField{begin, end, 0, 0, true, true})) << i;
        }
        EXPECT_EQ(fields[7], (frontend::TabField{700, 803, 0, 0, true, true}));
    });
}

TEST_F(ReviewDialog, HeaderHasTheTextsOfTheResources) {
    importUpdates([](ImportDialog& dialog) {
        std::vector<std::string> titles;
        for (const frontend::HeaderItem& item : dialog.list().header()) {
            titles.emplace_back(item.text.ToCStr());
            EXPECT_FALSE(item.clickable);
            EXPECT_TRUE(item.truncated);
        }
        EXPECT_THAT(titles, ElementsAre("Apply", "Element", "Type", "GUID", "Property", "Current value", "New value",
                                        "Remarks"));
        EXPECT_TRUE(dialog.list().headerVisible());
        EXPECT_FALSE(dialog.list().headerMovable());
    });
}

/// A host that looks at the dialog while the add-on asks for an element's attributes, in the middle of filling the
/// list.
class FillingTheList : public FakeHostTest {};

TEST_F(FillingTheList, IsNotDrawnRowByRowAndDrawnWholeAtTheEnd) {
    std::vector<bool> drawn;
    host_.inAttributes = [&] { drawn.push_back(frontend::openDialogs().back()->list(5)->drawingEnabled()); };
    const HostCalls calls;
    importUpdates(line("Name", "A") + line("Name", "B"), [&](ImportDialog& dialog) {
        EXPECT_TRUE(dialog.list().drawingEnabled());
        EXPECT_THAT(calls.invalidatedItems(), ElementsAre(5));
    });
    EXPECT_THAT(drawn, ElementsAre(false, false));
}

TEST_F(ReviewDialog, EveryRowStartsUnticked) {
    EXPECT_EQ(ticksAfter([](ImportDialog&) {}), (Ticks{Off, Off, Off}));
}

TEST_F(ReviewDialog, ButtonThatTheAddOnDoesNotKnowDoesNothing) {
    loadWithDefinitions("( *list 5 at )", "    button 6 at 0 0 size 9 9 \"?\"\n$01");
    importUpdates([](ImportDialog& dialog) {
        const auto before = dialog.selectAll().rows();
        EXPECT_TRUE(dialog.shown().clickItem(6));
        EXPECT_FALSE(dialog.shown().ended());
        EXPECT_EQ(dialog.rows(), before);
    });
}

// --- Resizing ------------------------------------------------------------------------------------------------------

frontend::Rect moved(frontend::Rect rect, int h, int v) {
    return {rect.left + h, rect.top + v, rect.right + h, rect.bottom + v};
}

TEST_F(ReviewDialog, GrowthMovesTheButtonsAndGrowsTheListWithItsLastColumn) {
    importUpdates([](ImportDialog& dialog) {
        const auto rect = [&](Int16 item) { return dialog.shown().item(item)->rect; };
        const std::vector<frontend::Rect> before{rect(1), rect(2), rect(3), rect(4), rect(5)};
        const std::vector<frontend::TabField> fields = dialog.list().tabFields();

        EXPECT_TRUE(dialog.shown().resize(31, 10));
        EXPECT_EQ(rect(ImportDialog::Apply), moved(before[0], 15, 10));
        EXPECT_EQ(rect(ImportDialog::Close), moved(before[1], 31, 10));
        EXPECT_EQ(rect(ImportDialog::SelectAll), moved(before[2], 0, 10));
        EXPECT_EQ(rect(ImportDialog::DeselectAll), moved(before[3], 0, 10));
        EXPECT_EQ(rect(ImportDialog::Review),
                  (frontend::Rect{before[4].left, before[4].top, before[4].right + 31, before[4].bottom + 10}));

        std::vector<frontend::TabField> expected = fields;
        expected[7].end = static_cast<Int16>(expected[7].end + 31);
        EXPECT_EQ(dialog.list().tabFields(), expected);
    });
}

TEST_F(ReviewDialog, ShrinkingIsHalvedTowardsZero) {
    importUpdates([](ImportDialog& dialog) {
        const frontend::Rect before = dialog.shown().item(ImportDialog::Apply)->rect;
        const Int16 end = dialog.list().tabFields()[7].end;
        EXPECT_TRUE(dialog.shown().resize(-31, 0));
        EXPECT_EQ(dialog.shown().item(ImportDialog::Apply)->rect, moved(before, -15, 0));
        EXPECT_EQ(dialog.list().tabFields()[7].end, end - 31);
    });
}

// --- Ticking -------------------------------------------------------------------------------------------------------

TEST_F(ReviewDialog, ClickAtEitherEdgeOfTheTickColumnToggles) {
    const auto edges = [](ImportDialog& dialog) {
        const frontend::TabField& column = dialog.list().tabFields()[0];
        dialog.shown().clickRow(ImportDialog::Review, 1, column.begin);
        dialog.shown().clickRow(ImportDialog::Review, 2, column.end);
    };
    EXPECT_EQ(ticksAfter(edges), (Ticks{On, On, Off}));
}

TEST_F(ReviewDialog, ClickBesideTheTickColumnDoesNothing) {
    const auto beside = [](ImportDialog& dialog) {
        const frontend::TabField& column = dialog.list().tabFields()[0];
        dialog.shown().clickRow(ImportDialog::Review, 1, static_cast<Int16>(column.begin - 1));
        dialog.shown().clickRow(ImportDialog::Review, 2, static_cast<Int16>(column.end + 1));
    };
    EXPECT_EQ(ticksAfter(beside), (Ticks{Off, Off, Off}));
}

TEST_F(ReviewDialog, ClickInAnyOtherColumnDoesNothing) {
    const auto others = [](ImportDialog& dialog) {
        for (std::size_t i = 1; i < 8; ++i)
            dialog.shown().clickRow(ImportDialog::Review, 1, dialog.list().tabFields()[i].begin);
    };
    EXPECT_EQ(ticksAfter(others), (Ticks{Off, Off, Off}));
}

TEST_F(ReviewDialog, ClickInAnUnusedTickColumnDoesNothing) {
    const auto unused = [](ImportDialog& dialog) {
        DGListSetTabFieldData(dialog.shown().id(), ImportDialog::Review, 1, 0, 99, 0, 0, true, false);
        dialog.tick(1);
    };
    EXPECT_EQ(ticksAfter(unused), (Ticks{Off, Off, Off}));
}

TEST_F(ReviewDialog, ClickBelowTheRowsDoesNothing) {
    EXPECT_EQ(ticksAfter([](ImportDialog& dialog) { dialog.tick(0); }), (Ticks{Off, Off, Off}));
}

TEST_F(ReviewDialog, SecondClickUnticks) {
    EXPECT_EQ(ticksAfter([](ImportDialog& dialog) { dialog.tick(1).tick(2).tick(1); }), (Ticks{Off, On, Off}));
}

TEST_F(ReviewDialog, ClickTicksADisabledRowToo) {
    EXPECT_EQ(ticksAfter([](ImportDialog& dialog) { dialog.tick(3); }), (Ticks{Off, Off, On}));
}

TEST_F(ReviewDialog, ClickOnAnyOtherTickTextUnticks) {
    for (const char* text : {"[X]", "", "[ ]", "[x]", "yes"}) {
        const auto click = [text](ImportDialog& dialog) {
            setTickText(dialog, text);
            dialog.tick(1);
        };
        EXPECT_EQ(ticksAfter(click)[0], Off) << text;
    }
}

TEST_F(ReviewDialog, SelectAllTicksTheRowsThatCanBeApplied) {
    EXPECT_EQ(ticksAfter([](ImportDialog& dialog) { dialog.selectAll(); }), (Ticks{On, On, Off}));
}

TEST_F(ReviewDialog, SelectAllLeavesDisabledRowsAsTheyAre) {
    EXPECT_EQ(ticksAfter([](ImportDialog& dialog) { dialog.tick(3).selectAll(); }), (Ticks{On, On, On}));
}

TEST_F(ReviewDialog, SelectAllOfDisabledRowsTicksNothing) {
    const auto rows = HostFixture::importUpdates(renaming(1, "Wall 1") + renaming(2, "Wall 2"),
                                                 [](ImportDialog& dialog) { dialog.selectAll(); });
    EXPECT_THAT(rows, Each(Field(&ImportRow::tick, Off)));
}

TEST_F(ReviewDialog, DeselectAllUnticksEveryRowWhateverItsStatus) {
    const auto user = [](ImportDialog& dialog) {
        dialog.tick(1).apply().tick(1).tick(2).tick(3);
        EXPECT_EQ(dialog.row(1).remarks, "Done");
        EXPECT_EQ(dialog.row(1).tick, On);
        dialog.deselectAll();
    };
    EXPECT_EQ(ticksAfter(user), (Ticks{Off, Off, Off}));
}

// --- Buttons -------------------------------------------------------------------------------------------------------

TEST_F(ReviewDialog, CloseEndsItWithTheButtonsNumber) {
    importUpdates([](ImportDialog& dialog) {
        dialog.close();
        EXPECT_TRUE(dialog.shown().ended());
        EXPECT_EQ(dialog.shown().result(), 2);
    });
}

TEST_F(ReviewDialog, EscapeClosesIt) {
    importUpdates([](ImportDialog& dialog) {
        EXPECT_TRUE(dialog.shown().pressEscape());
        EXPECT_TRUE(dialog.shown().ended());
    });
}

TEST_F(ReviewDialog, ApplyAndTheSelectionsKeepItOpen) {
    importUpdates([](ImportDialog& dialog) {
        dialog.selectAll().deselectAll().apply();
        EXPECT_FALSE(dialog.shown().ended());
    });
}

TEST_F(ReviewDialog, NothingIsLeftOfTheListWhenItOpensAgain) {
    importUpdates([](ImportDialog& dialog) { dialog.selectAll(); });
    EXPECT_EQ(ticksAfter([](ImportDialog&) {}), (Ticks{Off, Off, Off}));
}

// --- A full list ---------------------------------------------------------------------------------------------------

TEST_F(ReviewDialog, LoopsOverAFullListEnd) {
    std::string many;
    for (int i = 0; i < 32768; ++i) many += renaming(1, "A");
    HostFixture::importUpdates(many, [](ImportDialog& dialog) {
        ASSERT_EQ(dialog.list().rowCount(), 32767);
        EXPECT_EQ(dialog.list().rowsLost(), 1U);
        dialog.selectAll();
        EXPECT_TRUE(dialog.row(32767).ticked());
        dialog.apply();
        EXPECT_EQ(dialog.row(32767).remarks, "Done");
        dialog.tick(32767).deselectAll();
        EXPECT_FALSE(dialog.row(32767).ticked());
    });
}

}  // namespace
