#pragma once

#include "desktop/elements/ElementIndex.hpp"
#include "desktop/elements/ItemValues.hpp"

#include <QAbstractTableModel>
#include <memory>

namespace desktop {

/// The elements as table rows: sorted and filtered by the index, their texts made only for the rows on the screen.
/// Behind the index's columns come those of items that the user has added.
class ElementTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Both are the caller's and stay until the next call; null for no model.
    void setSource(const model::Model* model, const ElementIndex* index);
    void setFilter(const QString& text);
    /// Whether openings and the like are shown, see ElementIndex::isAid.
    void setAidsShown(bool shown);
    bool aidsShown() const { return aidsShown_; }
    /// How many of them the filter would show.
    int hiddenAids() const { return hiddenAids_; }
    /// GUIDs as wide as they are, or by their beginning.
    void setGuidsWhole(bool whole);
    bool guidsWhole() const { return guidsWhole_; }
    /// The index has changed: sorts and filters anew.
    void refresh();

    void addItem(const Item& item);
    void removeItem(int place);
    /// In the order of their columns, which begin at ElementColumnCount.
    std::vector<Item> items() const;

    const model::Model* source() const { return model_; }
    const ElementIndex* index() const { return index_; }
    using QAbstractTableModel::index;

    std::optional<model::Element> element(int row) const;
    const std::vector<model::Element>& shown() const { return shown_; }
    /// -1 where it is not shown.
    int rowOf(model::Element element) const;
    /// A cell's whole text.
    QString text(model::Element element, int column) const;

    /// Number of elements, shown or not.
    int total() const { return index_ ? static_cast<int>(index_->size()) : 0; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    void apply();
    std::vector<model::Element> sorted() const;

    const model::Model* model_ = nullptr;
    const ElementIndex* index_ = nullptr;
    std::vector<std::unique_ptr<ItemValues>> items_;  // read on the way, by const members too
    std::vector<model::Element> order_, shown_;
    QString filter_;
    bool aidsShown_ = false, guidsWhole_ = false;
    int hiddenAids_ = 0;
    int sortColumn_ = -1;  ///< -1: file order.
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace desktop
