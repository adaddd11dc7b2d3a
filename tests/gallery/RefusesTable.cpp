// Does not accept the host's table.

#include "AddOn.hpp"

const gallery::Behaviour gallery::behaviour = {.afterTable = [] { return GSErrCode{APIERR_NOTSUPPORTED}; }};
