// Reading the window with other senses, and working in it by keyboard alone.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/ItemDialog.hpp"
#include "desktop/plan/PlanCursor.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/FileMenu.hpp"
#include "desktop/window/HelpMenu.hpp"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QImage>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <set>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using desktop::PlanView;
using testing::HasSubstr;

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

/// Each widget below that takes the keyboard has a name, and says what it is.
void expectDescribed(const QWidget& root, const std::string& where) {
    int seen = 0;
    QList<const QWidget*> widgets = {&root};
    for (const QWidget* widget : root.findChildren<QWidget*>()) widgets += widget;
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus || widget->isWindow()) continue;
        // Parts of Qt's own controls: the arrow of a menu, the inside of a scroll area.
        if (widget->objectName().startsWith(QStringLiteral("qt_"))) continue;
        // Docks keep an empty one behind a panel that stands alone.
        const auto* tabs = qobject_cast<const QTabBar*>(widget);
        if (tabs && tabs->count() == 0) continue;
        const QWidget* parent = widget->parentWidget();
        const std::string what = where + ": " + widget->metaObject()->className() + ' ' +
                                 widget->objectName().toStdString() + " in " +
                                 (parent ? parent->metaObject()->className() : "nothing");
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        ASSERT_NE(control, nullptr) << what;
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << what;
        EXPECT_NE(control->role(), QAccessible::NoRole) << what;
        EXPECT_NE(control->role(), QAccessible::Client) << what << " is a widget and nothing else";
        ++seen;
    }
    EXPECT_GT(seen, 0) << where;
}

}  // namespace

class OtherSenses : public Desk {
protected:
    PlanView& plan() { return *window().plan().view(); }
    desktop::PlanCursor& cursor() { return window().planCursor(); }
    QAccessibleInterface& accessiblePlan() { return *QAccessible::queryAccessibleInterface(&plan()); }
    model::Element element(const QString& guid) {
        return *window().document().model()->find(*desktop::guidFromText(guid));
    }
    void openPlan() {
        openSample();
        EXPECT_SOON(plan().complete());
        plan().setFocus();
    }
    void point(Qt::Key arrow) { press(window(), arrow, Qt::ControlModifier); }
    std::string described(model::Element wanted) {
        const QAccessibleInterface* found = part(wanted);
        return found ? found->text(QAccessible::Description).toStdString() : "(no part)";
    }
    QAccessible::State state(model::Element wanted) {
        const QAccessibleInterface* found = part(wanted);
        return found ? found->state() : QAccessible::State();
    }
    QAccessibleInterface* part(model::Element wanted) {
        const QString shown = desktop::guidText(window().document().index()->guid(wanted));
        for (int i = 0; i < accessiblePlan().childCount(); ++i) {
            QAccessibleInterface* child = accessiblePlan().child(i);
            if (child->text(QAccessible::Help) == shown) return child;
        }
        return nullptr;
    }
};

TEST_F(OtherSenses, EveryControlOfTheWindowIsDescribed) {
    expectDescribed(window(), "start");
    openSample();
    expectDescribed(window(), "model");
}

TEST_F(OtherSenses, EveryControlOfTheDialogsIsDescribed) {
    openSample();
    review(Wall.toStdString() + "\tName\t\tNorth wall\nnothing\n", [this](AddOnDialog& dialog) {
        expectDescribed(dialog, "review");
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        expectDescribed(window(), "review after Apply");
    });
    lookUp([](AddOnDialog& dialog) { expectDescribed(dialog, "look-up"); });
    whenShown<desktop::ItemDialog>(QStringLiteral("itemDialog"), [](desktop::ItemDialog& dialog) {
        expectDescribed(dialog, "add column");
        press(dialog, Qt::Key_Escape);
    });
    QMenu* columns = window().elements().columns().menu();
    Q_EMIT columns->aboutToShow();
    columns->findChild<QAction*>(QStringLiteral("addColumn"))->trigger();
    whenShown<QMessageBox>(QStringLiteral("unsavedQuestion"), [](QMessageBox& box) {
        expectDescribed(box, "question");
        click(*box.button(QMessageBox::Cancel));
    });
    EXPECT_FALSE(window().fileMenu().close());
}

