// The whole way with the add-on of this build: its bundle, its menu, its dialogs, the file.

#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"
#include "support/RawAddOn.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace testing_support {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Pair;

/// For each schema that a model can have.
class RealAddOn : public HostFixture, public ::testing::WithParamInterface<const char*> {
protected:
    void openHouse() {
        IfcText ifc(GetParam());
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
        ifc.property(wall, "Pset_WallCommon", "FireRating", "IFCLABEL('30')");
        ifc.classification(wall, "UniFormat Classification", "B2010", "Exterior Walls");
        original_ = ifc.text();
        openText(original_);
    }
    std::string original_;
};
INSTANTIATE_TEST_SUITE_P(EverySchema, RealAddOn, ::testing::Values("IFC2X3", "IFC4", "IFC4X3_ADD2"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_P(RealAddOn, IntroducesItselfAndItsMenu) {
    loadAddOn();
    EXPECT_FALSE(host_.addOnName().empty());
    EXPECT_FALSE(host_.addOnDescription().empty());
    ASSERT_EQ(host_.menus().size(), 1U);
    EXPECT_EQ(host_.menus()[0].menuStrResID, AddOnMenu);
    ASSERT_EQ(host_.menus()[0].items.size(), 2U);
    for (const host::MenuItem& item : host_.menus()[0].items) {
        EXPECT_FALSE(item.text.IsEmpty());
        EXPECT_FALSE(item.prompt.IsEmpty());
    }
}

TEST_P(RealAddOn, ReviewsAnUpdateWithoutChangingTheModel) {
    openHouse();
    const auto rows = review(guidText(1) + "\tFireRating[WallCommon]\t30\t60\n");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].name, "Wall-01");
    EXPECT_EQ(rows[0].type, "Wall");
    EXPECT_EQ(rows[0].current, "30");
    EXPECT_EQ(rows[0].proposed, "60");
    EXPECT_TRUE(rows[0].tickable());
    EXPECT_EQ(savedText(), original_);
}

TEST_P(RealAddOn, AppliesTickedRowsAsOneUndoStep) {
    openHouse();
    const auto rows =
        importUpdates(guidText(1) + "\tFireRating[WallCommon]\t\t60\n" + guidText(1) + "\tName\t\tNew\n" + guidText(1) +
                          "\tUniFormat Classification\t\tB2020{Windows}\n" + guidText(1) + "\tTag\t\tnot ticked\n",
                      [](ImportDialog& dialog) { dialog.tick(1).tick(2).tick(3).apply(); });
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const ImportRow& row) { return row.remarks == "Done"; }), 3);
    const std::string saved = savedText();
    EXPECT_THAT(saved, HasSubstr("IFCLABEL('60')"));
    EXPECT_THAT(saved, HasSubstr("'New'"));
    EXPECT_THAT(saved, HasSubstr("'B2020','Windows'"));
    EXPECT_TRUE(host_.report().empty()) << reportText();
    EXPECT_TRUE(host_.undo());
    EXPECT_FALSE(host_.undo());
    EXPECT_EQ(savedText(), original_);
}

TEST_P(RealAddOn, RefusedRowIsReportedWithTheReason) {
    openHouse();
    const auto rows =
        importUpdates(guidText(1) + "\tGlobalId\t\tabc\n", [](ImportDialog& dialog) { dialog.selectAll().apply(); });
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].remarks, "error!");
    EXPECT_THAT(reportText(), HasSubstr("Wall-01 (" + guidText(1) + "), GlobalId: "));
}

TEST_P(RealAddOn, LooksAnElementUp) {
    openHouse();
    const auto rows = lookup(guidText(1));
    EXPECT_THAT(rows, Contains(Pair("Type", "Wall")));
    EXPECT_THAT(rows, Contains(Pair("FireRating[Pset_WallCommon]", "30")));
    EXPECT_THAT(rows, Contains(Pair("UniFormat Classification", "B2010 {Exterior Walls}")));
}

TEST_P(RealAddOn, RunsFromABundleWithAnotherName) {
    const auto renamed = folder_.path() / "Renamed \xC3\xA4.bundle";
    std::filesystem::copy(realBundle(), renamed, std::filesystem::copy_options::recursive);
    const model::Status loaded = host_.loadAddOn(renamed);
    ASSERT_TRUE(loaded) << loaded.error().message;
    EXPECT_EQ(host_.menus().size(), 1U);
}

TEST(RealAddOnAlone, CanBeBoundToATableOfTheTests) {
    RawAddOn addOn;
    addOn.put<HostSlot::Register_Menu>([](const API_MenuRegistration*) -> GSErrCode { return APIERR_MEMFULL; });
    EXPECT_EQ(addOn.exported.registerInterface(), APIERR_GENERAL) << "there is no table yet";
    EXPECT_EQ(addOn.bind(), NoError);
    EXPECT_EQ(addOn.exported.registerInterface(), APIERR_MEMFULL);
}

}  // namespace
}  // namespace testing_support
