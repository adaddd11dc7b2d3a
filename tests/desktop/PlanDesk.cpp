#include "PlanDesk.hpp"

#include <QMenu>
#include <QToolButton>
#include <QWheelEvent>
#include <cmath>

namespace desktop_tests {

void PlanDesk::pickLayer(desktop::PlanLayer layer) {
    QToolButton* button = window().plan().layersButton();
    QMenu* menu = button->menu();
    QAction* wanted = nullptr;
    for (QAction* action : menu->actions()) {
        if (action->text() == desktop::layerText(layer)) wanted = action;
    }
    ASSERT_NE(wanted, nullptr);
    // The button shows its menu until something is picked from it.
    QTimer::singleShot(0, menu, [menu, wanted] {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
        clickAt(*menu, menu->actionGeometry(wanted).center());
    });
    click(*button);
    EXPECT_SOON(drawn());
}

void PlanDesk::zoomTo(const QPointF& point, double scale) {
    const auto wheel = [this](const QPointF& place, double steps) {
        QWheelEvent event(place, view().mapToGlobal(place), {}, {0, static_cast<int>(steps * 120)}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view(), &event);
    };
    // Whole steps: the wheel has no others.
    for (int i = 0; i < 100 && view().viewport().scale < scale; ++i) wheel(view().viewport().toScreen(point), 1);
    for (int i = 0; i < 100 && view().viewport().scale > scale * 1.25; ++i) wheel(view().rect().center(), -1);
    EXPECT_SOON(drawn());
}

QColor PlanDesk::colorAt(const QPointF& point) {
    const QPointF place = view().viewport().toScreen(point) * view().devicePixelRatio();
    return view().grab().toImage().pixelColor(static_cast<int>(std::floor(place.x())),
                                              static_cast<int>(std::floor(place.y())));
}

}  // namespace desktop_tests
