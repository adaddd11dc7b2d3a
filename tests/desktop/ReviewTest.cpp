// The review dialog by mouse and keyboard. Each test looks into the list, the model or the file that it leads to.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/window/FileMenu.hpp"

#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QToolTip>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;
using testing::Not;

const char* const Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const char* const Door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";

std::string line(const std::string& guid, const std::string& item, const std::string& value) {
    return guid + "\t" + item + "\t\t" + value + "\n";
}

}  // namespace

class Reviewing : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    /// Two updates that can be made, one that changes nothing.
    std::string twoAndOne() {
        const std::u16string name = window().document().model()->name(
            *window().document().model()->find(*desktop::guidFromText(QString::fromLatin1(Door))));
        return line(Wall, "Name", "North wall") + line(Door, "Name", "Oak door") +
               line(Door, "Name", QString::fromStdU16String(name).toStdString());
    }
};

TEST_F(Reviewing, EveryLineIsARowAndNothingIsTicked) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        ASSERT_EQ(rowCount(dialog), 3);
        for (int row = 1; row <= 3; ++row) EXPECT_EQ(cell(dialog, row, 1), QStringLiteral("[  ]"));
        EXPECT_EQ(cell(dialog, 1, 4), QString::fromLatin1(Wall));
        EXPECT_EQ(cell(dialog, 2, 7), QStringLiteral("Oak door"));
        EXPECT_THAT(cell(dialog, 3, 8).toStdString(), HasSubstr("Old and new values are the same."));
    });
    EXPECT_FALSE(window().document().modified());
}

TEST_F(Reviewing, ClickInTheFirstColumnTicksAndASecondClickUnticks) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickCell(dialog, 2, 1);
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[X]"));
        EXPECT_EQ(cell(dialog, 1, 1), QStringLiteral("[  ]"));
        clickCell(dialog, 2, 1);
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[  ]"));
    });
}

TEST_F(Reviewing, ClickInAnotherColumnOnlySelects) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        for (int column = 2; column <= 8; ++column) clickCell(dialog, 2, column);
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[  ]"));
        EXPECT_EQ(listOf(dialog).currentIndex().row(), 1);
    });
}

TEST_F(Reviewing, DragOverRowsSelectsThemAndTicksNone) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        desktop::RowListView& list = listOf(dialog);
        QWindow* shown = dialog.window()->windowHandle();
        const auto at = [&](int row) {
            return list.viewport()->mapTo(dialog.window(), list.visualRect(list.model()->index(row, 0)).center());
        };
        QTest::mousePress(shown, Qt::LeftButton, {}, at(0));
        QTest::mouseMove(shown, at(1));
        QTest::mouseMove(shown, at(2));
        QTest::mouseRelease(shown, Qt::LeftButton, {}, at(2));
        EXPECT_EQ(list.selectionModel()->selectedRows().size(), 3);
        for (int row = 1; row <= 3; ++row) EXPECT_EQ(cell(dialog, row, 1), QStringLiteral("[  ]"));
    });
}

TEST_F(Reviewing, KeyboardAloneTicksAppliesAndCloses) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        EXPECT_SOON(listOf(dialog).hasFocus());
        press(dialog, Qt::Key_Down);
        press(dialog, Qt::Key_Space);
        QCoreApplication::processEvents();
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[X]"));
        press(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_EQ(cell(dialog, 2, 8), QStringLiteral("Done"));
        EXPECT_TRUE(dialog.isVisible()) << "Apply leaves the dialog open";
        press(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(window().document().model()->undoSteps().undo, "Apply Quillmarsh updates");
}

TEST_F(Reviewing, ReturnIsApplyThoughAnotherButtonHasTheFocus) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        dialog.itemWidget(DeselectAllItem)->setFocus();
        press(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_EQ(cell(dialog, 1, 8), QStringLiteral("Done"));
    });
}

TEST_F(Reviewing, ArrowKeysStayWithTheListWhenAButtonIsClicked) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        press(dialog, Qt::Key_Down);
        EXPECT_EQ(listOf(dialog).currentIndex().row(), 1);
    });
}

TEST_F(Reviewing, SpaceClicksAllSelectedRows) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        press(dialog, Qt::Key_Down, Qt::ShiftModifier);
        press(dialog, Qt::Key_Space);
        QCoreApplication::processEvents();
        EXPECT_EQ(cell(dialog, 1, 1), QStringLiteral("[X]"));
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[X]"));
        EXPECT_EQ(cell(dialog, 3, 1), QStringLiteral("[  ]"));
    });
}

