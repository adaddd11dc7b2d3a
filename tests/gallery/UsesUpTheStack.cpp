// Calls itself until no stack is left.

#include "AddOn.hpp"

namespace {

__attribute__((noinline, no_sanitize("address"))) int deeper(volatile int* caller) {
    volatile int here[256];
    here[0] = *caller + 1;
    return here[0] == 0 ? 0 : deeper(here) + here[0];
}

GSErrCode recurse(const API_MenuParams*) {
    volatile int start = 0;
    return deeper(&start);
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = &recurse};
