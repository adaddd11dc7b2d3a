#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <string_view>
#include <unordered_map>

namespace model::ifc {

/// Which instance a relation of one class ties an object to, for relations that InverseReferences does not follow. Made
/// in one pass over the file and not kept up to date.
class RelationIndex {
public:
    /// @param related  The attribute that names the objects, `relating` the one of what they are tied to.
    RelationIndex(Workspace& work, std::string_view relationClass, std::string_view related, std::string_view relating);

    /// By the first relation in the file; NoSlot where there is none.
    step::Slot find(step::Slot object) const;

private:
    std::unordered_map<step::Slot, step::Slot> relatingOf_;
};

}  // namespace model::ifc
