// Runs a test inside its menu command: the test stands where an add-on stands, with its table and its handle.

#include "AddOn.hpp"

namespace {

std::function<void()> test;

GSErrCode runTest(const API_MenuParams*) {
    if (test) test();
    return NoError;
}

}  // namespace

extern "C" HOST_API void setTest(std::function<void()> body) {
    test = static_cast<std::function<void()>&&>(body);
}
extern "C" HOST_API const HostFunction* givenTable() {
    return gallery::table;
}
extern "C" HOST_API void* givenClient() {
    return gallery::client;
}

const gallery::Behaviour gallery::behaviour = {.command = &runTest};
