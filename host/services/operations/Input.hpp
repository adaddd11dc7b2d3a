#pragma once
// The requests of slot 77 that ask the user for a place in the model window.

#include "APITypes.hpp"

namespace host::services {

GSErrCode getPoint(API_GetPointType* request);
GSErrCode getLine(API_GetLineType* request);
GSErrCode getArc(API_GetArcType* request);

}  // namespace host::services
