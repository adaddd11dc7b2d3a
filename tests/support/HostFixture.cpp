#include "support/HostFixture.hpp"
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

DebugCapture::DebugCapture() {
    before_ = frontend::setDebugSink([this](const char* output) { text += output; });
}

DebugCapture::~DebugCapture() {
    frontend::setDebugSink(before_);
}

void HostFixture::openFile(const std::filesystem::path& file) {
    const model::Status opened = host_.openModel(file);
    ASSERT_TRUE(opened) << opened.error().message;
}

void HostFixture::openText(std::string_view ifc) {
    openFile(folder_.write("model.ifc", ifc));
}

void HostFixture::loadAddOn() {
    const model::Status loaded = host_.loadAddOn(realBundle());
    ASSERT_TRUE(loaded) << loaded.error().message;
}

std::vector<ImportRow> HostFixture::review(std::string_view updates) {
    return import(updates, [](ImportDialog&) {});
}

std::vector<ImportRow> HostFixture::import(std::string_view updates, const std::function<void(ImportDialog&)>& user) {
    if (!host_.addOnLoaded()) loadAddOn();
    std::vector<ImportRow> rows;
    view_.pickNextFile(folder_.write("updates.txt", updates).string());
    view_.inNextDialog([&](frontend::Dialog& shown) {
        ImportDialog dialog(shown);
        user(dialog);
        rows = dialog.rows();
    });
    EXPECT_EQ(host_.pickMenuItem(AddOnMenu, ImportItem), NoError);
    return rows;
}

std::vector<std::pair<std::string, std::string>> HostFixture::lookup(std::string_view guid) {
    constexpr Int16 LookUp = 1, GuidText = 3, Results = 4;
    if (!host_.addOnLoaded()) loadAddOn();
    std::vector<std::pair<std::string, std::string>> rows;
    view_.inNextDialog([&](frontend::Dialog& dialog) {
        EXPECT_TRUE(dialog.typeText(GuidText, std::string(guid).c_str()));
        EXPECT_TRUE(dialog.clickItem(LookUp));
        const frontend::List* results = dialog.list(Results);
        if (results == nullptr) return;
        for (Int16 row = 1; row <= results->rowCount(); ++row) {
            rows.emplace_back(results->cell(row, 1).ToCStr(), results->cell(row, 2).ToCStr());
        }
    });
    EXPECT_EQ(host_.pickMenuItem(AddOnMenu, LookupItem), NoError);
    return rows;
}

std::string HostFixture::savedText() {
    const std::filesystem::path file = folder_.path() / ("saved" + std::to_string(++saves_) + ".ifc");
    const model::Status saved = host_.save(file);
    EXPECT_TRUE(saved) << saved.error().message;
    return saved ? bytesOf(file) : std::string();
}

std::string HostFixture::reportText() const {
    std::string text;
    for (const host::ReportLine& line : host_.report()) text += line.text + "\n";
    return text;
}

}  // namespace testing_support
