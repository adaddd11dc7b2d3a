// A file that another program has open, or has changed since it was opened here.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/ReadOnlyBar.hpp"
#include "support/Places.hpp"

#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

namespace desktop_tests {

namespace {

using testing::HasSubstr;
using testing::Not;

const char* const Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";

}  // namespace

class TwoHosts : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        model_ = folder_.write("house.ifc", bytesOf(testing_support::projectFile("samples/house.ifc")));
        before_ = bytesOf(model_);
    }
    void TearDown() override {
        leave();
        Desk::TearDown();
    }
    /// A modelhost that has the model open, waiting for steps.
    void openElsewhere() {
        other_.start(QString::fromStdString(testing_support::builtFile("modelhost").string()),
                     {QStringLiteral("script"), desktop::pathText(model_), QStringLiteral("-")});
        other_.write("{\"menus\":true}\n");
        ASSERT_TRUE(other_.waitForReadyRead());
    }
    void leave() {
        if (other_.state() == QProcess::NotRunning) return;
        other_.closeWriteChannel();
        ASSERT_TRUE(other_.waitForFinished());
    }
    std::string holder() const { return "modelhost (process " + std::to_string(other_.processId()) + ")"; }
    desktop::ReadOnlyBar& bar() { return *window().findChild<desktop::ReadOnlyBar*>(); }
    void change() {
        review(std::string(Wall) + "\tName\t\tChanged wall\n", [](desktop::AddOnDialog& dialog) {
            clickItem(dialog, SelectAllItem);
            clickItem(dialog, ApplyItem);
        });
        ASSERT_TRUE(window().document().modified());
    }
    void saveAsWhenAsked(const std::string& name) {
        whenShown<QFileDialog>(QStringLiteral("saveDialog"), [path = folder_.path() / name](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setFocus();
            edit->selectAll();
            type(dialog, desktop::pathText(path));
            press(dialog, Qt::Key_Return);
        });
    }

    std::string before_;
    QProcess other_;
};

TEST_F(TwoHosts, FileOpenElsewhereOpensForReadingAndSaysWhoHasIt) {
    openElsewhere();
    openFile(model_);
    EXPECT_TRUE(bar().isVisible());
    EXPECT_THAT(bar().text().toStdString(), HasSubstr("open in " + holder()));
    EXPECT_THAT(window().windowTitle().toStdString(), HasSubstr("house.ifc[*] (read-only)"));
    QAction* save = menuItem(QStringLiteral("File"), QStringLiteral("Save"));
    EXPECT_EQ(save->text(), QStringLiteral("&Save Under Another Name…"));
    EXPECT_THAT(save->toolTip().toStdString(), HasSubstr(holder()));
}

TEST_F(TwoHosts, FileOpenElsewhereIsSavedUnderAnotherNameAndEditedThere) {
    openElsewhere();
    openFile(model_);
    change();
    saveAsWhenAsked("mine.ifc");
    press(window(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(bytesOf(model_), before_);
    EXPECT_THAT(bytesOf(folder_.path() / "mine.ifc"), HasSubstr("'Changed wall'"));
    EXPECT_FALSE(bar().isVisible());
    EXPECT_THAT(window().windowTitle().toStdString(), testing::StartsWith("mine.ifc[*] –"));
}

TEST_F(TwoHosts, FileSavedUnderAnotherNameIsTheOneThatOthersFindLocked) {
    openFile(model_);
    saveAsWhenAsked("mine.ifc");
    EXPECT_TRUE(window().fileMenu().saveAs());
    openElsewhere();
    other_.write("{\"save\":\"" + QByteArray((folder_.path() / "mine.ifc").c_str()) + "\"}\n");
    ASSERT_TRUE(other_.waitForReadyRead());
    EXPECT_THAT(other_.readAllStandardOutput().toStdString(), HasSubstr("the file is open in desktop_tests (process"));
    other_.write("{\"save\":\"" + QByteArray(model_.c_str()) + "\"}\n");
    ASSERT_TRUE(other_.waitForReadyRead());
    EXPECT_THAT(other_.readAllStandardOutput().toStdString(), Not(HasSubstr("error")));
}

TEST_F(TwoHosts, OpenAgainMakesTheFileOursOnceTheOtherHasLeft) {
    openElsewhere();
    openFile(model_);
    ASSERT_TRUE(bar().isVisible());
    leave();
    QAction* again = bar().actions().at(2);
    ASSERT_EQ(again->text(), QStringLiteral("Open Again"));
    clickAt(*bar().widgetForAction(again), bar().widgetForAction(again)->rect().center());
    EXPECT_SOON(!bar().isVisible());
    change();
    EXPECT_TRUE(window().fileMenu().save());
    EXPECT_THAT(bytesOf(model_), HasSubstr("'Changed wall'"));
}

TEST_F(TwoHosts, SameFileOpenedTwiceHereIsNotSaidToBeOpenElsewhere) {
    openFile(model_);
    openFile(model_);
    EXPECT_FALSE(bar().isVisible());
    openElsewhere();
    leave();
    EXPECT_THAT(other_.readAllStandardError().toStdString(), HasSubstr("is open in desktop_tests (process"));
}

class ChangedMeanwhile : public TwoHosts {
protected:
    void SetUp() override {
        TwoHosts::SetUp();
        if (IsSkipped()) return;
        openFile(model_);
        change();
        theirs_ = before_ + "\n";
        folder_.write("house.ifc", theirs_);
    }
    std::string theirs_;
};

TEST_F(ChangedMeanwhile, CancelLeavesTheirsAndOurChangesUnsaved) {
    const auto text = answer(QStringLiteral("changedQuestion"), QMessageBox::Cancel);
    EXPECT_FALSE(window().fileMenu().save());
    EXPECT_THAT(text->toStdString(), HasSubstr("Another program has changed house.ifc"));
    EXPECT_EQ(bytesOf(model_), theirs_);
    EXPECT_TRUE(window().document().modified());
}

TEST_F(ChangedMeanwhile, EscapeIsCancel) {
    whenShown<QMessageBox>(QStringLiteral("changedQuestion"), [](QMessageBox& box) { press(box, Qt::Key_Escape); });
    EXPECT_FALSE(window().fileMenu().save());
    EXPECT_EQ(bytesOf(model_), theirs_);
}

TEST_F(ChangedMeanwhile, OverwriteWritesOurs) {
    answer(QStringLiteral("changedQuestion"), QMessageBox::Discard);
    EXPECT_TRUE(window().fileMenu().save());
    EXPECT_THAT(bytesOf(model_), HasSubstr("'Changed wall'"));
    EXPECT_FALSE(window().document().modified());
}

TEST_F(ChangedMeanwhile, AnotherNameKeepsBoth) {
    whenShown<QMessageBox>(QStringLiteral("changedQuestion"), [this](QMessageBox& box) {
        saveAsWhenAsked("mine.ifc");
        click(*box.button(QMessageBox::Save));
    });
    EXPECT_TRUE(window().fileMenu().save());
    EXPECT_EQ(bytesOf(model_), theirs_);
    EXPECT_THAT(bytesOf(folder_.path() / "mine.ifc"), HasSubstr("'Changed wall'"));
}

}  // namespace desktop_tests
