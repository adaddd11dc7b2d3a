// What elements share is compared, and tried out, once for all of them; what comes of it is each one's own.

#include "Models.hpp"

#include "support/CrowdText.hpp"
#include "support/Stopwatch.hpp"

namespace comparing_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::CrowdText;

/// What is different of each wall, which is the same for all.
std::vector<std::string> ofEachWall(const std::string& a, const std::string& b) {
    const auto found = compared(a, b);
    EXPECT_EQ(found.changed.size(), CrowdText::Many);
    std::vector<std::string> lines;
    for (const auto& element : found.changed) {
        std::vector<std::string> own;
        for (const auto& change : element.changes) own.push_back(lineOf(change));
        if (lines.empty()) lines = own;
        if (own != lines) return own;
    }
    return lines;
}

class GrowthOfDiff : public testing::Test {
protected:
    void TearDown() override { EXPECT_LT(watch_.seconds(), testing_support::MostSeconds); }

private:
    testing_support::Stopwatch watch_;
};

TEST_F(GrowthOfDiff, OfPropertiesOfOneTypeIsLinear) {
    const auto model = [](const std::string& value) {
        CrowdText crowd;
        crowd.type({crowd.propertySet(value)});
        return crowd.text();
    };
    EXPECT_THAT(ofEachWall(model("a"), model("b")), ElementsAre("property P0[Long]: a -> b"));
}

TEST_F(GrowthOfDiff, OfOneSetOfAllIsLinear) {
    const auto model = [](const std::string& value) {
        CrowdText crowd;
        crowd.giveToAll(crowd.propertySet(value));
        return crowd.text();
    };
    EXPECT_THAT(ofEachWall(model("a"), model("b")), ElementsAre("property P0[Long]: a -> b"));
}

TEST_F(GrowthOfDiff, OfAttributesBesideSharedPropertiesIsLinear) {
    const auto model = [](const std::string& name) {
        CrowdText crowd(name);
        crowd.giveToAll(crowd.propertySet("a"));
        return crowd.text();
    };
    EXPECT_THAT(ofEachWall(model("A"), model("B")), ElementsAre("attribute Name: A -> B"));
}

TEST_F(GrowthOfDiff, OfClassificationsOfOneTypeIsLinear) {
    const auto model = [](const std::string& code) {
        CrowdText crowd;
        crowd.classify(crowd.type({}), code);
        return crowd.text();
    };
    EXPECT_THAT(ofEachWall(model("a"), model("b")), ElementsAre("classification S0: a -> b"));
}

TEST_F(GrowthOfDiff, OfOneListOfMaterialsIsLinear) {
    const auto model = [](const std::string& ending) {
        CrowdText crowd;
        const auto materials =
            crowd.add("IfcMaterialList", {{"Materials", CrowdText::list(crowd.materials(CrowdText::Many, ending))}});
        crowd.relate("IfcRelAssociatesMaterial", "RelatingMaterial", materials);
        return crowd.text();
    };
    EXPECT_THAT(
        ofEachWall(model("a"), model("b")),
        ElementsAre("other material: M0a, M1a, M2a, M3a, M4a, M5a, M6a, M7a, M8a, M9a, M10a, M11a, M12a, M13a, M14a, "
                    "M15a, M16a, M17a, M18a, M19a and 11980 more -> M0b, M1b, M2b, M3b, M4b, M5b, M6b, M7b, M8b, M9b, "
                    "M10b, M11b, M12b, M13b, M14b, M15b, M16b, M17b, M18b, M19b and 11980 more (an update gives no "
                    "other material)"));
}

