// How the host shows a review: where it lies, sorted, chosen, sized, coloured. What the add-on is told stays the same.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/RowLook.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/review/ReviewBar.hpp"

#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using desktop::RowListView;
using desktop::RowState;
using testing::HasSubstr;
using testing::Not;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";
const std::string Slab = "62A7271B-EF91-58F6-9E04-FE7C35B4479E";

std::string line(const std::string& guid, const std::string& item, const std::string& value) {
    return guid + "\t" + item + "\t\t" + value + "\n";
}

/// Done, not as asked, refused, nothing to do.
std::string everyKind() {
    return line(Wall, "Name", "North wall") + line(Wall, "IsExternal[WallCommon]", "false") +
           line(Slab, "PredefinedType", "CEILING") + line(Door, "Name", "Haustür");
}

desktop::ReviewBar& barOf(AddOnDialog& dialog) {
    return *dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"));
}

void applyAll(AddOnDialog& dialog) {
    clickItem(dialog, SelectAllItem);
    clickItem(dialog, ApplyItem);
}

void clickHeader(RowListView& list, int column) {
    list.scrollTo(list.model()->index(0, column));
    QHeaderView& header = *list.horizontalHeader();
    clickAt(*header.viewport(),
            {header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2});
}

/// What the rows show in a column, from the top.
QStringList shown(RowListView& list, int column) {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        texts += list.model()->index(row, column).data().toString();
    return texts;
}

void choose(AddOnDialog& dialog, const QString& rows) {
    barOf(dialog).choice()->setCurrentIndex(barOf(dialog).choice()->findText(rows));
}

QPushButton& buttonOf(AddOnDialog& dialog, Int16 item) {
    return *qobject_cast<QPushButton*>(dialog.itemWidget(item));
}

}  // namespace

class ReviewView : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
};

TEST_F(ReviewView, LiesInTheMainWindowBelowPlanAndTable) {
    review(everyKind(), [this](AddOnDialog& dialog) {
        EXPECT_FALSE(dialog.isWindow());
        EXPECT_EQ(dialog.window(), &window());
        const int top = dialog.mapTo(&window(), QPoint(0, 0)).y();
        EXPECT_TRUE(window().plan().isVisible());
        EXPECT_LE(window().plan().mapTo(&window(), QPoint(0, 0)).y() + window().plan().height(), top);
        EXPECT_LE(window().elements().mapTo(&window(), QPoint(0, 0)).y() + window().elements().height(), top);
    });
    EXPECT_FALSE(window().findChild<QDockWidget*>(QStringLiteral("reviewDock"))->isVisible());
}

