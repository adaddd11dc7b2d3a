#pragma once

#include "desktop/elements/ElementIndex.hpp"

#include <QAbstractTableModel>

namespace desktop {

/// The elements as table rows: sorted and filtered by the index, their texts made only for the rows on the screen.
class ElementTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Both are the caller's and stay until the next call; null for no model.
    void setSource(const model::Model* model, const ElementIndex* index);
    void setFilter(const QString& text);
    /// The index has changed: sorts and filters anew.
    void refresh();

    std::optional<model::Element> element(int row) const;
    const std::vector<model::Element>& shown() const { return shown_; }
    /// -1 where the filter hides it.
    int rowOf(model::Element element) const;
    QString text(model::Element element, ElementColumn column) const;

    /// Number of elements, shown or not.
    int total() const { return index_ ? static_cast<int>(index_->size()) : 0; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    void apply();

    const model::Model* model_ = nullptr;
    const ElementIndex* index_ = nullptr;
    std::vector<model::Element> order_, shown_;
    QString filter_;
    int sortColumn_ = -1;  ///< -1: file order.
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace desktop
