#include "FailingMemory.hpp"

#include "Memory.hpp"

#include <dlfcn.h>

#include <optional>

namespace {

std::optional<int> left;
bool failed = false;
int live = 0;

bool exhausted() {
    failed = left && *left == 0;
    if (left && !failed) --*left;
    return failed;
}

/// The frameworks' own function behind one of the program's below.
template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace testing_support {

FailingMemory::FailingMemory(int allocationsLeft) {
    left = allocationsLeft;
}

FailingMemory::~FailingMemory() {
    left.reset();
    failed = false;
}

int liveHandles() {
    return live;
}

}  // namespace testing_support

// The program's own definitions come before the frameworks' in the eyes of every image.

GSHandle BMAllocateHandle(Int64 size, Int32 flags, Int32 reserved) {
    if (exhausted()) return nullptr;
    const GSHandle handle = next<decltype(BMAllocateHandle)>("BMAllocateHandle")(size, flags, reserved);
    if (handle != nullptr) ++live;
    return handle;
}

GSHandle BMReallocHandle(GSHandle handle, Int64 size, Int32 flags, Int32 reserved) {
    if (exhausted()) return nullptr;
    return next<decltype(BMReallocHandle)>("BMReallocHandle")(handle, size, flags, reserved);
}

void BMKillHandle(GSHandle* handle) {
    if (handle != nullptr && *handle != nullptr) --live;
    next<decltype(BMKillHandle)>("BMKillHandle")(handle);
}

GSErrCode BMError() {
    return failed ? BMErrMemoryFull : next<decltype(BMError)>("BMError")();
}
