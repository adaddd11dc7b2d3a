// Slots 149 and 203: the element behind a GUID.

#include "services/Services.hpp"
#include "services/Session.hpp"

namespace host::services {

namespace {

GSErrCode fillHeader(API_Elem_Head& header) {
    model::Element element{};
    if (const GSErrCode unknown = findElement(header.guid, element); unknown != NoError) return unknown;
    header.typeID = session().model->typeId(element);
    return NoError;
}

}  // namespace

GSErrCode Element_Get(void*, API_Element* element, UInt32) {
    return element == nullptr ? GSErrCode{APIERR_BADPARS} : fillHeader(element->header);
}

GSErrCode Element_GetHeader(void*, API_Elem_Head* header, UInt32) {
    return header == nullptr ? GSErrCode{APIERR_BADPARS} : fillHeader(*header);
}

}  // namespace host::services
