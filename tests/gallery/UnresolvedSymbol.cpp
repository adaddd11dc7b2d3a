// Needs a function that no library of the host defines.

#include "AddOn.hpp"

extern "C" GSErrCode functionOfAnotherHost();

const gallery::Behaviour gallery::behaviour = {.freeData = [] { return functionOfAnotherHost(); }};