TEST_F(OtherSenses, PlanIsAPictureWhosePartsAreItsElements) {
    openPlan();
    QAccessibleInterface& picture = accessiblePlan();
    EXPECT_EQ(picture.role(), QAccessible::Canvas);
    std::set<model::Element> shown;
    for (const desktop::Footprint* footprint : plan().footprints()) shown.insert(footprint->element);
    ASSERT_EQ(picture.childCount(), static_cast<int>(shown.size()));
    EXPECT_EQ(picture.child(-1), nullptr);
    EXPECT_EQ(picture.child(picture.childCount()), nullptr);
    for (int i = 0; i < picture.childCount(); ++i) {
        QAccessibleInterface* child = picture.child(i);
        EXPECT_EQ(picture.indexOfChild(child), i);
        EXPECT_EQ(child->role(), QAccessible::Graphic);
        EXPECT_FALSE(child->text(QAccessible::Name).isEmpty());
        EXPECT_EQ(child->parent(), &picture);
        EXPECT_TRUE(picture.rect().intersects(child->rect())) << child->text(QAccessible::Name).toStdString();
    }
    QAccessibleInterface* wall = part(element(Wall));
    ASSERT_NE(wall, nullptr);
    EXPECT_EQ(wall->text(QAccessible::Name), QString::fromUtf8("Außenwand Süd"));
    EXPECT_EQ(wall->text(QAccessible::Description), QString::fromUtf8("Außenwand Süd, Wall, IfcWall"));
}

TEST_F(OtherSenses, PartsOfThePlanFollowTheStorey) {
    openPlan();
    EXPECT_NE(part(element(Wall)), nullptr);
    const int before = accessiblePlan().childCount();
    QComboBox& storeys = *window().plan().storeyChoice();
    const int upper = storeys.findText(QStringLiteral("Obergeschoss"), Qt::MatchStartsWith);  // Its height follows.
    ASSERT_GE(upper, 0);
    storeys.setCurrentIndex(upper);
    EXPECT_SOON(plan().complete());
    QCoreApplication::processEvents();
    EXPECT_EQ(part(element(Wall)), nullptr);
    EXPECT_NE(accessiblePlan().childCount(), before);
}

TEST_F(OtherSenses, PartOfThePlanIsPressedAndSaysThatItIsSelected) {
    openPlan();
    QAccessibleInterface* wall = part(element(Wall));
    ASSERT_NE(wall, nullptr);
    QAccessibleActionInterface* actions = wall->actionInterface();
    ASSERT_NE(actions, nullptr);
    EXPECT_FALSE(wall->state().selected);
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(window().elements().current(), element(Wall));
    EXPECT_TRUE(state(element(Wall)).selected);
}

TEST_F(OtherSenses, PartsOfThePlanSayHowTheirRowsStand) {
    openPlan();
    review(Wall.toStdString() + "\tName\t\tNorth wall\n", [this](AddOnDialog& dialog) {
        EXPECT_THAT(described(element(Wall)), testing::EndsWith(", not ticked"));
        EXPECT_TRUE(state(element(Wall)).checkable);
        EXPECT_FALSE(state(element(Wall)).checked);
        clickItem(dialog, SelectAllItem);
        EXPECT_TRUE(state(element(Wall)).checked);
        clickItem(dialog, ApplyItem);
        EXPECT_THAT(described(element(Wall)), testing::EndsWith(", done"));
    });
}

