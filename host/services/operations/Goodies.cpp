// Slot 78: questions about element types and places.

#include "model/ifc/schema/ElementTypes.hpp"
#include "services/Neigs.hpp"
#include "services/Services.hpp"
#include "services/Session.hpp"

#include <cstdint>
#include <limits>

namespace host::services {

namespace {

/// The type comes as the parameter itself, not behind it.
GSErrCode typeName(const void* typeAsPointer, GS::UniString* name) {
    const auto type = reinterpret_cast<std::intptr_t>(typeAsPointer);
    if (name == nullptr || type < 0 || type > std::numeric_limits<API_ElemTypeID>::max()) return APIERR_BADPARS;
    const std::string known = model::ifc::elementTypeName(static_cast<API_ElemTypeID>(type)).text();
    if (known.empty()) return APIERR_BADPARS;
    *name = GS::UniString(known.data(), static_cast<USize>(known.size()));
    return NoError;
}

GSErrCode searchElement(const API_ElemSearchPars* search, API_Elem_Head* header) {
    if (search == nullptr || header == nullptr) return APIERR_BADPARS;
    Session& current = session();
    if (!current.model) return APIERR_NOMORE;
    const std::optional<model::Element> found =
        current.plan.nearest(*current.model, search->typeID, search->x, search->y, search->maxDistance);
    if (!found) return APIERR_NOMORE;
    const model::ElementInfo info = current.model->info(*found);
    *header = {};
    header->typeID = info.typeId;
    std::memcpy(header->guid.bytes, info.guid.data(), sizeof header->guid.bytes);
    return NoError;
}

GSErrCode neigToElement(const API_NeigID* neig, API_ElemTypeID* type) {
    if (neig == nullptr || type == nullptr) return APIERR_BADPARS;
    const API_ElemTypeID known = typeOfNeig(*neig);
    if (known == 0) return APIERR_BADPARS;
    *type = known;
    return NoError;
}

}  // namespace

GSErrCode Goodies(void*, UInt32 code, void* par1, void* par2, void*) {
    switch (code) {
        case APIAny_GetElemTypeName:
            return typeName(par1, static_cast<GS::UniString*>(par2));
        case APIAny_SearchElement:
            return searchElement(static_cast<const API_ElemSearchPars*>(par1), static_cast<API_Elem_Head*>(par2));
        case APIAny_NeigToElem:
            return neigToElement(static_cast<const API_NeigID*>(par1), static_cast<API_ElemTypeID*>(par2));
        default:
            return APIERR_NOTSUPPORTED;
    }
}

}  // namespace host::services
