// The dialog manager's operations on lists.

#include "Cells.hpp"
#include "DialogAccess.hpp"

#include <algorithm>
#include <limits>

using frontend::Dialog;
using frontend::DialogAccess;
using frontend::List;
using Row = DialogAccess::Row;

namespace {

List* findList(Int16 dialogId, Int16 item) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    return dialog == nullptr ? nullptr : DialogAccess::list(*dialog, item);
}

const Row* findRow(Int16 dialogId, Int16 item, Int16 row) {
    List* const list = findList(dialogId, item);
    return list == nullptr ? nullptr : DialogAccess::row(*list, row);
}

/// Changes a list and tells the view. @param change  takes the list, returns an error code.
template <class Change>
GSErrCode changeList(Int16 dialogId, Int16 item, Change change) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    List* const list = dialog == nullptr ? nullptr : DialogAccess::list(*dialog, item);
    if (list == nullptr) return DG_ERR_BADPARS;
    const GSErrCode error = change(*list);
    if (error == NoError) DialogAccess::changed(*dialog, item);
    return error;
}

/// Changes something of a list that may not be there. @param find  takes the list, returns a pointer to it or null.
template <class Find, class Change>
GSErrCode changePart(Int16 dialogId, Int16 item, Find find, Change change) {
    return changeList(dialogId, item, [&](List& list) {
        auto* const part = find(list);
        if (part == nullptr) return DG_ERR_BADPARS;
        change(*part);
        return NoError;
    });
}

auto rowNumbered(Int16 row) {
    return [row](List& list) { return DialogAccess::row(list, row); };
}

auto headerItemNumbered(Int16 number) {
    return [number](List& list) { return DialogAccess::headerItem(list, number); };
}

template <class Value>
void answer(Value* target, Value value) {
    if (target != nullptr) *target = value;
}

}  // namespace

GSErrCode DGListDisableDraw(Int16 dialogId, Int16 item) {
    List* const list = findList(dialogId, item);
    if (list == nullptr) return DG_ERR_BADPARS;
    DialogAccess::setDrawing(*list, false);
    return NoError;
}

GSErrCode DGListEnableDraw(Int16 dialogId, Int16 item) {
    List* const list = findList(dialogId, item);
    if (list == nullptr) return DG_ERR_BADPARS;
    if (list->drawingEnabled()) return NoError;
    DialogAccess::setDrawing(*list, true);
    DialogAccess::changed(*DialogAccess::find(dialogId), item);
    return NoError;
}

Int16 DGListGetItemWidth(Int16 dialogId, Int16 item) {
    if (findList(dialogId, item) == nullptr) return 0;
    const int width = DialogAccess::find(dialogId)->item(item)->rect.width();
    return static_cast<Int16>(std::min<int>(width, std::numeric_limits<Int16>::max()));
}

GSErrCode DGListSetTabFieldCount(Int16 dialogId, Int16 item, Int16 count) {
    return changeList(dialogId, item, [count](List& list) {
        return DialogAccess::setTabFieldCount(list, count) ? NoError : DG_ERR_BADPARS;
    });
}

GSErrCode DGListSetTabFieldData(Int16 dialogId, Int16 item, Int16 field, Int16 begin, Int16 end, Int16 justification,
                                Int16 truncation, bool separator, bool status) {
    return changePart(
        dialogId, item, [field](List& list) { return DialogAccess::tabField(list, field); },
        [&](frontend::TabField& data) { data = {begin, end, justification, truncation, separator, status}; });
}

GSErrCode DGListGetTabFieldData(Int16 dialogId, Int16 item, Int16 field, Int16* begin, Int16* end, Int16* justification,
                                Int16* truncation, bool* separator, bool* status) {
    List* const list = findList(dialogId, item);
    const frontend::TabField* const found = list == nullptr ? nullptr : DialogAccess::tabField(*list, field);
    // The outputs are written in every case: a caller that does not look at the code gets a field that is not in use.
    const frontend::TabField data = found == nullptr ? frontend::TabField() : *found;
    answer(begin, data.begin);
    answer(end, data.end);
    answer(justification, data.justification);
    answer(truncation, data.truncation);
    answer(separator, data.separator);
    answer(status, data.status);
    return found == nullptr ? DG_ERR_BADPARS : NoError;
}

GSErrCode DGListSetHeaderItemCount(Int16 dialogId, Int16 item, Int16 count) {
    return changeList(dialogId, item, [count](List& list) {
        return DialogAccess::setHeaderItemCount(list, count) ? NoError : DG_ERR_BADPARS;
    });
}

GSErrCode DGListSetHeaderFlags(Int16 dialogId, Int16 item, bool visible, bool movable, bool sortable) {
    return changeList(dialogId, item, [=](List& list) {
        DialogAccess::setHeaderFlags(list, visible, movable, sortable);
        return NoError;
    });
}

GSErrCode DGListSetHeaderItemFlags(Int16 dialogId, Int16 item, Int16 headerItem, bool clickable, bool truncated) {
    return changePart(dialogId, item, headerItemNumbered(headerItem), [=](frontend::HeaderItem& data) {
        data.clickable = clickable;
        data.truncated = truncated;
    });
}

GSErrCode DGListSetHeaderItemText(Int16 dialogId, Int16 item, Int16 headerItem, const GS::UniString& text) {
    return changePart(dialogId, item, headerItemNumbered(headerItem),
                      [&text](frontend::HeaderItem& data) { data.text = text; });
}

Int16 DGListGetItemCount(Int16 dialogId, Int16 item) {
    const List* const list = findList(dialogId, item);
    return list == nullptr ? Int16{0} : list->rowCount();
}

GSErrCode DGListInsertItem(Int16 dialogId, Int16 item, Int16 position) {
    return changeList(dialogId, item, [position](List& list) { return DialogAccess::insertRow(list, position); });
}

GSErrCode DGListSetItemText(Int16 dialogId, Int16 item, Int16 row, const GS::UniString& text) {
    // A copy of its own: the add-on puts the text together, and what is shared with it has room to grow.
    return changePart(dialogId, item, rowNumbered(row), [&text](Row& data) { data.text = GS::UniString(text.View()); });
}

GSErrCode DGListSetItemStatus(Int16 dialogId, Int16 item, Int16 row, Int16 status) {
    return changePart(dialogId, item, rowNumbered(row), [status](Row& data) { data.status = status; });
}

Int16 DGListGetItemStatus(Int16 dialogId, Int16 item, Int16 row) {
    const Row* const found = findRow(dialogId, item, row);
    return found == nullptr ? Int16{0} : found->status;
}

GSErrCode DGListSetItemColor(Int16 dialogId, Int16 item, Int16 row, UInt16 red, UInt16 green, UInt16 blue) {
    return changePart(dialogId, item, rowNumbered(row), [=](Row& data) {
        data.color = frontend::Color{red, green, blue};
    });
}

GSErrCode DGListSetTabItemText(Int16 dialogId, Int16 item, Int16 row, Int16 field, const GS::UniString& text) {
    const auto rowWithField = [row, field](List& list) {
        return DialogAccess::knowsField(list, field) ? DialogAccess::row(list, row) : nullptr;
    };
    return changePart(dialogId, item, rowWithField,
                      [field, &text](Row& data) { frameworks::setCell(data.text, field, text); });
}

GS::UniString DGListGetTabItemText(Int16 dialogId, Int16 item, Int16 row, Int16 field) {
    const List* const list = findList(dialogId, item);
    return list == nullptr ? GS::UniString() : list->cell(row, field);
}
