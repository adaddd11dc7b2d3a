#include "support/HostFixture.hpp"

namespace testing_support {

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

void HostFixture::run(Int32 item) {
    if (!host_.addOnLoaded()) loadAddOn();
    EXPECT_EQ(host_.pickMenuItem(AddOnMenu, item), NoError);
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
