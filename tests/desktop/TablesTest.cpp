// Tables in the window: read by the host, reviewed by the add-on, one list after the other.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/window/FileMenu.hpp"
#include "tables/Writing.hpp"

#include <QFileDialog>
#include <QPushButton>
#include <QStatusBar>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::AllOf;
using testing::HasSubstr;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";

/// Wall and door with a name and a note, semicolons between the columns.
std::string grid() {
    return "GUID;#Storey;Name;Note[Handover]\r\n" + Wall + ";EG;North wall;\"Riss; klein\"\r\n" + Door +
           ";EG;Oak door;\r\n";
}

}  // namespace

class TablesInTheWindow : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    std::string reported() { return window().report().lines().join(u'\n').toStdString(); }
};

TEST_F(TablesInTheWindow, CommaFileBecomesRowsThatAreApplied) {
    reviewFile(folder_.write("doors.csv", grid()), [](AddOnDialog& dialog) {
        ASSERT_EQ(rowCount(dialog), 3);
        EXPECT_EQ(cell(dialog, 2, 5), QStringLiteral("Note[Handover]"));
        EXPECT_EQ(cell(dialog, 2, 7), QStringLiteral("Riss; klein"));
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        EXPECT_EQ(cell(dialog, 3, 8), QStringLiteral("Done"));
    });
    const model::Model& model = *window().document().model();
    EXPECT_EQ(model.name(*model.find(*desktop::guidFromText(desktop::toQString(Door)))), u"Oak door");
}

TEST_F(TablesInTheWindow, IsSaidHowTheFileWasRead) {
    const std::string line =
        "Read doors.csv: semicolon, UTF-8, grid, 2 elements, 2 items: 3 updates, 0 unchanged, 0 left out";
    reviewFile(folder_.write("doors.csv", grid()),
               [&](AddOnDialog&) { EXPECT_EQ(window().statusBar()->currentMessage().toStdString(), line); });
    EXPECT_THAT(reported(), HasSubstr(line));
}

TEST_F(TablesInTheWindow, WorkbookIsReadAndOneThatIsCalledTextIsReadAsWhatItIsAndThatIsSaid) {
    const auto workbook = tables::writeWorkbook({{"GUID", "Name"}, {{Wall, "North wall"}}}, false);
    ASSERT_TRUE(workbook);
    const auto path = folder_.write("doors.xlsx", *workbook);
    const auto other = folder_.write("doors.csv", *workbook);
    reviewFile(path, [](AddOnDialog& dialog) {
        ASSERT_EQ(rowCount(dialog), 1);
        EXPECT_EQ(cell(dialog, 1, 7), QStringLiteral("North wall"));
        EXPECT_TRUE(dialog.hintBar()->isHidden());
    });
    reviewFile(other, [](AddOnDialog& dialog) {
        EXPECT_EQ(rowCount(dialog), 1);
        EXPECT_THAT(dialog.hintBar()->hints().join(u'\n').toStdString(),
                    HasSubstr("By its content it is an Excel workbook"));
    });
}

TEST_F(TablesInTheWindow, WhatIsLeftOutIsNamedWithItsLine) {
    reviewFile(folder_.write("doors.csv", grid() + "no guid;EG;Nobody;\r\n"), [](AddOnDialog& dialog) {
        EXPECT_EQ(rowCount(dialog), 3);
        EXPECT_THAT(dialog.hintBar()->hints().join(u'\n').toStdString(), HasSubstr("Left out: line 4"));
    });
}

TEST_F(TablesInTheWindow, TableThatAsksForNothingNewIsSaidSo) {
    EXPECT_THAT(refusalOf(folder_.write("same.csv", "GUID,Name\n" + Wall + ",Außenwand Süd\n")),
                AllOf(HasSubstr("asks for nothing that the model does not hold"), HasSubstr("0 updates, 1 unchanged")));
}

TEST_F(TablesInTheWindow, DamagedWorkbookIsRefusedInOneMessage) {
    EXPECT_THAT(refusalOf(folder_.write("torn.xlsx", "PK\x03\x04 and nothing more")), HasSubstr("torn.xlsx"));
    EXPECT_FALSE(window().document().modified());
}

TEST_F(TablesInTheWindow, MoreRowsThanAListHoldsComeInTheNextList) {
    std::string table = "GUID,Item,New\n";
    for (int i = 0; i <= DG_LIST_MAX_ROWS; ++i) table += Wall + ",Note" + std::to_string(i) + "[Many],x\n";
    std::vector<int> rows;
    QString question;
    const auto apply = [&](AddOnDialog& dialog) {
        rows.push_back(rowCount(dialog));
        clickCell(dialog, 1, 1);
        clickItem(dialog, ApplyItem);
        EXPECT_EQ(cell(dialog, 1, 8), QStringLiteral("Done"));
    };
    reviewFile(folder_.write("many.csv", table), [&](AddOnDialog& dialog) {
        apply(dialog);
        whenShown<QMessageBox>(QStringLiteral("nextListQuestion"), [&](QMessageBox& box) {
            question = box.text();
            whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [&](AddOnDialog& next) {
                apply(next);
                clickItem(next, CloseItem);
            });
            click(*box.button(QMessageBox::Yes));
        });
    });
    EXPECT_SOON(rows.size() == 2);
    EXPECT_EQ(rows, (std::vector<int>{DG_LIST_MAX_ROWS, 1}));
    EXPECT_EQ(question, QStringLiteral("Go on with list 2 of 2?"));
    EXPECT_SOON(!frontend::openDialogs().size());
    EXPECT_TRUE(window().document().modified());
}

TEST_F(TablesInTheWindow, UserMayStopBeforeTheNextList) {
    std::string table = "GUID,Item,New\n";
    for (int i = 0; i <= DG_LIST_MAX_ROWS; ++i) table += Wall + ",Note" + std::to_string(i) + "[Many],x\n";
    reviewFile(folder_.write("many.csv", table),
               [&](AddOnDialog&) { answer(QStringLiteral("nextListQuestion"), QMessageBox::No); });
    QCoreApplication::processEvents();
    EXPECT_TRUE(frontend::openDialogs().empty());
    EXPECT_TRUE(menuItem(QStringLiteral("Quillmarsh"), QStringLiteral("Import"))->isEnabled());
}

TEST_F(TablesInTheWindow, FileDialogOffersTablesAndRemembersNoFilterOfTheAddOns) {
    whenShown<QFileDialog>(QStringLiteral("addOnFileDialog"), [](QFileDialog& dialog) {
        EXPECT_THAT(dialog.selectedNameFilter().toStdString(), HasSubstr("*.txt *.csv *.tsv *.xlsx *.ods"));
        EXPECT_GE(dialog.nameFilters().size(), 4);
        press(dialog, Qt::Key_Escape);
    });
    pick(QStringLiteral("Quillmarsh"), QStringLiteral("Import Updates"));
}

}  // namespace desktop_tests
