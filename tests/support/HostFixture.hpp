#pragma once
// The whole program under test without a screen: the host's services, a model, the real add-on, a scripted user.
//
//     class Importing : public HostFixture {};
//     TEST_F(Importing, TickedRowIsWritten) {
//         openText(house);
//         auto rows = import(guidText(1) + "\tName\t\tNew name\n", [](ImportDialog& dialog) { dialog.tick(1).apply();
//         }); EXPECT_EQ(rows[0].remarks, "Done"); EXPECT_THAT(savedText(), HasSubstr("'New name'"));
//     }

#include "services/Host.hpp"
#include "support/ImportDialog.hpp"
#include "support/ScriptedView.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_support {

/// The add-on's bundle of this build.
std::filesystem::path realBundle();

/// Collects the host's debug output while it lives.
class DebugCapture {
public:
    DebugCapture();
    ~DebugCapture();
    DebugCapture(const DebugCapture&) = delete;
    DebugCapture& operator=(const DebugCapture&) = delete;

    std::string text;

private:
    frontend::DebugSink before_;
};

class HostFixture : public ::testing::Test {
protected:
    static constexpr Int16 AddOnMenu = 32500;
    static constexpr Int32 ImportItem = 1;
    static constexpr Int32 LookupItem = 2;

    void openText(std::string_view ifc);
    void openFile(const std::filesystem::path& file);
    /// Loads the real add-on. The verbs below do it by themselves where it is not loaded yet.
    void loadAddOn();

    /// Imports an update file of this content and closes the dialog at once. @return the rows as first shown.
    std::vector<ImportRow> review(std::string_view updates);
    /// Imports it and lets the user act. @return the rows as they stand after the user's last action.
    std::vector<ImportRow> import(std::string_view updates, const std::function<void(ImportDialog&)>& user);
    /// Looks an element up, once. @return the result rows: name and value.
    std::vector<std::pair<std::string, std::string>> lookup(std::string_view guid);

    /// Saves to a new file. @return its bytes.
    std::string savedText();
    /// The report, a line each.
    std::string reportText() const;
    const std::string& debugOutput() const { return debug_.text; }

    // In this order: the add-on may still write, and its dialogs close, while the host goes away.
    TempFolder folder_;
    DebugCapture debug_;
    ScriptedView view_;
    host::Host host_;

private:
    int saves_ = 0;
};

}  // namespace testing_support
