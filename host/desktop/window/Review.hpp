#pragma once

#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/ReviewRows.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <memory>

namespace desktop {

class PlanPanel;

/// Ties an open dialog to the plan: the elements of its rows are marked there, the element of its current row is
/// selected, and a click on an element in the plan goes to its row.
class Review : public QObject {
    Q_OBJECT

public:
    Review(Document& document, PlanPanel& plan, AddOnDialog& dialog);
    ~Review() override;

private:
    void takeRows();
    void selectRow(Int16 item, int row);
    void showRowOf(model::Element element);

    Document& document;
    PlanPanel& plan;
    AddOnDialog& dialog;
    Int16 listItem = 0;  ///< The dialog's first list; 0 where it has none.
    std::unique_ptr<ReviewRows> rows;
    bool shownBefore = false;
};

}  // namespace desktop
