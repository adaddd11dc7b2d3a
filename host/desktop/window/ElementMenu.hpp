#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <QPoint>
#include <optional>

class QMainWindow;
class QMenu;

namespace desktop {

class AddOnMenu;
class ElementPanel;
class InspectorPanel;
class PlanCursor;
class PlanPanel;

/// What can be done with an element, or with the value that is pointed at: the menu of the other mouse button in table,
/// plan and the element's data, which the menu key opens, too.
class ElementMenu : public QObject {
    Q_OBJECT

public:
    struct Parts {
        QMainWindow* window;
        Document& document;
        ElementPanel& elements;
        InspectorPanel& inspector;
        PlanPanel& plan;
        PlanCursor& planCursor;
        AddOnMenu& addOn;
    };
    explicit ElementMenu(const Parts& parts);

    /// Asks for a name and writes the elements that the table shows.
    void exportShown();
    /// @return false where it cannot be written; the reason is in a message.
    bool exportTo(const QString& path);

Q_SIGNALS:
    void lookUpWanted(model::Element element);
    void showInPlanWanted(model::Element element);

private:
    void showForTable(const QPoint& place);
    void showForPlan(const QPoint& place);
    void showForData(const QPoint& place);
    /// @param value  that was pointed at; nothing where none was.
    void fill(QMenu& menu, std::optional<model::Element> element, const std::optional<QString>& value);
    void copyGuids(model::Element element);
    void copy(const QString& text);

    Parts parts_;
};

}  // namespace desktop
