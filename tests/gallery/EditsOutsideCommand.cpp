// Changes the model without an undoable command.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::renameElement("without a command"); }};
