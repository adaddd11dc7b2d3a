// Changes the model, then reports that its undoable command failed.

#include "AddOn.hpp"

namespace {

GSErrCode changeAndFail() {
    gallery::tell("rename", gallery::renameElement("half done"));
    return APIERR_BADVALUE;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::runCommand(&changeAndFail); }};
