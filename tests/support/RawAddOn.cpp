#include "support/RawAddOn.hpp"

#include "support/HostFixture.hpp"

#include <dlfcn.h>

#include <stdexcept>

namespace testing_support {

RawAddOn::RawAddOn() : RawAddOn(realBundle()) {}

RawAddOn::RawAddOn(const std::filesystem::path& bundle) {
    const std::filesystem::path file = bundle / "Contents" / "Linux" / bundle.stem();
    image_ = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (image_ == nullptr) throw std::runtime_error(dlerror());
    const auto getExported = reinterpret_cast<GetExportedFuncAddrsProc*>(symbol("GetExportedFuncAddrs"));
    if (getExported == nullptr) throw std::runtime_error("no GetExportedFuncAddrs in " + file.string());
    getExported(&exported);
}

RawAddOn::~RawAddOn() {
    dlclose(image_);
}

GSErrCode RawAddOn::bind() {
    const auto setImported = reinterpret_cast<SetImportedFuncAddrsProc*>(symbol("SetImportedFuncAddrs"));
    if (setImported == nullptr) throw std::runtime_error("no SetImportedFuncAddrs");
    return setImported(table.data());
}

// Its name is what the leak checker is told about the help location that each start leaves behind. So it must stand in
// the call's trace: neither inlined nor, which is what the volatile is for, replaced by a jump.
__attribute__((noinline)) GSErrCode RawAddOn::initialize(void* client) {
    const volatile GSErrCode result = exported.initialize(client);
    return result;
}

void* RawAddOn::symbol(const char* name) const {
    return dlsym(image_, name);
}

}  // namespace testing_support
