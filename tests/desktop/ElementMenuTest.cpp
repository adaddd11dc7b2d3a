// The menus of the other mouse button, and of the menu key, in table, plan and the element's data.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/ElementMenu.hpp"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

void rightClick(QWidget& widget, const QPoint& place) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::RightButton, {}, widget.mapTo(widget.window(), place));
}

}  // namespace

class ElementMenus : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        openSample();
        window().elements().filterField()->setText(Wall);
        window().elements().select(wall());
    }
    model::Element wall() { return *window().document().model()->find(*desktop::guidFromText(Wall)); }
    QTableView& table() { return *window().elements().table(); }
    /// Once the menu is up, clicks one of its items.
    void choose(const char* item) {
        QTimer::singleShot(50, qApp, [=] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << "no menu came up";
            auto* action = menu->findChild<QAction*>(QString::fromLatin1(item));
            ASSERT_NE(action, nullptr) << item;
            EXPECT_TRUE(action->isEnabled()) << item;
            clickAt(*menu, menu->actionGeometry(action).center());
        });
    }
    void rightClickCell(int column) {
        rightClick(*table().viewport(), table().visualRect(table().model()->index(0, column)).center());
    }
    QTreeWidgetItem* dataRow(const QString& name) {
        const auto rows = window().inspector().tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return rows.isEmpty() ? nullptr : rows.first();
    }
};

TEST_F(ElementMenus, TableCopiesTheGuidAndTheValueThatIsPointedAt) {
    choose("copyGuid");
    rightClickCell(1);
    EXPECT_EQ(QApplication::clipboard()->text(), Wall);
    choose("copyValue");
    rightClickCell(1);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Wall"));
}

TEST_F(ElementMenus, DataCopiesItsValue) {
    QTreeWidget& tree = *window().inspector().tree();
    QTreeWidgetItem* row = dataRow(QStringLiteral("FireRating"));
    tree.scrollToItem(row);
    choose("copyValue");
    rightClick(*tree.viewport(), tree.visualItemRect(row).center());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("F 90-AB"));
}

TEST_F(ElementMenus, PlanCopiesTheGuidOfWhatIsPointedAt) {
    EXPECT_SOON(window().plan().view()->complete());
    const auto& view = *window().plan().view();
    std::optional<QPoint> onWall;
    for (int y = 0; y < view.height() && !onWall; y += 2) {
        for (int x = 0; x < view.width() && !onWall; x += 2)
            if (view.hit(view.viewport().toModel({x + 0.0, y + 0.0}), true) == wall()) onWall = QPoint(x, y);
    }
    ASSERT_TRUE(onWall.has_value());
    choose("copyGuid");
    rightClick(*window().plan().view(), *onWall);
    EXPECT_EQ(QApplication::clipboard()->text(), Wall);
}

TEST_F(ElementMenus, MenuKeyOpensThePlansMenuForTheSelectedElement) {
    auto& view = *window().plan().view();
    QCursor::setPos(window().mapToGlobal(QPoint(5, 5)));
    QTest::qWait(50);
    view.setFocus();
    choose("copyGuid");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, view.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&view, &event);
    EXPECT_EQ(QApplication::clipboard()->text(), Wall);
}

TEST_F(ElementMenus, LookUpOpensTheAddOnsDialogWithTheElement) {
    const auto type = std::make_shared<QString>();
    whenShown<AddOnDialog>(QStringLiteral("dialog32500"), [=](AddOnDialog& dialog) {
        EXPECT_SOON(rowCount(dialog, LookupList) > 0);
        for (int row = 1; row <= rowCount(dialog, LookupList); ++row)
            if (cell(dialog, row, 1, LookupList) == QStringLiteral("GUID")) *type = cell(dialog, row, 2, LookupList);
        press(dialog, Qt::Key_Escape);
    });
    choose("lookUp");
    rightClickCell(1);
    EXPECT_EQ(*type, Wall);
}

TEST_F(ElementMenus, ShowInPlanBringsTheHiddenPlanBack) {
    auto* dock = window().findChild<QDockWidget*>(QStringLiteral("planDock"));
    dock->hide();
    choose("showInPlan");
    rightClickCell(1);
    EXPECT_TRUE(dock->isVisible());
    EXPECT_TRUE(window().plan().view()->hasFocus());
}

TEST_F(ElementMenus, ExportWritesTheElementsThatTheTableShows) {
    auto* menu = window().findChild<desktop::ElementMenu*>();
    ASSERT_NE(menu, nullptr);
    const auto path = folder_.path() / "walls.csv";
    EXPECT_TRUE(menu->exportTo(desktop::pathText(path)));
    const std::string text = bytesOf(path);
    EXPECT_THAT(text, testing::StartsWith("GUID,#Storey,#Class,#Type,#Name,#Room\n" + Wall.toStdString()));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_TRUE(menu->exportTo(desktop::pathText(folder_.path() / "walls.xlsx")));
    EXPECT_THAT(bytesOf(folder_.path() / "walls.xlsx"), testing::StartsWith("PK"));
    const auto refusal = answer(QStringLiteral("exportMessage"), QMessageBox::Ok);
    EXPECT_FALSE(menu->exportTo(desktop::pathText(folder_.path() / "walls.doc")));
    EXPECT_THAT(refusal->toStdString(), HasSubstr(".xlsx, .csv or .tsv"));
}

}  // namespace desktop_tests
