// Crashes in its menu command.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.command = [](const API_MenuParams*) {
    gallery::writeToNowhere();
    return GSErrCode{NoError};
}};
