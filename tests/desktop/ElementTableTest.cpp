// What the table shows: which elements, which columns, in which form.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/ItemDialog.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/ElementMenu.hpp"
#include "support/Places.hpp"

#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using desktop::ElementColumn;
using desktop::Item;
using desktop::ItemKind;
using testing::HasSubstr;
using testing::Not;

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");
const Item FireRating{ItemKind::Property, QStringLiteral("Pset_WallCommon"), QStringLiteral("FireRating")};

constexpr int column(ElementColumn which) {
    return static_cast<int>(which);
}

}  // namespace

class ElementTable : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    desktop::ElementPanel& panel() { return window().elements(); }
    QTableView& table() { return *panel().table(); }
    QCheckBox& aids() { return *panel().aidsSwitch(); }
    const desktop::ElementIndex& index() { return *window().document().index(); }
    QString count() { return window().findChild<QLabel*>(QStringLiteral("elementCount"))->text(); }
    model::Element element(const QString& guid) {
        return *window().document().model()->find(*desktop::guidFromText(guid));
    }
    model::Element anOpening() {
        for (model::Element it = 0; it < index().size(); ++it)
            if (index().isAid(it)) return it;
        ADD_FAILURE() << "the sample has no opening";
        return 0;
    }
    std::string shown(int row, int place) { return table().model()->index(row, place).data().toString().toStdString(); }
    std::string shown(model::Element which, int place) { return shown(panel().rowOf(which), place); }
    /// As the user does, by the header's menu.
    QAction* columnAction(const char* name) {
        QMenu* menu = panel().columns().menu();
        Q_EMIT menu->aboutToShow();
        return menu->findChild<QAction*>(QString::fromLatin1(name));
    }
    std::string header(int place) {
        return table().model()->headerData(place, Qt::Horizontal).toString().toStdString();
    }
    void anew() {
        start();
        openSample();
    }
};

TEST_F(ElementTable, HidesOpeningsAndAidsAndSaysHowMany) {
    const int built = table().model()->rowCount();
    EXPECT_EQ(built + static_cast<int>(index().aidCount()), static_cast<int>(index().size()));
    EXPECT_GT(index().aidCount(), 0U);
    EXPECT_EQ(count(), QStringLiteral("%1 elements · %2 openings and aids hidden").arg(built).arg(index().aidCount()));
    for (int row = 0; row < built; ++row) EXPECT_NE(shown(row, column(ElementColumn::Class)), "IfcOpeningElement");
    click(aids());
    EXPECT_EQ(table().model()->rowCount(), static_cast<int>(index().size()));
    EXPECT_EQ(count(), QStringLiteral("%1 elements").arg(index().size()));
}

TEST_F(ElementTable, FilterSaysHowManyOfItsElementsAreHidden) {
    panel().filterField()->setText(QStringLiteral("opening"));
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_THAT(count().toStdString(),
                HasSubstr(QStringLiteral(" %1 openings and aids hidden").arg(index().aidCount()).toStdString()));
}

TEST_F(ElementTable, SwitchForAidsIsRemembered) {
    click(aids());
    anew();
    EXPECT_TRUE(aids().isChecked());
    EXPECT_EQ(table().model()->rowCount(), static_cast<int>(index().size()));
    click(aids());
    anew();
    EXPECT_FALSE(aids().isChecked());
}

TEST_F(ElementTable, AidThatSomethingLeadsToIsShownAndThatIsSaidAndNotRemembered) {
    const model::Element opening = anOpening();
    ASSERT_EQ(panel().rowOf(opening), -1);
    Q_EMIT window().plan().elementClicked(opening);
    EXPECT_TRUE(aids().isChecked());
    EXPECT_EQ(table().currentIndex().row(), panel().rowOf(opening));
    EXPECT_THAT(window().statusBar()->currentMessage().toStdString(), HasSubstr("openings and aids"));
    anew();
    EXPECT_FALSE(aids().isChecked());
}

