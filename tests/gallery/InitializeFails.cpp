// Fails in its initialisation. Its freeData is still due.

#include "AddOn.hpp"

namespace {

GSErrCode sayGoodbye() {
    DBPrintf("freeData after a failed start\n");
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.initialize = [] { return GSErrCode{APIERR_MEMFULL}; },
                                               .freeData = &sayGoodbye};
