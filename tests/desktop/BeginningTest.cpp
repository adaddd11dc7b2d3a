// What a new user sees first: the start page, the tool bar, the menus' keys, files that are dropped, panels that stay.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/look/Icons.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/AddOnMenu.hpp"
#include "desktop/window/RecentFiles.hpp"
#include "desktop/window/StartPage.hpp"
#include "support/Places.hpp"

#include <QAction>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Rename = Wall + "\tName\t\tNorth wall\n";

}  // namespace

class Beginning : public Desk {
protected:
    desktop::StartPage& startPage() { return *window().findChild<desktop::StartPage*>(QStringLiteral("startPage")); }
    QDockWidget& dock(const char* name) { return *window().findChild<QDockWidget*>(QString::fromLatin1(name)); }
    void drop(const std::filesystem::path& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(desktop::pathText(path))});
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window(), &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window(), &event);
    }
    /// The new values of the review that comes up.
    std::shared_ptr<QStringList> reviewed() {
        auto values = std::make_shared<QStringList>();
        whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [values](AddOnDialog& dialog) {
            for (int row = 1; row <= rowCount(dialog); ++row) *values += cell(dialog, row, 7);
            press(dialog, Qt::Key_Escape);
        });
        return values;
    }
    /// All menus of the menu bar, with their titles.
    std::vector<QMenu*> menus() {
        std::vector<QMenu*> found;
        for (QAction* title : window().menuBar()->actions()) {
            Q_EMIT title->menu()->aboutToShow();
            found.push_back(title->menu());
        }
        return found;
    }
    QToolButton* toolButton(const QString& text) {
        for (auto* button : window().findChild<QToolBar*>(QStringLiteral("mainToolBar"))->findChildren<QToolButton*>())
            if (button->defaultAction() && button->defaultAction()->iconText() == text) return button;
        return nullptr;
    }
};

TEST_F(Beginning, StartPageSaysTheStepsAndHasNoListBeforeThereIsAnything) {
    EXPECT_TRUE(startPage().isVisible());
    EXPECT_FALSE(startPage().recentFiles()->isVisible());
    EXPECT_TRUE(startPage().findChild<QPushButton*>(QStringLiteral("welcomeOpen"))->isVisible());
    const auto labels = startPage().findChild<QWidget*>(QStringLiteral("steps"))->findChildren<QLabel*>();
    EXPECT_EQ(labels.size(), 6) << "three numbers with a line each";
}

TEST_F(Beginning, RecentFilesHaveTheirDateAndSizeAndOpenByAClick) {
    openSample();
    start();
    QTreeWidget& recent = *startPage().recentFiles();
    ASSERT_EQ(recent.topLevelItemCount(), 1);
    QTreeWidgetItem* item = recent.topLevelItem(0);
    const QFileInfo file(desktop::pathText(model_));
    EXPECT_EQ(item->text(0), QStringLiteral("house.ifc"));
    EXPECT_EQ(item->text(2), QLocale::system().toString(file.lastModified(), QLocale::ShortFormat));
    EXPECT_THAT(item->text(3).toStdString(), HasSubstr("kB"));
    clickAt(*recent.viewport(), recent.visualItemRect(item).center());
    EXPECT_SOON(window().document().isOpen());
    EXPECT_EQ(window().document().path(), desktop::pathText(model_));
}

TEST_F(Beginning, RecentFileThatIsGoneSaysSoAndCannotBeOpened) {
    openSample();
    std::filesystem::remove(model_);
    start();
    const QTreeWidgetItem* item = startPage().recentFiles()->topLevelItem(0);
    EXPECT_EQ(item->text(2), QStringLiteral("not found"));
    EXPECT_TRUE(item->isDisabled());
}

TEST_F(Beginning, PanelsAboutAModelComeAndGoWithIt) {
    EXPECT_FALSE(dock("planDock").isVisible());
    EXPECT_FALSE(dock("elementDock").isVisible());
    EXPECT_FALSE(menuItem(QStringLiteral("View"), QStringLiteral("Plan"))->isEnabled());
    openSample();
    EXPECT_TRUE(dock("planDock").isVisible());
    EXPECT_TRUE(dock("elementDock").isVisible());
    EXPECT_FALSE(startPage().isVisible());
    pick(QStringLiteral("File"), QStringLiteral("Close"));
    EXPECT_FALSE(dock("planDock").isVisible());
    EXPECT_TRUE(startPage().isVisible());
    EXPECT_EQ(startPage().recentFiles()->topLevelItemCount(), 1);
}

