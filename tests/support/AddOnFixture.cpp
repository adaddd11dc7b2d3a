#include "support/AddOnFixture.hpp"

#include "support/Places.hpp"

#include <cstdlib>

// The add-on hands a help location to the host and by its contract never frees it, so that each start leaves one
// behind. The add-on's image is gone when the leak checker looks, which leaves the call into it as the only name to go
// by.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
    return "leak:host::AddOn::start\nleak:testing_support::RawAddOn::initialize\n";
}

namespace testing_support {

namespace {

/// Tests read the add-on's texts in its own language, whatever that of the person who runs them.
[[maybe_unused]] const int neutralLanguage = setenv("LC_ALL", "C", 1);

}  // namespace

std::filesystem::path realBundle() {
    return builtFile("ZUNACAddin19.bundle");
}

std::string narrow(const GS::UniString& text) {
    return std::string(text.ToCStr());
}

DebugCapture::DebugCapture() {
    before_ = frontend::setDebugSink([this](const char* output) { text += output; });
}

DebugCapture::~DebugCapture() {
    frontend::setDebugSink(before_);
}

std::vector<ImportRow> AddOnFixture::review(std::string_view updates) {
    return importUpdates(updates, [](ImportDialog&) {});
}

std::vector<ImportRow> AddOnFixture::importUpdates(std::string_view updates,
                                                   const std::function<void(ImportDialog&)>& user) {
    std::vector<ImportRow> rows;
    view_.pickNextFile(folder_.write("updates.txt", updates).string());
    view_.inNextDialog([&](frontend::Dialog& shown) {
        ImportDialog dialog(shown);
        user(dialog);
        rows = dialog.rows();
    });
    run(ImportItem);
    return rows;
}

std::vector<std::pair<std::string, std::string>> AddOnFixture::lookup(std::optional<std::string_view> guid) {
    constexpr Int16 LookUp = 1, GuidText = 3, Results = 4;
    std::vector<std::pair<std::string, std::string>> rows;
    view_.inNextDialog([&](frontend::Dialog& dialog) {
        if (guid) {
            EXPECT_TRUE(dialog.typeText(GuidText, std::string(*guid).c_str()));
        }
        EXPECT_TRUE(dialog.clickItem(LookUp));
        const frontend::List* results = dialog.list(Results);
        if (results == nullptr) return;
        for (Int16 row = 1; row <= results->rowCount(); ++row) {
            rows.emplace_back(narrow(results->cell(row, 1)), narrow(results->cell(row, 2)));
        }
    });
    run(LookupItem);
    return rows;
}

}  // namespace testing_support
