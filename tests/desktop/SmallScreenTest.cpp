// Nothing is larger than the screen or outside it: on this one, on a usual one and on a small one at twice the scale,
// each in a process of its own, since a scale holds for a whole process.

#include "Desk.hpp"
#include "Display.hpp"
#include "desktop/QtText.hpp"
#include "desktop/byhand/HandBar.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/elements/ItemDialog.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/review/ReviewBar.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/MainToolBar.hpp"
#include "desktop/window/OnScreen.hpp"
#include "desktop/window/StartPage.hpp"
#include "support/Places.hpp"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTableView>
#include <QToolButton>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";
const std::string Slab = "62A7271B-EF91-58F6-9E04-FE7C35B4479E";

std::string text(const QRect& rect) {
    return std::to_string(rect.x()) + ' ' + std::to_string(rect.y()) + ' ' + std::to_string(rect.width()) + 'x' +
           std::to_string(rect.height());
}

/// The window, and what is a window of its own beside it.
void expectOnScreen(const QWidget& widget, const char* what) {
    const QWidget& shown = *widget.window();
    const QRect screen = shown.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(shown.frameGeometry()))
        << what << ": " << text(shown.frameGeometry()) << " on " << text(screen);
}

/// All of it is in its window, and lies below nothing: it can be clicked without scrolling.
void expectInReach(const QWidget& widget, const std::string& what) {
    const QWidget& window = *widget.window();
    const QRect place(widget.mapTo(&window, QPoint(0, 0)), widget.size());
    EXPECT_TRUE(widget.isVisible()) << what;
    EXPECT_TRUE(window.rect().contains(place)) << what << ": " << text(place) << " in " << text(window.rect());
    EXPECT_EQ(widget.visibleRegion().boundingRect(), widget.rect()) << what << " is cut";
    const QWidget* hit = window.childAt(place.center());
    EXPECT_TRUE(hit == &widget || widget.isAncestorOf(hit)) << what << " is covered";
}

QPushButton& buttonOf(AddOnDialog& dialog, Int16 item) {
    return *qobject_cast<QPushButton*>(dialog.itemWidget(item));
}

/// Its text is not cut.
void expectWhole(const QPushButton& button, const std::string& what) {
    EXPECT_GE(button.width(), button.fontMetrics().horizontalAdvance(button.text())) << what;
    expectInReach(button, what);
}

/// So many rows can be read at once.
void expectRowsInSight(AddOnDialog& dialog, int rows) {
    const desktop::RowListView& list = listOf(dialog);
    EXPECT_GE(list.viewport()->visibleRegion().boundingRect().height(), rows * list.rowHeight(0));
}

std::string manyUpdates() {
    std::string lines = Wall + "\tName\t\tNorth wall\n" + Wall + "\tIsExternal[WallCommon]\t\tfalse\n" + Slab +
                        "\tPredefinedType\t\tCEILING\n" + Door + "\tName\t\tHaustür\nnothing\n";
    for (int i = 0; i < 60; ++i) lines += Wall + "\tItem" + std::to_string(i) + "[Custom]\t\tvalue\n";
    return lines;
}

}  // namespace

class OnTheScreen : public Desk {
protected:
    desktop::ReviewBar& barOf(AddOnDialog& dialog) {
        return *dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"));
    }
    void expectReviewInReach(AddOnDialog& dialog, const char* when) {
        expectOnScreen(window(), when);
        for (const Int16 item : {ApplyItem, CloseItem, SelectAllItem, DeselectAllItem})
            expectWhole(buttonOf(dialog, item), std::string(when) + ": button " + std::to_string(item));
        expectRowsInSight(dialog, 3);
        expectInReach(*barOf(dialog).choice(), when);
        expectInReach(*barOf(dialog).filter(), when);
        expectInReach(*dialog.hintBar()->button(), when);
    }
};

TEST_F(OnTheScreen, WindowAndStartPageHaveRoom) {
    expectOnScreen(window(), "start");
    const QSize screen = window().screen()->availableSize();
    EXPECT_LE(window().minimumSizeHint().width(), screen.width());
    auto& page = *window().findChild<desktop::StartPage*>(QStringLiteral("startPage"));
    expectInReach(*page.findChild<QPushButton*>(QStringLiteral("welcomeOpen")), "Open");
    for (int i = 0; i < 8; ++i) {
        openFile(folder_.write("model" + std::to_string(i) + ".ifc",
                               testing_support::bytesOf(testing_support::projectFile("samples/house.ifc"))));
    }
    EXPECT_TRUE(window().fileMenu().close());
    QCoreApplication::processEvents();
    expectOnScreen(window(), "start with recent files");
    QTreeWidget& recent = *page.recentFiles();
    page.ensureWidgetVisible(&recent);
    QCoreApplication::processEvents();
    EXPECT_GE(recent.viewport()->visibleRegion().boundingRect().height(),
              recent.visualItemRect(recent.topLevelItem(0)).height());
}

