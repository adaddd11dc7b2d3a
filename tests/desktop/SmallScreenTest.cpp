// Nothing is larger than the screen or outside it: on this one, and on a usual one at twice the scale, in a process of
// its own, since a scale holds for a whole process.

#include "Desk.hpp"
#include "Display.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/ItemDialog.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/HelpMenu.hpp"

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";

/// The window, and what is a window of its own beside it.
void expectOnScreen(const QWidget& widget, const char* what) {
    const QWidget& shown = *widget.window();
    const QRect screen = shown.screen()->availableGeometry();
    const QRect frame = shown.frameGeometry();
    EXPECT_TRUE(screen.contains(frame)) << what << ": " << frame.x() << ' ' << frame.y() << ' ' << frame.width() << 'x'
                                        << frame.height() << " on " << screen.width() << 'x' << screen.height();
}

QPushButton& buttonOf(AddOnDialog& dialog, Int16 item) {
    return *qobject_cast<QPushButton*>(dialog.itemWidget(item));
}

}  // namespace

class OnTheScreen : public Desk {};

TEST_F(OnTheScreen, EveryWindowHasRoom) {
    expectOnScreen(window(), "start");
    openSample();
    QCoreApplication::processEvents();
    expectOnScreen(window(), "model");
    review(Wall + "\tName\t\tNorth wall\nnothing\n", [this](AddOnDialog& dialog) {
        expectOnScreen(window(), "review");
        // What has no room is scrolled to, or reached by keyboard.
        buttonOf(dialog, SelectAllItem).click();
        QCoreApplication::processEvents();
        buttonOf(dialog, ApplyItem).click();
        QTest::qWait(100);
        expectOnScreen(window(), "review after Apply");
        press(dialog, Qt::Key_Escape);
    });
    lookUp([](AddOnDialog& dialog) {
        expectOnScreen(dialog, "look-up");
        buttonOf(dialog, LookupItem).click();
        QTest::qWait(50);
        expectOnScreen(dialog, "look-up with rows");
        press(dialog, Qt::Key_Escape);
    });
    whenShown<desktop::ItemDialog>(QStringLiteral("itemDialog"), [](desktop::ItemDialog& dialog) {
        expectOnScreen(dialog, "add column");
        press(dialog, Qt::Key_Escape);
    });
    QMenu* columns = window().elements().columns().menu();
    Q_EMIT columns->aboutToShow();
    columns->findChild<QAction*>(QStringLiteral("addColumn"))->trigger();
    whenShown<QMessageBox>(QStringLiteral("unsavedQuestion"), [](QMessageBox& box) {
        expectOnScreen(box, "question");
        box.button(QMessageBox::Cancel)->click();
    });
    EXPECT_FALSE(window().fileMenu().close());
}

class AtTwiceTheScale : public testing::TestWithParam<const char*> {};

TEST_P(AtTwiceTheScale, EveryWindowHasRoom) {
    if (!Display::available()) GTEST_SKIP() << "Xvfb is not installed, so there is no display to test windows on";
    QProcess again;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(Display::SizeVariable), QString::fromLatin1(GetParam()));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    again.setProcessEnvironment(environment);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=OnTheScreen.*")});
    constexpr int PatienceMs = 120000;
    if (!again.waitForFinished(PatienceMs)) again.kill();
    again.waitForFinished();
    const std::string told = again.readAll().toStdString();
    EXPECT_EQ(again.exitCode(), 0) << told;
    EXPECT_THAT(told, testing::HasSubstr("[  PASSED  ] 1 test.")) << "it was run, and not skipped";
}

INSTANTIATE_TEST_SUITE_P(Screens, AtTwiceTheScale, testing::Values("1920x1080"));

}  // namespace desktop_tests
