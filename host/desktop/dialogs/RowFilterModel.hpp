#pragma once

#include "desktop/dialogs/RowListModel.hpp"

#include <QCollator>
#include <QSortFilterProxyModel>
#include <vector>

namespace desktop {

/// Which rows of a review are shown.
enum class RowChoice : std::uint8_t { All, Ticked, Done, Errors, Otherwise, Conflicts, Unchanged };

/// The rows of an add-on's list in the order and choice of the user. The add-on knows nothing of it: its rows keep
/// their numbers.
class RowFilterModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit RowFilterModel(RowListModel* rows);

    /// Rows stay as they are shown until this is called again: none goes away below the pointer because it was ticked.
    void choose(RowChoice choice, const QString& text);
    /// By another column, or in the list's own order with -1.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    RowListModel* rows_;
    RowChoice choice_ = RowChoice::All;
    QString text_;
    std::vector<QCollatorSortKey> keys_;  ///< Of the column that was sorted by, one a row.
    QCollator collator_;
};

}  // namespace desktop