TEST_F(Reviewing, SelectAllLeavesDisabledRowsAlone) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        EXPECT_EQ(cell(dialog, 1, 1), QStringLiteral("[X]"));
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[X]"));
        EXPECT_EQ(cell(dialog, 3, 1), QStringLiteral("[  ]"));
        clickItem(dialog, DeselectAllItem);
        EXPECT_EQ(cell(dialog, 1, 1), QStringLiteral("[  ]"));
    });
}

TEST_F(Reviewing, DisabledRowsAreGreyAndOthersAreNot) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        const QColor grey = cellColor(dialog, 3, 2);
        EXPECT_EQ(grey.saturation(), 0);
        EXPECT_GT(grey.lightness(), 80);
        EXPECT_LT(grey.lightness(), 175);
        EXPECT_FALSE(cellColor(dialog, 1, 2).isValid()) << "an enabled row has the window's own colour";
    });
}

TEST_F(Reviewing, AppliedUpdatesAreInTheSavedFile) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        clickItem(dialog, ApplyItem);
        EXPECT_EQ(cell(dialog, 1, 8), QStringLiteral("Done"));
        EXPECT_TRUE(cellColor(dialog, 1, 2).isValid()) << "an applied row is disabled";
    });
    EXPECT_TRUE(window().document().modified());
    EXPECT_TRUE(window().isWindowModified());
    pick(QStringLiteral("File"), QStringLiteral("Save"));
    EXPECT_THAT(bytesOf(model_), HasSubstr("'North wall'"));
    EXPECT_THAT(bytesOf(model_), Not(HasSubstr("'Oak door'"))) << "it was not ticked";
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(Reviewing, UndoAndRedoBearTheStepsNameAndRestoreTheFile) {
    const std::string before = bytesOf(model_);
    review(twoAndOne(), [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    const std::string after = window().document().model()->bytes();
    EXPECT_NE(after, before);
    pick(QStringLiteral("Edit"), QStringLiteral("Undo Apply Quillmarsh updates"));
    EXPECT_EQ(window().document().model()->bytes(), before);
    EXPECT_FALSE(menuItem(QStringLiteral("Edit"), QStringLiteral("Undo"))->isEnabled());
    press(window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window().document().model()->bytes(), after);
}

TEST_F(Reviewing, CancelledFileDialogOpensNoReview) {
    whenShown<QDialog>(QStringLiteral("addOnFileDialog"), [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
    pick(QStringLiteral("Quillmarsh"), QStringLiteral("Import Updates"));
    EXPECT_TRUE(frontend::openDialogs().empty());
    EXPECT_TRUE(menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Import"))->isEnabled()) << "ready for the next";
}

TEST_F(Reviewing, EscapeAndTheCloseBoxCloseTheDialog) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        press(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible() && !dialog.content().ended());
        EXPECT_EQ(dialog.content().result(), CloseItem);
    });
    review(twoAndOne(), [](AddOnDialog& dialog) {
        dialog.close();
        EXPECT_EQ(dialog.content().result(), CloseItem);
    });
    EXPECT_TRUE(frontend::openDialogs().empty());
}

TEST_F(Reviewing, CopyTakesTheSelectedRowsWithTabs) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        press(dialog, Qt::Key_Down, Qt::ShiftModifier);
        press(dialog, Qt::Key_C, Qt::ControlModifier);
        const QStringList lines = QApplication::clipboard()->text().split(u'\n');
        ASSERT_EQ(lines.size(), 2);
        EXPECT_EQ(lines[0].count(u'\t'), 7);
        EXPECT_EQ(lines[1].section(u'\t', 6, 6), QStringLiteral("Oak door"));
    });
}

TEST_F(Reviewing, CharactersThatHideOrReorderOthersAreSeenInTheListAndCopiedAsTheyAre) {
    const QString odd = QStringLiteral("Oak\u202Edoor\u200B\u0085\u0001");
    review(line(Wall, "Name", odd.toStdString()), [&](AddOnDialog& dialog) {
        EXPECT_EQ(cell(dialog, 1, 7), QStringLiteral("Oak\uFFFDdoor\uFFFD\uFFFD\u2401"));
        press(dialog, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text().section(u'\t', 6, 6), odd);
    });
}

