// Changes the model, then throws out of its undoable command.

#include "AddOn.hpp"

#include <stdexcept>

namespace {

GSErrCode changeAndThrow() {
    gallery::tell("rename", gallery::renameElement("half done"));
    throw std::runtime_error("in the middle");
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::runCommand(&changeAndThrow); }};
