#include "Probe.hpp"

#include <dlfcn.h>

#include <utility>

namespace testing_support {

void Probe::probe(const IfcText& ifc) {
    openText(ifc.text());
    const model::Status loaded = host_.loadAddOn(bundle("Probe"));
    ASSERT_TRUE(loaded) << loaded.error().message;
}

void Probe::inCommand(std::function<void()> test, const char* outcome) {
    // The same image that the host has loaded.
    void* const image = dlopen((bundle("Probe") / "Contents" / "Linux" / "Probe").c_str(), RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(image, nullptr) << "the probe is not loaded";
    const auto setTest = reinterpret_cast<void (*)(std::function<void()>)>(dlsym(image, "setTest"));
    table_ = reinterpret_cast<const HostFunction* (*)()>(dlsym(image, "givenTable"))();
    client_ = reinterpret_cast<void* (*)()>(dlsym(image, "givenClient"))();
    setTest(std::move(test));
    EXPECT_EQ(named(pick()), outcome);
    setTest({});
    dlclose(image);
}

GSErrCode Probe::goodies(UInt32 code, void* par1, void* par2) {
    return call<HostSlot::Goodies>(code, par1, par2, static_cast<void*>(nullptr));
}

GSErrCode Probe::interface(UInt32 code, void* par1, void* par2) {
    return call<HostSlot::Interface>(code, par1, par2, static_cast<void*>(nullptr));
}

GSErrCode Probe::environment(UInt32 code, void* par1, void* par2) {
    return call<HostSlot::Environment>(code, par1, par2, static_cast<void*>(nullptr));
}

GSErrCode Probe::command(const std::function<GSErrCode()>& body) {
    return call<HostSlot::CallUndoableCommand>(GS::UniString("Test command"), body);
}

GSErrCode Probe::setAttribute(std::string_view guid, const char* name, const char* value) {
    return call<HostSlot::Element_SetIFCAttribute>(apiGuid(guid), API_IFCAttribute{name, value});
}

API_Guid apiGuid(std::string_view guid) {
    GS::Guid parsed;
    EXPECT_EQ(parsed.ConvertFromString(std::string(guid).c_str()), NoError) << guid;
    return GSGuid2APIGuid(parsed);
}

}  // namespace testing_support
