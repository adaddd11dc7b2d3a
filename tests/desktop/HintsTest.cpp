// What the window says of an update file that the add-on takes in silence.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/report/ReportPanel.hpp"

#include <QDockWidget>
#include <QToolButton>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::AllOf;
using testing::HasSubstr;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Good = Wall + "\tName\t\tNorth wall\n";
const std::string Missing = "00000000-0000-0000-0000-00000000ABCD\tName\t\tNobody\n";

std::string shown(AddOnDialog& dialog) {
    return dialog.hintBar()->isVisible() ? dialog.hintBar()->hints().join(u'\n').toStdString() : "";
}

}  // namespace

class HintsInTheWindow : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    /// The hints that the review of these bytes shows.
    std::string hintsOf(std::string_view updates) {
        std::string hints;
        review(updates, [&](AddOnDialog& dialog) { hints = shown(dialog); });
        return hints;
    }
};

TEST_F(HintsInTheWindow, AreNoneForAGoodFile) {
    EXPECT_EQ(hintsOf(Good), "");
    EXPECT_TRUE(window().report().lines().isEmpty());
}

TEST_F(HintsInTheWindow, NameTheLinesThatGaveNoRowAndStayInTheReport) {
    const std::string hints = hintsOf(Good + Missing);
    EXPECT_THAT(hints, AllOf(HasSubstr("1 line gave no row; no element has the GUID in line 2"),
                             HasSubstr("the table of elements shows them")));
    EXPECT_THAT(window().report().lines().join(u'\n').toStdString(), HasSubstr("updates.txt: 1 line gave no row"));
}

struct Odd {
    const char* what;
    std::string bytes;
    const char* hint;
};

class OddUpdateFile : public HintsInTheWindow, public testing::WithParamInterface<Odd> {};

TEST_P(OddUpdateFile, IsExplained) {
    EXPECT_THAT(hintsOf(GetParam().bytes), HasSubstr(GetParam().hint)) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Files, OddUpdateFile,
    testing::Values(Odd{"no line end", Good + Wall + "\tTag\t\tx", "last line has no line end"},
                    Odd{"mark", "\xEF\xBB\xBF" + Good, "byte-order mark"},
                    Odd{"UTF-16",
                        std::string("\xFF\xFE"
                                    "4\0B\0\n\0",
                                    8),
                        "UTF-16"},
                    Odd{"fields", Wall + "\tName\n", "fewer than four fields"},
                    Odd{"long", Wall + "\tName\t\t" + std::string(2100, 'x') + "\n", "longer than 2047 bytes"},
                    Odd{"quotes", Wall + "\tName\t\t\"x\"\n", "cells in quotes"},
                    Odd{"nothing", "", "It holds no lines"}, Odd{"archive", "PK\x03\x04\x14", "It is no text file"}));

TEST_F(HintsInTheWindow, AreAMessageForAFileThatCannotBeReadToItsEnd) {
    // A file that opens, and whose first byte cannot be read. By a link: a file dialog that comes into /proc looks into
    // all files there to show their kinds, and waits for ever for one that the kernel writes.
    const auto link = folder_.path() / "torn.txt";
    std::filesystem::create_symlink("/proc/self/mem", link);
    EXPECT_THAT(refusalOf(link), AllOf(HasSubstr("Nothing to import from torn.txt"),
                                       HasSubstr("cannot read the update file"), HasSubstr("Input/output error")));
}

TEST_F(HintsInTheWindow, TakeTheirRoomFromTheListAndGiveItBackWhenFolded) {
    review(Good + Missing, [this](AddOnDialog& dialog) {
        auto* dock = window().findChild<QDockWidget*>(QStringLiteral("reviewDock"));
        QTest::qWait(150);  // until the review has the height that it opens with
        window().resizeDocks({dock}, {560}, Qt::Vertical);
        QSize open;
        do {  // docks slide
            open = dialog.size();
            QTest::qWait(250);
        } while (dialog.size() != open);
        const int list = dialog.itemWidget(ReviewList)->height();
        const int bar = dialog.hintBar()->height();
        EXPECT_EQ(dialog.hintBar()->geometry().bottom(), dialog.height() - 1);
        click(*dialog.hintBar()->button());
        EXPECT_SOON(dialog.hintBar()->height() < bar);
        EXPECT_EQ(dialog.size(), open);
        EXPECT_EQ(dialog.itemWidget(ReviewList)->height(), list + bar - dialog.hintBar()->height());
        EXPECT_EQ(dialog.hintBar()->button()->text(), QStringLiteral("1 hint about updates.txt"));
        click(*dialog.hintBar()->button());
        EXPECT_SOON(dialog.itemWidget(ReviewList)->height() == list);
    });
}

TEST_F(HintsInTheWindow, OfTheLastImportAreNotShownInALookUp) {
    hintsOf(Good + Missing);
    lookUp([](AddOnDialog& dialog) { EXPECT_EQ(shown(dialog), ""); });
}

}  // namespace desktop_tests
