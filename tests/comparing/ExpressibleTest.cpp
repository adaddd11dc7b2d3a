// What an update file cannot ask for, and why.

#include "Models.hpp"

#include "comparing/Expressible.hpp"
#include "comparing/LeftOut.hpp"

namespace comparing_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Build = void (*)(IfcText&, IfcText::Id);

std::string wall(Build build, const std::string& name = "Wall-01") {
    IfcText ifc;
    build(ifc, ifc.element("IfcWall", guidText(1), name));
    return ifc.text();
}

struct Case {
    const char* what;
    Build a, b;
    const char* why;
};

class Inexpressible : public testing::TestWithParam<Case> {};

TEST_P(Inexpressible, IsToldWithItsReason) {
    const auto found = compared(wall(GetParam().a), wall(GetParam().b));
    ASSERT_EQ(found.changed.size(), 1U) << GetParam().what;
    EXPECT_EQ(found.notWritable, 1U);
    const auto groups = comparing::leftOut(found);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_THAT(groups.front().why, HasSubstr(GetParam().why));
    EXPECT_EQ(groups.front().examples, std::vector<model::Element>{0});
}

void nothing(IfcText&, IfcText::Id) {}
void ratingIn(IfcText& ifc, IfcText::Id wall, const char* set, const char* value) {
    ifc.property(wall, set, "FireRating", value);
}
void ratedF30(IfcText& ifc, IfcText::Id wall) {
    ratingIn(ifc, wall, "Pset_WallCommon", "IFCLABEL('F 30')");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Inexpressible,
    testing::Values(
        Case{"property gone", ratedF30, nothing, "takes no item away"},
        Case{"new property in a set of another prefix", nothing,
             [](IfcText& ifc, IfcText::Id wall) { ratingIn(ifc, wall, "Survey", "IFCLABEL('F 30')"); },
             "leads to another item, or to none"},
        Case{"the name stands in a set before it",
             [](IfcText& ifc, IfcText::Id wall) {
                 ratingIn(ifc, wall, "Pset_A", "IFCLABEL('x')");
                 ratingIn(ifc, wall, "Pset_B", "IFCLABEL('y')");
             },
             [](IfcText& ifc, IfcText::Id wall) {
                 ratingIn(ifc, wall, "Pset_A", "IFCLABEL('x')");
                 ratingIn(ifc, wall, "Pset_B", "IFCLABEL('z')");
             },
             "leads to another item, or to none"},
        Case{"a name that an attribute has", nothing,
             [](IfcText& ifc, IfcText::Id wall) { ifc.property(wall, "Pset_A", "Tag", "IFCLABEL('x')"); },
             "leads to another item, or to none"},
        Case{"a line end", ratedF30,
             [](IfcText& ifc, IfcText::Id wall) {
                 ratingIn(ifc, wall, "Pset_WallCommon", "IFCLABEL('F\\X2\\000A\\X0\\30')");
             },
             "a TAB, a line end or a zero"},
        Case{"the same up to a brace", ratedF30,
             [](IfcText& ifc, IfcText::Id wall) { ratingIn(ifc, wall, "Pset_WallCommon", "IFCLABEL('F 30{x}')"); },
             "takes the old and the new value for the same"},
        Case{"a title alone",
             [](IfcText& ifc, IfcText::Id wall) { ifc.classification(wall, "UniFormat Classification", "B20", "Old"); },
             [](IfcText& ifc, IfcText::Id wall) { ifc.classification(wall, "UniFormat Classification", "B20", "New"); },
             "takes the old and the new value for the same"},
        Case{"a system that the add-on does not know", nothing,
             [](IfcText& ifc, IfcText::Id wall) { ifc.classification(wall, "Uniclass", "B20", "Walls"); },
             "leads to another item, or to none"},
        Case{"a property without a value", nothing,
             [](IfcText& ifc, IfcText::Id wall) { ratingIn(ifc, wall, "Pset_WallCommon", "$"); },
             "takes the old and the new value for the same"},
        Case{"a list",
             [](IfcText& ifc, IfcText::Id wall) {
                 ifc.addProperty(
                     wall, "Pset_A",
                     ifc.add("IfcPropertyListValue", {{"Name", "'L'"}, {"ListValues", "(IFCREAL(1.),IFCREAL(2.))"}}));
             },
             [](IfcText& ifc, IfcText::Id wall) {
                 ifc.addProperty(
                     wall, "Pset_A",
                     ifc.add("IfcPropertyListValue", {{"Name", "'L'"}, {"ListValues", "(IFCREAL(1.),IFCREAL(3.))"}}));
             },
             "no text that an update could ask for"},
        Case{"another type than the one that the property keeps",
             [](IfcText& ifc, IfcText::Id wall) { ratingIn(ifc, wall, "Pset_WallCommon", "IFCBOOLEAN(.T.)"); },
             [](IfcText& ifc, IfcText::Id wall) { ratingIn(ifc, wall, "Pset_WallCommon", "IFCLABEL('no')"); },
             "would store \"false\" there"}));