/// A wall of so many materials, by the texts of the change.
std::vector<std::string> ofMaterials(int count) {
    const auto model = [count](const std::string& ending) {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall");
        std::vector<IfcText::Id> materials;
        for (int i = 0; i < count; ++i) {
            materials.push_back(
                ifc.add("IfcMaterial", {{"Name", testing_support::stepText(std::to_string(i) + ending)}}));
        }
        const auto list = ifc.add("IfcMaterialList", {{"Materials", CrowdText::list(materials)}});
        ifc.add("IfcRelAssociatesMaterial",
                {{"GlobalId", testing_support::stepText(testing_support::globalId(guidText(2)))},
                 {"RelatedObjects", CrowdText::list({wall})},
                 {"RelatingMaterial", CrowdText::reference(list)}});
        return ifc.text();
    };
    std::vector<std::string> texts;
    for (const auto& element : compared(model("a"), model("b")).changed)
        for (const auto& change : element.changes) texts.push_back(change.old.value_or("nothing"));
    return texts;
}

/// A wall with properties of one set, by name and value.
std::string listing(const std::vector<std::pair<std::string, std::string>>& properties) {
    IfcText ifc;
    const auto wall = ifc.element("IfcWall", guidText(1), "Wall");
    for (const auto& [name, value] : properties) ifc.property(wall, "Pset_S", name, "IFCLABEL('" + value + "')");
    return ifc.text();
}

TEST(Lists, AreComparedByNamesWhereverTheseStand) {
    const std::string gone = " (an update file takes no item away but a classification)";
    const std::string several =
        " (the element has several items of that name in one set, of which an update writes the first)";
    // It shows the last one of a name as current.
    const std::string same = " (the review list takes the old and the new value for the same)";
    const std::string before = listing({{"P", "1"}, {"Q", "2"}, {"R", "3"}});
    EXPECT_THAT(changes(before, listing({{"R", "3"}, {"Q", "2"}, {"P", "1"}})), IsEmpty());
    EXPECT_THAT(changes(before, listing({{"Q", "2"}, {"R", "3"}})), ElementsAre("property P[S]: 1 -> nothing" + gone));
    EXPECT_THAT(changes(before, listing({{"P", "1"}, {"R", "3"}})), ElementsAre("property Q[S]: 2 -> nothing" + gone));
    EXPECT_THAT(changes(before, listing({{"P", "1"}, {"X", "4"}, {"Q", "2"}, {"R", "5"}})),
                ElementsAre("property R[S]: 3 -> 5", "property X[S]: nothing -> 4"));
    EXPECT_THAT(changes(before, listing({{"P", "1"}, {"Q", "2"}, {"R", "3"}, {"P", "6"}})),
                ElementsAre("property P[S]: nothing -> 6" + several));
    EXPECT_THAT(changes(listing({{"P", "1"}, {"P", "2"}, {"Q", "3"}}), listing({{"P", "2"}, {"Q", "3"}})),
                ElementsAre("property P[S]: 1 -> 2" + same, "property P[S]: 2 -> nothing" + gone));
    EXPECT_THAT(changes(listing({{"P", "1"}, {"Q", "2"}, {"P", "3"}}), listing({{"P", "3"}, {"Q", "2"}, {"P", "1"}})),
                ElementsAre("property P[S]: 1 -> 3" + same, "property P[S]: 3 -> 1" + several));
    EXPECT_THAT(changes(listing({{"a[b", "1"}, {"a", "2"}}), listing({{"a[b", "1"}, {"a", "3"}})),
                ElementsAre("property a[S]: 2 -> 3"));
}

TEST(Materials, AreNamedUpToTwenty) {
    const std::string nineteen = "0a, 1a, 2a, 3a, 4a, 5a, 6a, 7a, 8a, 9a, 10a, 11a, 12a, 13a, 14a, 15a, 16a, 17a, 18a";
    EXPECT_THAT(ofMaterials(19), ElementsAre(nineteen));
    EXPECT_THAT(ofMaterials(20), ElementsAre(nineteen + ", 19a"));
    EXPECT_THAT(ofMaterials(21), ElementsAre(nineteen + ", 19a and 1 more"));
}

/// Two elements that share a set with one property, which differs.
struct Sharers {
    std::string firstClass = "IfcWall", secondClass = "IfcWall";
    std::string firstName = "A", secondName = "B";
    std::string property = "P";

