// What elements share is read once and counted for each of them.

#include "updatefile/ItemCensus.hpp"

#include "support/CrowdText.hpp"
#include "support/Places.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <utility>

namespace updatefile {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using testing_support::CrowdText;
using testing_support::guidText;
using testing_support::IfcText;

/// Of the elements in that order.
std::vector<ItemRecord> recordsOf(const model::Model& model, const std::vector<model::Element>& elements) {
    ItemCensus census(model);
    for (const model::Element element : elements) EXPECT_TRUE(census.add(element));
    return census.records();
}

std::vector<ItemRecord> recordsOf(const std::string& text) {
    const auto model = std::move(*model::Model::fromBytes(text));
    std::vector<model::Element> elements;
    for (model::Element element = 0; element < model->elementCount(); ++element) elements.push_back(element);
    return recordsOf(*model, elements);
}

std::vector<ItemRecord> ofKind(ItemKind kind, std::vector<ItemRecord> records) {
    std::erase_if(records, [kind](const ItemRecord& record) { return record.kind != kind; });
    return records;
}

class GrowthOfItems : public testing::Test {
protected:
    void TearDown() override { EXPECT_LT(watch_.seconds(), testing_support::MostSeconds); }

    /// All of them are there of every wall.
    static void expectOfAllWalls(ItemKind kind, const CrowdText& crowd) {
        const auto records = ofKind(kind, recordsOf(crowd.text()));
        ASSERT_THAT(records, SizeIs(CrowdText::Many));
        EXPECT_TRUE(
            std::ranges::all_of(records, [](const ItemRecord& record) { return record.elements == CrowdText::Many; }));
        EXPECT_EQ(records.front().empty, CrowdText::Many);
        EXPECT_EQ(records.back().empty, 0U);
        EXPECT_EQ(records.back().distinct, 1U);
    }

private:
    testing_support::Stopwatch watch_;
};

TEST_F(GrowthOfItems, OfPropertiesOfOneTypeIsLinear) {
    CrowdText crowd;
    crowd.type({crowd.propertySet("")});
    expectOfAllWalls(ItemKind::Property, crowd);
}

TEST_F(GrowthOfItems, OfOneSetOfAllIsLinear) {
    CrowdText crowd;
    crowd.giveToAll(crowd.propertySet(""));
    expectOfAllWalls(ItemKind::Property, crowd);
}

TEST_F(GrowthOfItems, OfClassificationsOfOneTypeIsLinear) {
    CrowdText crowd;
    crowd.classify(crowd.type({}), "");
    expectOfAllWalls(ItemKind::Classification, crowd);
}

/// Three walls and a door with one set, which holds a name twice, and one of the door's attributes.
std::string sharers() {
    IfcText ifc;
    const auto root = [](unsigned number) {
        return testing_support::stepText(testing_support::globalId(guidText(number)));
    };
    std::vector<IfcText::Id> elements;
    for (unsigned i = 1; i <= 3; ++i) elements.push_back(ifc.element("IfcWall", guidText(i), "Wall"));
    elements.push_back(ifc.element("IfcDoor", guidText(4), "Door"));
    std::vector<IfcText::Id> properties;
    for (const char* name : {"P", "P", "OverallHeight"})
        properties.push_back(ifc.add("IfcPropertySingleValue", {{"Name", testing_support::stepText(name)}}));
    const auto set =
        ifc.add("IfcPropertySet",
                {{"GlobalId", root(10)}, {"Name", "'Pset_S'"}, {"HasProperties", CrowdText::list(properties)}});
    ifc.add("IfcRelDefinesByProperties", {{"GlobalId", root(11)},
                                          {"RelatedObjects", CrowdText::list(elements)},
                                          {"RelatingPropertyDefinition", CrowdText::reference(set)}});
    return ifc.text();
}

TEST(SharedItems, AreCountedForEachElementThatHasThem) {
    const auto records = ofKind(ItemKind::Property, recordsOf(sharers()));
    ASSERT_THAT(records, SizeIs(2));
    EXPECT_EQ(records[0].item, "P[S]");
    EXPECT_EQ(records[0].elements, 8U);
    EXPECT_EQ(records[0].empty, 8U);
    EXPECT_EQ(records[1].item, "OverallHeight[S]");
    EXPECT_EQ(records[1].elements, 4U);
    EXPECT_EQ(records[1].empty, 4U);
}

TEST(SharedItems, AreJudgedForEachClassThatHasThem) {
    const auto model = std::move(*model::Model::fromBytes(sharers()));
    const auto changeable = [&](const std::vector<model::Element>& elements) {
        return ofKind(ItemKind::Property, recordsOf(*model, elements)).back().changeable;
    };
    EXPECT_TRUE(changeable({0, 1, 2}));
    EXPECT_FALSE(changeable({0, 1, 2, 3}));
    EXPECT_FALSE(changeable({3, 2, 1, 0}));
}

/// Elements that share nothing are counted one by one; those that share are to give the same.
class CountsOfRealModels : public testing::TestWithParam<std::string> {};

TEST_P(CountsOfRealModels, AreThoseOfTheElementsAlone) {
    const auto model = std::move(*model::Model::open(GetParam()));
    std::map<std::pair<ItemKind, std::string>, std::pair<std::uint64_t, std::uint64_t>> alone;
    std::vector<model::Element> elements;
    for (model::Element element = 0; element < model->elementCount(); ++element) {
        elements.push_back(element);
        for (const ItemRecord& record : recordsOf(*model, {element})) {
            auto& [count, empty] = alone[{record.kind, record.set + "/" + record.name}];
            count += record.elements;
            empty += record.empty;
        }
    }
    const auto records = recordsOf(*model, elements);
    EXPECT_THAT(records, SizeIs(alone.size()));
    for (const ItemRecord& record : records) {
        const std::pair counted(record.elements, record.empty);
        EXPECT_EQ(counted, (alone[{record.kind, record.set + "/" + record.name}])) << record.item;
    }
}

INSTANTIATE_TEST_SUITE_P(Models, CountsOfRealModels, testing::ValuesIn(testing_support::models()),
                         testing_support::nameOfModel);

}  // namespace
}  // namespace updatefile
