// Registers a menu that its resources do not have, and says so. Its freeData is still due.

#include "AddOn.hpp"

namespace {

GSErrCode registerUnknownMenu() {
    API_MenuRegistration record{};
    record.menuStrResID = 999;
    return gallery::callHost<HostSlot::Register_Menu>(&record);
}

GSErrCode sayGoodbye() {
    DBPrintf("freeData after a failed start\n");
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.registerInterface = &registerUnknownMenu, .freeData = &sayGoodbye};
