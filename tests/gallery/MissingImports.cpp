// Has no SetImportedFuncAddrs.

#include "HostTable.hpp"

extern "C" HOST_API void GetExportedFuncAddrs(ExportedFunctions* record);

void GetExportedFuncAddrs(ExportedFunctions* record) {
    *record = {};
}
