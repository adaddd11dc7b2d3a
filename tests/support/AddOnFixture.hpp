#pragma once
// What the tests of the whole add-on share, whichever host it is in: a folder for files, the debug output, a scripted
// user, and that user's verbs.

#include "support/ImportDialog.hpp"
#include "support/ScriptedView.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_support {

/// The add-on's bundle of this build.
std::filesystem::path realBundle();

std::string narrow(const GS::UniString& text);

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

class AddOnFixture : public ::testing::Test {
protected:
    static constexpr Int16 AddOnMenu = 32500;
    static constexpr Int32 ImportItem = 1;
    static constexpr Int32 LookupItem = 2;

    /// Imports an update file of this content and closes the dialog at once. @return the rows as first shown.
    std::vector<ImportRow> review(std::string_view updates);
    /// Imports it and lets the user act. @return the rows as they stand after the user's last action.
    std::vector<ImportRow> importUpdates(std::string_view updates, const std::function<void(ImportDialog&)>& user);
    /// Looks an element up, once. @return the result rows: name and value.
    /// @param guid  nothing: what stands in the edit text when the dialog opens.
    std::vector<std::pair<std::string, std::string>> lookup(std::optional<std::string_view> guid = std::nullopt);

    // In this order: the add-on may still write, and its dialogs close, while the host goes away.
    TempFolder folder_;
    DebugCapture debug_;
    ScriptedView view_;

private:
    /// Runs the add-on's menu item, with the add-on started before.
    virtual void run(Int32 item) = 0;
};

}  // namespace testing_support
