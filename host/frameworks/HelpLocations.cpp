#include "FrontEnd.hpp"
#include "NeverDestroyed.hpp"

#include <map>
#include <utility>

namespace {

// The path is copied: a menu that shows it later does not depend on what an add-on does with its location meanwhile.
std::map<std::pair<UInt32, Int32>, std::string>& registeredHelp() {
    static auto& paths = frameworks::neverDestroyed<std::map<std::pair<UInt32, Int32>, std::string>>();
    return paths;
}

}  // namespace

bool DG::RegisterAdditionalHelpLocation(UInt32 developerId, Int32 localId, const IO::Location* location,
                                        const GS::UniString*, const GS::UniString*, const IO::Location*,
                                        const GS::UniString*) {
    if (location == nullptr || location->GetStatus() != IO::Location::StatusOK) return false;
    return registeredHelp().try_emplace({developerId, localId}, location->GetPath().ToCStr().Get()).second;
}

bool DG::UnregisterAdditionalHelpLocation(UInt32 developerId, Int32 localId) {
    return registeredHelp().erase({developerId, localId}) == 1;
}

std::vector<frontend::HelpLocation> frontend::helpLocations() {
    std::vector<HelpLocation> locations;
    for (const auto& [id, path] : registeredHelp()) locations.push_back({id.first, id.second, path});
    return locations;
}
