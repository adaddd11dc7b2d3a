// Shows a review list of two rows that can be applied, marks both as done, and crashes before its undoable command
// ends.

#include "AddOn.hpp"

namespace {

constexpr Int16 ReviewDialog = 201;
constexpr Int16 Apply = 1, SelectAll = 3, List = 5;
constexpr Int16 TickColumn = 1, RemarksColumn = 8;

Int16 openDialog = 0;

void setCells(Int16 column, const char* text) {
    for (Int16 row = 1; row <= 2; ++row) DGListSetTabItemText(openDialog, List, row, column, text);
}

GSErrCode applyAndCrash() {
    gallery::tell("rename", gallery::renameElement("half done"));
    setCells(RemarksColumn, "Done");
    gallery::writeToNowhere();
    return NoError;
}

void fillList() {
    DGListSetTabFieldCount(openDialog, List, RemarksColumn);
    for (Int16 row = 1; row <= 2; ++row) DGListInsertItem(openDialog, List, row);
    setCells(TickColumn, "[  ]");
}

Int16 handle(Int16 message, Int16 dialog, Int16 item, DGUserData, DGMessageData) {
    openDialog = dialog;
    if (message == DG_MSG_INIT) fillList();
    if (message != DG_MSG_CLICK) return 0;
    if (item == SelectAll) setCells(TickColumn, "[X]");
    if (item == Apply) gallery::runCommand(&applyAndCrash);
    return item == DG_CANCEL ? item : Int16{0};
}

GSErrCode showDialog(const API_MenuParams*) {
    const GSResModule resources = RSOpenResourceFile(GALLERY_BUNDLE);
    DGModalDialog(resources, ReviewDialog, resources, &handle, 0);
    RSCloseResourceFile(resources);
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = &showDialog};
