// Crashes when a button of its dialog is clicked.

#include "AddOn.hpp"

namespace {

Int16 handle(Int16 message, Int16, Int16, DGUserData, DGMessageData) {
    if (message == DG_MSG_CLICK) gallery::writeToNowhere();
    return 0;
}

GSErrCode showDialog(const API_MenuParams*) {
    const GSResModule resources = RSOpenResourceFile(GALLERY_BUNDLE);
    const Int16 result = DGModalDialog(resources, gallery::DialogId, resources, &handle, 0);
    RSCloseResourceFile(resources);
    return result;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = &showDialog};
