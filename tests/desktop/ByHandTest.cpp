// Values changed by hand: proposed in the element's data, reviewed and applied through the add-on.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/byhand/HandBar.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/window/FileMenu.hpp"

#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;
using testing::Not;

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

}  // namespace

class ByHand : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        openSample();
        window().elements().select(*window().document().model()->find(*desktop::guidFromText(Wall)));
    }
    QTreeWidget& tree() { return *window().inspector().tree(); }
    desktop::HandBar& bar() { return *window().findChild<desktop::HandBar*>(QStringLiteral("handBar")); }
    QTreeWidgetItem* row(const QString& name) {
        const auto rows = tree().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return rows.isEmpty() ? nullptr : rows.first();
    }
    QString shown(const QString& name) { return row(name)->text(1); }
    /// A double click on the value, the new one by keyboard, Return.
    void propose(const QString& name, const QString& value) {
        tree().scrollToItem(row(name));
        const QPoint place = tree().visualRect(tree().indexFromItem(row(name), 1)).center();
        clickAt(*tree().viewport(), place);
        QWidget* top = tree().window();
        QTest::mouseDClick(top->windowHandle(), Qt::LeftButton, {}, tree().viewport()->mapTo(top, place));
        ASSERT_NE(tree().findChild<QLineEdit*>(QStringLiteral("valueEditor")), nullptr);
        type(window(), value);
        press(window(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    /// What the review of the list shows and does.
    void reviewList(const std::function<void(AddOnDialog&)>& user) {
        whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [=](AddOnDialog& dialog) {
            user(dialog);
            press(dialog, Qt::Key_Escape);
        });
        click(*bar().reviewButton());
    }
};

TEST_F(ByHand, DoubleClickProposesAndChangesNothing) {
    const std::string before = window().document().model()->bytes();
    EXPECT_FALSE(bar().isVisible());
    propose(QStringLiteral("FireRating"), QStringLiteral("F 120"));
    EXPECT_EQ(shown(QStringLiteral("FireRating")), QStringLiteral("F 90-AB → F 120"));
    EXPECT_EQ(bar().text(), QStringLiteral("1 change by hand"));
    EXPECT_EQ(window().document().model()->bytes(), before);
    EXPECT_FALSE(window().document().modified());
}

TEST_F(ByHand, ChangedItemStaysTheCurrentOneAndInSight) {
    propose(QStringLiteral("Description"), QStringLiteral("new"));
    const auto isCurrent = [this] {
        const QTreeWidgetItem* current = tree().currentItem();
        return current && current->text(0) == QStringLiteral("Description");
    };
    EXPECT_TRUE(isCurrent());
    EXPECT_SOON(tree().viewport()->rect().contains(tree().visualItemRect(tree().currentItem())));
    // And on to the same item of another element.
    window().elements().select(*window().document().model()->find(
        *desktop::guidFromText(QStringLiteral("A32931C7-B3B2-4117-8D6A-3038DD4E9A78"))));
    EXPECT_TRUE(isCurrent());
}

TEST_F(ByHand, ListIsReviewedAndAppliedThroughTheAddOn) {
    propose(QStringLiteral("FireRating"), QStringLiteral("F 120"));
    propose(QStringLiteral("Name"), QStringLiteral("North wall"));
    EXPECT_EQ(bar().text(), QStringLiteral("2 changes by hand"));
    reviewList([](AddOnDialog& dialog) {
        ASSERT_EQ(rowCount(dialog), 2);
        EXPECT_EQ(cell(dialog, 1, 5), QStringLiteral("FireRating[WallCommon]"));
        EXPECT_EQ(cell(dialog, 1, 6), QStringLiteral("F 90-AB"));
        EXPECT_EQ(cell(dialog, 1, 7), QStringLiteral("F 120"));
        EXPECT_EQ(cell(dialog, 2, 5), QStringLiteral("Name"));
        clickCell(dialog, 1, 1);
        press(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_EQ(cell(dialog, 1, 8), QStringLiteral("Done"));
    });
    EXPECT_EQ(shown(QStringLiteral("FireRating")), QStringLiteral("F 120"));
    EXPECT_EQ(bar().text(), QStringLiteral("1 change by hand")) << "what was not ticked is still proposed";
    EXPECT_EQ(window().document().model()->undoSteps().undo.has_value(), true);
}

TEST_F(ByHand, ValueThatTheModelHoldsTakesTheProposalBack) {
    propose(QStringLiteral("FireRating"), QStringLiteral("F 120"));
    propose(QStringLiteral("FireRating"), QStringLiteral("F 90-AB"));
    EXPECT_EQ(shown(QStringLiteral("FireRating")), QStringLiteral("F 90-AB"));
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(ByHand, DiscardTakesAllBack) {
    propose(QStringLiteral("Name"), QStringLiteral("North wall"));
    click(*bar().discardButton());
    EXPECT_FALSE(bar().isVisible());
    EXPECT_THAT(shown(QStringLiteral("Name")).toStdString(), Not(HasSubstr("North")));
}

TEST_F(ByHand, FactsThatNoUpdateCanChangeHaveNoEditor) {
    tree().setCurrentItem(row(QStringLiteral("Storey")), 1);
    tree().setFocus();
    press(window(), Qt::Key_F2);
    EXPECT_EQ(tree().findChild<QLineEdit*>(QStringLiteral("valueEditor")), nullptr);
    tree().setCurrentItem(row(QStringLiteral("Name")), 1);
    press(window(), Qt::Key_F2);
    EXPECT_NE(tree().findChild<QLineEdit*>(QStringLiteral("valueEditor")), nullptr);
}

TEST_F(ByHand, WhatNoLineCanHoldIsRefusedWithTheReason) {
    const auto text = answer(QStringLiteral("handMessage"), QMessageBox::Ok);
    QApplication::clipboard()->setText(QString(3000, u'x'));
    propose(QStringLiteral("Name"), QString());
    tree().editItem(row(QStringLiteral("Name")), 1);
    press(window(), Qt::Key_V, Qt::ControlModifier);
    press(window(), Qt::Key_Return);
    EXPECT_SOON(!text->isEmpty());
    EXPECT_THAT(text->toStdString(), HasSubstr("2047 bytes"));
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(ByHand, ClosingTheModelAsksAboutThem) {
    propose(QStringLiteral("Name"), QStringLiteral("North wall"));
    answer(QStringLiteral("proposalsQuestion"), QMessageBox::Cancel);
    EXPECT_FALSE(window().fileMenu().close());
    EXPECT_TRUE(window().document().isOpen());
    answer(QStringLiteral("proposalsQuestion"), QMessageBox::Discard);
    EXPECT_TRUE(window().fileMenu().close());
    EXPECT_FALSE(bar().isVisible());
}

}  // namespace desktop_tests
