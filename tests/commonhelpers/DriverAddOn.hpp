#pragma once
// The driver add-on: without a host, over a table of the test's own; or in the real host, inside a menu command.

#include "driveraddon/Helpers.hpp"
#include "support/HostFixture.hpp"
#include "support/RawAddOn.hpp"

#include <filesystem>
#include <functional>
#include <string>

namespace testing_support {

std::filesystem::path driverBundle();

/// The image with a table that the test fills; nothing of its host side is called but what the test calls.
///
///     RawHelpers add_on;
///     addOn.put<HostSlot::Goodies>(...);
///     addOn.bind();
///     addOn->Neig_To_ElemID(1);
class RawHelpers : public RawAddOn {
public:
    RawHelpers() : RawHelpers(driverBundle()) {}
    explicit RawHelpers(const std::filesystem::path& bundle);
    /// Ends the add-on's use first, where the test has begun it.
    ~RawHelpers();

    /// Begins the add-on's use: there is a client handle from now on.
    void initialize();

    const Helpers* operator->() const { return helpers_; }
    int client = 0;  ///< Its address is the add-on's handle.

private:
    const Helpers* helpers_;
};

/// The driver add-on in the real host.
class HostedHelpers : public HostFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Runs inside a menu command of the add-on, as its own code does.
    void inCommand(const std::function<void(const Helpers&)>& command);

    /// What the user answers to the next requests for a point, in order; then every request is cancelled.
    void click(std::vector<host::PickedPoint> clicks);
    std::vector<std::string> prompts_;  ///< Of the requests so far.

private:
    void* image_ = nullptr;
};

API_Guid apiGuid(std::string_view text);

}  // namespace testing_support