std::string longText(std::size_t length) {
    return "IFCTEXT('" + std::string(length, 'x') + "')";
}

TEST(Expressible, IsALineOf2047BytesAndNoLongerOne) {
    const auto ofLength = [](std::size_t length) {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
        ifc.property(wall, "Pset_WallCommon", "Note", longText(length));
        return ifc.text();
    };
    // GUID, "Note[WallCommon]", no old value, and three TABs.
    const std::size_t most = 2047 - 36 - 16 - 3;
    EXPECT_EQ(compared(ofLength(1), ofLength(most)).notWritable, 0U);
    const auto found = compared(ofLength(1), ofLength(most + 1));
    EXPECT_EQ(found.notWritable, 1U);
    EXPECT_THAT(comparing::leftOut(found).front().why, HasSubstr("longer than 2047 bytes"));
    const auto a = opened(ofLength(100));
    const auto fitting = compared(ofLength(100), ofLength(most));
    const std::string line = comparing::updateLine(*a, fitting.changed[0], fitting.changed[0].changes[0]);
    EXPECT_EQ(line.size(), 2048U);
    EXPECT_THAT(line, HasSubstr("Note[WallCommon]\t\tx"));
}

TEST(Expressible, IsNothingOfAnElementWithoutAName) {
    const auto model = [](const char* tag) {
        IfcText ifc;
        ifc.element("IfcWall", guidText(1), "", {{"Tag", tag}});
        return ifc.text();
    };
    EXPECT_THAT(
        changes(model("'a'"), model("'b'")),
        ElementsAre("attribute Tag: a -> b (the element has no Name, so the review list would refuse the line)"));
}

TEST(Expressible, IsOneOfTwoNewPropertiesOfOneName) {
    const auto found = changes(wall(nothing), wall([](IfcText& ifc, IfcText::Id id) {
                                   ratingIn(ifc, id, "Pset_A", "IFCLABEL('x')");
                                   ratingIn(ifc, id, "Pset_B", "IFCLABEL('y')");
                               }));
    EXPECT_THAT(
        found,
        ElementsAre(
            "property FireRating[A]: nothing -> x",
            "property FireRating[B]: nothing -> y (another new property of that name would be written instead)"));
}

TEST(Expressible, IsThatAClassificationIsGone) {
    const auto classified = [](IfcText& ifc, IfcText::Id id) {
        ifc.classification(id, "UniFormat Classification", "B20", "Walls");
    };
    const auto a = opened(wall(classified));
    const auto found = compared(wall(classified), wall(nothing));
    ASSERT_EQ(found.changed.size(), 1U);
    EXPECT_EQ(found.notWritable, 0U);
    EXPECT_EQ(comparing::updateLine(*a, found.changed[0], found.changed[0].changes[0]),
              guidText(1) + "\tUniFormat Classification\tB20{Walls}\t\n");
}

TEST(Expressible, LeavesNoTraceInTheModel) {
    const auto a = opened(wall(ratedF30)), b = opened(wall(nothing, "Other"));
    const std::string before = a->bytes();
    ASSERT_TRUE(comparing::compare(*a, *b));
    EXPECT_EQ(a->bytes(), before);
    EXPECT_FALSE(a->undoSteps().undo);
    EXPECT_FALSE(a->undoSteps().redo);
    EXPECT_THAT(a->takeNotes(), IsEmpty());
}

}  // namespace
}  // namespace comparing_tests
