// The lookup dialog by mouse and keyboard.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"

#include <QLineEdit>
#include <QTableView>

namespace desktop_tests {

using desktop::AddOnDialog;

namespace {

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");
const QString Door = QStringLiteral("A32931C7-B3B2-4117-8D6A-3038DD4E9A78");

}  // namespace

class LookingUp : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    static QLineEdit& field(AddOnDialog& dialog) { return *qobject_cast<QLineEdit*>(dialog.itemWidget(GuidField)); }
    /// The value beside a name; empty where the list has no such row.
    static QString value(AddOnDialog& dialog, const QString& name) {
        for (int row = 1; row <= rowCount(dialog, LookupList); ++row) {
            if (cell(dialog, row, 1, LookupList) == name) return cell(dialog, row, 2, LookupList);
        }
        return {};
    }
};

TEST_F(LookingUp, ReturnLooksUpTheGuidThatIsThereAtFirst) {
    lookUp([](AddOnDialog& dialog) {
        EXPECT_SOON(field(dialog).hasFocus());
        EXPECT_EQ(field(dialog).text(), QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"));
        press(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_EQ(value(dialog, QStringLiteral("GUID")), field(dialog).text());
        EXPECT_EQ(value(dialog, QStringLiteral("Type")), QStringLiteral("Wall"));
        EXPECT_EQ(value(dialog, QStringLiteral("FireRating[Pset_WallCommon]")), QStringLiteral("F 90-AB"));
    });
}

TEST_F(LookingUp, TypedGuidReplacesTheOneThatWasThere) {
    lookUp([](AddOnDialog& dialog) {
        type(dialog, QStringLiteral("A32931C7-B3B2-4117-8D6A-3038DD4E9A78"));
        clickItem(dialog, LookupItem);
        EXPECT_EQ(value(dialog, QStringLiteral("Type")), QStringLiteral("Door"));
    });
}

TEST_F(LookingUp, UnknownGuidGivesTheErrorsName) {
    lookUp([](AddOnDialog& dialog) {
        type(dialog, QStringLiteral("00000000-0000-4000-8000-000000000000"));
        press(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_EQ(value(dialog, QStringLiteral("Error")), QStringLiteral("BADID"));
    });
}

TEST_F(LookingUp, SecondLookUpAddsItsRowsBelow) {
    lookUp([](AddOnDialog& dialog) {
        clickItem(dialog, LookupItem);
        const int once = rowCount(dialog, LookupList);
        clickItem(dialog, LookupItem);
        EXPECT_GT(once, 3);
        EXPECT_EQ(rowCount(dialog, LookupList), 2 * once);
    });
}

TEST_F(LookingUp, GrownWindowGrowsFieldAndListAndMovesTheButtons) {
    lookUp([](AddOnDialog& dialog) {
        const QRect button = dialog.itemWidget(LookupItem)->geometry();
        const QRect edit = dialog.itemWidget(GuidField)->geometry();
        const QRect list = listOf(dialog, LookupList).geometry();
        dialog.resize(dialog.width() + 40, dialog.height() + 20);
        EXPECT_SOON(dialog.itemWidget(LookupItem)->geometry() == button.translated(40, 20));
        EXPECT_EQ(dialog.itemWidget(GuidField)->geometry(), edit.adjusted(0, 0, 40, 0));
        EXPECT_EQ(listOf(dialog, LookupList).geometry(), list.adjusted(0, 0, 40, 20));
    });
}

TEST_F(LookingUp, ListScrollsToWhatWasJustAdded) {
    lookUp([](AddOnDialog& dialog) {
        clickItem(dialog, LookupItem);
        const int once = rowCount(dialog, LookupList);
        clickItem(dialog, LookupItem);
        clickItem(dialog, LookupItem);
        desktop::RowListView& list = listOf(dialog, LookupList);
        EXPECT_SOON(list.rowAt(1) > once);
        const QRect first = list.visualRect(list.model()->index(2 * once, 0));
        EXPECT_TRUE(list.viewport()->rect().contains(first)) << "the first of the new rows";
    });
}

TEST_F(LookingUp, ClickOnAnElementInTheTableLooksItUp) {
    lookUp([this](AddOnDialog& dialog) {
        QTableView& table = *window().elements().table();
        const auto door = *window().document().model()->find(*desktop::guidFromText(Door));
        const QModelIndex row = table.model()->index(window().elements().rowOf(door), 1);
        table.scrollTo(row);
        clickAt(*table.viewport(), table.visualRect(row).center());
        QCoreApplication::processEvents();
        EXPECT_EQ(field(dialog).text(), Door);
        EXPECT_EQ(value(dialog, QStringLiteral("Type")), QStringLiteral("Door"));
    });
}

TEST_F(LookingUp, ClickOnAnElementInThePlanLooksItUp) {
    lookUp([this](AddOnDialog& dialog) {
        const auto wall = *window().document().model()->find(*desktop::guidFromText(Wall));
        Q_EMIT window().plan().elementClicked(wall);
        QCoreApplication::processEvents();
        EXPECT_EQ(field(dialog).text(), Wall);
        EXPECT_EQ(value(dialog, QStringLiteral("Type")), QStringLiteral("Wall"));
        EXPECT_EQ(window().elements().current(), wall);
    });
}

}  // namespace desktop_tests