TEST_F(ReviewView, NeverMakesTheWindowLarger) {
    window().resize(800, 600);
    EXPECT_SOON(window().size() == QSize(800, 600));
    review(everyKind(), [this](AddOnDialog& dialog) {
        EXPECT_EQ(window().size(), QSize(800, 600));
        EXPECT_LT(dialog.width(), dialog.content().minimumWidth());
        EXPECT_GE(dialog.content().width(), dialog.content().minimumWidth()) << "the add-on's dialog is no smaller";
        for (const Int16 item : {ApplyItem, CloseItem, SelectAllItem, DeselectAllItem}) {
            const QWidget& button = *dialog.itemWidget(item);
            EXPECT_SOON(button.visibleRegion().boundingRect() == button.rect());
        }
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(ReviewView, OfFewRowsLeavesThePlanInSight) {
    const auto heightFor = [this](const std::string& updates) {
        int height = 0;
        review(updates, [this, &height](AddOnDialog& dialog) {
            QTest::qWait(200);
            EXPECT_EQ(listOf(dialog).verticalScrollBar()->maximum() > 0, rowCount(dialog) > 4);
            height = window().findChild<QDockWidget*>(QStringLiteral("reviewDock"))->height();
            press(dialog, Qt::Key_Escape);
        });
        return height;
    };
    std::string many;
    for (int i = 0; i < 60; ++i) many += line(Wall, "Item" + std::to_string(i) + "[Custom]", "value");
    const int few = heightFor(everyKind()), all = heightFor(many);
    EXPECT_LT(few, window().height() * 2 / 5);
    EXPECT_GE(all, window().height() * 2 / 5);
}

TEST_F(ReviewView, LeavesThePlanRoomInALowWindow) {
    window().resize(1276, 756);
    EXPECT_SOON(window().size() == QSize(1276, 756));
    auto& data = *window().findChild<QDockWidget*>(QStringLiteral("elementDock"));
    const int before = data.height();
    std::string many;
    for (int i = 0; i < 60; ++i) many += line(Wall, "Item" + std::to_string(i) + "[Custom]", "value");
    review(many, [&](AddOnDialog& dialog) {
        EXPECT_SOON(window().plan().view()->height() > 100);
        EXPECT_FALSE(data.isVisible()) << "its place is the plan's";
        press(dialog, Qt::Key_Escape);
    });
    EXPECT_SOON(data.isVisible() && std::abs(data.height() - before) < 20);
}

TEST_F(ReviewView, TicksAreCheckBoxes) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        const auto state = [&](int row) { return list.model()->index(row, 0).data(Qt::CheckStateRole); };
        EXPECT_EQ(state(0), Qt::Unchecked);
        clickCell(dialog, 1, 1);
        EXPECT_EQ(state(0), Qt::Checked);
        EXPECT_EQ(list.model()->index(0, 0).data(Qt::AccessibleTextRole), QStringLiteral("ticked"));
        EXPECT_FALSE(list.model()->index(0, 1).data(Qt::CheckStateRole).isValid());
        EXPECT_LT(list.columnWidth(0), 80);
    });
}

TEST_F(ReviewView, ColumnsAreAsWideAsTheirContentAndThenAsTheUserMakesThem) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        const QString guid = cell(dialog, 1, 4);
        EXPECT_GE(list.columnWidth(3), list.fontMetrics().horizontalAdvance(guid));
        list.horizontalHeader()->resizeSection(1, 171);
    });
    review(everyKind(), [](AddOnDialog& dialog) { EXPECT_EQ(listOf(dialog).columnWidth(1), 171); });
}

TEST_F(ReviewView, RemarksHaveRoomInANarrowWindowToo) {
    window().resize(1100, 800);
    review(everyKind(), [this](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        EXPECT_SOON(list.columnWidth(7) >= 200);
        EXPECT_LT(list.columnWidth(3), list.fontMetrics().horizontalAdvance(cell(dialog, 1, 4)));
        EXPECT_LT(list.columnWidth(0), 80);
        window().resize(1500, 900);
        EXPECT_SOON(list.columnWidth(3) >= list.fontMetrics().horizontalAdvance(cell(dialog, 1, 4)));
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(ReviewView, CheckBoxesCanBeSeenOnLightAndDark) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        QPalette dark = list.palette();
        dark.setColor(QPalette::Base, QColor(30, 31, 33));
        dark.setColor(QPalette::Window, QColor(48, 50, 54));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        for (const QPalette& palette : {list.palette(), dark}) {
            list.setPalette(palette);
            QCoreApplication::processEvents();
            const QRect place = list.visualRect(list.model()->index(2, 0));
            const QImage picture = list.viewport()->grab(place).toImage();
            double best = 1;
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, picture.height() / 2);
                best = std::max(best, desktop::contrast(pixel, palette.color(QPalette::Base)));
            }
            EXPECT_GE(best, 3.0);
        }
    });
}

