// Has no GetExportedFuncAddrs.

#include "HostTable.hpp"

extern "C" HOST_API GSErrCode SetImportedFuncAddrs(const HostFunction*);

GSErrCode SetImportedFuncAddrs(const HostFunction*) {
    return NoError;
}
