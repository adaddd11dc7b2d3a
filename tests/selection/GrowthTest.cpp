// Elements that share much: what is shared is looked at once, not once for each of them.

#include "selection/Selection.hpp"

#include "support/CrowdText.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

namespace selection {
namespace {

using testing_support::CrowdText;
using testing_support::stepText;
using Id = CrowdText::Id;

class GrowthOfChoosing : public testing::Test {
protected:
    CrowdText crowd;

    void TearDown() override { EXPECT_LT(watch_.seconds(), testing_support::MostSeconds); }

    std::size_t chosen(const std::string& selection) {
        if (!model_) model_ = std::move(*model::Model::fromBytes(crowd.text()));
        const auto elements = choose(*model_, selection);
        EXPECT_TRUE(elements);
        return elements ? elements->size() : 0;
    }

private:
    testing_support::Stopwatch watch_;
    std::unique_ptr<model::Model> model_;
};

TEST_F(GrowthOfChoosing, BySharedMaterialsIsLinear) {
    const Id all =
        crowd.add("IfcMaterialList", {{"Materials", CrowdText::list(crowd.materials(CrowdText::Many, "m"))}});
    crowd.relate("IfcRelAssociatesMaterial", "RelatingMaterial", all);
    EXPECT_EQ(chosen("material=x"), 0U);
    EXPECT_EQ(chosen("material=M11999m"), CrowdText::Many);
    EXPECT_EQ(chosen("material!=M11999m"), 0U);
    EXPECT_EQ(chosen("material=NULL"), 0U);
}

TEST_F(GrowthOfChoosing, ByMaterialsOfOneSetWithAUsageForEachIsLinear) {
    std::vector<Id> layers;
    for (const Id material : crowd.materials(CrowdText::Many, "m"))
        layers.push_back(crowd.add("IfcMaterialLayer", {{"Material", CrowdText::reference(material)}}));
    const Id set = crowd.add("IfcMaterialLayerSet", {{"MaterialLayers", CrowdText::list(layers)}});
    for (const Id wall : crowd.walls()) {
        const Id usage = crowd.add("IfcMaterialLayerSetUsage", {{"ForLayerSet", CrowdText::reference(set)}});
        crowd.relate("IfcRelAssociatesMaterial", "RelatingMaterial", usage, {wall});
    }
    EXPECT_EQ(chosen("material=x"), 0U);
    EXPECT_EQ(chosen("material=M11999m"), CrowdText::Many);
}

TEST_F(GrowthOfChoosing, ByClassificationsOfOneTypeIsLinear) {
    crowd.classify(crowd.type({}), "first");
    EXPECT_EQ(chosen("classification=x"), 0U);
    EXPECT_EQ(chosen("classification=first"), CrowdText::Many);
    EXPECT_EQ(chosen("classification=NULL"), 0U);
}

TEST_F(GrowthOfChoosing, ByClassificationsOfATypeAndAsManyOwnOnesIsLinear) {
    const Id type = crowd.type({});
    crowd.classify(type, "first");
    crowd.classify(crowd.walls().front(), "own");
    EXPECT_EQ(chosen("classification=x"), 0U);
    EXPECT_EQ(chosen("classification=own"), 1U);
}

TEST_F(GrowthOfChoosing, ByCodesOfOneLongChainIsLinear) {
    Id link = crowd.add("IfcClassification", {{"Name", "'C'"}});
    for (std::size_t i = 0; i < crowd.walls().size(); ++i) {
        link = crowd.add("IfcClassificationReference", {{"Identification", stepText(std::to_string(i))},
                                                        {"ReferencedSource", CrowdText::reference(link)}});
        crowd.relate("IfcRelAssociatesClassification", "RelatingClassification", link, {crowd.walls()[i]});
    }
    EXPECT_EQ(chosen("classification=7"), 1U);
    EXPECT_EQ(chosen("classification!=7"), CrowdText::Many - 1);
}

TEST_F(GrowthOfChoosing, BySetsOfOneTypeIsLinear) {
    std::vector<Id> sets;
    for (unsigned i = 0; i < CrowdText::Many; ++i) {
        const Id property = crowd.add("IfcPropertySingleValue",
                                      {{"Name", stepText("P" + std::to_string(i))}, {"NominalValue", "IFCLABEL('v')"}});
        sets.push_back(crowd.rooted("IfcPropertySet", {{"Name", stepText("Set" + std::to_string(i))},
                                                       {"HasProperties", CrowdText::list({property})}}));
    }
    crowd.type(sets);
    EXPECT_EQ(chosen("Missing=v"), 0U);
    EXPECT_EQ(chosen("P11999=v"), CrowdText::Many);
    EXPECT_EQ(chosen("Set11999.P11999=v"), CrowdText::Many);
    EXPECT_EQ(chosen("PredefinedType=x"), 0U);
    EXPECT_EQ(chosen("type=x"), 0U);
}

}  // namespace
}  // namespace selection
