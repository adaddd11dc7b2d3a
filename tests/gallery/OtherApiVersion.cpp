// Built for an older version of the host interface.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.apiVersion = 18000};
