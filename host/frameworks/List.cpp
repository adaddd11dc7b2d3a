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

/// Who has inserted at the bottom goes on with "the bottom row". Where the list was full, that row is another one.
DialogAccess::Row* DialogAccess::row(List& list, Int16 number) {
    if (number == DG_LIST_BOTTOM && !list.lastInsertionLost_) number = list.rowCount();
    if (number < 1 || number > list.rowCount()) return nullptr;
    return &list.rows_[static_cast<std::size_t>(number) - 1];
}

GSErrCode DialogAccess::insertRow(List& list, Int16 position) {
    const bool atEnd = position == DG_LIST_BOTTOM;
    if (!atEnd && (position < 1 || position > list.rowCount())) return DG_ERR_BADPARS;
    list.lastInsertionLost_ = list.rowCount() == DG_LIST_MAX_ROWS;
    if (list.lastInsertionLost_) {
        ++list.lost_;
        return DG_ERR_LISTFULL;
    }
    list.rows_.emplace(atEnd ? list.rows_.end() : list.rows_.begin() + (position - 1));
    return NoError;
}

bool DialogAccess::knowsField(const List& list, Int16 field) {
    const Int16 most = list.fields_.empty() ? MostFields : static_cast<Int16>(list.fields_.size());
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
    return numbered(list.fields_, number);
}

HeaderItem* DialogAccess::headerItem(List& list, Int16 number) {
    return numbered(list.headerItems_, number);
}

bool DialogAccess::setTabFieldCount(List& list, Int16 count) {
    return setCount(list.fields_, count);
}

bool DialogAccess::setHeaderItemCount(List& list, Int16 count) {
    return setCount(list.headerItems_, count);
}

void DialogAccess::setHeaderFlags(List& list, bool visible, bool movable, bool sortable) {
    list.visibleHeader_ = visible;
    list.movableHeader_ = movable;
    list.sortableHeader_ = sortable;
}

}  // namespace frontend