TEST_F(ElementTable, ReviewRowOfAnAidShowsIt) {
    const model::Element opening = anOpening();
    review(desktop::guidText(index().guid(opening)).toStdString() + "\tName\t\tRenamed\n",
           [=, this](AddOnDialog& dialog) {
               clickCell(dialog, 1, 2);
               EXPECT_SOON(panel().current() == opening);
               EXPECT_GE(panel().rowOf(opening), 0);
           });
}

TEST_F(ElementTable, RoomsAreNamedWithTheirUseAndStandBehindTheirElements) {
    panel().filterField()->setText(QStringLiteral("001"));
    bool room = false, inside = false;
    for (int row = 0; row < table().model()->rowCount(); ++row) {
        const std::string name = shown(row, column(ElementColumn::Name));
        EXPECT_EQ(shown(row, column(ElementColumn::Room)), "001 Küche") << name;
        (shown(row, column(ElementColumn::Class)) == "IfcSpace" ? room : inside) = true;
    }
    EXPECT_TRUE(room);
    EXPECT_TRUE(inside);
    EXPECT_EQ(table().horizontalHeader()->visualIndex(column(ElementColumn::Room)),
              table().horizontalHeader()->visualIndex(column(ElementColumn::Name)) + 1);
}

TEST_F(ElementTable, RoomsFollowTheirNames) {
    model::Element room = 0;
    while (index().ifcClass(room) != QStringLiteral("IfcSpace")) ++room;
    review(desktop::guidText(index().guid(room)).toStdString() + "\tLongName\t\tPantry\n", [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    EXPECT_THAT(shown(room, column(ElementColumn::Name)), HasSubstr("Pantry"));
    EXPECT_THAT(index().room(room).toStdString(), HasSubstr("Pantry"));
    panel().filterField()->setText(QStringLiteral("pantry"));
    EXPECT_GT(table().model()->rowCount(), 0);
}

TEST_F(ElementTable, SortByRoomHasThoseWithoutOneLastBothWays) {
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        table().sortByColumn(column(ElementColumn::Room), order);
        const int rows = table().model()->rowCount();
        EXPECT_NE(shown(0, column(ElementColumn::Room)), "");
        EXPECT_EQ(shown(rows - 1, column(ElementColumn::Room)), "");
    }
}

TEST_F(ElementTable, ModelWithoutRoomsHasNoColumnForThem) {
    std::string text = bytesOf(model_);
    for (std::size_t at = 0; (at = text.find("IFCSPACE(", at)) != std::string::npos;) text.replace(at, 8, "IFCXXXXX");
    EXPECT_FALSE(table().isColumnHidden(column(ElementColumn::Room)));
    openFile(folder_.write("roomless.ifc", text));
    EXPECT_TRUE(table().isColumnHidden(column(ElementColumn::Room)));
    openSample();
    EXPECT_FALSE(table().isColumnHidden(column(ElementColumn::Room)));
}

TEST_F(ElementTable, GuidsAreShortUntilTheyAreAskedFor) {
    const int place = column(ElementColumn::Guid);
    const QModelIndex cell = table().model()->index(panel().rowOf(element(Wall)), place);
    EXPECT_EQ(cell.data().toString(), QStringLiteral("4B77F0F7…A8D9"));
    EXPECT_THAT(cell.data(Qt::ToolTipRole).toString().toStdString(), HasSubstr(Wall.toStdString()));
    EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), Wall);
    panel().select(element(Wall));
    table().setFocus();
    press(window(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), HasSubstr("\t" + Wall.toStdString() + "\t"));
    const int narrow = table().columnWidth(place);
    columnAction("wholeGuids")->trigger();
    EXPECT_EQ(cell.data().toString(), Wall);
    EXPECT_GT(table().columnWidth(place), 2 * narrow);
    anew();
    EXPECT_EQ(shown(element(Wall), place), Wall.toStdString());
}

