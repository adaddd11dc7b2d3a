// The plan: what it shows, how it is moved, and how it answers an add-on's request for a point.

#include "PlanDesk.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanDrawing.hpp"
#include "desktop/plan/PlanPainter.hpp"
#include "desktop/plan/PlanPanel.hpp"

#include <QTableView>
#include <QWheelEvent>
#include <algorithm>

namespace desktop_tests {

namespace {

using testing::HasSubstr;

}  // namespace

class Plan : public PlanDesk {};

TEST_F(Plan, ClickOnAnElementSelectsItInTheTable) {
    window().plan().showElement(element(Wall));
    EXPECT_SOON(geometryRead());
    clickAt(view(), placeOf(element(Wall)));
    EXPECT_EQ(window().elements().current(), element(Wall));
}

TEST_F(Plan, BeginsWithTheStoreyThatIsEntered) {
    EXPECT_EQ(window().plan().storeyName(), QStringLiteral("Erdgeschoss"));
    openChanged({{"#308=IFCCARTESIANPOINT((0.,0.,0.))", "#308=IFCCARTESIANPOINT((0.,0.,-2.9))"},
                 {"#312=IFCCARTESIANPOINT((0.,0.,2.9))", "#312=IFCCARTESIANPOINT((0.,0.,-0.1))"}});
    EXPECT_EQ(window().plan().storeyName(), QStringLiteral("Obergeschoss")) << "the other one is below the ground";
    openChanged({{"#308=IFCCARTESIANPOINT((0.,0.,0.))", "#308=IFCCARTESIANPOINT((0.,0.,-5.8))"},
                 {"#312=IFCCARTESIANPOINT((0.,0.,2.9))", "#312=IFCCARTESIANPOINT((0.,0.,-2.9))"}});
    EXPECT_EQ(window().plan().storeyName(), QStringLiteral("Erdgeschoss")) << "none is above, and it has most elements";
}

TEST_F(Plan, SelectingAnElementShowsItsStoreyAndOneWithoutLeavesThePlan) {
    const desktop::ElementIndex& index = *window().document().index();
    int expected = choice().currentData().toInt();
    int changes = 0;
    for (model::Element it = 0; it < index.size(); ++it) {
        window().elements().select(it);
        const auto storey = index.storey(it);
        if (!index.storeys()[storey].name.isEmpty()) {
            changes += static_cast<int>(storey) != expected;
            expected = static_cast<int>(storey);
        }
        EXPECT_EQ(choice().currentData().toInt(), expected) << it;
    }
    EXPECT_GT(changes, 0) << "the sample has more than one storey";
}

TEST_F(Plan, AllThatAreSelectedAreDrawnSo) {
    const QColor highlight = view().palette().color(QPalette::Highlight);
    const auto drawnSelected = [&](const QString& guid) {
        const QPolygonF& ring = footprint(guid)->rings.front();
        const QColor color = colorAt((ring[0] + ring[1]) / 2);
        return std::abs(color.hue() - highlight.hue()) < 15 && color.saturation() > 100;
    };
    const QString door = QStringLiteral("A32931C7-B3B2-4117-8D6A-3038DD4E9A78");
    EXPECT_SOON(drawn());
    EXPECT_FALSE(drawnSelected(Wall) || drawnSelected(door));
    QTableView& table = *window().elements().table();
    const auto& shown = window().elements().shown();
    for (const QString& guid : {Wall, door}) {
        const auto row = std::find(shown.begin(), shown.end(), element(guid)) - shown.begin();
        table.selectionModel()->select(table.model()->index(static_cast<int>(row), 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    EXPECT_TRUE(drawnSelected(Wall) && drawnSelected(door));
    window().elements().select(element(door));
    EXPECT_FALSE(drawnSelected(Wall));
    EXPECT_TRUE(drawnSelected(door));
}

TEST_F(Plan, FittedStandsAboveTheScaleBar) {
    double lowest = 0;
    for (const desktop::Footprint* footprint : view().footprints()) {
        if (footprint->kind != model::PlanKind::Terrain && footprint->kind != model::PlanKind::Grid)
            lowest = std::max(lowest, view().viewport().toScreen(footprint->box).bottom());
    }
    EXPECT_GT(lowest, view().height() / 2);
    EXPECT_LE(lowest, view().height() - 16 - 20 + 1);
}

TEST_F(Plan, OfFewElementsShowsEvenThoseThatAreTooSmall) {
    const auto dots = [this](double scale) {
        desktop::PlanViewport viewport = view().viewport();
        viewport.scale *= scale;
        const auto items = desktop::buildingItems(view().geometry(), viewport);
        EXPECT_FALSE(items.empty());
        return std::count_if(items.begin(), items.end(), [](const desktop::PlanItem& item) {
            return std::holds_alternative<desktop::PlanItem::Dot>(item.what);
        });
    };
    EXPECT_LE(dots(1), 1) << "what has no shape is no more than a place";
    EXPECT_GT(dots(0.001), 10);
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
    const std::string updates = Wall.toStdString() + "\tName\t\tNew name\n";
    review(updates, [&](desktop::AddOnDialog& dialog) {
        const auto counts = [&] { return view().accessibleDescription().toStdString(); };
        EXPECT_SOON(view().accessibleDescription() == QStringLiteral("1 not ticked"));
        clickCell(dialog, 1, 1);
        EXPECT_EQ(counts(), "1 ticked");
        clickItem(dialog, ApplyItem);
        EXPECT_EQ(counts(), "1 done");
        EXPECT_THAT(choice().currentText().toStdString(), HasSubstr("1 of 1 marked"));
    });
    EXPECT_EQ(view().accessibleDescription(), QString()) << "the marks go with the dialog";
}

TEST_F(Plan, MarkedElementIsDrawnInItsMarksColour) {
    review(Wall.toStdString() + "\tName\t\tNew name\n", [&](desktop::AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        window().plan().showElement(std::nullopt);
        const QPoint place = view().viewport().toScreen(middleOfFirstPart(element(Wall))).toPoint();
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
    const std::string Door = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78";
    review(Door + "\tName\t\tNew\n" + Wall.toStdString() + "\tName\t\tNew\n", [&](desktop::AddOnDialog& dialog) {
        window().plan().showElement(element(Wall));
        EXPECT_SOON(geometryRead());
        clickAt(view(), placeOf(element(Wall)));
        EXPECT_EQ(listOf(dialog).currentIndex().row(), 1);
    });
}

TEST_F(Plan, LookedUpElementIsSelectedEverywhereAndNothingIsMarked) {
    lookUp([&](desktop::AddOnDialog& dialog) {
        press(dialog, Qt::Key_Return);
        EXPECT_SOON(window().elements().current() == element(Wall));
        EXPECT_EQ(view().accessibleDescription(), QString());
    });
}

/// Contrast as the accessibility guidelines for the web define it: 3 is the least for what is to be told apart.
double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

TEST(PlanColors, MarksAreToldFromThePaperInLightAndInDark) {
    using desktop::Mark;
    for (const auto& palette : {QPalette(Qt::white, Qt::white), QPalette(QColor(40, 40, 40), QColor(35, 35, 35))}) {
        const QColor paper = palette.color(QPalette::Base);
        for (const Mark mark : {Mark::Unchanged, Mark::Done, Mark::Ticked, Mark::Error}) {
            EXPECT_GE(contrast(desktop::markColor(palette, mark), paper), 3)
                << desktop::markText(mark).toStdString() << " on " << paper.name().toStdString();
        }
        EXPECT_GE(contrast(desktop::markColor(palette, Mark::Open), paper), 2.3) << "amber is never dark";
        EXPECT_GE(contrast(desktop::planStyle(palette, model::PlanKind::Structure, true).fill, paper), 2.3);
    }
}

}  // namespace desktop_tests
