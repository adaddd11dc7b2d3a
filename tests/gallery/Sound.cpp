// Without a fault: what the others are measured by.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {};