TEST_F(ElementTable, ColumnsAreHiddenMovedAndRemembered) {
    QHeaderView& columns = *table().horizontalHeader();
    columnAction("column0")->trigger();
    EXPECT_TRUE(columns.isSectionHidden(0));
    columns.moveSection(columns.visualIndex(column(ElementColumn::Class)), 0);
    columns.resizeSection(column(ElementColumn::Class), 173);
    anew();
    QHeaderView& again = *table().horizontalHeader();
    EXPECT_TRUE(again.isSectionHidden(0));
    EXPECT_EQ(again.visualIndex(column(ElementColumn::Class)), 0);
    EXPECT_EQ(again.sectionSize(column(ElementColumn::Class)), 173);
    columnAction("usualColumns")->trigger();
    EXPECT_FALSE(again.isSectionHidden(0));
    EXPECT_EQ(again.visualIndex(column(ElementColumn::Class)), column(ElementColumn::Class));
}

TEST_F(ElementTable, LastColumnCannotBeHidden) {
    for (int place = 0; place < desktop::ElementColumnCount - 1; ++place) {
        QAction* toggle = columnAction(("column" + std::to_string(place)).c_str());
        EXPECT_TRUE(toggle->isEnabled());
        toggle->trigger();
    }
    EXPECT_EQ(panel().columns().shown().size(), 1U);
    EXPECT_FALSE(columnAction("column5")->isEnabled());
}

TEST_F(ElementTable, HeadersMenuIsOpenedByTheOtherMouseButton) {
    QHeaderView& columns = *table().horizontalHeader();
    const QPoint place = columns.mapTo(&window(), QPoint(20, columns.height() / 2));
    QTest::mouseClick(window().windowHandle(), Qt::RightButton, {}, place);
    QMenu* menu = panel().columns().menu();
    EXPECT_SOON(menu->isVisible());
    menu->close();
}

TEST_F(ElementTable, AnItemOfTheModelBecomesAColumnThatIsSortedFilteredAndRemembered) {
    panel().columns().add(FireRating);
    const int place = desktop::ElementColumnCount;
    EXPECT_EQ(header(place), "FireRating");
    EXPECT_EQ(shown(element(Wall), place), "F 90-AB");
    table().sortByColumn(place, Qt::AscendingOrder);
    EXPECT_NE(shown(0, place), "");
    EXPECT_EQ(shown(table().model()->rowCount() - 1, place), "");
    panel().filterField()->setText(QStringLiteral("90-ab"));
    ASSERT_GT(table().model()->rowCount(), 0);
    for (int row = 0; row < table().model()->rowCount(); ++row) EXPECT_EQ(shown(row, place), "F 90-AB");
    anew();
    EXPECT_EQ(header(place), "FireRating");
    EXPECT_EQ(shown(element(Wall), place), "F 90-AB");
    columnAction("column6")->trigger();
    EXPECT_EQ(table().model()->columnCount(), desktop::ElementColumnCount);
    anew();
    EXPECT_EQ(table().model()->columnCount(), desktop::ElementColumnCount);
}

