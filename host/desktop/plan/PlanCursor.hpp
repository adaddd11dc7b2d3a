#pragma once

#include "desktop/plan/PlanView.hpp"

#include <QWidget>

namespace desktop {

/// The plan by keyboard: Ctrl and an arrow go from element to element, Return does there what a click does. Lies over
/// the plan, lets the mouse through, and draws where the keyboard is: a frame around the plan that has the focus, a
/// dashed one around the element that is pointed at.
class PlanCursor : public QWidget {
    Q_OBJECT

public:
    explicit PlanCursor(PlanView* plan);

    /// The element that the keyboard points at, as long as the plan has the focus and shows it.
    std::optional<model::Element> element() const;
    PlanView* plan() const { return plan_; }

Q_SIGNALS:
    /// The keyboard points at another element, told in a line.
    void moved(model::Element element, const QString& what);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool takeKey(int key, Qt::KeyboardModifiers modifiers);
    void move(const QPointF& direction);
    const Footprint* start() const;
    const Footprint* next(const Footprint& from, const QPointF& direction) const;
    void pointAt(model::Element element);

    PlanView* plan_;
    std::optional<model::Element> element_;
};

/// An element in a line: name, type, class, and how its row in an open review stands.
QString planElementText(const PlanView& plan, model::Element element);

}  // namespace desktop