TEST_F(ReviewView, ClickIsToldAsInTheAddOnsOwnColumnsWhateverTheirWidths) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        const auto fields = dialog.content().list(ReviewList)->tabFields();
        list.horizontalHeader()->resizeSection(1, 300);
        QSignalSpy clicks(&list, &RowListView::rowClicked);
        for (int column = 0; column < 8; ++column) {
            list.scrollTo(list.model()->index(1, column));
            const QRect shownCell = list.visualRect(list.model()->index(1, column));
            for (const int x : {shownCell.left() + 1, shownCell.center().x()}) {
                if (x >= list.viewport()->width()) continue;
                clickAt(*list.viewport(), {x, shownCell.center().y()});
                ASSERT_FALSE(clicks.isEmpty());
                const auto place = static_cast<std::size_t>(column);
                EXPECT_EQ(clicks.last()[0].value<Int16>(), 2);
                EXPECT_GE(clicks.last()[1].value<Int16>(), column == 0 ? 0 : fields[place].begin) << column;
                const int end = column < 7 ? fields[place + 1].begin : fields[place].end;
                EXPECT_LT(clicks.last()[1].value<Int16>(), end) << column;
            }
        }
    });
}

TEST_F(ReviewView, SortedRowsAreStillTheAddOnsRows) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        const QStringList before = shown(list, 6);
        clickHeader(list, 6);
        EXPECT_EQ(shown(list, 6).join(u'|').toStdString(), "CEILING|false|Haustür|North wall");
        clickAt(*list.viewport(), list.visualRect(list.model()->index(0, 0)).center());
        QCoreApplication::processEvents();
        const frontend::List& rows = *dialog.content().list(ReviewList);
        EXPECT_EQ(desktop::toQString(rows.cell(3, 1)), QStringLiteral("[X]"));
        EXPECT_EQ(desktop::toQString(rows.cell(1, 1)), QStringLiteral("[  ]"));
        clickHeader(list, 6);
        clickHeader(list, 6);
        EXPECT_EQ(shown(list, 6), before) << "the third click gives the file's order back";
    });
}

TEST_F(ReviewView, ShowsTheRowsOfAKindOrWithAText) {
    review(everyKind(), [](AddOnDialog& dialog) {
        RowListView& list = listOf(dialog);
        applyAll(dialog);
        choose(dialog, QStringLiteral("Errors"));
        EXPECT_EQ(shown(list, 6), QStringList{"CEILING"});
        choose(dialog, QStringLiteral("Not as asked"));
        EXPECT_EQ(shown(list, 6), QStringList{"false"});
        choose(dialog, QStringLiteral("Done"));
        EXPECT_EQ(shown(list, 6).size(), 2);
        choose(dialog, QStringLiteral("Nothing to do"));
        EXPECT_EQ(shown(list, 6), QStringList{"Haustür"});
        EXPECT_THAT(barOf(dialog).totals().toStdString(), HasSubstr("1 of 4 rows shown"));
        choose(dialog, QStringLiteral("All rows"));
        barOf(dialog).filter()->setFocus();
        type(dialog, QStringLiteral("north"));
        EXPECT_EQ(shown(list, 6), QStringList{"North wall"});
    });
}

TEST_F(ReviewView, SpaceTicksTheShownRowAmongChosenOnes) {
    review(everyKind(), [](AddOnDialog& dialog) {
        barOf(dialog).filter()->setText(QStringLiteral("CEILING"));
        RowListView& list = listOf(dialog);
        list.setFocus();
        list.setCurrentIndex(list.model()->index(0, 1));
        press(dialog, Qt::Key_Space);
        QCoreApplication::processEvents();
        const frontend::List& rows = *dialog.content().list(ReviewList);
        EXPECT_EQ(desktop::toQString(rows.cell(3, 1)), QStringLiteral("[X]"));
        EXPECT_EQ(desktop::toQString(rows.cell(1, 1)), QStringLiteral("[  ]"));
    });
}