TEST_F(OtherSenses, ArrowsWithCtrlGoFromElementToElement) {
    openPlan();
    window().elements().select(element(Wall));
    plan().setFocus();
    EXPECT_FALSE(cursor().element().has_value());
    point(Qt::Key_Up);
    EXPECT_EQ(cursor().element(), element(Wall)) << "it begins at what is selected";
    const auto middle = [this](model::Element which) { return plan().geometry().find(which)->box.center(); };
    point(Qt::Key_Up);
    ASSERT_TRUE(cursor().element().has_value());
    EXPECT_NE(cursor().element(), element(Wall));
    EXPECT_GT(middle(*cursor().element()).y(), middle(element(Wall)).y()) << "north is up";
    EXPECT_EQ(window().elements().current(), element(Wall)) << "pointing selects nothing";
    const std::string told = window().statusBar()->currentMessage().toStdString();
    EXPECT_EQ(told, desktop::planElementText(plan(), *cursor().element()).toStdString());
    const model::Element pointedAt = *cursor().element();
    press(window(), Qt::Key_Return);
    EXPECT_EQ(window().elements().current(), pointedAt);
}

TEST_F(OtherSenses, EveryElementOfThePlanIsReachedByArrows) {
    openPlan();
    std::set<model::Element> shown, reached;
    for (const desktop::Footprint* footprint : plan().footprints()) shown.insert(footprint->element);
    const Qt::Key arrows[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
    for (const model::Element from : shown) {
        window().elements().select(from);
        for (const Qt::Key arrow : arrows) {
            clickAt(plan(), QPoint(2, 2));
            plan().setFocus();
            window().elements().select(from);
            point(arrow);
            ASSERT_EQ(cursor().element(), from);
            point(arrow);
            if (cursor().element() != from) reached.insert(*cursor().element());
        }
    }
    EXPECT_EQ(reached, shown);
}

TEST_F(OtherSenses, MenuKeyOpensTheMenuOfWhatTheKeyboardPointsAt) {
    openPlan();
    QCursor::setPos(window().mapToGlobal(QPoint(5, 5)));
    point(Qt::Key_Up);
    ASSERT_TRUE(cursor().element().has_value());
    const QString wanted = desktop::guidText(window().document().index()->guid(*cursor().element()));
    QTimer::singleShot(50, qApp, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        auto* copy = menu->findChild<QAction*>(QStringLiteral("copyGuid"));
        clickAt(*menu, menu->actionGeometry(copy).center());
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, plan().mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&plan(), &event);
    EXPECT_EQ(QApplication::clipboard()->text(), wanted);
}

TEST_F(OtherSenses, ReturnAnswersTheRequestForAPoint) {
    openPlan();
    point(Qt::Key_Up);
    const QPointF middle = plan().geometry().find(*cursor().element())->box.center();
    QTimer::singleShot(50, &window(), [this] { press(window(), Qt::Key_Return); });
    const auto picked = window().plan().pickPoint(QStringLiteral("Where?"));
    ASSERT_TRUE(picked.has_value());
    EXPECT_NEAR(picked->position.x, middle.x(), 1e-6);
    EXPECT_NEAR(picked->position.y, middle.y(), 1e-6);
}

TEST_F(OtherSenses, MouseTakesThePointerFromTheKeyboard) {
    openPlan();
    point(Qt::Key_Up);
    ASSERT_TRUE(cursor().element().has_value());
    clickAt(plan(), QPoint(2, 2));
    EXPECT_FALSE(cursor().element().has_value());
}

TEST_F(OtherSenses, PlanShowsThatItHasTheFocusAndWhereTheKeyboardIs) {
    openPlan();
    const auto picture = [this] {
        QCoreApplication::processEvents();
        return plan().grab().toImage();
    };
    const QRgb strong = plan().palette().color(QPalette::Highlight).rgb();
    EXPECT_EQ(picture().pixel(0, plan().height() / 2), strong);
    const QImage before = picture();
    point(Qt::Key_Up);
    EXPECT_NE(picture(), before);
    window().elements().table()->setFocus();
    EXPECT_NE(picture().pixel(0, plan().height() / 2), strong);
}

}  // namespace desktop_tests
