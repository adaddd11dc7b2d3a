// Slots 10 and 32: the add-on's menus and their handlers.

#include "services/Services.hpp"
#include "services/Session.hpp"

namespace host::services {

GSErrCode Register_Menu(const API_MenuRegistration* record) {
    if (record == nullptr) return APIERR_BADPARS;
    const AddOn& addOn = *session().addOn;
    return session().menus.add(*record, addOn.resources(), addOn.name());
}

GSErrCode Install_MenuHandler(void*, Int32 menuStrResID, APIMenuCommandProc* handler) {
    if (handler == nullptr) return APIERR_BADPARS;
    return session().menus.install(static_cast<Int16>(menuStrResID), handler);
}

}  // namespace host::services
