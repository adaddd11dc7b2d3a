#pragma once
// The host's error codes as text, and the building model's failures as error codes.

#include "APITypes.hpp"
#include "model/base/Result.hpp"

#include <string>

namespace host {

/// "APIERR_BADID"; a code that has no name as "error -43".
std::string errorName(GSErrCode code);

GSErrCode errorCode(model::ErrorKind kind);

}  // namespace host