TEST_F(ElementTable, ColumnOfAnItemFollowsChanges) {
    panel().columns().add(FireRating);
    table().sortByColumn(desktop::ElementColumnCount, Qt::AscendingOrder);
    review(Wall.toStdString() + "\tFireRating[WallCommon]\t\tF 180\n", [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    EXPECT_EQ(shown(element(Wall), desktop::ElementColumnCount), "F 180");
    window().document().undo();
    EXPECT_EQ(shown(element(Wall), desktop::ElementColumnCount), "F 90-AB");
}

TEST_F(ElementTable, NumbersOfAnItemSortByValueAndBeforeTexts) {
    const char* const values[] = {"10.5", "-3", "9", "10.25", "none", "1e3"};
    const Item tag{ItemKind::Attribute, {}, QStringLiteral("Tag")};
    panel().filterField()->setText(QStringLiteral("wall"));
    std::string lines;
    for (int row = 0; row < 6; ++row)
        lines += panel().cellText(table().model()->index(row, column(ElementColumn::Guid))).toStdString() +
                 "\tTag\t\t" + values[row] + "\n";
    review(lines, [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    });
    panel().filterField()->clear();
    panel().columns().add(tag);
    table().sortByColumn(desktop::ElementColumnCount, Qt::AscendingOrder);
    std::vector<std::string> order;
    for (int row = 0; row < table().model()->rowCount(); ++row) {
        const std::string text = shown(row, desktop::ElementColumnCount);
        if (std::find(std::begin(values), std::end(values), text) != std::end(values)) order.push_back(text);
    }
    EXPECT_THAT(order, testing::ElementsAre("-3", "9", "10.25", "10.5", "1e3", "none"));
}

TEST_F(ElementTable, AddColumnListsTheItemsOfTheModelAndTakesOneByKeyboard) {
    whenShown<desktop::ItemDialog>(QStringLiteral("itemDialog"), [](desktop::ItemDialog& dialog) {
        EXPECT_SOON(dialog.complete());
        auto& list = *dialog.findChild<QTreeWidget*>(QStringLiteral("items"));
        EXPECT_GT(list.topLevelItemCount(), 20);
        EXPECT_FALSE(dialog.findChild<QPushButton*>(QStringLiteral("addItem"))->isEnabled());
        type(dialog, QStringLiteral("firerat wall"));
        ASSERT_TRUE(dialog.item().has_value());
        EXPECT_EQ(dialog.item()->set, QStringLiteral("Pset_WallCommon"));
        press(dialog, Qt::Key_Return);
    });
    columnAction("addColumn")->trigger();
    EXPECT_EQ(header(desktop::ElementColumnCount), "FireRating");
    EXPECT_EQ(shown(element(Wall), desktop::ElementColumnCount), "F 90-AB");
}

TEST_F(ElementTable, ExportHasTheChosenColumnsAndComesBackAsAnImport) {
    panel().columns().add(FireRating);
    panel().filterField()->setText(QStringLiteral("wall"));
    auto* menu = window().findChild<desktop::ElementMenu*>();
    const auto path = folder_.path() / "walls.csv";
    ASSERT_TRUE(menu->exportTo(desktop::pathText(path)));
    std::string text = bytesOf(path);
    EXPECT_THAT(text, testing::StartsWith("GUID,#Storey,#Class,#Type,#Name,#Room,FireRating[WallCommon]\n"));
    const std::size_t line = text.find(Wall.toStdString());
    const std::size_t value = text.find("F 90-AB", line);
    ASSERT_NE(value, std::string::npos);
    text.replace(value, 7, "F 120");
    reviewFile(folder_.write("changed.csv", text), [](AddOnDialog& dialog) {
        ASSERT_EQ(rowCount(dialog), 1) << "what nobody touched asks for nothing";
        EXPECT_EQ(cell(dialog, 1, 5), QStringLiteral("FireRating[WallCommon]"));
        EXPECT_EQ(cell(dialog, 1, 7), QStringLiteral("F 120"));
    });
}

TEST_F(ElementTable, ColumnThatAnUpdateWouldNotReachIsForTheReader) {
    panel().columns().add({ItemKind::Attribute, {}, QStringLiteral("GlobalId")});
    panel().columns().add({ItemKind::Attribute, {}, QStringLiteral("Tag")});
    columnAction("column3")->trigger();
    const auto path = folder_.path() / "all.csv";
    ASSERT_TRUE(window().findChild<desktop::ElementMenu*>()->exportTo(desktop::pathText(path)));
    EXPECT_THAT(bytesOf(path), testing::StartsWith("GUID,#Storey,#Class,#Type,#Name,#GlobalId,Tag\n"));
}

/// A file may name a set or a property anyhow, TABs included.
TEST(ItemKey, LeadsBackToTheItemWhateverItsNameHolds) {
    const QString odd = QStringLiteral("a\tb\t7\t%1");
    for (const Item& item : {FireRating, Item{ItemKind::Property, odd, odd}, Item{ItemKind::Property, odd, {}},
                             Item{ItemKind::Attribute, {}, odd}, Item{ItemKind::Classification, {}, {}}})
        EXPECT_EQ(Item::fromKey(item.key()), item) << item.key().toStdString();
    for (const char* key : {"", "1", "1\t", "1\t0", "3\t0\tName", "-1\t0\tName", "1\t5\tName", "1\t-1\tName",
                            "1\tPset_WallCommon\tFireRating"})
        EXPECT_EQ(Item::fromKey(QString::fromLatin1(key)), std::nullopt) << key;
}

}  // namespace desktop_tests
