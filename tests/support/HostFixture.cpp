#include "support/HostFixture.hpp"

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
    return std::filesystem::path(BINARY_DIR) / "ZUNACAddin19.bundle";
}

DebugCapture::DebugCapture() {
    before = frontend::setDebugSink([this](const char* output) { text += output; });
}

DebugCapture::~DebugCapture() {
    frontend::setDebugSink(before);
}

void HostFixture::openFile(const std::filesystem::path& file) {
    const model::Status opened = host.openModel(file);
    ASSERT_TRUE(opened) << opened.error().message;
}

void HostFixture::openText(std::string_view ifc) {
    openFile(folder.write("model.ifc", ifc));
}

void HostFixture::loadAddOn() {
    const model::Status loaded = host.loadAddOn(realBundle());
    ASSERT_TRUE(loaded) << loaded.error().message;
}

std::vector<ImportRow> HostFixture::review(std::string_view updates) {
    return import(updates, [](ImportDialog&) {});
}

std::vector<ImportRow> HostFixture::import(std::string_view updates, const std::function<void(ImportDialog&)>& user) {
    if (!host.addOnLoaded()) loadAddOn();
    std::vector<ImportRow> rows;
    view.pickNextFile(folder.write("updates.txt", updates).string());
    view.inNextDialog([&](frontend::Dialog& shown) {
        ImportDialog dialog(shown);
        user(dialog);
        rows = dialog.rows();
    });
    EXPECT_EQ(host.pickMenuItem(AddOnMenu, ImportItem), NoError);
    return rows;
}

std::vector<std::pair<std::string, std::string>> HostFixture::lookup(std::string_view guid) {
    constexpr Int16 LookUp = 1, GuidText = 3, Results = 4;
    if (!host.addOnLoaded()) loadAddOn();
    std::vector<std::pair<std::string, std::string>> rows;
    view.inNextDialog([&](frontend::Dialog& dialog) {
        EXPECT_TRUE(dialog.typeText(GuidText, std::string(guid).c_str()));
        EXPECT_TRUE(dialog.clickItem(LookUp));
        const frontend::List* results = dialog.list(Results);
        if (results == nullptr) return;
        for (Int16 row = 1; row <= results->rowCount(); ++row) {
            rows.emplace_back(results->cell(row, 1).ToCStr(), results->cell(row, 2).ToCStr());
        }
    });
    EXPECT_EQ(host.pickMenuItem(AddOnMenu, LookupItem), NoError);
    return rows;
}

std::string HostFixture::savedText() {
    const std::filesystem::path file = folder.path() / ("saved" + std::to_string(++saves) + ".ifc");
    const model::Status saved = host.save(file);
    EXPECT_TRUE(saved) << saved.error().message;
    return saved ? bytesOf(file) : std::string();
}

std::string HostFixture::reportText() const {
    std::string text;
    for (const host::ReportLine& line : host.report()) text += line.text + "\n";
    return text;
}

}  // namespace testing_support
