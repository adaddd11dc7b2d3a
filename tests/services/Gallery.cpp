#include "Gallery.hpp"

#include "Guid.hpp"
#include "support/Places.hpp"

namespace testing_support {

IfcText houseWithWall(const std::string& schema) {
    IfcText ifc(schema);
    const auto upper =
        ifc.element("IfcBuildingStorey", guidText(11), "Upper floor", {{"ObjectPlacement", ifc.placementAt(0, 0, 3)}});
    ifc.element("IfcBuildingStorey", guidText(10), "Ground floor", {{"ObjectPlacement", ifc.placementAt(0, 0, 0)}});
    const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01", {{"ObjectPlacement", ifc.placementAt(10, 20, 0)}});
    ifc.add("IfcRelContainedInSpatialStructure", {{"GlobalId", stepText(globalId(guidText(90)))},
                                                  {"RelatedElements", "(#" + std::to_string(wall) + ")"},
                                                  {"RelatingStructure", "#" + std::to_string(upper)}});
    return ifc;
}

std::filesystem::path Gallery::bundle(const std::string& name) {
    return testing_support::galleryAddOn(name + ".bundle");
}

std::string Gallery::loadFailure(const std::filesystem::path& path) {
    const model::Status loaded = host_.loadAddOn(path);
    EXPECT_FALSE(loaded) << path << " loaded all the same";
    EXPECT_FALSE(host_.addOnLoaded());
    EXPECT_TRUE(host_.menus().empty());
    if (loaded) return {};
    const std::string prefix = "cannot load the add-on " + path.string() + ": ";
    const std::string message = loaded.error().message;
    EXPECT_THAT(message, ::testing::StartsWith(prefix));
    return message.substr(prefix.size());
}

void Gallery::use(const std::string& addOn) {
    openText(houseWithWall().text());
    // A copy: an image that crashes in one test must not be the one that the next test loads.
    const std::filesystem::path copy = folder_.path() / bundle(addOn).filename();
    std::filesystem::copy(bundle(addOn), copy, std::filesystem::copy_options::recursive);
    const model::Status loaded = host_.loadAddOn(copy);
    ASSERT_TRUE(loaded) << loaded.error().message;
}

std::string Gallery::wallName() {
    model::Guid guid;
    GS::Guid parsed;
    parsed.ConvertFromString(guidText(1).c_str());
    std::copy(std::begin(parsed.bytes), std::end(parsed.bytes), guid.begin());
    const auto wall = host_.model()->find(guid);
    EXPECT_TRUE(wall.has_value());
    if (!wall) return {};
    return GS::UniString(host_.model()->name(*wall)).ToCStr().Get();
}

}  // namespace testing_support
