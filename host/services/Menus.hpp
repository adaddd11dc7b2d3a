#pragma once
// The menus that an add-on has registered, and who handles them.

#include "APITypes.hpp"
#include "ResourceManager.hpp"
#include "services/Host.hpp"

#include <map>
#include <string>
#include <vector>

namespace host {

class Menus {
public:
    /// Reads the items' texts and prompts. APIERR_MISSINGDEF for string lists that the module lacks, APIERR_REFUSEDPAR
    /// for a menu registered already. @param title  of a menu that the module gives none.
    GSErrCode add(const API_MenuRegistration& registration, GSResModule module, const std::string& title);
    /// APIERR_BADID for a menu that is not registered.
    GSErrCode install(Int16 menuStrResID, APIMenuCommandProc* proc);
    void clear();

    const std::vector<Menu>& all() const { return menus_; }
    /// Null where there is no such menu, or no handler for it.
    const Menu* menu(Int16 menuStrResID) const;
    APIMenuCommandProc* handler(Int16 menuStrResID) const;
    /// @return APIERR_BADID, APIERR_BADINDEX, or 0 and the item.
    GSErrCode find(const API_MenuReference& reference, MenuItem*& item);

private:
    std::vector<Menu> menus_;
    std::map<Int16, APIMenuCommandProc*> handlers_;
};

}  // namespace host
