#include "services/Menus.hpp"

#include "frameworks/FrontEnd.hpp"

#include <algorithm>

namespace host {

GSErrCode Menus::add(const API_MenuRegistration& registration, GSResModule module, const std::string& title) {
    if (menu(registration.menuStrResID) != nullptr) return APIERR_REFUSEDPAR;
    const std::vector<GS::UniString> texts = frontend::stringList(module, registration.menuStrResID);
    const std::vector<GS::UniString> prompts = frontend::stringList(module, registration.promptStrResID);
    // A menu without prompts is fine: an item without one shows none.
    if (texts.empty() || (prompts.empty() && registration.promptStrResID != 0)) return APIERR_MISSINGDEF;
    Menu& added = menus_.emplace_back();
    added.menuStrResID = registration.menuStrResID;
    added.title = frontend::menuTitle(module, registration.menuStrResID);
    if (added.title.IsEmpty()) added.title = title.c_str();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        added.items.push_back({texts[i], i < prompts.size() ? prompts[i] : GS::UniString()});
    }
    return NoError;
}

GSErrCode Menus::install(Int16 menuStrResID, APIMenuCommandProc* proc) {
    if (menu(menuStrResID) == nullptr) return APIERR_BADID;
    handlers_[menuStrResID] = proc;
    return NoError;
}

void Menus::clear() {
    menus_.clear();
    handlers_.clear();
}

const Menu* Menus::menu(Int16 menuStrResID) const {
    const auto found = std::find_if(menus_.begin(), menus_.end(),
                                    [&](const Menu& candidate) { return candidate.menuStrResID == menuStrResID; });
    return found == menus_.end() ? nullptr : &*found;
}

APIMenuCommandProc* Menus::handler(Int16 menuStrResID) const {
    const auto found = handlers_.find(menuStrResID);
    return found == handlers_.end() ? nullptr : found->second;
}

GSErrCode Menus::find(const API_MenuReference& reference, MenuItem*& item) {
    for (Menu& candidate : menus_) {
        if (candidate.menuStrResID != reference.menuResID) continue;
        const Int64 index = reference.itemIndex;
        if (index < 1 || index > static_cast<Int64>(candidate.items.size())) return APIERR_BADINDEX;
        item = &candidate.items[static_cast<std::size_t>(index - 1)];
        return NoError;
    }
    return APIERR_BADID;
}

}  // namespace host
