#include "desktop/elements/ElementTableModel.hpp"

#include "desktop/Text.hpp"

#include <algorithm>
#include <numeric>

namespace desktop {

void ElementTableModel::setSource(const model::Model* newSource, const ElementIndex* newIndex) {
    beginResetModel();
    source = newSource;
    elements = newIndex;
    order.clear();
    apply();
    endResetModel();
}

void ElementTableModel::setFilter(const QString& text) {
    if (text == filter) return;
    beginResetModel();
    filter = text;
    apply();
    endResetModel();
}

void ElementTableModel::refresh() {
    beginResetModel();
    order.clear();
    apply();
    endResetModel();
}

void ElementTableModel::sort(int column, Qt::SortOrder direction) {
    beginResetModel();
    sortColumn = column;
    sortOrder = direction;
    order.clear();
    apply();
    endResetModel();
}

void ElementTableModel::apply() {
    shown.clear();
    if (!elements) return;
    if (order.empty()) {
        if (sortColumn < 0) {
            order.resize(elements->size());
            std::iota(order.begin(), order.end(), 0U);
        } else {
            order = elements->sorted(static_cast<ElementColumn>(sortColumn), sortOrder == Qt::DescendingOrder);
        }
    }
    shown = elements->filtered(order, filter);
}

std::optional<model::Element> ElementTableModel::element(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return shown[static_cast<std::size_t>(row)];
}

int ElementTableModel::rowOf(model::Element element) const {
    const auto found = std::find(shown.begin(), shown.end(), element);
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

QString ElementTableModel::text(model::Element element, ElementColumn column) const {
    switch (column) {
        case ElementColumn::Storey:
            return elements->storeys()[elements->storey(element)].name;
        case ElementColumn::Type:
            return elements->type(element);
        case ElementColumn::Name:
            return toQString(source->name(element));
        case ElementColumn::Guid:
            return guidText(elements->guid(element));
        case ElementColumn::Class:
            return elements->ifcClass(element);
    }
    return {};
}

int ElementTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int ElementTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : elementColumnCount;
}

QVariant ElementTableModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const auto which = element(index.row());
    if (!which) return {};
    const QString shownText = text(*which, static_cast<ElementColumn>(index.column()));
    return role == Qt::ToolTipRole && !shownText.isEmpty() ? asPlainToolTip(shownText) : shownText;
}

QVariant ElementTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QString titles[elementColumnCount] = {QStringLiteral("Storey"), QStringLiteral("Type"),
                                                       QStringLiteral("Name"), QStringLiteral("GUID"),
                                                       QStringLiteral("Class")};
    if (orientation != Qt::Horizontal || section < 0 || section >= elementColumnCount) return {};
    if (role == Qt::DisplayRole) return titles[section];
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

}  // namespace desktop
