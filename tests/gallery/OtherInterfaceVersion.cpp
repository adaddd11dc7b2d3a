// Built for the next version of the load-time binding.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.interfaceVersion = 0x00140001};
