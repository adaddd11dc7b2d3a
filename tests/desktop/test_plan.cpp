// The plan: what it shows, how it is moved, and how it answers an add-on's request for a point.

#include "Desk.hpp"
#include "desktop/Text.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanColors.hpp"
#include "desktop/plan/PlanPanel.hpp"

#include <QComboBox>
#include <QWheelEvent>

namespace desktop_tests {

namespace {

using testing::HasSubstr;

const QString wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

}  // namespace

class Plan : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        openSample();
        EXPECT_SOON(geometryRead());
    }
    bool geometryRead() { return window().plan().view()->complete(); }
    desktop::PlanView& view() { return *window().plan().view(); }
    model::Element element(const QString& guid) {
        return *window().document().model()->find(*desktop::guidFromText(guid));
    }
    /// A place in the view where a click hits the element.
    QPoint placeOf(model::Element wanted) {
        for (int y = 0; y < view().height(); y += 2) {
            for (int x = 0; x < view().width(); x += 2) {
                if (view().hit(view().viewport().toModel(QPointF(x, y)), false) == wanted) return {x, y};
            }
        }
        ADD_FAILURE() << "the element is not in sight";
        return {};
    }
};

TEST_F(Plan, ClickOnAnElementSelectsItInTheTable) {
    window().plan().showElement(element(wall));
    EXPECT_SOON(geometryRead());
    clickAt(view(), placeOf(element(wall)));
    EXPECT_EQ(window().elements().current(), element(wall));
}

TEST_F(Plan, SelectingAnElementOfAnotherStoreyShowsThatStorey) {
    const desktop::ElementIndex& index = *window().document().index();
    QComboBox* choice = window().plan().storeyChoice();
    for (model::Element it = 0; it < index.size(); ++it) {
        window().elements().select(it);
        EXPECT_EQ(choice->currentData().toInt(), static_cast<int>(index.storey(it)));
    }
}

TEST_F(Plan, WheelZoomsAboutTheCursorAndFitShowsAllAgain) {
    const QPointF place(40, 60);
    const QPointF point = view().viewport().toModel(place);
    const double scale = view().viewport().scale;
    QWheelEvent wheel(place, view().mapToGlobal(place), {}, {0, 240}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view(), &wheel);
    EXPECT_GT(view().viewport().scale, scale);
    EXPECT_NEAR(view().viewport().toModel(place).x(), point.x(), 1e-6);
    EXPECT_NEAR(view().viewport().toModel(place).y(), point.y(), 1e-6);
    view().setFocus();
    press(window(), Qt::Key_0);
    EXPECT_NEAR(view().viewport().scale, scale, 1e-9);
}

TEST_F(Plan, DragMovesThePlanAndSelectsNothing) {
    const QPointF before = view().viewport().center;
    QWindow* shown = window().windowHandle();
    const QPoint from = view().mapTo(&window(), QPoint(100, 100));
    QTest::mousePress(shown, Qt::LeftButton, {}, from);
    QTest::mouseMove(shown, from + QPoint(20, 0));
    QTest::mouseMove(shown, from + QPoint(60, 30));
    QTest::mouseRelease(shown, Qt::LeftButton, {}, from + QPoint(60, 30));
    const double scale = view().viewport().scale;
    EXPECT_NEAR(view().viewport().center.x(), before.x() - 60 / scale, 1e-6);
    EXPECT_NEAR(view().viewport().center.y(), before.y() + 30 / scale, 1e-6);
    EXPECT_FALSE(window().elements().current().has_value());
}

TEST_F(Plan, RowsOfTheOpenReviewAreMarkedAsTheyStand) {
    const std::string updates = wall.toStdString() + "\tName\t\tNew name\n";
    review(updates,
           [&](desktop::AddOnDialog& dialog) {
               const auto counts = [&] { return view().accessibleDescription().toStdString(); };
               EXPECT_SOON(view().accessibleDescription() == QStringLiteral("1 not ticked"));
               clickCell(dialog, 1, 1);
               EXPECT_EQ(counts(), "1 ticked");
               clickItem(dialog, applyItem);
               EXPECT_EQ(counts(), "1 done");
               EXPECT_THAT(window().plan().storeyChoice()->currentText().toStdString(), HasSubstr("1 element"));
           }  // namespace desktop_tests
    );
    EXPECT_EQ(view().accessibleDescription(), QString()) << "the marks go with the dialog";
}

TEST_F(Plan, MarkedElementIsDrawnInItsMarksColour) {
    review(wall.toStdString() + "\tName\t\tNew name\n", [&](desktop::AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        window().plan().showElement(std::nullopt);
        const QPoint place = placeOf(element(wall)) + QPoint(2, 2);
        const QColor drawn = view().grab().toImage().pixelColor(place * view().devicePixelRatio());
        const QColor mark = desktop::markColor(view().palette(), desktop::Mark::Ticked);
        const QColor paper = view().palette().color(QPalette::Base);
        const auto distance = [](const QColor& a, const QColor& b) {
            return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
        };
        EXPECT_LT(distance(drawn, mark), distance(drawn, paper)) << drawn.name().toStdString();
    });
}

TEST_F(Plan, ClickOnAMarkedElementGoesToItsRow) {
    const std::string door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";
    review(door + "\tName\t\tNew\n" + wall.toStdString() + "\tName\t\tNew\n", [&](desktop::AddOnDialog& dialog) {
        window().plan().showElement(element(wall));
        EXPECT_SOON(geometryRead());
        clickAt(view(), placeOf(element(wall)));
        EXPECT_EQ(listOf(dialog).currentIndex().row(), 1);
    });
}

}  // namespace desktop_tests
