// Lets an exception out of its initialisation.

#include "AddOn.hpp"

#include <stdexcept>

const gallery::Behaviour gallery::behaviour = {
    .initialize = []() -> GSErrCode { throw std::runtime_error("no settings"); }};
