// Keeps the address of the menu call's record, and looks at it after the call.

#include "AddOn.hpp"

namespace {

const API_MenuParams* kept = nullptr;

GSErrCode keep(const API_MenuParams* params) {
    kept = params;
    return NoError;
}

GSErrCode look() {
    DBPrintf("stale record: menu %d item %d\n", int{kept->menuItemRef.menuResID}, kept->menuItemRef.itemIndex);
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.freeData = &look, .command = &keep};
