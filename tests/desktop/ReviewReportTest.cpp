// The report to hand on of the last review, as a page, a workbook and JSON.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "support/Places.hpp"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Slab = "62A7271B-EF91-58F6-9E04-FE7C35B4479E";
const std::string Updates = Wall + "\tName\t\tNorth wall\n" + Slab + "\tPredefinedType\t\tCEILING\n";

}  // namespace

class ReviewReport : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    void applyAll() {
        review(Updates, [](AddOnDialog& dialog) {
            clickItem(dialog, SelectAllItem);
            clickItem(dialog, ApplyItem);
        });
    }
    /// Picks the report and gives it a name.
    std::string written(const std::string& name) {
        const auto path = folder_.path() / name;
        whenShown<QFileDialog>(QStringLiteral("reportDialog"), [=](QFileDialog& dialog) {
            auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            field->setFocus();
            field->selectAll();
            type(dialog, desktop::pathText(path));
            press(dialog, Qt::Key_Return);
        });
        press(window(), Qt::Key_R, Qt::ControlModifier);
        return std::filesystem::exists(path) ? bytesOf(path) : std::string();
    }
};

TEST_F(ReviewReport, IsOffUntilSomethingWasReviewed) {
    EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Report"))->isEnabled());
    applyAll();
    EXPECT_TRUE(menuItem(QStringLiteral("File"), QStringLiteral("Report"))->isEnabled());
}

TEST_F(ReviewReport, PageTellsWhatWasChangedAndWhatWasRefused) {
    applyAll();
    const std::string page = written("changes.html");
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(page, HasSubstr("Changes to house.ifc"));
    EXPECT_THAT(page, HasSubstr("North wall"));
    EXPECT_THAT(page, HasSubstr("is no item of IfcSlabTypeEnum"));
    EXPECT_THAT(page, HasSubstr("updates.txt"));
}

TEST_F(ReviewReport, TakesTheFormThatItsNameAsksFor) {
    applyAll();
    EXPECT_THAT(written("changes.json"), StartsWith("{"));
    EXPECT_THAT(written("changes.XLSX"), StartsWith("PK"));
}

TEST_F(ReviewReport, OfAReviewWithoutApplyTellsWhatIsProposed) {
    review(Updates, [](AddOnDialog& dialog) { clickItem(dialog, SelectAllItem); });
    EXPECT_THAT(written("changes.html"), HasSubstr("Proposed changes to house.ifc"));
}

TEST_F(ReviewReport, SaysThatAStepWasTakenBackSince) {
    applyAll();
    EXPECT_THAT(written("before.html"), Not(HasSubstr("taken back, after this review")));
    pick(QStringLiteral("Edit"), QStringLiteral("Undo"));
    EXPECT_THAT(written("after.html"), HasSubstr("taken back, after this review"));
}

TEST_F(ReviewReport, NameOfAnotherKindIsRefusedAndNothingIsWritten) {
    applyAll();
    const std::string before = bytesOf(model_);
    const auto text = answer(QStringLiteral("reportMessage"), QMessageBox::Ok);
    EXPECT_EQ(written("changes.ifc"), "");
    EXPECT_THAT(text->toStdString(), HasSubstr(".html, .xlsx or .json"));
    EXPECT_EQ(bytesOf(model_), before);
}

TEST_F(ReviewReport, GoesWithTheModel) {
    applyAll();
    answer(QStringLiteral("unsavedQuestion"), QMessageBox::Discard);
    ASSERT_TRUE(window().openFile(desktop::pathText(model_)));
    EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Report"))->isEnabled());
}

}  // namespace desktop_tests