TEST_F(Reviewing, TypingGoesToTheNextRowThatHoldsTheText) {
    review(twoAndOne(), [](AddOnDialog& dialog) {
        type(dialog, QStringLiteral("oak"));
        EXPECT_EQ(listOf(dialog).currentIndex().row(), 1);
        EXPECT_EQ(cell(dialog, 2, 1), QStringLiteral("[  ]")) << "typing ticks nothing";
    });
}

TEST_F(Reviewing, GrownPlaceMovesTheItemsAsTheHandlerSays) {
    review(twoAndOne(), [this](AddOnDialog& dialog) {
        const QRect apply = dialog.itemWidget(ApplyItem)->geometry();
        const QRect close = dialog.itemWidget(CloseItem)->geometry();
        const QRect list = listOf(dialog).geometry();
        const int lastColumn = dialog.content().list(ReviewList)->tabFields()[7].end;
        window().resize(window().width() + 30, window().height() + 20);
        EXPECT_SOON(dialog.itemWidget(CloseItem)->x() == close.x() + 30);
        const int grown = dialog.itemWidget(CloseItem)->y() - close.y();
        EXPECT_EQ(dialog.itemWidget(ApplyItem)->geometry(), apply.translated(15, grown));
        EXPECT_EQ(listOf(dialog).geometry(), list.adjusted(0, 0, 30, grown));
        EXPECT_EQ(dialog.content().list(ReviewList)->tabFields()[7].end, lastColumn + 30);
    });
}

TEST_F(Reviewing, NothingElseCanBeStartedMeanwhileButTheModelCanBeLookedAt) {
    review(twoAndOne(), [this](AddOnDialog& dialog) {
        EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Open"))->isEnabled());
        EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Close"))->isEnabled());
        EXPECT_FALSE(menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Look Up"))->isEnabled());
        EXPECT_FALSE(window().openFile(desktop::pathText(model_)));
        window().close();
        EXPECT_TRUE(window().isVisible()) << "a command is on the stack";
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(window().isEnabled());
    });
    EXPECT_TRUE(menuItem(QStringLiteral("File"), QStringLiteral("Close"))->isEnabled());
}

TEST_F(Reviewing, ToolTipShowsTheFullTextOfACutCellOnly) {
    const std::string longText(300, 'x');
    review(line(Wall, "Description", longText), [&](AddOnDialog& dialog) {
        desktop::RowListView& list = listOf(dialog);
        const auto toolTipAt = [&](int column) {
            const QPoint at = list.visualRect(list.model()->index(0, column)).center();
            QToolTip::hideText();
            EXPECT_SOON(!QToolTip::isVisible());
            QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
            QApplication::sendEvent(list.viewport(), &help);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        EXPECT_THAT(toolTipAt(6).toStdString(), HasSubstr(longText));
        EXPECT_EQ(toolTipAt(0).toStdString(), "");
    });
}

TEST_F(Reviewing, FullListTellsHowManyRowsAreMissingAndWhatToDo) {
    std::string updates;
    for (int i = 0; i < DG_LIST_MAX_ROWS + 5; ++i) updates += line(Wall, "Name", "W" + std::to_string(i));
    review(updates, [](AddOnDialog& dialog) {
        EXPECT_EQ(rowCount(dialog), DG_LIST_MAX_ROWS);
        EXPECT_TRUE(dialog.notice()->isVisible());
        EXPECT_THAT(dialog.notice()->text().toStdString(), HasSubstr("5 more rows"));
        EXPECT_THAT(dialog.notice()->text().toStdString(), HasSubstr("Split the file"));
        clickItem(dialog, SelectAllItem);
        EXPECT_EQ(cell(dialog, DG_LIST_MAX_ROWS, 1), QStringLiteral("[X]"));
        press(dialog, Qt::Key_End);
        listOf(dialog).scrollToBottom();
        clickCell(dialog, DG_LIST_MAX_ROWS, 1);
        EXPECT_EQ(cell(dialog, DG_LIST_MAX_ROWS, 1), QStringLiteral("[  ]"));
    });
}

TEST_F(Reviewing, RefusedUpdateIsExplainedInTheReport) {
    review(line(Wall, "GlobalId", "somethingelse"), [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        EXPECT_THAT(cell(dialog, 1, 8).toStdString(), HasSubstr("error! – the GlobalId"));
        EXPECT_EQ(cell(dialog, 1, 1), QStringLiteral("[X]"));
    });
    EXPECT_THAT(window().report().lines().join(u'\n').toStdString(), HasSubstr(Wall));
    EXPECT_FALSE(window().document().modified());
}

}  // namespace desktop_tests
