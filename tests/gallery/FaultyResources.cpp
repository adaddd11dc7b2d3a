// Its code is sound, its resource definitions are not.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {};
