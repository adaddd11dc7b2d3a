#include "Cells.hpp"
#include "DialogAccess.hpp"

namespace frontend {

GS::UniString List::cell(Int16 row, Int16 field) const {
    const Row* const found = DialogAccess::row(*this, row);
    if (found == nullptr || !DialogAccess::knowsField(*this, field)) return {};
    const auto units = frameworks::cellOf(found->text.View(), field);
    return units ? GS::UniString(*units) : GS::UniString();
}

GS::UniString List::rowText(Int16 row) const {
    const Row* const found = DialogAccess::row(*this, row);
    return found == nullptr ? GS::UniString() : found->text;
}

Int16 List::status(Int16 row) const {
    const Row* const found = DialogAccess::row(*this, row);
    return found == nullptr ? Int16{0} : found->status;
}

std::optional<Color> List::color(Int16 row) const {
    const Row* const found = DialogAccess::row(*this, row);
    return found == nullptr ? std::nullopt : found->color;
}

DialogAccess::Row* DialogAccess::row(List& list, Int16 number) {
    if (number == DG_LIST_BOTTOM && !list.lastInsertionLost) number = list.rowCount();
    if (number < 1 || number > list.rowCount()) return nullptr;
    return &list.rows[static_cast<std::size_t>(number) - 1];
}

GSErrCode DialogAccess::insertRow(List& list, Int16 position) {
    const bool atEnd = position == DG_LIST_BOTTOM;
    if (!atEnd && (position < 1 || position > list.rowCount())) return DG_ERR_BADPARS;
    list.lastInsertionLost = list.rowCount() == DG_LIST_MAX_ROWS;
    if (list.lastInsertionLost) {
        ++list.lost;
        return DG_ERR_LISTFULL;
    }
    list.rows.emplace(atEnd ? list.rows.end() : list.rows.begin() + (position - 1));
    return NoError;
}

bool DialogAccess::knowsField(const List& list, Int16 field) {
    const Int16 most = list.fields.empty() ? MostFields : static_cast<Int16>(list.fields.size());
    return field >= 1 && field <= most;
}

namespace {

template <class Entry>
Entry* numbered(std::vector<Entry>& entries, Int16 number) {
    if (number < 1 || static_cast<std::size_t>(number) > entries.size()) return nullptr;
    return &entries[static_cast<std::size_t>(number) - 1];
}

template <class Entry>
bool setCount(std::vector<Entry>& entries, Int16 count) {
    if (count < 0 || count > MostFields) return false;
    entries.resize(static_cast<std::size_t>(count));
    return true;
}

}  // namespace

TabField* DialogAccess::tabField(List& list, Int16 number) {
    return numbered(list.fields, number);
}

HeaderItem* DialogAccess::headerItem(List& list, Int16 number) {
    return numbered(list.headerItems, number);
}

bool DialogAccess::setTabFieldCount(List& list, Int16 count) {
    return setCount(list.fields, count);
}

bool DialogAccess::setHeaderItemCount(List& list, Int16 count) {
    return setCount(list.headerItems, count);
}

void DialogAccess::setHeaderFlags(List& list, bool visible, bool movable, bool sortable) {
    list.visibleHeader = visible;
    list.movableHeader = movable;
    list.sortableHeader = sortable;
}

}  // namespace frontend
