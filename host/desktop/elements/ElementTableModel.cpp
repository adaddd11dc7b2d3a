#include "desktop/elements/ElementTableModel.hpp"

#include "desktop/QtText.hpp"

#include <algorithm>
#include <numeric>

namespace desktop {

namespace {

/// Programs that write models give GUIDs at random, or begin them all alike and count at their end: both are shown.
constexpr int ShownOfFront = 8, ShownOfEnd = 4;

}  // namespace

void ElementTableModel::setSource(const model::Model* model, const ElementIndex* index) {
    beginResetModel();
    model_ = model;
    index_ = index;
    for (const auto& item : items_) item->forget();
    order_.clear();
    apply();
    endResetModel();
}

void ElementTableModel::setFilter(const QString& text) {
    // A reset drops the view's selection, and a whole list is filtered anew.
    if (text == filter_) return;
    beginResetModel();
    filter_ = text;
    apply();
    endResetModel();
}

void ElementTableModel::setAidsShown(bool shown) {
    if (shown == aidsShown_) return;
    beginResetModel();
    aidsShown_ = shown;
    apply();
    endResetModel();
}

void ElementTableModel::setGuidsWhole(bool whole) {
    guidsWhole_ = whole;
    const int column = static_cast<int>(ElementColumn::Guid);
    if (rowCount() > 0) Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column), {Qt::DisplayRole});
}

void ElementTableModel::refresh() {
    beginResetModel();
    for (const auto& item : items_) item->forget();
    order_.clear();
    apply();
    endResetModel();
}

void ElementTableModel::addItem(const Item& item) {
    const int column = columnCount();
    beginInsertColumns({}, column, column);
    items_.push_back(std::make_unique<ItemValues>(item));
    endInsertColumns();
}

void ElementTableModel::removeItem(int place) {
    const int column = ElementColumnCount + place;
    // What the table is sorted by is gone; the order stays until another one is asked for.
    if (sortColumn_ == column) sortColumn_ = -1;
    if (sortColumn_ > column) --sortColumn_;
    beginRemoveColumns({}, column, column);
    items_.erase(items_.begin() + place);
    endRemoveColumns();
}

std::vector<Item> ElementTableModel::items() const {
    std::vector<Item> items;
    for (const auto& item : items_) items.push_back(item->item());
    return items;
}

void ElementTableModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    sortColumn_ = column;
    sortOrder_ = order;
    order_.clear();
    apply();
    endResetModel();
}

std::vector<model::Element> ElementTableModel::sorted() const {
    const bool descending = sortOrder_ == Qt::DescendingOrder;
    if (sortColumn_ >= ElementColumnCount)
        return items_[static_cast<std::size_t>(sortColumn_ - ElementColumnCount)]->sorted(*model_, descending);
    if (sortColumn_ >= 0) return index_->sorted(static_cast<ElementColumn>(sortColumn_), descending);
    std::vector<model::Element> order(index_->size());
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

void ElementTableModel::apply() {
    shown_.clear();
    hiddenAids_ = 0;
    if (!index_) return;
    // Sorting takes far longer than filtering. So the order is kept until column, direction or content change, and a
    // filter only picks from it.
    if (order_.empty()) order_ = sorted();
    ElementIndex::Further further;
    if (!items_.empty()) {
        further = [this](const QString& word) {
            std::vector<std::function<bool(model::Element)>> columns;
            for (const auto& item : items_) columns.push_back(item->finding(*model_, word));
            return [columns = std::move(columns)](model::Element element) {
                return std::any_of(columns.begin(), columns.end(), [=](const auto& found) { return found(element); });
            };
        };
    }
    shown_ = index_->filtered(order_, filter_, further);
    if (aidsShown_) return;
    hiddenAids_ =
        static_cast<int>(std::erase_if(shown_, [this](model::Element element) { return index_->isAid(element); }));
}

std::optional<model::Element> ElementTableModel::element(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return shown_[static_cast<std::size_t>(row)];
}

int ElementTableModel::rowOf(model::Element element) const {
    const auto found = std::find(shown_.begin(), shown_.end(), element);
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

QString ElementTableModel::text(model::Element element, int column) const {
    if (column >= ElementColumnCount)
        return items_[static_cast<std::size_t>(column - ElementColumnCount)]->text(*model_, element);
    switch (static_cast<ElementColumn>(column)) {
        case ElementColumn::Storey:
            return index_->storeys()[index_->storey(element)].name;
        case ElementColumn::Type:
            return index_->type(element);
        case ElementColumn::Name:
            return shownName(*model_, element);
        case ElementColumn::Room:
            return index_->room(element);
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
    return parent.isValid() ? 0 : ElementColumnCount + static_cast<int>(items_.size());
}

QVariant ElementTableModel::data(const QModelIndex& index, int role) const {
    const bool described = role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
    if (role != Qt::DisplayRole && !described) return {};
    const auto which = element(index.row());
    if (!which) return {};
    const QString whole = text(*which, index.column());
    if (role == Qt::ToolTipRole && !whole.isEmpty()) return asPlainToolTip(whole);
    const bool cut = index.column() == static_cast<int>(ElementColumn::Guid) && !guidsWhole_ && !described;
    return cut ? QString(whole.left(ShownOfFront) + u'…' + whole.right(ShownOfEnd)) : visible(whole);
}

QVariant ElementTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const QString titles[ElementColumnCount] = {tr("Storey"), tr("Type"), tr("Name"),
                                                tr("Room"),   tr("GUID"), tr("Class")};
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (section < ElementColumnCount) return role == Qt::DisplayRole ? titles[section] : QVariant();
    const Item& item = items_[static_cast<std::size_t>(section - ElementColumnCount)]->item();
    if (role == Qt::DisplayRole) return visible(item.name);
    return role == Qt::ToolTipRole ? asPlainToolTip(item.title()) : QVariant();
}

}  // namespace desktop
