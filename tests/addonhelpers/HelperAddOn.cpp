#include "HelperAddOn.hpp"

#include <dlfcn.h>

#include <deque>
#include <memory>
#include <stdexcept>

namespace testing_support {

std::filesystem::path helperBundle() {
    return std::filesystem::path(BINARY_DIR) / "helperaddon.bundle";
}

static const Helpers* helpersOf(void* getHelpers) {
    if (getHelpers == nullptr) throw std::runtime_error("the helper add-on has no GetHelpers");
    return reinterpret_cast<GetHelpersProc*>(getHelpers)();
}

RawHelpers::RawHelpers(const std::filesystem::path& bundle)
    : RawAddOn(bundle), helpers(helpersOf(symbol("GetHelpers"))) {}

RawHelpers::~RawHelpers() {
    if (*helpers->gOwnClientPtr != nullptr) exported.freeData();
}

void RawHelpers::initialize() {
    RawAddOn::initialize(&client);
}

void HostedHelpers::SetUp() {
    const model::Status loaded = host.loadAddOn(helperBundle());
    ASSERT_TRUE(loaded) << loaded.error().message;
    const std::filesystem::path file = helperBundle() / "Contents" / "Linux" / "helperaddon";
    image = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(image, nullptr) << dlerror();
}

void HostedHelpers::TearDown() {
    if (image != nullptr) dlclose(image);
}

void HostedHelpers::inCommand(const std::function<void(const Helpers&)>& command) {
    const Helpers* helpers = helpersOf(dlsym(image, "GetHelpers"));
    *helpers->command = [&] { command(*helpers); };
    EXPECT_EQ(host.pickMenuItem(Helpers::MenuResID, 1), NoError);
    *helpers->command = nullptr;
}

void HostedHelpers::click(std::vector<host::PickedPoint> clicks) {
    const auto queue = std::make_shared<std::deque<host::PickedPoint>>(clicks.begin(), clicks.end());
    host.setPointPicker([this, queue](const std::string& prompt) -> std::optional<host::PickedPoint> {
        prompts.push_back(prompt);
        if (queue->empty()) return std::nullopt;
        const host::PickedPoint next = queue->front();
        queue->pop_front();
        return next;
    });
}

std::string narrow(const GS::UniString& text) {
    return std::string(text.ToCStr());
}

API_Guid apiGuid(std::string_view text) {
    GS::Guid guid;
    EXPECT_EQ(guid.ConvertFromString(std::string(text).c_str()), NoError) << text;
    return GSGuid2APIGuid(guid);
}

}  // namespace testing_support
