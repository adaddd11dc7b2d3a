#include "updatefile/StandardHints.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace updatefile {
namespace {

using model::ifc::Schema;
using model::ifc::SchemaVersion;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

UnknownItem item(std::string designation, std::string_view ifcClass = "IfcDoor", std::string value = "x") {
    return {1,    std::move(designation), std::move(value), Schema::of(SchemaVersion::Ifc4).entity(ifcClass), nullptr,
            false};
}

std::vector<std::string> hints(const std::vector<UnknownItem>& items) {
    return standardHints(items, SchemaVersion::Ifc4).texts;
}

struct Advice {
    const char* designation;
    const char* ifcClass;
    const char* hint;  ///< Behind "Row 1: "; empty where nothing is said.
};

class StandardHint : public testing::TestWithParam<Advice> {};

TEST_P(StandardHint, NamesWhatWasMeant) {
    const Advice& row = GetParam();
    const auto texts = hints({item(row.designation, row.ifcClass)});
    if (*row.hint == '\0')
        EXPECT_THAT(texts, IsEmpty());
    else
        EXPECT_THAT(texts, ElementsAre("Row 1: " + std::string(row.hint)));
}

INSTANTIATE_TEST_SUITE_P(
    Names, StandardHint,
    testing::Values(
        Advice{"FireRating[Pset_DoorCommon]", "IfcDoor",
               "FireRating[Pset_DoorCommon] would go into Pset_Pset_DoorCommon, since Pset_ is put before every set: "
               "write FireRating[DoorCommon]"},
        Advice{"FireRating[DoorComon]", "IfcDoor",
               "FireRating[DoorComon] is nearly of the standard's set Pset_DoorCommon: write FireRating[DoorCommon]"},
        Advice{"FireRating[doorcommon]", "IfcDoor",
               "FireRating[doorcommon] is nearly of the standard's set Pset_DoorCommon: write FireRating[DoorCommon]"},
        Advice{"FireRatng[DoorCommon]", "IfcDoor",
               "FireRatng[DoorCommon] is nearly the standard's FireRating of Pset_DoorCommon: write "
               "FireRating[DoorCommon]"},
        Advice{"FireRating[WallCommon]", "IfcDoor",
               "FireRating[WallCommon] would go into Pset_WallCommon, which the standard has for other classes than "
               "IfcDoor: write FireRating[DoorCommon]"},
        Advice{"Colour[WallCommon]", "IfcDoor",
               "Colour[WallCommon] would go into Pset_WallCommon, which the standard has for other classes than "
               "IfcDoor: write a set of your own, as in Colour[Custom]"},
        Advice{"Nmae", "IfcDoor", "Nmae is nearly the attribute Name: write Name"},
        Advice{"overall width", "IfcDoor", "overall width is nearly the attribute OverallWidth: write OverallWidth"},
        Advice{"GlobalID", "IfcDoor", ""}, Advice{"OwnerHistroy", "IfcDoor", ""},
        Advice{"FireRating", "IfcDoor", "FireRating is the standard's for IfcDoor: write FireRating[DoorCommon]"},
        Advice{"fire rating", "IfcDoor",
               "fire rating is nearly the standard's FireRating for IfcDoor: write FireRating[DoorCommon]"},
        Advice{"Uniformat Classification", "IfcDoor",
               "Uniformat Classification is nearly a classification: write UniFormat Classification"},
        Advice{"Omniclass Classification", "IfcDoor",
               "Omniclass Classification is no classification of the element, and only UniFormat Classification and "
               "SpecSection Classification can be given to an element that has none"},
        Advice{"FireRating[DoorCommon]", "IfcDoor", ""}, Advice{"FireRating[WallCommon]", "IfcWall", ""},
        Advice{"FireRating[Custom]", "IfcDoor", ""}, Advice{"Colour[DoorCommon]", "IfcDoor", ""},
        Advice{"Hersteller", "IfcDoor", ""}, Advice{"UniFormat Classification", "IfcDoor", ""},
        Advice{"SpecSection Classification", "IfcDoor", ""}, Advice{"", "IfcDoor", ""}, Advice{"[", "IfcDoor", ""},
        Advice{"X[", "IfcDoor", ""}));

TEST(StandardHints, SayOneThingOnceForAllItsRows) {
    std::vector<UnknownItem> items(3, item("FireRating"));
    for (std::size_t i = 0; i < items.size(); ++i) items[i].row = 2 * i + 1;
    const StandardHints found = standardHints(items, SchemaVersion::Ifc4);
    EXPECT_THAT(found.texts,
                ElementsAre("Rows 1, 3 and 5: FireRating is the standard's for IfcDoor: write FireRating[DoorCommon]"));
    EXPECT_THAT(found.rows, ElementsAre(1, 3, 5));
}

TEST(StandardHints, BlameNoNameWhereTheValueWasTooLong) {
    EXPECT_THAT(hints({item("FireRatng[DoorCommon]", "IfcDoor", std::string(256, 'x'))}), IsEmpty());
    EXPECT_THAT(hints({item("FireRatng[DoorCommon]", "IfcDoor", std::string(255, 'x'))}), testing::SizeIs(1));
    UnknownItem refused = item("FireRatng[DoorCommon]");
    refused.failed = true;
    EXPECT_THAT(hints({refused}), IsEmpty());
}

TEST(StandardHints, SuggestNoPropertyForAValueWithATitleInBraces) {
    EXPECT_THAT(hints({item("FireRating", "IfcDoor", "B2010{Exterior Walls}")}),
                ElementsAre(HasSubstr("is no classification of the element")));
}

TEST(StandardHints, FollowTheTypeObjectsClassToo) {
    const Schema& schema = Schema::of(SchemaVersion::Ifc2x3);
    UnknownItem fan{
        1,    "MotorDriveTyp[FanTypeCommon]", "x", schema.entity("IfcFlowMovingDevice"), schema.entity("IfcFanType"),
        false};
    EXPECT_THAT(standardHints({fan}, SchemaVersion::Ifc2x3).texts,
                ElementsAre(HasSubstr("write MotorDriveType[FanTypeCommon]")));
}

TEST(StandardHints, AreFewWhateverIsWritten) {
    std::vector<UnknownItem> items;
    for (int i = 0; i < 40000; ++i) items.push_back(item("FireRating[Pset_" + std::to_string(i) + "]"));
    const auto texts = hints(items);
    ASSERT_EQ(texts.size(), 21U);
    EXPECT_EQ(texts.back(), "180 more names could be better ones; fix these first");
}

}  // namespace
}  // namespace updatefile
