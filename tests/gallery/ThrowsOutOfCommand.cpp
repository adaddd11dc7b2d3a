// Lets an exception of the host's own kind out of its menu command.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) -> GSErrCode { throw GS::GSException("nobody catches this"); }};
