// Shows a lookup dialog and crashes when its first button is clicked.

#include "AddOn.hpp"

namespace {

constexpr Int16 LookupDialog = 202;

Int16 handle(Int16 message, Int16, Int16 item, DGUserData, DGMessageData) {
    if (message != DG_MSG_CLICK) return 0;
    if (item == DG_OK) gallery::writeToNowhere();
    return item == DG_CANCEL ? item : Int16{0};
}

GSErrCode showDialog(const API_MenuParams*) {
    const GSResModule resources = RSOpenResourceFile(GALLERY_BUNDLE);
    DGModalDialog(resources, LookupDialog, resources, &handle, 0);
    RSCloseResourceFile(resources);
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = &showDialog};
