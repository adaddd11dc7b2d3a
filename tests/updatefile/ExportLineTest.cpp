// The value that an exported line carries. What needs no model to be shown; the round trip through the import is
// ExportCommandTest's.

#include "updatefile/ExportLine.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace updatefile {
namespace {

using Source = CurrentText::Source;

const LineSubject Wall{"C0FFEE00-1234-4ABC-8DEF-000000000001", false, true};
const LineSubject Nameless{"C0FFEE00-1234-4ABC-8DEF-000000000003", false, false};
const LineSubject Null{"00000000-0000-0000-0000-000000000000", true, true};

CurrentText attribute(std::u16string text) {
    return {Source::Attribute, std::move(text), {}, true, false};
}

TEST(ExportLine, CarriesTheText) {
    EXPECT_EQ(exportLine(Wall, "Name", attribute(u"Tür")).value, "Tür");
}

TEST(ExportLine, OfAClassificationCarriesItsNameInBraces) {
    EXPECT_EQ(exportLine(Wall, "X", {Source::Classification, u"B2010", u"Walls", true, false}).value, "B2010{Walls}");
    EXPECT_EQ(exportLine(Wall, "X", {Source::Classification, u"B2010", u"", true, false}).value, "B2010");
    // ".T." is a code only where it is the whole field.
    EXPECT_EQ(exportLine(Wall, "X", {Source::Classification, u".T.", u"Walls", true, false}).value, ".T.{Walls}");
}

struct Refused {
    const char* what;
    LineSubject subject;
    CurrentText current;
    Obstacle obstacle;
};

class ExportLineThatIsNone : public testing::TestWithParam<Refused> {};

TEST_P(ExportLineThatIsNone, HasAReason) {
    const ExportLine line = exportLine(GetParam().subject, "Item", GetParam().current);
    EXPECT_EQ(line.obstacle, GetParam().obstacle) << GetParam().what;
    EXPECT_NE(explain(line.obstacle), "");
}

std::vector<Refused> refusals() {
    return {
        {"no item", Wall, {}, Obstacle::NoItem},
        {"no name", Nameless, attribute(u"x"), Obstacle::NoName},
        {"null GUID", Null, attribute(u"x"), Obstacle::NoGuid},
        {"list", Wall, {Source::Property, u"", {}, false, false}, Obstacle::NoText},
        {"half a pair", Wall, attribute(u"a\xD83C"), Obstacle::NoUnicode},
        {"half a pair in the name", Wall, {Source::Classification, u"A", u"\xDFE0", true, false}, Obstacle::NoUnicode},
        {"TAB in the name", Wall, {Source::Classification, u"A", u"a\tb", true, false}, Obstacle::LineBreaker},
        {"brace", Wall, attribute(u"{"), Obstacle::Brace},
        {"code", Wall, attribute(u".F."), Obstacle::BooleanCode},
        {"long", Wall, attribute(std::u16string(1100, u'x')), Obstacle::TooLong}};
}

INSTANTIATE_TEST_SUITE_P(Reasons, ExportLineThatIsNone, testing::ValuesIn(refusals()));

TEST(CurrentTextOfAnElement, ComesFromAttributesThenPropertiesThenClassifications) {
    ElementData element;
    element.attributes.push_back({"Name", u"attribute"});
    element.properties.push_back({u"Pset_X", u"Name", {}, false, {}});
    element.properties.push_back({u"Pset_X", u"Code", {}, false, {}});
    element.classifications.push_back({u"Code", {}, {}, u"item", {}, {}, {}});
    element.classifications.push_back({u"Only", {}, {}, std::nullopt, {}, {}, {}});
    EXPECT_EQ(currentText(element, u"Name").text, u"attribute");
    EXPECT_EQ(currentText(element, u"Code").source, Source::Property);
    EXPECT_EQ(currentText(element, u"Only").source, Source::Classification);
    EXPECT_EQ(currentText(element, u"name").source, Source::None);
}

TEST(Items, AreCutAtCommasAndTrimmed) {
    EXPECT_THAT(*parseItems("Name, FireRating[Wall Common] ,UniFormat Classification"),
                testing::ElementsAre("Name", "FireRating[Wall Common]", "UniFormat Classification"));
}

class ItemThatIsNone : public testing::TestWithParam<const char*> {};

TEST_P(ItemThatIsNone, IsRefused) {
    EXPECT_FALSE(parseItems(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Texts, ItemThatIsNone, testing::Values("", " ", "Name,", ",Name", "[Set]", "a\tb", "a\nb"));

}  // namespace
}  // namespace updatefile
