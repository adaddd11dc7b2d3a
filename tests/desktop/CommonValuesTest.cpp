// Several elements selected: what their data have in common, and a change of all of them at once.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/byhand/HandBar.hpp"
#include "desktop/byhand/HandChanges.hpp"
#include "desktop/elements/CommonValues.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "text/Guid.hpp"

#include <QClipboard>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;

}  // namespace

class CommonData : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    desktop::ElementPanel& panel() { return window().elements(); }
    QTableView& table() { return *panel().table(); }
    QTreeWidget& tree() { return *window().inspector().tree(); }
    std::string heading() {
        return window().inspector().findChild<QLabel*>(QStringLiteral("elementHeading"))->text().toStdString();
    }
    QTreeWidgetItem* row(const QString& name) {
        const auto rows = tree().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return rows.isEmpty() ? nullptr : rows.first();
    }
    std::string shown(const char* name) {
        const QTreeWidgetItem* found = row(QString::fromLatin1(name));
        return found ? found->text(1).toStdString() : "(no row)";
    }
    /// All rows that the filter leaves, by keyboard.
    void selectAll(const char* filter) {
        panel().focusFilter();
        panel().filterField()->setText(QString::fromUtf8(filter));
        press(window(), Qt::Key_Down);
        press(window(), Qt::Key_A, Qt::ControlModifier);
        ASSERT_EQ(static_cast<int>(panel().selected().size()), table().model()->rowCount());
        ASSERT_GT(panel().selected().size(), 1U);
    }
    void propose(const QString& name, const QString& value) {
        tree().setFocus();
        tree().setCurrentItem(row(name), 1);
        press(window(), Qt::Key_F2);
        ASSERT_NE(tree().findChild<QLineEdit*>(QStringLiteral("valueEditor")), nullptr);
        if (!value.isEmpty()) type(window(), value);
        press(window(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    desktop::HandBar& bar() { return *window().findChild<desktop::HandBar*>(QStringLiteral("handBar")); }
    /// A model of so many proxies, all alike but for their names.
    void openProxies(std::size_t count) {
        std::string text =
            "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
            "FILE_NAME('','',(''),(''),'','','');\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n";
        for (std::size_t i = 0; i < count; ++i) {
            model::Guid guid{};
            guid[14] = static_cast<std::uint8_t>((i + 1) >> 8U);
            guid[15] = static_cast<std::uint8_t>(i + 1);
            text += "#" + std::to_string(i + 1) + "=IFCBUILDINGELEMENTPROXY('" + text::toGlobalId(guid) +
                    "',$,'Proxy " + std::to_string(i) + "',$,'same',$,$,$,$);\n";
        }
        openFile(folder_.write("proxies.ifc", text + "ENDSEC;\nEND-ISO-10303-21;\n"));
    }
};

TEST_F(CommonData, EqualValuesAreShownAndOthersAreVarious) {
    selectAll("IfcWall");
    EXPECT_EQ(heading(), std::to_string(panel().selected().size()) + " elements selected");
    EXPECT_EQ(shown("Name"), "(various)");
    EXPECT_EQ(shown("FireRating").substr(0, 8), "(various");
    EXPECT_EQ(shown("Description"), "");
    EXPECT_EQ(shown("GUID"), "(no row)");
}

TEST_F(CommonData, ItemsThatOnlySomeHaveSayHowMany) {
    selectAll("Erdgeschoss");
    const std::string all = std::to_string(panel().selected().size());
    EXPECT_THAT(shown("FireRating"), HasSubstr(" of " + all + ")"));
    EXPECT_THAT(shown("LongName"), HasSubstr("(various, in "));
}

TEST_F(CommonData, SelectionStaysWhileTheTableIsSortedAndFiltered) {
    selectAll("IfcWall");
    auto before = panel().selected();
    const auto current = panel().current();
    panel().filterField()->clear();
    table().sortByColumn(static_cast<int>(desktop::ElementColumn::Guid), Qt::AscendingOrder);
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), static_cast<int>(before.size()));
    EXPECT_EQ(panel().current(), current);
    auto after = panel().selected();
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(before, after);
}

TEST_F(CommonData, SelectedRowsAreCopiedWithTheirWholeGuids) {
    selectAll("IfcWall");
    press(window(), Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    EXPECT_EQ(text.count(u'\n') + 1, static_cast<qsizetype>(panel().selected().size()));
    for (const model::Element element : panel().selected())
        EXPECT_TRUE(text.contains(desktop::guidText(window().document().index()->guid(element))));
}

TEST_F(CommonData, ValueWrittenOverIsProposedForAllThatHaveTheItem) {
    selectAll("Erdgeschoss");
    std::size_t rated = 0;
    for (const model::Element element : panel().selected())
        rated += desktop::readItem(
                     *window().document().model(), element,
                     {desktop::ItemKind::Property, QStringLiteral("Pset_WallCommon"), QStringLiteral("FireRating")})
                     .has_value();
    ASSERT_GT(rated, 1U);
    ASSERT_LT(rated, panel().selected().size());
    const QString set = QStringLiteral("Pset_WallCommon");
    const auto groups = tree().findItems(set, Qt::MatchExactly);
    ASSERT_EQ(groups.size(), 1);
    QTreeWidgetItem* rating = nullptr;
    for (int i = 0; i < groups.first()->childCount(); ++i)
        if (groups.first()->child(i)->text(0) == QStringLiteral("FireRating")) rating = groups.first()->child(i);
    ASSERT_NE(rating, nullptr);
    tree().setFocus();
    tree().setCurrentItem(rating, 1);
    press(window(), Qt::Key_F2);
    type(window(), QStringLiteral("F 180"));
    press(window(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar().text(), QStringLiteral("%1 changes by hand").arg(rated));
    whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [rated](AddOnDialog& dialog) {
        EXPECT_EQ(rowCount(dialog), static_cast<int>(rated));
        for (int line = 1; line <= rowCount(dialog); ++line) {
            EXPECT_EQ(cell(dialog, line, 5), QStringLiteral("FireRating[WallCommon]"));
            EXPECT_EQ(cell(dialog, line, 7), QStringLiteral("F 180"));
        }
        press(dialog, Qt::Key_Escape);
    });
    click(*bar().reviewButton());
}

TEST_F(CommonData, EditorOfVariousValuesThatIsLeftAsItWasProposesNothing) {
    selectAll("IfcWall");
    propose(QStringLiteral("Name"), {});
    EXPECT_FALSE(bar().isVisible());
    propose(QStringLiteral("Name"), QStringLiteral("One name"));
    EXPECT_EQ(shown("Name"), "(various) → One name");
    EXPECT_TRUE(bar().isVisible());
}

TEST_F(CommonData, AreComparedUpToALimitThatIsSaid) {
    for (const std::size_t count : {desktop::MostCompared - 1, desktop::MostCompared, desktop::MostCompared + 1}) {
        openProxies(count);
        ASSERT_EQ(window().document().index()->size(), count);
        selectAll("proxy");
        const bool compared = count <= desktop::MostCompared;
        EXPECT_EQ(shown("ObjectType"), compared ? "same" : "(no row)") << count;
        const QString note = QStringLiteral("The values of more than %1 elements are not compared")
                                 .arg(desktop::number(desktop::MostCompared));
        EXPECT_EQ(shown("Note"), compared ? "(no row)" : note.toStdString());
    }
}

}  // namespace desktop_tests
