#pragma once
// The table of 502 function addresses that the host hands to an add-on.

#include "HostTable.hpp"

namespace host {

/// Puts every operation into its slot; the slots not listed in ACAPISlots.def and those of EmptySlots.def become null.
void fillFunctionTable(HostFunction* table);

/// Why a listed slot is empty; null for a slot in use.
const char* reasonForEmptySlot(HostSlot slot);

}  // namespace host
