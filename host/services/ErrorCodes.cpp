#include "services/ErrorCodes.hpp"

#include "text/Message.hpp"

namespace host {

std::string errorName(GSErrCode code) {
    switch (code) {
#define APIERR(name, number) \
    case name:               \
        return #name;
#include "APIErrors.def"
#undef APIERR
        default:
            return text::message("error {}", code);
    }
}

GSErrCode errorCode(model::ErrorKind kind) {
    switch (kind) {
        case model::ErrorKind::BadId:
            return APIERR_BADID;
        case model::ErrorKind::BadParameter:
            return APIERR_BADPARS;
        case model::ErrorKind::BadName:
            return APIERR_BADNAME;
        case model::ErrorKind::ReadOnly:
            return APIERR_READONLY;
        case model::ErrorKind::BadValue:
            return APIERR_BADVALUE;
        case model::ErrorKind::Refused:
            return APIERR_REFUSEDCMD;
        case model::ErrorKind::Nesting:
            return APIERR_NESTING;
        case model::ErrorKind::CannotRead:
        case model::ErrorKind::CannotWrite:
        case model::ErrorKind::ChangedSince:
            break;
    }
    return APIERR_GENERAL;
}

}  // namespace host