TEST_F(OnTheScreen, ModelHasRoom) {
    openSample();
    EXPECT_SOON(window().plan().view()->complete());
    expectOnScreen(window(), "model");
    for (QWidget* part :
         {static_cast<QWidget*>(window().elements().table()->viewport()),
          static_cast<QWidget*>(window().elements().filterField()), static_cast<QWidget*>(window().plan().view()),
          static_cast<QWidget*>(window().plan().storeyChoice()), static_cast<QWidget*>(window().statusBar())}) {
        expectInReach(*part, part->objectName().toStdString());
    }
    EXPECT_GE(window().plan().view()->height(), 80);
    auto& tools = *window().findChild<desktop::MainToolBar*>();
    for (QAction* action : tools.actions()) {
        if (!action->isSeparator()) expectInReach(*tools.widgetForAction(action), action->text().toStdString());
    }
    window().elements().select(
        *window().document().model()->find(*desktop::guidFromText(desktop::toQString(std::string_view(Wall)))));
    auto& inspector = *window().findChild<QDockWidget*>(QStringLiteral("elementDock"));
    inspector.raise();
    QCoreApplication::processEvents();
    expectInReach(*window().inspector().tree()->viewport(), "data of an element");
    EXPECT_GE(window().inspector().tree()->viewport()->height(), 60);
    Q_EMIT window().inspector().valueProposed({desktop::ItemKind::Attribute, {}, QStringLiteral("Name")},
                                              QStringLiteral("North wall"));
    QCoreApplication::processEvents();
    auto& bar = *window().findChild<desktop::HandBar*>();
    expectWhole(*bar.reviewButton(), "Review by hand");
    expectWhole(*bar.discardButton(), "Discard by hand");
    expectOnScreen(window(), "by hand");
}

TEST_F(OnTheScreen, ReviewOfALongListHasRoomBeforeAndAfterApply) {
    openSample();
    review(manyUpdates(), [this](AddOnDialog& dialog) {
        QTest::qWait(100);
        expectReviewInReach(dialog, "review");
        click(buttonOf(dialog, SelectAllItem));
        QCoreApplication::processEvents();
        click(buttonOf(dialog, ApplyItem));
        QTest::qWait(100);
        expectReviewInReach(dialog, "review after Apply");
        for (const QPushButton* button : {barOf(dialog).saveButton(), barOf(dialog).reportButton(),
                                          barOf(dialog).undoButton(), barOf(dialog).storeButton()}) {
            expectWhole(*button, button->text().toStdString());
        }
        EXPECT_TRUE(window().elements().table()->isVisible());
        EXPECT_TRUE(window().plan().isVisible());
        dialog.hintBar()->button()->setChecked(true);
        QTest::qWait(50);
        expectOnScreen(window(), "review with hints");
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(OnTheScreen, DialogsHaveRoom) {
    openSample();
    lookUp([](AddOnDialog& dialog) {
        expectOnScreen(dialog, "look-up");
        click(buttonOf(dialog, LookupItem));
        QTest::qWait(50);
        expectOnScreen(dialog, "look-up with rows");
        expectWhole(buttonOf(dialog, LookupItem), "Look Up");
        expectWhole(buttonOf(dialog, CloseItem), "Close");
        press(dialog, Qt::Key_Escape);
    });
    whenShown<desktop::ItemDialog>(QStringLiteral("itemDialog"), [](desktop::ItemDialog& dialog) {
        expectOnScreen(dialog, "add column");
        for (const QPushButton* button : dialog.findChildren<QPushButton*>()) expectWhole(*button, "add column");
        press(dialog, Qt::Key_Escape);
    });
    QMenu* columns = window().elements().columns().menu();
    Q_EMIT columns->aboutToShow();
    columns->findChild<QAction*>(QStringLiteral("addColumn"))->trigger();
    whenShown<QFileDialog>(QStringLiteral("openDialog"), [](QFileDialog& dialog) {
        expectOnScreen(dialog, "open");
        for (const QPushButton* button : dialog.findChildren<QPushButton*>()) expectInReach(*button, "open");
        press(dialog, Qt::Key_Escape);
    });
    window().fileMenu().openAction()->trigger();
}

TEST_F(OnTheScreen, MessagesOfAnyLengthHaveRoom) {
    constexpr qsizetype Longest = desktop::OnScreen::LongestText;
    const QString words = QStringLiteral("The door cannot be closed. ").repeated(3000);
    for (const qsizetype length : {qsizetype{20}, Longest - 1, Longest, Longest + 1, words.size()}) {
        const QString text = words.left(length);
        QMessageBox box(QMessageBox::Warning, QStringLiteral("Title"), text, QMessageBox::Ok | QMessageBox::Cancel,
                        &window());
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(text);
        box.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
        expectOnScreen(box, "message");
        for (const QAbstractButton* button : box.buttons()) expectInReach(*button, "message");
        const bool whole = length <= Longest;
        EXPECT_EQ(box.text() == text && box.informativeText() == text, whole) << length;
        EXPECT_EQ(box.detailedText(), whole ? QString() : text + QStringLiteral("\n\n") + text) << "nothing is lost";
    }
}

class AtTwiceTheScale : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(AtTwiceTheScale, EverythingHasRoom) {
    if (!Display::available()) GTEST_SKIP() << "Xvfb is not installed, so there is no display to test windows on";
    QProcess again;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(Display::SizeVariable), QString::fromLatin1(GetParam().first));
    environment.insert(QString::fromLatin1(Display::LanguageVariable), QString::fromLatin1(GetParam().second));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    again.setProcessEnvironment(environment);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=OnTheScreen.*")});
    constexpr int PatienceMs = 120000;
    if (!again.waitForFinished(PatienceMs)) again.kill();
    again.waitForFinished();
    const std::string told = again.readAll().toStdString();
    EXPECT_EQ(again.exitCode(), 0) << told;
    EXPECT_THAT(told, testing::HasSubstr("[  PASSED  ] 5 tests.")) << "they were run, and not skipped";
}

INSTANTIATE_TEST_SUITE_P(Screens, AtTwiceTheScale,
                         testing::Values(std::pair("1920x1080", "C.UTF-8"), std::pair("1280x800", "C.UTF-8"),
                                         std::pair("1280x800", "de_DE.UTF-8")));

}  // namespace desktop_tests
