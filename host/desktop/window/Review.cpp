#include "desktop/window/Review.hpp"

#include "desktop/dialogs/RowListView.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"

namespace desktop {

Review::Review(Document& shown, PlanPanel& panel, ElementPanel& table, AddOnDialog& open)
    : document_(shown), plan_(panel), elements_(table), dialog_(open) {
    for (const frontend::Item& item : dialog_.content().items()) {
        if (!listItem_ && item.kind == frontend::ItemKind::List) listItem_ = item.number;
    }
    if (!listItem_ || !document_.isOpen()) return;
    rows_ = std::make_unique<ReviewRows>(*document_.model());
    connect(&dialog_, &AddOnDialog::contentChanged, this, &Review::takeRows);
    connect(&dialog_, &AddOnDialog::currentRowChanged, this, &Review::selectRow);
    connect(&plan_, &PlanPanel::elementClicked, this, &Review::showRowOf);
}

Review::~Review() {
    if (rows_) plan_.setMarks(nullptr, false);
}

void Review::takeRows() {
    // An edit is seen in the windows as soon as it is made, not only when the dialog closes.
    document_.noteCommand();
    rows_->read(*dialog_.content().list(listItem_));
    plan_.setMarks(rows_->marks().empty() ? nullptr : &rows_->marks(), !shownBefore_);
    if (rows_->marks().empty()) {
        showNewest();
    } else if (!shownBefore_) {
        shownBefore_ = true;
        selectRow(listItem_, dialog_.list(listItem_)->currentIndex().row());
    }
}

/// A list of no updates answers a question about an element; the one asked for last is the one to show.
void Review::showNewest() {
    const auto last = rows_->lastElement();
    if (last && last != newest_) elements_.select(*last);
    newest_ = last;
}

void Review::selectRow(Int16 item, int row) {
    if (item != listItem_) return;
    if (const auto element = rows_->element(row)) elements_.select(*element);
}

/// Clicking on goes through the rows of an element that has several.
void Review::showRowOf(model::Element element) {
    const std::vector<int> found = rows_->rowsOf(element);
    RowListView* view = dialog_.list(listItem_);
    if (found.empty() || !view) return;
    const auto next = std::upper_bound(found.begin(), found.end(), view->currentIndex().row());
    view->showRow(next == found.end() ? found.front() : *next);
}

}  // namespace desktop
