#pragma once
// What the run on one of several models has to tell the others: a run by itself judges alone.

#include "console/output/Json.hpp"

namespace console {

struct Share {
    JsonValue facts = JsonValue::object();
};

}  // namespace console
