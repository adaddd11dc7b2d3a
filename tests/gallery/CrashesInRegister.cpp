// Crashes while it registers its interface.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.registerInterface = [] {
    gallery::writeToNowhere();
    return GSErrCode{NoError};
}};
