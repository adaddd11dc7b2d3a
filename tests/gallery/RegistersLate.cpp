// Registers a menu in a command, long after its registration.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {
    .command = [](const API_MenuParams*) { return gallery::registerMenu(); }};
