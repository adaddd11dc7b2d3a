#include "desktop/dialogs/RowFilterModel.hpp"

namespace desktop {

namespace {

bool isChosen(RowChoice choice, RowState state) {
    switch (choice) {
        case RowChoice::All:
            return true;
        case RowChoice::Ticked:
            return state == RowState::Ticked;
        case RowChoice::Done:
            return state == RowState::Done || state == RowState::Otherwise;
        case RowChoice::Errors:
            return state == RowState::Error;
        case RowChoice::Otherwise:
            return state == RowState::Otherwise;
        case RowChoice::Conflicts:
            return state == RowState::Conflict;
        case RowChoice::Unchanged:
            break;
    }
    return state == RowState::Unchanged;
}

}  // namespace

RowFilterModel::RowFilterModel(RowListModel* rows) : QSortFilterProxyModel(rows), rows_(rows) {
    // With it on, a row would go from under the pointer as soon as its tick or remark changes.
    setDynamicSortFilter(false);
    collator_.setNumericMode(true);
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
    setSourceModel(rows);
}

void RowFilterModel::choose(RowChoice choice, const QString& text) {
    choice_ = choice;
    text_ = text.trimmed();
    invalidateFilter();
}

/// Each cell is read once, not once for each comparison.
void RowFilterModel::sort(int column, Qt::SortOrder order) {
    keys_.clear();
    const int count = column < 0 ? 0 : rows_->rowCount();
    keys_.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        keys_.push_back(collator_.sortKey(rows_->wholeText(row, column).toCaseFolded()));
    QSortFilterProxyModel::sort(column, order);
}

bool RowFilterModel::filterAcceptsRow(int row, const QModelIndex&) const {
    if (!isChosen(choice_, rows_->note(row).state)) return false;
    if (text_.isEmpty()) return true;
    for (int column = 0; column < rows_->columnCount(); ++column) {
        if (rows_->wholeText(row, column).contains(text_, Qt::CaseInsensitive)) return true;
    }
    return false;
}

bool RowFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const auto a = static_cast<std::size_t>(left.row()), b = static_cast<std::size_t>(right.row());
    // Rows that came after the sorting have no key yet.
    if (a >= keys_.size() || b >= keys_.size()) return a < b;
    const int order = keys_[a].compare(keys_[b]);
    return order == 0 ? a < b : order < 0;
}

}  // namespace desktop
