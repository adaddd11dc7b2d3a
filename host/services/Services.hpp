#pragma once
// The host's operations, one plain function for each slot in use, declared from the list of slots: a function whose
// parameters differ from the slot's does not link. FunctionTable.cpp puts them behind one boundary that knows the
// caller; the functions themselves may take that for granted.

#include "HostTable.hpp"

namespace host::services {

#define ACAPI_SLOT(number, name, result, parameters) result name parameters;
#include "ACAPISlots.def"
#undef ACAPI_SLOT

}  // namespace host::services
