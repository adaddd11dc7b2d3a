#pragma once

#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/ReviewRows.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <memory>

namespace desktop {

class ElementPanel;
class PlanPanel;

/// Ties an open dialog to the main window: the elements of its rows are marked in the plan, the element of its current
/// row is the selected one everywhere, and a click on an element in the plan goes to its row.
class Review : public QObject {
    Q_OBJECT

public:
    Review(Document& document, PlanPanel& plan, ElementPanel& elements, AddOnDialog& dialog);
    ~Review() override;

private:
    void takeRows();
    void showNewest();
    void selectRow(Int16 item, int row);
    void showRowOf(model::Element element);

    Document& document_;
    PlanPanel& plan_;
    ElementPanel& elements_;
    AddOnDialog& dialog_;
    Int16 listItem_ = 0;  ///< The dialog's first list; 0 where it has none.
    std::unique_ptr<ReviewRows> rows_;
    std::optional<model::Element> newest_;
    bool shownBefore_ = false;
};

}  // namespace desktop
