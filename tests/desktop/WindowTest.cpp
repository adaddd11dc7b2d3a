// The main window: opening, saving, closing, the element table, the element's data, the menus.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/report/DebugPanel.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/HelpMenu.hpp"
#include "desktop/window/RecentFiles.hpp"
#include "support/Places.hpp"
#include "text/Guid.hpp"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTreeWidget>
#include <clocale>
#include <cstdio>

namespace desktop_tests {

namespace {

using testing::HasSubstr;

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

}  // namespace

class Window : public Desk {
protected:
    QTableView& table() { return *window().elements().table(); }
    QString shown(int row, int column) { return table().model()->index(row, column).data().toString(); }
    QString wholeGuid(int row) {
        const int column = static_cast<int>(desktop::ElementColumn::Guid);
        return window().elements().cellText(table().model()->index(row, column));
    }
    void filter(const QString& text) {
        window().elements().focusFilter();
        press(window(), Qt::Key_Backspace);
        type(window(), text);
    }
    /// Changes an element's name by the add-on, so that there is something unsaved.
    void change() {
        review(Wall.toStdString() + "\tName\t\tChanged wall\n", [](desktop::AddOnDialog& dialog) {
            clickItem(dialog, SelectAllItem);
            clickItem(dialog, ApplyItem);
        });
        ASSERT_TRUE(window().document().modified());
    }
    void drop(const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted()) return;
        QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window(), &event);
    }
    /// The value of the inspector's row of that name.
    QString inspected(const QString& name) {
        const auto found = window().inspector().tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QString() : found.first()->text(1);
    }
};

TEST_F(Window, TitleNamesTheFileAndMarksUnsavedChanges) {
    openSample();
    EXPECT_EQ(window().windowTitle(), QStringLiteral("house.ifc[*] – Model Host"));
    EXPECT_FALSE(window().isWindowModified());
    change();
    EXPECT_TRUE(window().isWindowModified());
}

TEST_F(Window, TableListsEveryElementThatIsNoAid) {
    openSample();
    const auto all = static_cast<int>(window().document().model()->elementCount());
    EXPECT_EQ(table().model()->rowCount(), all - static_cast<int>(window().document().index()->aidCount()));
    click(*window().elements().aidsSwitch());
    EXPECT_EQ(table().model()->rowCount(), all);
}

TEST_F(Window, FilterTakesWordsFromAnyColumnAsTheyAreTyped) {
    openSample();
    const int all = table().model()->rowCount();
    filter(QStringLiteral("wall"));
    const int walls = table().model()->rowCount();
    ASSERT_GT(walls, 0);
    EXPECT_LT(walls, all);
    for (int row = 0; row < walls; ++row) {
        QString line;
        for (int column = 0; column < 6; ++column) line += shown(row, column) + u' ';
        EXPECT_TRUE(line.contains(QStringLiteral("wall"), Qt::CaseInsensitive)) << line.toStdString();
    }
    press(window(), Qt::Key_Escape);
    EXPECT_EQ(table().model()->rowCount(), all);
}

TEST_F(Window, FilterFindsAnElementByGuidOrGlobalId) {
    openSample();
    filter(Wall);
    ASSERT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(wholeGuid(0), Wall);
    press(window(), Qt::Key_A, Qt::ControlModifier);
    filter(QString::fromStdString(text::toGlobalId(*desktop::guidFromText(Wall))));
    ASSERT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(wholeGuid(0), Wall);
}

TEST_F(Window, ClickOnAHeaderSortsAndKeepsTheSelectedElement) {
    openSample();
    filter(Wall);
    press(window(), Qt::Key_Return);
    press(window(), Qt::Key_F, Qt::ControlModifier);
    press(window(), Qt::Key_Escape);
    const auto chosen = window().elements().current();
    ASSERT_TRUE(chosen.has_value());
    QHeaderView* header = table().horizontalHeader();
    clickAt(*header->viewport(), {header->sectionViewportPosition(1) + 10, header->height() / 2});
    for (int row = 1; row < table().model()->rowCount(); ++row) {
        EXPECT_LE(shown(row - 1, 1).toCaseFolded(), shown(row, 1).toCaseFolded()) << row;
    }
    EXPECT_EQ(window().elements().current(), chosen);
    EXPECT_EQ(wholeGuid(table().currentIndex().row()), Wall);
}

