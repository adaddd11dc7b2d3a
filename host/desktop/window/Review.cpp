#include "desktop/window/Review.hpp"

#include "desktop/dialogs/RowListView.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"

namespace desktop {

Review::Review(Document& shown, PlanPanel& panel, ElementPanel& table, AddOnDialog& open)
    : document(shown), plan(panel), elements(table), dialog(open) {
    for (const frontend::Item& item : dialog.content().items()) {
        if (!listItem && item.kind == frontend::ItemKind::List) listItem = item.number;
    }
    if (!listItem || !document.isOpen()) return;
    rows = std::make_unique<ReviewRows>(*document.model());
    connect(&dialog, &AddOnDialog::contentChanged, this, &Review::takeRows);
    connect(&dialog, &AddOnDialog::currentRowChanged, this, &Review::selectRow);
    connect(&plan, &PlanPanel::elementClicked, this, &Review::showRowOf);
}

Review::~Review() {
    if (rows) plan.setMarks(nullptr, false);
}

void Review::takeRows() {
    // An edit is seen in the windows as soon as it is made, not only when the dialog closes.
    document.noteCommand();
    rows->read(*dialog.content().list(listItem));
    plan.setMarks(rows->marks().empty() ? nullptr : &rows->marks(), !shownBefore);
    if (rows->marks().empty()) {
        showNewest();
    } else if (!shownBefore) {
        shownBefore = true;
        selectRow(listItem, dialog.list(listItem)->currentIndex().row());
    }
}

/// A list of no updates answers a question about an element; the one asked for last is the one to show.
void Review::showNewest() {
    const auto last = rows->lastElement();
    if (last && last != newest) elements.select(*last);
    newest = last;
}

void Review::selectRow(Int16 item, int row) {
    if (item != listItem) return;
    if (const auto element = rows->element(row)) elements.select(*element);
}

/// Clicking on goes through the rows of an element that has several.
void Review::showRowOf(model::Element element) {
    const std::vector<int> found = rows->rowsOf(element);
    RowListView* view = dialog.list(listItem);
    if (found.empty() || !view) return;
    const auto next = std::upper_bound(found.begin(), found.end(), view->currentIndex().row());
    view->showRow(next == found.end() ? found.front() : *next);
}

}  // namespace desktop
