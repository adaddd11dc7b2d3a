// Report lines: for the developer in the debug output, for the user in the host's report.

#include "DriverAddOn.hpp"

#include <gmock/gmock.h>

using namespace testing_support;

namespace {

struct Reported {
    std::string text;
    int alert;
};
std::vector<Reported> reported;

class Reports : public ::testing::Test {
protected:
    void SetUp() override {
        reported.clear();
        addOn_.put<HostSlot::WriteReport>([](void* client, const char* text, unsigned char alert) {
            EXPECT_EQ(client, nullptr);  // No test here begins the add-on's use.
            reported.push_back({text, alert});
        });
        addOn_.bind();
    }
    /// The one report made.
    std::string alert() const {
        EXPECT_EQ(reported.size(), 1U);
        EXPECT_EQ(reported.at(0).alert, 1);
        return reported.at(0).text;
    }

    DebugCapture debug_;
    RawHelpers addOn_;
};

TEST_F(Reports, TraceIsALineOfDebugOutput) {
    addOn_->WriteReport("%s of %d", "wall", 3);
    EXPECT_EQ(debug_.text, "wall of 3\n");
    EXPECT_TRUE(reported.empty());
}

TEST_F(Reports, TraceKeepsItsPercentSigns) {
    addOn_->WriteReport("100%% of %s", "%d%s%%n");
    EXPECT_EQ(debug_.text, "100% of %d%s%%n\n");
}

TEST_F(Reports, TraceIsCutAt511Characters) {
    for (const std::size_t length : {511U, 512U, 5000U}) {
        debug_.text.clear();
        addOn_->WriteReport("%s", std::string(length, 'x').c_str());
        EXPECT_EQ(debug_.text, std::string(511, 'x') + "\n") << length;
    }
}

TEST_F(Reports, TraceOfPercentSignsIsDoubledOnlyBehindTheCut) {
    addOn_->WriteReport("%s", std::string(5000, '%').c_str());
    EXPECT_EQ(debug_.text, std::string(511, '%') + "\n");
}

TEST_F(Reports, AlertGoesToTheHostAsItIs) {
    addOn_->WriteReport_Alert("100%% of %s: %d", "%s", -1);
    EXPECT_EQ(alert(), "100% of %s: -1");
    EXPECT_EQ(debug_.text, "");
}

TEST_F(Reports, AlertIsCutAt511Characters) {
    for (const std::size_t length : {511U, 512U, 5000U}) {
        reported.clear();
        addOn_->WriteReport_Alert("%s", std::string(length, 'x').c_str());
        EXPECT_EQ(alert(), std::string(511, 'x')) << length;
    }
}

TEST_F(Reports, ErrorIsAnAlertWithItsCode) {
    addOn_->WriteReport_Err("Saving 100%", APIERR_GENERAL);
    EXPECT_EQ(alert(), "Saving 100%: -2130313215");
}

TEST_F(Reports, ErrorWithALongTextIsCutAndHarmless) {
    for (const std::size_t length : {511U, 512U, 5000U}) {
        reported.clear();
        addOn_->WriteReport_Err(std::string(length, 'x').c_str(), 1);
        EXPECT_EQ(alert(), std::string(511, 'x')) << length;
    }
}

TEST_F(Reports, HostWithoutAReportIsLetPass) {
    addOn_.put<HostSlot::WriteReport>(nullptr);
    addOn_.bind();
    addOn_->WriteReport_Alert("nobody reads %s", "this");
    addOn_->WriteReport_Err("nor this", 1);
    EXPECT_TRUE(reported.empty());
}

TEST_F(Reports, EndSaysOkOrTheCode) {
    addOn_->WriteReport_End(0);
    EXPECT_EQ(debug_.text, "\nOK\n");
    debug_.text.clear();
    addOn_->WriteReport_End(-5);
    EXPECT_EQ(debug_.text, "\nError: -5\n");
}

TEST_F(Reports, BeepComesWithItsReason) {
    int beeps = 0;
    const auto before = frontend::setBeepSink([&] { ++beeps; });
    addOn_->ErrorBeep("no such wall", 7);
    frontend::setBeepSink(before);
    EXPECT_EQ(debug_.text, "no such wall: 7");
    EXPECT_EQ(beeps, 1);
}

TEST_F(HostedHelpers, AlertStandsInTheHostsReport) {
    inCommand([](const Helpers& helpers) { helpers.WriteReport_Alert("%d walls", 3); });
    ASSERT_EQ(host_.report().size(), 1U);
    EXPECT_EQ(host_.report()[0].text, "3 walls");
    EXPECT_TRUE(host_.report()[0].alert);
}

}  // namespace
