// Lets something out of its menu command that is no exception class at all.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.command = [](const API_MenuParams*) -> GSErrCode { throw 42; }};
