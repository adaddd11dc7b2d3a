#include "desktop/elements/ElementTableModel.hpp"

#include "desktop/QtText.hpp"

#include <algorithm>
#include <numeric>

namespace desktop {

void ElementTableModel::setSource(const model::Model* model, const ElementIndex* index) {
    beginResetModel();
    model_ = model;
    index_ = index;
    order_.clear();
    apply();
    endResetModel();
}

void ElementTableModel::setFilter(const QString& text) {
    if (text == filter_) return;
    beginResetModel();
    filter_ = text;
    apply();
    endResetModel();
}

void ElementTableModel::refresh() {
    beginResetModel();
    order_.clear();
    apply();
    endResetModel();
}

void ElementTableModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    sortColumn_ = column;
    sortOrder_ = order;
    order_.clear();
    apply();
    endResetModel();
}

void ElementTableModel::apply() {
    shown_.clear();
    if (!index_) return;
    // Sorting takes far longer than filtering. So the order is kept until column, direction or content change, and a
    // filter only picks from it.
    if (order_.empty()) {
        if (sortColumn_ < 0) {
            order_.resize(index_->size());
            std::iota(order_.begin(), order_.end(), 0U);
        } else {
            order_ = index_->sorted(static_cast<ElementColumn>(sortColumn_), sortOrder_ == Qt::DescendingOrder);
        }
    }
    shown_ = index_->filtered(order_, filter_);
}

std::optional<model::Element> ElementTableModel::element(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return shown_[static_cast<std::size_t>(row)];
}

int ElementTableModel::rowOf(model::Element element) const {
    const auto found = std::find(shown_.begin(), shown_.end(), element);
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

QString ElementTableModel::text(model::Element element, ElementColumn column) const {
    switch (column) {
        case ElementColumn::Storey:
            return index_->storeys()[index_->storey(element)].name;
        case ElementColumn::Type:
            return index_->type(element);
        case ElementColumn::Name:
            return toQString(model_->name(element));
        case ElementColumn::Guid:
            return guidText(index_->guid(element));
        case ElementColumn::Class:
            return index_->ifcClass(element);
    }
    return {};
}

int ElementTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ElementTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ElementColumnCount;
}

QVariant ElementTableModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const auto which = element(index.row());
    if (!which) return {};
    const QString shownText = text(*which, static_cast<ElementColumn>(index.column()));
    return role == Qt::ToolTipRole && !shownText.isEmpty() ? asPlainToolTip(shownText) : visible(shownText);
}

QVariant ElementTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const QString titles[ElementColumnCount] = {tr("Storey"), tr("Type"), tr("Name"), tr("GUID"), tr("Class")};
    if (orientation != Qt::Horizontal || section < 0 || section >= ElementColumnCount) return {};
    if (role == Qt::DisplayRole) return titles[section];
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

}  // namespace desktop