TEST_F(Window, SelectedElementsDataIsShownAndItsGuidCopied) {
    openSample();
    filter(Wall);
    press(window(), Qt::Key_Down);
    EXPECT_EQ(inspected(QStringLiteral("FireRating")), QStringLiteral("F 90-AB"));
    EXPECT_EQ(inspected(QStringLiteral("Class")).left(7), QStringLiteral("IfcWall"));
    EXPECT_THAT(inspected(QStringLiteral("UniFormat Classification")).toStdString(), HasSubstr("B2010"));
    press(window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), Wall);
}

TEST_F(Window, TextsOfAModelAreShownWithTheirHiddenCharactersAndCopiedAsTheyAre) {
    const QString odd = QStringLiteral("Wall\u202E9\u2067");
    openSample();
    review(Wall.toStdString() + "\tName\t\t" + odd.toStdString() + "\n", [](desktop::AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    filter(Wall);
    press(window(), Qt::Key_Down);
    EXPECT_EQ(shown(0, 2), QStringLiteral("Wall\uFFFD9\uFFFD"));
    EXPECT_EQ(inspected(QStringLiteral("Name")), shown(0, 2));
    press(window(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().section(u'\t', 2, 2), odd);
}

TEST_F(Window, AppliedNameIsInTableAndInspectorAtOnceAndGoneAfterUndo) {
    openSample();
    filter(Wall);
    press(window(), Qt::Key_Down);
    const QString before = shown(0, 2);
    change();
    EXPECT_EQ(shown(0, 2), QStringLiteral("Changed wall"));
    EXPECT_EQ(inspected(QStringLiteral("Name")), QStringLiteral("Changed wall"));
    pick(QStringLiteral("Edit"), QStringLiteral("Undo"));
    EXPECT_EQ(shown(0, 2), before);
    EXPECT_EQ(inspected(QStringLiteral("Name")), before);
}

TEST_F(Window, MissingFileIsSaidWithItsNameAndLeavesTheOpenModel) {
    openSample();
    const auto text = answer(QStringLiteral("errorMessage"), QMessageBox::Ok);
    EXPECT_FALSE(window().openFile(QStringLiteral("/nowhere/at-all.ifc")));
    EXPECT_THAT(text->toStdString(), HasSubstr("at-all.ifc"));
    EXPECT_TRUE(window().document().isOpen());
}

TEST_F(Window, FileThatIsNoModelIsRefusedWithAReason) {
    const auto path = folder_.write("letter.ifc", "Dear Sir or Madam\n");
    const auto text = answer(QStringLiteral("errorMessage"), QMessageBox::Ok);
    EXPECT_FALSE(window().openFile(desktop::pathText(path)));
    EXPECT_THAT(text->toStdString(), HasSubstr("letter.ifc"));
    EXPECT_GT(text->size(), 40);
    EXPECT_FALSE(window().document().isOpen());
}

TEST_F(Window, CancelledOpeningLeavesTheModelThatWasOpen) {
    openSample();
    const auto other = folder_.write("other.ifc", bytesOf(model_));
    // The progress shows only for a file that takes a while; its cancel works from the beginning.
    QTimer::singleShot(0, qApp, [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* progress = qobject_cast<QProgressDialog*>(widget)) Q_EMIT progress->canceled();
        }
    });
    EXPECT_FALSE(window().openFile(desktop::pathText(other)));
    EXPECT_EQ(window().document().path(), desktop::pathText(model_));
    EXPECT_EQ(window().statusBar()->currentMessage(), QStringLiteral("Opening cancelled"));
}

TEST_F(Window, MessagesShowNamesAsTheyAre) {
    const auto file = folder_.write("A & B <1>.ifc", "nothing");
    whenShown<QMessageBox>(QStringLiteral("errorMessage"), [](QMessageBox& box) {
        EXPECT_THAT(box.informativeText().toStdString(), HasSubstr("A & B <1>.ifc"));
        const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        click(*box.button(QMessageBox::Ok));
    });
    EXPECT_FALSE(window().openFile(desktop::pathText(file)));
}

TEST_F(Window, CrashInADialogsHandlerEndsTheDialogAndNotTheProgram) {
    start(testing_support::galleryAddOn("CrashesInDialogHandler.bundle"));
    openSample();
    const auto text = answer(QStringLiteral("alertMessage"), QMessageBox::Ok);
    const auto menu = window().menuBar()->actions().at(3);
    whenShown<desktop::AddOnDialog>(QStringLiteral("dialog200"), [](desktop::AddOnDialog& dialog) {
        if (auto* button = dialog.itemWidget(1)) click(*button);
    });
    pick(menu->text(), menu->menu()->actions().at(0)->text());
    EXPECT_FALSE(text->isEmpty());
    EXPECT_TRUE(frontend::openDialogs().empty());
    EXPECT_TRUE(menuItem(QStringLiteral("File"), QStringLiteral("Save As"))->isEnabled());
}

TEST_F(Window, DroppedFileOpens) {
    const auto path = folder_.write("dropped.ifc", bytesOf(testing_support::projectFile("samples/house.ifc")));
    drop(desktop::pathText(path));
    EXPECT_SOON(window().document().path() == desktop::pathText(path));
}

TEST_F(Window, RecentFilesListTheLastOneFirstAndOpenIt) {
    openSample();
    const auto second = folder_.write("second.ifc", bytesOf(model_));
    openFile(second);
    EXPECT_EQ(desktop::RecentFiles::list(), (QStringList{desktop::pathText(second), desktop::pathText(model_)}));
    start();
    menuItem(QStringLiteral("File"), QStringLiteral("Open Recent"))->menu()->aboutToShow();
    menuItem(QStringLiteral("File"), QStringLiteral("Open Recent"))->menu()->actions().at(1)->trigger();
    EXPECT_EQ(window().document().path(), desktop::pathText(model_));
}

TEST_F(Window, CloseWithUnsavedChangesCanBeCancelled) {
    openSample();
    change();
    const auto text = answer(QStringLiteral("unsavedQuestion"), QMessageBox::Cancel);
    window().close();
    EXPECT_THAT(text->toStdString(), HasSubstr("house.ifc"));
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(window().document().modified());
}

TEST_F(Window, CloseWithUnsavedChangesCanDropThem) {
    openSample();
    const std::string before = bytesOf(model_);
    change();
    answer(QStringLiteral("unsavedQuestion"), QMessageBox::Discard);
    window().close();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(bytesOf(model_), before);
}

TEST_F(Window, CloseWithUnsavedChangesCanSaveThem) {
    openSample();
    change();
    answer(QStringLiteral("unsavedQuestion"), QMessageBox::Save);
    window().close();
    EXPECT_FALSE(window().isVisible());
    EXPECT_THAT(bytesOf(model_), HasSubstr("'Changed wall'"));
}

TEST_F(Window, OpeningAnotherModelAsksAboutUnsavedChangesToo) {
    openSample();
    change();
    answer(QStringLiteral("unsavedQuestion"), QMessageBox::Cancel);
    EXPECT_FALSE(window().openFile(desktop::pathText(model_)));
    EXPECT_TRUE(window().document().modified());
}

TEST_F(Window, ChoosingAnotherModelAsksAboutUnsavedChangesOnce) {
    openSample();
    const auto other = folder_.write("other.ifc", bytesOf(model_));
    change();
    int questions = 0;
    whenShown<QFileDialog>(QStringLiteral("openDialog"), [&](QFileDialog& dialog) {
        whenShown<QMessageBox>(QStringLiteral("unsavedQuestion"), [&](QMessageBox& box) {
            ++questions;
            click(*box.button(QMessageBox::Discard));
        });
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setFocus();
        type(dialog, desktop::pathText(other));
        press(dialog, Qt::Key_Return);
    });
    press(window(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(window().document().path(), desktop::pathText(other));
    EXPECT_FALSE(window().document().modified());
}

TEST_F(Window, SaveAsWritesTheNewFileAndLeavesTheOldOne) {
    openSample();
    const std::string before = bytesOf(model_);
    change();
    whenShown<QFileDialog>(QStringLiteral("saveDialog"), [this](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setFocus();
        name->selectAll();
        type(dialog, desktop::pathText(folder_.path() / "other"));
        press(dialog, Qt::Key_Return);
    });
    press(window(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(bytesOf(folder_.path() / "other.ifc"), HasSubstr("'Changed wall'"));
    EXPECT_EQ(bytesOf(model_), before);
    EXPECT_THAT(window().windowTitle().toStdString(), HasSubstr("other.ifc"));
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(Window, SaveIntoAMissingFolderIsRefusedAndTheModelStaysUnsaved) {
    openSample();
    change();
    std::filesystem::remove_all(folder_.path());
    const auto text = answer(QStringLiteral("errorMessage"), QMessageBox::Ok);
    EXPECT_FALSE(window().fileMenu().save());
    EXPECT_THAT(text->toStdString(), HasSubstr("house.ifc could not be saved"));
    EXPECT_TRUE(window().document().modified());
}

TEST_F(Window, FileWithASecondNameIsReplacedOnlyByWhoIsToldOfIt) {
    openSample();
    const std::filesystem::path other = folder_.path() / "other-name.ifc";
    std::filesystem::create_hard_link(model_, other);
    const std::string before = bytesOf(model_);
    change();
    const auto text = answer(QStringLiteral("targetQuestion"), QMessageBox::Cancel);
    EXPECT_FALSE(window().fileMenu().save());
    EXPECT_THAT(text->toStdString(), HasSubstr("Saving house.ifc changes more than its content."));
    EXPECT_EQ(bytesOf(model_), before);
    answer(QStringLiteral("targetQuestion"), QMessageBox::Save);
    EXPECT_TRUE(window().fileMenu().save());
    EXPECT_THAT(bytesOf(model_), HasSubstr("'Changed wall'"));
    EXPECT_EQ(bytesOf(other), before);
}

TEST_F(Window, ClassesThatTheSchemaDoesNotHaveAreInTheReport) {
    std::string text = bytesOf(testing_support::projectFile("samples/house.ifc"));
    const std::size_t end = text.rfind("ENDSEC;");
    text.insert(end, "#99001=IFCNOSUCHTHING('x');\n#99002=IFCNOSUCHTHING('y');\n");
    openFile(folder_.write("unknown.ifc", text));
    EXPECT_THAT(window().report().lines().join(u'\n').toUpper().toStdString(), HasSubstr("IFCNOSUCHTHING"));
}

TEST_F(Window, AddOnsMenuHasItsTextsAndItsPromptsInTheStatusBar) {
    openSample();
    QAction* item = menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Look Up Element"));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->statusTip(),
              QStringLiteral("Show the IFC attributes, properties and classifications of one element"));
    const auto titles = window().menuBar()->actions();
    const auto title = std::find_if(titles.begin(), titles.end(),
                                    [](QAction* it) { return it->text() == QStringLiteral("&Quillmarsh"); });
    ASSERT_NE(title, titles.end());
    clickAt(*window().menuBar(), window().menuBar()->actionGeometry(*title).center());
    press(*(*title)->menu(), Qt::Key_Down);
    press(*(*title)->menu(), Qt::Key_Down);
    EXPECT_EQ(window().statusBar()->currentMessage(), item->statusTip());
    press(*(*title)->menu(), Qt::Key_Escape);
}

TEST_F(Window, AddOnsItemsWaitForAModel) {
    EXPECT_FALSE(menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Import"))->isEnabled());
    openSample();
    EXPECT_TRUE(menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Import"))->isEnabled());
}

TEST_F(Window, HelpOpensTheFolderThatHoldsTheAddOn) {
    QString opened;
    window().helpMenu().openFolder = [&](const QString& path) {
        opened = path;
        return true;
    };
    menuItem(QStringLiteral("Help"), QStringLiteral("Add-On Help"))->trigger();
    EXPECT_EQ(QDir(opened).canonicalPath(),
              QDir(QString::fromStdString(testing_support::builtFile("").string())).canonicalPath());
}

TEST_F(Window, AboutNamesTheAddOn) {
    const auto text = answer(QStringLiteral("aboutMessage"), QMessageBox::Ok);
    menuItem(QStringLiteral("Help"), QStringLiteral("About"))->trigger();
    EXPECT_THAT(text->toStdString(), HasSubstr("Quillmarsh Updates"));
}

TEST_F(Window, DebugOutputShowsOnDemandWhatTheAddOnPrinted) {
    EXPECT_FALSE(window().debug().isVisible());
    pick(QStringLiteral("View"), QStringLiteral("Debug Output"));
    EXPECT_TRUE(window().debug().isVisible());
    EXPECT_THAT(window().debug().text().toStdString(), HasSubstr("ZUNACAddon:: Additional Help at:"));
}

TEST_F(Window, AddOnThatCannotRunIsSaidInAMessageAndInTheReport) {
    window_.reset();
    window_ = std::make_unique<desktop::MainWindow>();
    window_->show();
    const auto text = answer(QStringLiteral("addOnMessage"), QMessageBox::Ok);
    EXPECT_FALSE(window_->loadAddOn("/nowhere/Nothing.bundle"));
    EXPECT_THAT(window_->report().lines().join(u'\n').toStdString(), HasSubstr("/nowhere/Nothing.bundle"));
    EXPECT_SOON(!text->isEmpty());
}

TEST_F(Window, NumbersKeepTheirPointInEveryLocale) {
    ASSERT_STREQ(std::getenv("LC_NUMERIC"), "de_DE.UTF-8") << "the locale to withstand";
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    EXPECT_STREQ(text, "0.5");
}

TEST_F(Window, EveryControlHasAnAccessibleName) {
    openSample();
    for (const QWidget* widget : window().findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
        if (widget->objectName().startsWith(QStringLiteral("qt_"))) continue;
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        ASSERT_NE(control, nullptr);
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
    }
}

}  // namespace desktop_tests
