// Slot 77: requests to the user and the states of the add-on's menu items.

#include "services/Services.hpp"
#include "services/Session.hpp"
#include "services/operations/Input.hpp"

namespace host::services {

namespace {

GSErrCode menuItemFlags(const API_MenuReference* reference, UInt32* flags) {
    if (reference == nullptr || flags == nullptr) return APIERR_BADPARS;
    MenuItem* item = nullptr;
    if (const GSErrCode unknown = session().menus.find(*reference, item); unknown != NoError) return unknown;
    *flags = (item->enabled ? 0U : API_MenuItemDisabled) | (item->checked ? API_MenuItemChecked : 0U);
    return NoError;
}

GSErrCode setMenuItemFlags(const API_MenuReference* reference, const UInt32* flags) {
    if (reference == nullptr || flags == nullptr) return APIERR_BADPARS;
    MenuItem* item = nullptr;
    if (const GSErrCode unknown = session().menus.find(*reference, item); unknown != NoError) return unknown;
    item->enabled = (*flags & API_MenuItemDisabled) == 0;
    item->checked = (*flags & API_MenuItemChecked) != 0;
    return NoError;
}

}  // namespace

GSErrCode Interface(void*, UInt32 code, void* par1, void* par2, void*) {
    switch (code) {
        case APIIo_GetPoint:
            return getPoint(static_cast<API_GetPointType*>(par1));
        case APIIo_GetLine:
            return getLine(static_cast<API_GetLineType*>(par1));
        case APIIo_GetArc:
            return getArc(static_cast<API_GetArcType*>(par1));
        case APIIo_GetMenuItemFlags:
            return menuItemFlags(static_cast<const API_MenuReference*>(par1), static_cast<UInt32*>(par2));
        case APIIo_SetMenuItemFlags:
            return setMenuItemFlags(static_cast<const API_MenuReference*>(par1), static_cast<const UInt32*>(par2));
        default:
            return APIERR_NOTSUPPORTED;
    }
}

}  // namespace host::services
