#include "desktop/plan/PlanAccessible.hpp"

#include "desktop/QtText.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <unordered_map>

namespace desktop {

namespace {

/// An element of the plan. It goes before the plan does.
class ElementInPlan : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ElementInPlan(PlanView& plan, model::Element element) : plan_(plan), element_(element) {}

    model::Element element() const { return element_; }

    bool isValid() const override { return footprint() != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&plan_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::Graphic; }

    QRect rect() const override {
        const Footprint* shown = footprint();
        if (!shown) return {};
        const QRectF box = plan_.viewport().toScreen(shown->box);
        // Of some elements only the place is known.
        return {plan_.mapToGlobal(box.topLeft().toPoint()), box.size().toSize().expandedTo({1, 1})};
    }

    QString text(QAccessible::Text which) const override {
        if (!isValid()) return {};
        const ElementIndex& index = *plan_.geometry().index();
        if (which == QAccessible::Description) return planElementText(plan_, element_);
        if (which == QAccessible::Help) return guidText(index.guid(element_));
        if (which != QAccessible::Name) return {};
        const QString name = visible(shownName(*plan_.geometry().model(), element_));
        return name.isEmpty() ? index.type(element_) : name;
    }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::State state() const override {
        QAccessible::State state;
        const Footprint* shown = footprint();
        if (!shown) {
            state.invalid = true;
            return state;
        }
        const Mark mark = plan_.mark(element_);
        state.selectable = state.focusable = true;
        state.selected = plan_.selected() == element_;
        state.offscreen = !plan_.viewport().visible().intersects(shown->box);
        state.invisible = !plan_.isVisible();
        state.checkable = mark == Mark::Open || mark == Mark::Ticked;
        state.checked = mark == Mark::Ticked;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction() && isValid()) Q_EMIT plan_.elementClicked(element_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    const Footprint* footprint() const { return plan_.geometry().find(element_); }

    PlanView& plan_;
    model::Element element_;
};

/// The plan. What it shows is listed when somebody asks, once until it changes: every part is asked for by its place.
class PlanAccessible : public QAccessibleWidget {
public:
    explicit PlanAccessible(PlanView* plan) : QAccessibleWidget(plan, QAccessible::Canvas), plan_(plan) {
        changes_ = QObject::connect(plan, &PlanView::shownChanged, plan, [this] { forget(); });
    }
    ~PlanAccessible() override {
        QObject::disconnect(changes_);
        forget();
    }

    int childCount() const override { return static_cast<int>(elements().size()); }

    QAccessibleInterface* child(int place) const override {
        if (place < 0 || place >= childCount()) return nullptr;
        return partOf(elements()[static_cast<std::size_t>(place)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* part = dynamic_cast<const ElementInPlan*>(child);
        return part ? placeOf(part->element()) : -1;
    }

    int placeOf(model::Element element) const {
        const auto& all = elements();
        const auto found = std::lower_bound(all.begin(), all.end(), element);
        return found == all.end() || *found != element ? -1 : static_cast<int>(found - all.begin());
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPointF pixel = plan_->mapFromGlobal(QPoint(x, y));
        const auto element = plan_->hit(plan_->viewport().toModel(pixel), true);
        return element ? partOf(*element) : nullptr;
    }

private:
    const std::vector<model::Element>& elements() const {
        if (listed_) return elements_;
        for (const Footprint* footprint : plan_->footprints()) elements_.push_back(footprint->element);
        std::sort(elements_.begin(), elements_.end());
        elements_.erase(std::unique(elements_.begin(), elements_.end()), elements_.end());
        listed_ = true;
        return elements_;
    }

    QAccessibleInterface* partOf(model::Element element) const {
        const auto [known, isNew] = parts_.try_emplace(element, 0);
        if (isNew) known->second = QAccessible::registerAccessibleInterface(new ElementInPlan(*plan_, element));
        return QAccessible::accessibleInterface(known->second);
    }

    void forget() {
        for (const auto& [element, id] : parts_) QAccessible::deleteAccessibleInterface(id);
        parts_.clear();
        elements_.clear();
        listed_ = false;
    }

    PlanView* plan_;
    QMetaObject::Connection changes_;
    mutable std::vector<model::Element> elements_;  // in the order of the file
    mutable bool listed_ = false;
    mutable std::unordered_map<model::Element, QAccessible::Id> parts_;
};

QAccessibleInterface* make(const QString& className, QObject* object) {
    auto* plan = qobject_cast<PlanView*>(object);
    const bool isPlan = plan && className == QLatin1String(PlanView::staticMetaObject.className());
    return isPlan ? new PlanAccessible(plan) : nullptr;
}

}  // namespace

void describePlansToAssistiveTechnology() {
    QAccessible::installFactory(make);  // once however often it is said
}

void announce(PlanView& plan, model::Element element) {
    if (!QAccessible::isActive()) return;
    const auto* known = dynamic_cast<PlanAccessible*>(QAccessible::queryAccessibleInterface(&plan));
    const int place = known ? known->placeOf(element) : -1;
    if (place < 0) return;
    QAccessibleEvent event(&plan, QAccessible::Focus);
    event.setChild(place);
    QAccessible::updateAccessibility(&event);
}

}  // namespace desktop
