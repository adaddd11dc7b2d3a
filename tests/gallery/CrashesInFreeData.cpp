// Crashes when it is to clean up.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.freeData = [] {
    gallery::writeToNowhere();
    return GSErrCode{NoError};
}};
