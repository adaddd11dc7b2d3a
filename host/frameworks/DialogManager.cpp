// The dialog manager's operations on dialogs and their items.

#include "DialogManager.hpp"

#include "DialogAccess.hpp"
#include "ResourceModule.hpp"

#include <algorithm>
#include <limits>

using frontend::Dialog;
using frontend::DialogAccess;
using frontend::Item;
using frontend::ItemKind;

namespace {

// Places are signed 16-bit values. What would go beyond stops at the limit.
constexpr int LeastPlace = std::numeric_limits<Int16>::min();
constexpr int MostPlace = std::numeric_limits<Int16>::max();

void moveEdges(int& low, int& high, Int16 distance) {
    const int possible = std::clamp<int>(distance, LeastPlace - low, MostPlace - high);
    low += possible;
    high += possible;
}

void growEdge(int low, int& high, Int16 growth) {
    high = std::clamp(high + growth, low, MostPlace);
}

Item* findTextItem(Int16 dialogId, Int16 item) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    Item* const found = dialog == nullptr ? nullptr : DialogAccess::item(*dialog, item);
    return found == nullptr || found->kind == ItemKind::List ? nullptr : found;
}

}  // namespace

Int16 DGModalDialog(GSResModule layoutModule, Int16 resourceId, GSResModule, DGDialogHandler handler,
                    DGUserData userData) {
    const frameworks::ResourceModule* const module = frameworks::openModule(layoutModule);
    const bool known = module != nullptr && module->dialogs.contains(resourceId);
    if (!known || handler == nullptr) {
        DBPrintf("DGModalDialog: %s %d\n", known ? "no handler for dialog" : "there is no dialog", int{resourceId});
        return 0;
    }
    Dialog dialog = DialogAccess::create(module->dialogs.at(resourceId), resourceId, handler, userData);
    return DialogAccess::run(dialog);
}

GSErrCode DGSetItemText(Int16 dialogId, Int16 item, const GS::UniString& text) {
    Item* const target = findTextItem(dialogId, item);
    if (target == nullptr) return DG_ERR_BADPARS;
    target->text = text;
    DialogAccess::changed(*DialogAccess::find(dialogId), item);
    return NoError;
}

GS::UniString DGGetItemText(Int16 dialogId, Int16 item) {
    const Item* const source = findTextItem(dialogId, item);
    return source == nullptr ? GS::UniString() : source->text;
}

GSErrCode DGInvalidateItem(Int16 dialogId, Int16 item) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    if (dialog == nullptr || dialog->item(item) == nullptr) return DG_ERR_BADPARS;
    DialogAccess::changed(*dialog, item);
    return NoError;
}

GSErrCode DGBeginMoveGrowItems(Int16 dialogId) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    if (dialog == nullptr) return DG_ERR_BADPARS;
    DialogAccess::beginMoving(*dialog);
    return NoError;
}

GSErrCode DGEndMoveGrowItems(Int16 dialogId) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    return dialog != nullptr && DialogAccess::endMoving(*dialog) ? NoError : DG_ERR_BADPARS;
}

GSErrCode DGMoveItem(Int16 dialogId, Int16 item, Int16 moveH, Int16 moveV) {
    return DGMoveGrowItem(dialogId, item, moveH, moveV, 0, 0);
}

GSErrCode DGGrowItem(Int16 dialogId, Int16 item, Int16 growH, Int16 growV) {
    return DGMoveGrowItem(dialogId, item, 0, 0, growH, growV);
}

GSErrCode DGMoveGrowItem(Int16 dialogId, Int16 item, Int16 moveH, Int16 moveV, Int16 growH, Int16 growV) {
    Dialog* const dialog = DialogAccess::find(dialogId);
    Item* const target = dialog == nullptr ? nullptr : DialogAccess::item(*dialog, item);
    if (target == nullptr) return DG_ERR_BADPARS;
    frontend::Rect& rect = target->rect;
    moveEdges(rect.left, rect.right, moveH);
    moveEdges(rect.top, rect.bottom, moveV);
    growEdge(rect.left, rect.right, growH);
    growEdge(rect.top, rect.bottom, growV);
    DialogAccess::changed(*dialog, item);
    return NoError;
}
