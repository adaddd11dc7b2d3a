// Marks in the plan: their outlines, their signs, and what is said about them.

#include "PlanDesk.hpp"
#include "desktop/plan/PlanDrawing.hpp"
#include "desktop/plan/PlanPainter.hpp"

namespace desktop_tests {

namespace {

using desktop::Footprint;
using desktop::Mark;
using desktop::PlanSign;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

Footprint square(double x, double y, double side = 0.1) {
    Footprint footprint;
    footprint.rings << QPolygonF({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}});
    footprint.box = footprint.rings[0].boundingRect();
    footprint.area = side * side;
    return footprint;
}

desktop::PlanViewport viewport(double scale) {
    desktop::PlanViewport view;
    view.size = {800, 600};
    view.scale = scale;
    return view;
}

int countOf(const std::vector<PlanSign>& signs, Mark mark) {
    int count = 0;
    for (const PlanSign& sign : signs) count += sign.mark == mark ? sign.count : 0;
    return count;
}

TEST(PlanSigns, OfOneMarkAreGatheredWhereTheyWouldLieUponEachOther) {
    std::vector<Footprint> footprints;
    for (int i = 0; i < 300; ++i) footprints.push_back(square(0.01 * (i % 20), 0.01 * static_cast<double>(i / 20)));
    footprints.push_back(square(50, 50));
    std::vector<std::pair<const Footprint*, Mark>> marked;
    for (const Footprint& footprint : footprints) marked.emplace_back(&footprint, Mark::Done);
    marked[7].second = Mark::Error;
    const auto far = desktop::gatheredSigns(marked, viewport(10));
    ASSERT_THAT(far, SizeIs(3));
    EXPECT_EQ(countOf(far, Mark::Done), 300);
    EXPECT_EQ(far.back().mark, Mark::Error) << "what needs an eye lies on top";
    EXPECT_EQ(far.back().count, 1);
    EXPECT_GT(std::abs(viewport(10).toScreen(far.back().place).y() - viewport(10).toScreen(far.front().place).y()), 12)
        << "one does not hide the other";
    // From near, each has its own.
    const auto near = desktop::gatheredSigns(marked, viewport(20'000));
    EXPECT_THAT(near, SizeIs(301));
}

TEST(PlanSigns, StayWhereTheyAreWhileThePlanIsMoved) {
    std::vector<Footprint> footprints;
    for (int i = 0; i < 50; ++i) footprints.push_back(square(i * 0.7, i * 0.3));
    std::vector<std::pair<const Footprint*, Mark>> marked;
    for (const Footprint& footprint : footprints) marked.emplace_back(&footprint, Mark::Open);
    desktop::PlanViewport moved = viewport(20);
    moved.pan({13, -21});
    const auto before = desktop::gatheredSigns(marked, viewport(20)), after = desktop::gatheredSigns(marked, moved);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(before[i].place, after[i].place);
}

TEST(PlanSigns, StandOnWhatTheyAreAbout) {
    Footprint angle;
    angle.rings << QPolygonF({{0, 0}, {10, 0}, {10, 2}, {2, 2}, {2, 10}, {0, 10}});
    angle.box = angle.rings[0].boundingRect();
    const QPointF place = desktop::signPlace(angle);
    EXPECT_TRUE(place.x() <= 2 || place.y() <= 2) << "not in the notch";
    EXPECT_EQ(desktop::signPlace(square(4, 4, 2)), QPointF(5, 5));
    Footprint line;
    line.lines << QPolygonF(QList<QPointF>{{0, 0}, {4, 2}});
    line.box = line.lines[0].boundingRect();
    EXPECT_EQ(desktop::signPlace(line), QPointF(2, 1));
}

}  // namespace

class PlanMarksShown : public PlanDesk {
protected:
    static int distance(const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    }
};

TEST_F(PlanMarksShown, MarkIsAnOutlineWithASign) {
    review(Wall.toStdString() + "\tName\t\tNew name\n", [&](desktop::AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        window().plan().showElement(std::nullopt);
        EXPECT_SOON(drawn());
        const Footprint& wall = *footprint(Wall);
        const QColor mark = desktop::markColor(view().palette(), Mark::Ticked);
        zoomTo(desktop::signPlace(wall), 120);
        const QPointF edge = (wall.rings[0][0] + wall.rings[0][1]) / 2;
        const QPointF middle = desktop::signPlace(wall), beside = middle + QPointF(0.3, 0);
        EXPECT_LT(distance(colorAt(middle + QPointF(5.5, 0) / view().viewport().scale), mark), 30) << "the sign";
        EXPECT_GT(distance(colorAt(beside), mark), 60) << "the wall is still to be seen";
        view().fit();
        EXPECT_SOON(drawn());
        EXPECT_LT(distance(colorAt(edge), mark), 60) << "the outline";
    });
}

TEST_F(PlanMarksShown, ToolTipSaysWhatTheReviewDoesToTheElement) {
    const QPoint place = placeOf(element(Wall));
    const auto tip = [&] { return view().toolTipAt(place).toStdString(); };
    EXPECT_THAT(tip(), HasSubstr("Außenwand Süd\nWall (IfcWall)"));
    EXPECT_THAT(tip(), HasSubstr(Wall.toStdString()));
    review(Wall.toStdString() + "\tFireRating[WallCommon]\tF 90-AB\tF 120-AB\n", [&](desktop::AddOnDialog& dialog) {
        EXPECT_SOON(drawn());
        const QPoint shown = placeOf(element(Wall));
        EXPECT_THAT(view().toolTipAt(shown).toStdString(),
                    HasSubstr("FireRating[WallCommon]: F 90-AB → F 120-AB (not ticked)"));
        clickCell(dialog, 1, 1);
        EXPECT_THAT(view().toolTipAt(placeOf(element(Wall))).toStdString(), HasSubstr("(ticked)"));
    });
    EXPECT_THAT(tip(), Not(HasSubstr("FireRating")));
}

TEST_F(PlanMarksShown, ToolTipOfManyRowsIsCut) {
    std::string updates;
    for (int i = 0; i < 10; ++i) updates += Wall.toStdString() + "\tName\t\tName " + std::to_string(i) + "\n";
    review(updates, [&](desktop::AddOnDialog&) {
        EXPECT_SOON(drawn());
        const std::string tip = view().toolTipAt(placeOf(element(Wall))).toStdString();
        EXPECT_THAT(tip, HasSubstr("Name 7"));
        EXPECT_THAT(tip, Not(HasSubstr("Name 8")));
        EXPECT_THAT(tip, HasSubstr("and 2 more"));
    });
}

TEST_F(PlanMarksShown, ToolTipOfARoomSaysItsNumberNameAndArea) {
    const desktop::ElementIndex& index = *window().document().index();
    for (model::Element it = 0; it < index.size(); ++it) {
        const desktop::PlanLabel* label = view().geometry().label(it);
        if (!label || label->number != QStringLiteral("001")) continue;
        zoomTo(label->middle, 60);
        const QString tip = view().toolTipAt(view().viewport().toScreen(label->middle));
        EXPECT_TRUE(tip.startsWith(QStringLiteral("001 Küche 16"))) << tip.toStdString();
        return;
    }
    FAIL() << "no kitchen";
}

}  // namespace desktop_tests
