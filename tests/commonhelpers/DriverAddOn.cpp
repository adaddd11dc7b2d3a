#include "DriverAddOn.hpp"
#include "support/Places.hpp"

#include <dlfcn.h>

#include <deque>
#include <memory>
#include <stdexcept>

namespace testing_support {

std::filesystem::path driverBundle() {
    return testing_support::builtFile("driveraddon.bundle");
}

static const Helpers* helpersOf(void* getHelpers) {
    if (getHelpers == nullptr) throw std::runtime_error("the driver add-on has no GetHelpers");
    return reinterpret_cast<GetHelpersProc*>(getHelpers)();
}

RawHelpers::RawHelpers(const std::filesystem::path& bundle)
    : RawAddOn(bundle), helpers_(helpersOf(symbol("GetHelpers"))) {}

RawHelpers::~RawHelpers() {
    if (*helpers_->gOwnClientPtr != nullptr) exported.freeData();
}

void RawHelpers::initialize() {
    RawAddOn::initialize(&client);
}

void HostedHelpers::SetUp() {
    const model::Status loaded = host_.loadAddOn(driverBundle());
    ASSERT_TRUE(loaded) << loaded.error().message;
    const std::filesystem::path file = driverBundle() / "Contents" / "Linux" / "driveraddon";
    image_ = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(image_, nullptr) << dlerror();
}

void HostedHelpers::TearDown() {
    if (image_ != nullptr) dlclose(image_);
}

void HostedHelpers::inCommand(const std::function<void(const Helpers&)>& command) {
    const Helpers* helpers = helpersOf(dlsym(image_, "GetHelpers"));
    *helpers->command = [&] { command(*helpers); };
    EXPECT_EQ(host_.pickMenuItem(Helpers::MenuResID, 1), NoError);
    *helpers->command = nullptr;
}

void HostedHelpers::click(std::vector<host::PickedPoint> clicks) {
    const auto queue = std::make_shared<std::deque<host::PickedPoint>>(clicks.begin(), clicks.end());
    host_.setPointPicker([this, queue](const std::string& prompt) -> std::optional<host::PickedPoint> {
        prompts_.push_back(prompt);
        if (queue->empty()) return std::nullopt;
        const host::PickedPoint next = queue->front();
        queue->pop_front();
        return next;
    });
}

API_Guid apiGuid(std::string_view text) {
    GS::Guid guid;
    EXPECT_EQ(guid.ConvertFromString(std::string(text).c_str()), NoError) << text;
    return GSGuid2APIGuid(guid);
}

}  // namespace testing_support
