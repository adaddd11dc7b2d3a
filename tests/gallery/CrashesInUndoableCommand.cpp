// Changes the model, then crashes before its undoable command is complete.

#include "AddOn.hpp"

namespace {

GSErrCode changeAndCrash() {
    gallery::tell("rename", gallery::renameElement("half done"));
    gallery::writeToNowhere();
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::runCommand(&changeAndCrash); }};