TEST_F(ReviewView, RowsSayHowTheyStandByASignAndAColour) {
    review(everyKind(), [](AddOnDialog& dialog) {
        applyAll(dialog);
        const auto sign = [&](int row) {
            return listOf(dialog).model()->index(row - 1, 7).data(Qt::DecorationRole).value<QIcon>();
        };
        for (int row = 1; row <= 4; ++row) EXPECT_FALSE(sign(row).isNull()) << row;
        EXPECT_NE(sign(1).cacheKey(), sign(2).cacheKey());
        const auto hue = [&](int row) { return cellColor(dialog, row, 2).hslHue(); };
        EXPECT_NEAR(hue(1), 135, 20) << "green";
        EXPECT_NEAR(hue(2), 38, 20) << "amber";
        EXPECT_NEAR(hue(3), 0, 10) << "red";
        EXPECT_EQ(cellColor(dialog, 4, 2).saturation(), 0);
    });
}

TEST(RowColours, CanBeReadOnLightAndDark) {
    if (!QGuiApplication::instance()) GTEST_SKIP() << "no display";
    QPalette light, dark;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    for (const QPalette& palette : {light, dark}) {
        for (const RowState state :
             {RowState::Done, RowState::Otherwise, RowState::Conflict, RowState::Error, RowState::Unchanged}) {
            EXPECT_GE(desktop::contrast(desktop::textColor(state, palette), palette.color(QPalette::Base)), 4.5)
                << static_cast<int>(state);
        }
    }
    EXPECT_NEAR(desktop::contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_GE(desktop::contrast(desktop::readableOn(Qt::white, Qt::red), Qt::white), 4.5);
}

TEST_F(ReviewView, ApplySaysHowManyAndIsOffWhereNothingIsTicked) {
    review(everyKind(), [](AddOnDialog& dialog) {
        QPushButton& apply = buttonOf(dialog, ApplyItem);
        EXPECT_FALSE(apply.isEnabled());
        EXPECT_THAT(apply.toolTip().toStdString(), HasSubstr("No row is ticked"));
        press(dialog, Qt::Key_Return);
        EXPECT_EQ(cell(dialog, 1, 8), QStringLiteral(""));
        clickItem(dialog, SelectAllItem);
        EXPECT_TRUE(apply.isEnabled());
        EXPECT_EQ(apply.text(), QStringLiteral("Apply 3"));
        EXPECT_THAT(barOf(dialog).totals().toStdString(), HasSubstr("4 rows · 3 of 3 ticked"));
    });
}

TEST_F(ReviewView, SaveIsThereAfterApplyAndClosesTheReviewFirst) {
    review(everyKind(), [](AddOnDialog& dialog) {
        EXPECT_FALSE(barOf(dialog).saveButton()->isVisible());
        applyAll(dialog);
        EXPECT_TRUE(barOf(dialog).saveButton()->isVisible());
        click(*barOf(dialog).saveButton());
    });
    EXPECT_SOON(!window().document().modified());
    EXPECT_THAT(bytesOf(model_), HasSubstr("'North wall'"));
}

TEST_F(ReviewView, UndoIsThereAfterApplyAndTakesItBack) {
    const std::string before = window().document().model()->bytes();
    review(everyKind(), [](AddOnDialog& dialog) {
        applyAll(dialog);
        click(*barOf(dialog).undoButton());
    });
    EXPECT_SOON(window().document().model()->bytes() == before);
}

TEST_F(ReviewView, ReportIsThereAfterApplyAndIsWrittenWhileTheReviewIsOpen) {
    const auto path = folder_.path() / "changes.html";
    review(everyKind(), [=, this](AddOnDialog& dialog) {
        EXPECT_FALSE(barOf(dialog).reportButton()->isVisible());
        applyAll(dialog);
        whenShown<QFileDialog>(QStringLiteral("reportDialog"), [=](QFileDialog& names) {
            names.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setFocus();
            names.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->selectAll();
            type(names, desktop::pathText(path));
            press(names, Qt::Key_Return);
        });
        click(*barOf(dialog).reportButton());
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_THAT(bytesOf(path), HasSubstr("North wall"));
    EXPECT_THAT(bytesOf(path), HasSubstr("is no item of IfcSlabTypeEnum"));
}

}  // namespace desktop_tests
