// Leaves a function out of its record.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.leaveOutFreeData = true};
