#pragma once
// A person at the plan of the sample.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/plan/PlanLayers.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "support/Places.hpp"

#include <QComboBox>

namespace desktop_tests {

inline const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

class PlanDesk : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        openSample();
        EXPECT_SOON(geometryRead());
    }
    bool geometryRead() { return window().plan().view()->complete(); }
    QComboBox& choice() { return *window().plan().storeyChoice(); }
    desktop::PlanView& view() { return *window().plan().view(); }
    model::Element element(const QString& guid) {
        return *window().document().model()->find(*desktop::guidFromText(guid));
    }
    const desktop::Footprint* footprint(const QString& guid) { return view().geometry().find(element(guid)); }
    bool drawn() { return geometryRead() && view().drawn(); }
    /// Ticks an entry of the menu of layers, or takes its tick away, by mouse.
    void pickLayer(desktop::PlanLayer layer);
    /// Zooms about a point of the model until a unit has so many pixels, and waits for the drawing.
    void zoomTo(const QPointF& point, double scale);
    /// What the window shows of the plan.
    QColor colorAt(const QPointF& point);
    /// The sample with one text in place of another.
    void openChanged(const std::vector<std::pair<std::string, std::string>>& changes) {
        std::string text = testing_support::bytesOf(testing_support::projectFile("samples/house.ifc"));
        for (const auto& [from, to] : changes) {
            ASSERT_NE(text.find(from), std::string::npos) << from;
            text.replace(text.find(from), from.size(), to);
        }
        openFile(folder_.write("changed.ifc", text));
        EXPECT_SOON(geometryRead());
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
    /// Of a wall: doors and windows cut it into rectangles.
    QPointF middleOfFirstPart(model::Element wall) {
        const auto ring = window().document().model()->outline(wall).rings.at(0);
        QPointF sum;
        for (const model::Point& corner : ring) sum += QPointF(corner.x, corner.y);
        return sum / static_cast<double>(ring.size());
    }
};

}  // namespace desktop_tests