TEST_F(Beginning, HiddenPanelsStayHiddenInTheNextWindowToo) {
    openSample();
    pick(QStringLiteral("View"), QStringLiteral("Element"));
    EXPECT_FALSE(dock("elementDock").isVisible());
    pick(QStringLiteral("File"), QStringLiteral("Close"));
    openFile(model_);
    EXPECT_FALSE(dock("elementDock").isVisible());
    EXPECT_TRUE(dock("planDock").isVisible());
    window().close();
    start();
    openFile(model_);
    EXPECT_FALSE(dock("elementDock").isVisible());
    EXPECT_TRUE(dock("planDock").isVisible());
    press(window(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(dock("elementDock").isVisible());
}

TEST_F(Beginning, ToolBarHasTheCommandsOfTheWorkWithPicturesAndFollowsThem) {
    for (const char* text : {"Open", "Save", "Undo", "Redo", "Import Updates", "Look Up"}) {
        QToolButton* button = toolButton(QString::fromLatin1(text));
        ASSERT_NE(button, nullptr) << text;
        EXPECT_FALSE(button->icon().isNull()) << text;
        EXPECT_FALSE(button->accessibleName().isEmpty()) << text;
    }
    EXPECT_TRUE(toolButton(QStringLiteral("Open"))->isEnabled());
    EXPECT_FALSE(toolButton(QStringLiteral("Import Updates"))->isEnabled());
    openSample();
    EXPECT_TRUE(toolButton(QStringLiteral("Import Updates"))->isEnabled());
    EXPECT_FALSE(toolButton(QStringLiteral("Undo"))->isEnabled());
    review(Rename, [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    ASSERT_TRUE(toolButton(QStringLiteral("Undo"))->isEnabled());
    const std::string changed = window().document().model()->bytes();
    click(*toolButton(QStringLiteral("Undo")));
    EXPECT_NE(window().document().model()->bytes(), changed);
}

TEST_F(Beginning, EveryMenuAndEveryItemHasAKeyOfItsOwn) {
    openSample();
    const auto key = [](const QAction* action) {
        const QString text = QString(action->text()).remove(QStringLiteral("&&"));
        const qsizetype mark = text.indexOf(u'&');
        return mark < 0 ? QString() : text.mid(mark + 1, 1).toLower();
    };
    const auto check = [&](const QList<QAction*>& actions) {
        QSet<QString> keys;
        for (const QAction* action : actions) {
            if (action->isSeparator() || !action->isVisible()) continue;
            EXPECT_FALSE(key(action).isEmpty()) << action->text().toStdString();
            EXPECT_FALSE(keys.contains(key(action))) << action->text().toStdString();
            keys += key(action);
        }
    };
    check(window().menuBar()->actions());
    for (const QMenu* menu : menus()) check(menu->actions());
}

TEST_F(Beginning, FrequentCommandsHaveShortcutsAndNoneHasTwoMeanings) {
    openSample();
    const std::pair<const char*, const char*> wanted[] = {
        {"File", "Open"}, {"File", "Save"},         {"File", "Save As"},    {"File", "Close"},
        {"File", "Quit"}, {"Edit", "Undo"},         {"Edit", "Redo"},       {"Edit", "Copy GUID"},
        {"Edit", "Find"}, {"Quillmarsh", "Import"}, {"Quillmarsh", "Look"}, {"View", "Plan"}};
    for (const auto& [menu, item] : wanted) {
        const QAction* action = menuItem(QString::fromLatin1(menu), QString::fromLatin1(item));
        ASSERT_NE(action, nullptr) << item;
        EXPECT_FALSE(action->shortcut().isEmpty()) << item;
    }
    QSet<QString> used;
    for (const QAction* action : window().findChildren<QAction*>()) {
        if (action->shortcut().isEmpty()) continue;
        EXPECT_FALSE(used.contains(action->shortcut().toString())) << action->text().toStdString();
        used += action->shortcut().toString();
    }
}

TEST_F(Beginning, DroppedUpdatesAreReviewed) {
    openSample();
    const auto values = reviewed();
    drop(folder_.write("updates.txt", Rename));
    EXPECT_SOON(*values == QStringList{"North wall"});
    EXPECT_EQ(window().document().path(), desktop::pathText(model_));
}

TEST_F(Beginning, DroppedSpreadsheetIsReviewed) {
    openSample();
    const auto values = reviewed();
    drop(folder_.write("walls.csv", "GUID;Name\n" + Wall + ";North wall\n"));
    EXPECT_SOON(*values == QStringList{"North wall"});
}

TEST_F(Beginning, UpdatesOpenedByMistakeAreReviewedAndAModelOfAnyNameIsOpened) {
    openSample();
    const auto values = reviewed();
    EXPECT_FALSE(window().openFile(desktop::pathText(folder_.write("wrong.ifc", Rename))));
    EXPECT_SOON(*values == QStringList{"North wall"});
    const auto renamed = folder_.write("house.txt", bytesOf(model_));
    EXPECT_TRUE(window().openFile(desktop::pathText(renamed)));
}

TEST_F(Beginning, UpdatesWithoutAModelAskForItAndAreReviewedThen) {
    const auto values = reviewed();
    const auto model = folder_.write("house.ifc", bytesOf(testing_support::projectFile("samples/house.ifc")));
    whenShown<QMessageBox>(QStringLiteral("modelQuestion"), [=, this](QMessageBox& box) {
        EXPECT_THAT(box.text().toStdString(), HasSubstr("updates.txt"));
        whenShown<QFileDialog>(QStringLiteral("openDialog"), [=](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setFocus();
            type(dialog, desktop::pathText(model));
            press(dialog, Qt::Key_Return);
        });
        click(*box.button(QMessageBox::Open));
    });
    drop(folder_.write("updates.txt", Rename));
    EXPECT_SOON(*values == QStringList{"North wall"});
}

TEST_F(Beginning, NextImportAfterADroppedFileAsksForItsFileAgain) {
    openSample();
    const auto values = reviewed();
    drop(folder_.write("first.txt", Rename));
    EXPECT_SOON(*values == QStringList{"North wall"});
    review(Wall + "\tName\t\tSouth wall\n",
           [](AddOnDialog& dialog) { EXPECT_EQ(cell(dialog, 1, 7), QStringLiteral("South wall")); });
}

TEST_F(Beginning, FileDialogsBeginInTheModelsFolder) {
    openSample();
    const auto folder = std::make_shared<QStringList>();
    for (const char* name : {"openDialog", "addOnFileDialog"}) {
        whenShown<QFileDialog>(QString::fromLatin1(name), [folder](QFileDialog& dialog) {
            *folder += dialog.directory().absolutePath();
            dialog.reject();
        });
        press(window(), *name == 'o' ? Qt::Key_O : Qt::Key_I, Qt::ControlModifier);
    }
    const QString wanted = QFileInfo(desktop::pathText(model_)).absolutePath();
    EXPECT_EQ(*folder, (QStringList{wanted, wanted}));
}

TEST_F(Beginning, ReviewKeepsTheHeightThatItWasGiven) {
    openSample();
    const auto heights = std::make_shared<std::vector<int>>();
    constexpr int LaidOutMs = 150;
    const auto look = [=, this](AddOnDialog& dialog) {
        QTest::qWait(LaidOutMs);
        heights->push_back(dock("reviewDock").height());
        press(dialog, Qt::Key_Escape);
    };
    review(Rename, look);
    review(Rename, [=, this](AddOnDialog& dialog) {
        QTest::qWait(LaidOutMs);
        window().resizeDocks({&dock("reviewDock")}, {heights->front() - 100}, Qt::Vertical);
        look(dialog);
    });
    ASSERT_LT(heights->at(1), heights->at(0) - 60);
    window().close();
    start();
    openFile(model_);
    review(Rename, look);
    // To the width of a tab bar: neighbours have a least height of their own.
    EXPECT_NEAR(heights->at(2), heights->at(1), 32);
    EXPECT_LT(heights->at(2), heights->at(0) - 60);
}

TEST_F(Beginning, WindowBearsTheProgramsIconInEverySize) {
    const QIcon icon = window().windowIcon();
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        EXPECT_TRUE(icon.availableSizes().contains(QSize(size, size))) << size;
}

TEST_F(Beginning, PicturesAreDrawnInTheColoursOfTheirPalette) {
    QPalette light, dark;
    light.setColor(QPalette::Active, QPalette::ButtonText, Qt::black);
    dark.setColor(QPalette::Active, QPalette::ButtonText, Qt::white);
    using desktop::Picture;
    for (const Picture picture : {Picture::Open, Picture::Save, Picture::Undo, Picture::Redo, Picture::Import,
                                  Picture::LookUp, Picture::Report}) {
        const QImage onLight = desktop::icon(picture, light).pixmap(24, 24).toImage();
        const QImage onDark = desktop::icon(picture, dark).pixmap(24, 24).toImage();
        int painted = 0;
        for (int y = 0; y < onLight.height(); ++y) {
            for (int x = 0; x < onLight.width(); ++x) {
                if (onLight.pixelColor(x, y).alpha() < 250) continue;
                ++painted;
                EXPECT_EQ(onLight.pixelColor(x, y).lightness(), 0);
                EXPECT_EQ(onDark.pixelColor(x, y).lightness(), 255);
            }
        }
        EXPECT_GT(painted, 10) << static_cast<int>(picture);
    }
}

}  // namespace desktop_tests