    std::string text(const std::string& value) const {
        IfcText ifc;
        const auto root = [](unsigned number) {
            return testing_support::stepText(testing_support::globalId(guidText(number)));
        };
        const auto first = ifc.element(firstClass, guidText(1), firstName);
        const auto second = ifc.element(secondClass, guidText(2), secondName);
        const auto single = ifc.add("IfcPropertySingleValue", {{"Name", testing_support::stepText(property)},
                                                               {"NominalValue", "IFCLABEL('" + value + "')"}});
        const auto set =
            ifc.add("IfcPropertySet",
                    {{"GlobalId", root(10)}, {"Name", "'Pset_S'"}, {"HasProperties", CrowdText::list({single})}});
        ifc.add("IfcRelDefinesByProperties", {{"GlobalId", root(11)},
                                              {"RelatedObjects", CrowdText::list({first, second})},
                                              {"RelatingPropertyDefinition", CrowdText::reference(set)}});
        return ifc.text();
    }
};

TEST(SharedProperty, IsChangedByAnUpdateOnEachElement) {
    const Sharers walls;
    EXPECT_THAT(changes(walls.text("a"), walls.text("b")),
                ElementsAre("property P[S]: a -> b", "property P[S]: a -> b"));
}

TEST(SharedProperty, IsNotChangedOnTheElementWithoutName) {
    Sharers walls;
    walls.secondName.clear();
    const std::string refused =
        "property P[S]: a -> b (the element has no Name, so the review list would refuse the line)";
    EXPECT_THAT(changes(walls.text("a"), walls.text("b")), ElementsAre("property P[S]: a -> b", refused));
    std::swap(walls.firstName, walls.secondName);
    EXPECT_THAT(changes(walls.text("a"), walls.text("b")), ElementsAre(refused, "property P[S]: a -> b"));
}

TEST(SharedProperty, IsNotChangedOnTheElementWithAnAttributeOfTheName) {
    Sharers both;
    both.secondClass = "IfcDoor";
    both.property = "OverallHeight";
    EXPECT_THAT(changes(both.text("a"), both.text("b")),
                ElementsAre("property OverallHeight[S]: a -> b",
                            "property OverallHeight[S]: a -> b (the item's name alone leads to another item, or to "
                            "none)"));
}

TEST(SharedProperty, IsToldBesideWhatIsTheElementsOwn) {
    Sharers before, after;
    after.secondName = "C";
    EXPECT_THAT(changes(before.text("a"), after.text("b")),
                ElementsAre("property P[S]: a -> b", "attribute Name: B -> C", "property P[S]: a -> b"));
    EXPECT_THAT(changes(before.text("a"), after.text("a")), ElementsAre("attribute Name: B -> C"));
}

TEST(SharedProperty, DoesNotCountWhereTheElementHasItItself) {
    const auto model = [](const std::string& ofType) {
        IfcText ifc;
        const auto own = ifc.element("IfcWall", guidText(1), "A");
        ifc.property(own, "Pset_S", "P", "IFCLABEL('own')");
        const auto inherits = ifc.element("IfcWall", guidText(2), "B");
        const auto type = ifc.type(own, "IfcWallType", "Pset_S", {{"P", "IFCLABEL('" + ofType + "')"}});
        ifc.add("IfcRelDefinesByType",
                {{"GlobalId", testing_support::stepText(testing_support::globalId(guidText(10)))},
                 {"RelatedObjects", CrowdText::list({inherits})},
                 {"RelatingType", CrowdText::reference(type)}});
        return ifc.text();
    };
    const auto found = compared(model("a"), model("b"));
    ASSERT_EQ(found.changed.size(), 1U);
    EXPECT_EQ(found.changed[0].a, 1U);
    EXPECT_THAT(changes(model("a"), model("b")), ElementsAre("property P[S]: a -> b"));
    EXPECT_THAT(changes(model("a"), model("a")), IsEmpty());
}

}  // namespace
}  // namespace comparing_tests
