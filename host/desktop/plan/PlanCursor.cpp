#include "desktop/plan/PlanCursor.hpp"

#include "desktop/QtText.hpp"
#include "desktop/plan/PlanPainter.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace desktop {

namespace {

/// North is where the model's y grows.
std::optional<QPointF> directionOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return QPointF(-1, 0);
        case Qt::Key_Right:
            return QPointF(1, 0);
        case Qt::Key_Up:
            return QPointF(0, 1);
        case Qt::Key_Down:
            return QPointF(0, -1);
        default:
            return std::nullopt;
    }
}

}  // namespace

QString planElementText(const PlanView& plan, model::Element element) {
    const ElementIndex* index = plan.geometry().index();
    if (!index) return {};
    QStringList parts{visible(toQString(plan.geometry().model()->name(element))), index->type(element),
                      index->ifcClass(element)};
    if (const Mark mark = plan.mark(element); mark != Mark::None) parts += markText(mark);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

PlanCursor::PlanCursor(PlanView* plan) : QWidget(plan), plan_(plan) {
    setObjectName(QStringLiteral("planCursor"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(plan->rect());
    plan->installEventFilter(this);
    connect(plan, &PlanView::shownChanged, this, qOverload<>(&QWidget::update));
}

std::optional<model::Element> PlanCursor::element() const {
    return element_ && plan_->hasFocus() && plan_->geometry().find(*element_) ? element_ : std::nullopt;
}

bool PlanCursor::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize:
            setGeometry(plan_->rect());
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            update();
            break;
        case QEvent::MouseButtonPress:
            // Who takes the mouse points with it.
            element_.reset();
            update();
            break;
        case QEvent::KeyPress: {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (takeKey(key->key(), key->modifiers())) return true;
            break;
        }
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

bool PlanCursor::takeKey(int key, Qt::KeyboardModifiers modifiers) {
    const auto direction = directionOf(key);
    if (direction && modifiers.testFlag(Qt::ControlModifier)) {
        move(*direction);
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    const auto pointedAt = element();
    const Footprint* footprint = pointedAt ? plan_->geometry().find(*pointedAt) : nullptr;
    if (plan_->prompting()) {
        Q_EMIT plan_->pointClicked(footprint ? footprint->box.center() : plan_->viewport().center);
    } else if (footprint) {
        Q_EMIT plan_->elementClicked(*pointedAt);
    }
    return true;
}

void PlanCursor::move(const QPointF& direction) {
    const auto pointedAt = element();
    const Footprint* from = pointedAt ? plan_->geometry().find(*pointedAt) : nullptr;
    const Footprint* to = from ? next(*from, direction) : start();
    if (to) pointAt(to->element);
}

/// The selected element, or the one that is nearest to the middle of what is in sight.
const Footprint* PlanCursor::start() const {
    if (const auto selected = plan_->selected()) {
        if (const Footprint* footprint = plan_->geometry().find(*selected)) return footprint;
    }
    const Footprint* best = nullptr;
    double least = 0;
    for (const Footprint* footprint : plan_->footprints()) {
        const QPointF away = footprint->box.center() - plan_->viewport().center;
        const double distance = std::hypot(away.x(), away.y());
        if (best && distance >= least) continue;
        best = footprint;
        least = distance;
    }
    return best;
}

/// The nearest one whose middle lies in that direction; what lies aside counts as twice as far. Those with the same
/// middle follow one another in their order, so that each can be reached.
const Footprint* PlanCursor::next(const Footprint& from, const QPointF& direction) const {
    const Footprint* best = nullptr;
    double least = 0;
    for (const Footprint* footprint : plan_->footprints()) {
        const QPointF away = footprint->box.center() - from.box.center();
        const double along = QPointF::dotProduct(away, direction);
        const double aside = std::abs(away.x() * direction.y() - away.y() * direction.x());
        const bool forward = direction.x() + direction.y() > 0;
        const bool samePlace = along == 0 && aside == 0;
        const bool later = forward ? footprint->element > from.element : footprint->element < from.element;
        if (samePlace ? !later : along <= 0 || aside > along * 4) continue;
        const double distance = along + 2 * aside;
        const bool nearer =
            !best || distance < least || (distance == least && (footprint->element < best->element) == forward);
        if (!nearer) continue;
        best = footprint;
        least = distance;
    }
    return best;
}

void PlanCursor::pointAt(model::Element element) {
    element_ = element;
    plan_->bringIntoSight(element);
    update();
    Q_EMIT moved(element, planElementText(*plan_, element));
}

void PlanCursor::paintEvent(QPaintEvent*) {
    if (!plan_->hasFocus()) return;
    QPainter painter(this);
    const QColor strong = palette().color(QPalette::Highlight);
    painter.setPen(QPen(strong, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    const auto pointedAt = element();
    const Footprint* footprint = pointedAt ? plan_->geometry().find(*pointedAt) : nullptr;
    if (!footprint) return;
    // Twice, so that it is seen on what is dark and on what is light.
    const QRectF box = plan_->viewport().toScreen(footprint->box).adjusted(-4, -4, 4, 4);
    painter.setPen(QPen(palette().color(QPalette::Base), 3));
    painter.drawRect(box);
    painter.setPen(QPen(palette().color(QPalette::Text), 2, Qt::DashLine));
    painter.drawRect(box);
}

}  // namespace desktop
