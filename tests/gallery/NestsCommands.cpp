// Starts a command inside a command, then goes on with the outer one.

#include "AddOn.hpp"

namespace {

GSErrCode inner() {
    return gallery::renameElement("by the inner command");
}

GSErrCode outer() {
    gallery::tell("nested", gallery::runCommand(&inner));
    return gallery::renameElement("by the outer command");
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::runCommand(&outer); }};
