// Answers the environment check with "do not register".

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {
    .checkEnvironment = [](API_EnvirParams*) { return APIAddon_DontRegister; },
    .freeData = []() -> GSErrCode { throw "freeData was called although nothing was registered"; }};
