#include "selection/Selection.hpp"

#include "support/IfcText.hpp"
#include "text/Unicode.hpp"

#include <gmock/gmock.h>

#include <chrono>

namespace selection {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::globalId;
using testing_support::guidText;
using testing_support::IfcText;
using testing_support::stepText;
using Names = std::vector<std::string>;

std::string reference(IfcText::Id id) {
    return "#" + std::to_string(id);
}

std::string list(const std::vector<IfcText::Id>& ids) {
    std::string text;
    for (const auto id : ids) text += (text.empty() ? "(" : ",") + reference(id);
    return text + ")";
}

/// A model written for one test, and what a selection chooses of it by name.
class Choosing : public testing::Test {
protected:
    IfcText ifc{"IFC4"};

    IfcText::Id element(std::string_view ifcClass, const std::string& name, const IfcText::Values& more = {}) {
        return ifc.element(ifcClass, guidText(++elements_), name, more);
    }
    void relate(std::string_view ifcClass, std::string_view relatingName, IfcText::Id relating,
                std::string_view relatedName, const std::string& related) {
        ifc.add(ifcClass, {{"GlobalId", stepText(globalId(guidText(5000 + ++relations_)))},
                           {relatingName, reference(relating)},
                           {relatedName, related}});
    }
    void contain(IfcText::Id place, const std::vector<IfcText::Id>& elements) {
        relate("IfcRelContainedInSpatialStructure", "RelatingStructure", place, "RelatedElements", list(elements));
    }
    void aggregate(IfcText::Id whole, const std::vector<IfcText::Id>& parts) {
        relate("IfcRelAggregates", "RelatingObject", whole, "RelatedObjects", list(parts));
    }
    void make(IfcText::Id element, IfcText::Id material) {
        relate("IfcRelAssociatesMaterial", "RelatingMaterial", material, "RelatedObjects", list({element}));
    }
    IfcText::Id material(std::string_view name) { return ifc.add("IfcMaterial", {{"Name", stepText(name)}}); }

    Names chosen(const std::string& selection) {
        if (!model_) model_ = std::move(*model::Model::fromBytes(ifc.text()));
        const auto elements = choose(*model_, selection);
        if (!elements) return {elements.error().message};
        Names names;
        for (const auto element : *elements) names.push_back(text::toUtf8(model_->name(element)));
        return names;
    }

private:
    unsigned elements_ = 0, relations_ = 0;
    std::unique_ptr<model::Model> model_;
};

TEST_F(Choosing, ByClassTakesThoseBelowInAndOut) {
    element("IfcWall", "wall");
    element("IfcWallStandardCase", "standard");
    element("IfcDoor", "door");
    EXPECT_THAT(chosen("IfcWall"), ElementsAre("wall", "standard"));
    EXPECT_THAT(chosen("ifcwall=NULL"), ElementsAre("wall", "standard", "door"));
    EXPECT_THAT(chosen("IfcWall, IfcDoor"), ElementsAre("wall", "standard", "door"));
    EXPECT_THAT(chosen("IfcBuildingElement, !IfcWall"), ElementsAre("door"));
    EXPECT_THAT(chosen("IfcBuildingElement, !IfcWall, IfcWallStandardCase"), ElementsAre("standard", "door"));
    EXPECT_THAT(chosen("!IfcWall"), ElementsAre("door"));
    EXPECT_THAT(chosen("IfcDoor + IfcWallStandardCase"), ElementsAre("standard", "door"));
    EXPECT_THAT(chosen("IfcRail"), IsEmpty()) << "a class of another schema";
    EXPECT_THAT(chosen("IfcDoor, IfcHouse"),
                ElementsAre("IFC4 has no class IfcHouse, at character 10: IfcDoor, <<here>>IfcHouse"));
}

TEST_F(Choosing, ByGuidInBothForms) {
    element("IfcWall", "one");
    element("IfcWall", "two");
    EXPECT_THAT(chosen(guidText(1)), ElementsAre("one"));
    EXPECT_THAT(chosen(globalId(guidText(2))), ElementsAre("two"));
    EXPECT_THAT(chosen(guidText(1) + "," + globalId(guidText(2))), ElementsAre("one", "two"));
    EXPECT_THAT(chosen("IfcWall, !" + guidText(1)), ElementsAre("two"));
    EXPECT_THAT(chosen(guidText(77)), IsEmpty());
}

TEST_F(Choosing, ByAttributesOfEveryKind) {
    element("IfcDoor", "T 30", {{"OverallHeight", "2.1"}, {"PredefinedType", ".DOOR."}, {"Tag", "'007'"}});
    element("IfcDoor", "t 30", {{"OverallHeight", "2."}});
    element("IfcDoor", "");
    element("IfcWall", "T 90");
    EXPECT_THAT(chosen("Name=\"T 30\""), ElementsAre("T 30"));
    EXPECT_THAT(chosen("Name!=\"T 30\""), ElementsAre("t 30", "", "T 90"));
    EXPECT_THAT(chosen("Name*=30"), ElementsAre("T 30", "t 30"));
    EXPECT_THAT(chosen("Name!*=30"), ElementsAre("", "T 90"));
    EXPECT_THAT(chosen("Name=/T.*/"), ElementsAre("T 30", "T 90"));
    EXPECT_THAT(chosen("Name=/T/"), IsEmpty()) << "the whole text has to match";
    EXPECT_THAT(chosen("Name=/(?i)t.30/"), ElementsAre("T 30", "t 30"));
    EXPECT_THAT(chosen("Name=NULL"), ElementsAre(""));
    EXPECT_THAT(chosen("IfcDoor, Name!=NULL"), ElementsAre("T 30", "t 30"));
    EXPECT_THAT(chosen("OverallHeight>2"), ElementsAre("T 30"));
    EXPECT_THAT(chosen("OverallHeight>=2"), ElementsAre("T 30", "t 30"));
    EXPECT_THAT(chosen("OverallHeight<2.1"), ElementsAre("t 30"));
    EXPECT_THAT(chosen("OverallHeight=2"), ElementsAre("t 30"));
    EXPECT_THAT(chosen("OverallHeight<=two"), IsEmpty());
    EXPECT_THAT(chosen("PredefinedType=DOOR"), ElementsAre("T 30"));
    EXPECT_THAT(chosen("Tag=7"), IsEmpty()) << "a text is no number";
    EXPECT_THAT(chosen("Representation=NULL"), ElementsAre("T 30", "t 30", "", "T 90"));
}

TEST_F(Choosing, ByThePropertyOfASet) {
    const auto a = element("IfcWall", "a"), b = element("IfcWall", "b"), c = element("IfcWall", "c");
    element("IfcWall", "d");
    ifc.property(a, "Pset_WallCommon", "FireRating", "IFCLABEL('F 90')");
    ifc.property(a, "Pset_WallCommon", "LoadBearing", "IFCBOOLEAN(.T.)");
    ifc.property(a, "Other", "Count", "IFCINTEGER(3)");
    ifc.property(b, "Pset_WallCommon", "FireRating", "$");
    ifc.property(b, "Pset_WallCommon", "LoadBearing", "IFCLOGICAL(.U.)");
    ifc.property(c, "Pset_Custom", "FireRating", "IFCLABEL('F 30')");
    ifc.property(c, "Pset_WallCommon", "LoadBearing", "IFCBOOLEAN(.F.)");
    EXPECT_THAT(chosen("Pset_WallCommon.FireRating=\"F 90\""), ElementsAre("a"));
    EXPECT_THAT(chosen("Pset_WallCommon.FireRating=NULL"), ElementsAre("b", "c", "d"));
    EXPECT_THAT(chosen("/Pset_.*/.FireRating=NULL"), ElementsAre("b", "d"));
    EXPECT_THAT(chosen("/Pset/.FireRating!=NULL"), IsEmpty()) << "the whole name has to match";
    EXPECT_THAT(chosen("FireRating!=NULL"), ElementsAre("a", "c"));
    EXPECT_THAT(chosen("FireRating*=F, !" + guidText(1)), ElementsAre("c"));
    EXPECT_THAT(chosen("Pset_WallCommon./Load.*/=TRUE"), ElementsAre("a"));
    EXPECT_THAT(chosen("LoadBearing=FALSE"), ElementsAre("c"));
    EXPECT_THAT(chosen("LoadBearing!=TRUE"), ElementsAre("b", "c", "d"));
    EXPECT_THAT(chosen("LoadBearing=UNKNOWN"), ElementsAre("b"));
    EXPECT_THAT(chosen("Other.Count>2.5"), ElementsAre("a"));
    EXPECT_THAT(chosen("Other.Count=3"), ElementsAre("a"));
    EXPECT_THAT(chosen("Other.Count<3"), IsEmpty());
}

TEST_F(Choosing, ByListsQuantitiesAndTheTypesProperties) {
    const auto a = element("IfcWall", "a"), b = element("IfcWall", "b");
    ifc.addProperty(a, "Pset_WallCommon",
                    ifc.add("IfcPropertyEnumeratedValue",
                            {{"Name", "'Status'"}, {"EnumerationValues", "(IFCLABEL('NEW'),IFCLABEL('OTHER'))"}}));
    const auto length = ifc.add("IfcQuantityLength", {{"Name", "'Length'"}, {"LengthValue", "4.5"}});
    const auto quantities = ifc.add("IfcElementQuantity", {{"GlobalId", stepText(globalId(guidText(9001)))},
                                                           {"Name", "'Qto_WallBaseQuantities'"},
                                                           {"Quantities", list({length})}});
    relate("IfcRelDefinesByProperties", "RelatingPropertyDefinition", quantities, "RelatedObjects", list({b}));
    ifc.type(a, "IfcWallType", "Pset_WallCommon", {{"FireRating", "IFCLABEL('F 60')"}});
    EXPECT_THAT(chosen("Pset_WallCommon.Status=OTHER"), ElementsAre("a"));
    EXPECT_THAT(chosen("Pset_WallCommon.Status!=NEW"), ElementsAre("b"));
    EXPECT_THAT(chosen("Pset_WallCommon.Status=NULL"), ElementsAre("b"));
    EXPECT_THAT(chosen("Qto_WallBaseQuantities.Length>4"), ElementsAre("b"));
    EXPECT_THAT(chosen("/Qto_.*/.Length=4.5"), ElementsAre("b"));
    EXPECT_THAT(chosen("Pset_WallCommon.FireRating=\"F 60\""), ElementsAre("a"));
    EXPECT_THAT(chosen("FireRating=\"F 60\""), ElementsAre("a"));
}

TEST_F(Choosing, ByTheClassificationsCodeOrTitle) {
    const auto a = element("IfcWall", "a"), b = element("IfcWall", "b");
    element("IfcWall", "c");
    ifc.classification(a, "UniFormat", "B2010", "Exterior Walls");
    ifc.classification(b, "UniFormat", "B2020", "Windows");
    EXPECT_THAT(chosen("classification=B2010"), ElementsAre("a"));
    EXPECT_THAT(chosen("classification=\"Exterior Walls\""), ElementsAre("a"));
    EXPECT_THAT(chosen("classification*=B20"), ElementsAre("a", "b"));
    EXPECT_THAT(chosen("classification!=B2010"), ElementsAre("b", "c"));
    EXPECT_THAT(chosen("classification=NULL"), ElementsAre("c"));
    EXPECT_THAT(chosen("classification!=NULL"), ElementsAre("a", "b"));
}

TEST_F(Choosing, ByTheTypesClassificationsOfSystemsThatItHasNoneOf) {
    const auto a = element("IfcWall", "a"), b = element("IfcWall", "b");
    const auto type = ifc.type(a, "IfcWallType", "Pset_A", {{"P", "$"}});
    relate("IfcRelDefinesByType", "RelatingType", type, "RelatedObjects", list({b}));
    const auto system = ifc.add("IfcClassification", {{"Name", "'System'"}});
    const auto classify = [&](IfcText::Id object, std::string_view code, IfcText::Id source) {
        const auto entry = ifc.add("IfcClassificationReference",
                                   {{"Identification", stepText(code)}, {"ReferencedSource", reference(source)}});
        relate("IfcRelAssociatesClassification", "RelatingClassification", entry, "RelatedObjects", list({object}));
        return entry;
    };
    const auto group = classify(type, "type", system);
    classify(type, "other", ifc.add("IfcClassification", {{"Name", "'Other'"}}));
    classify(b, "own", group);
    EXPECT_THAT(chosen("classification=type"), ElementsAre("a"));
    EXPECT_THAT(chosen("classification!=type"), ElementsAre("b"));
    EXPECT_THAT(chosen("classification=other"), ElementsAre("a", "b"));
    EXPECT_THAT(chosen("classification=own"), ElementsAre("b"));
    EXPECT_THAT(chosen("classification=NULL"), IsEmpty());
}

TEST_F(Choosing, ByEveryPlaceThatItStandsIn) {
    const auto building = element("IfcBuilding", "Haus"), storey = element("IfcBuildingStorey", "EG");
    const auto space = element("IfcSpace", "Küche"), table = element("IfcFurniture", "table");
    const auto stair = element("IfcStair", "stair"), flight = element("IfcStairFlight", "flight");
    element("IfcWall", "nowhere");
    aggregate(building, {storey});
    aggregate(storey, {space});
    aggregate(stair, {flight});
    contain(space, {table});
    contain(storey, {stair});
    EXPECT_THAT(chosen("location=EG"), ElementsAre("Küche", "table", "stair", "flight"));
    EXPECT_THAT(chosen("location=Haus"), ElementsAre("EG", "Küche", "table", "stair", "flight"));
    EXPECT_THAT(chosen("location*=G"), ElementsAre("Küche", "table", "stair", "flight"));
    EXPECT_THAT(chosen("IfcElement, location!=EG"), ElementsAre("nowhere"));
    EXPECT_THAT(chosen("location=NULL"), ElementsAre("Haus", "nowhere"));
    EXPECT_THAT(chosen("IfcElement, location!=NULL"), ElementsAre("table", "stair", "flight"));
    EXPECT_THAT(chosen("location=\"" + globalId(guidText(3)) + "\""), ElementsAre("table"));
}

TEST_F(Choosing, EndsWherePlacesStandInACircle) {
    const auto a = element("IfcElementAssembly", "a"), b = element("IfcElementAssembly", "b");
    aggregate(a, {b});
    aggregate(b, {a});
    EXPECT_THAT(chosen("location=a"), ElementsAre("a", "b"));
    EXPECT_THAT(chosen("location=c"), IsEmpty());
}

TEST_F(Choosing, ByTheNameOfTheTypeObject) {
    const auto a = element("IfcDoor", "a");
    element("IfcDoor", "b");
    ifc.type(a, "IfcDoorType", "Pset_Any", {{"X", "IFCLABEL('x')"}});
    const auto names = chosen("type!=NULL");
    EXPECT_THAT(names, ElementsAre("a"));
    EXPECT_THAT(chosen("type=NULL"), ElementsAre("b"));
    EXPECT_THAT(chosen("type=Nothing"), IsEmpty());
    EXPECT_THAT(chosen("type!=Nothing"), ElementsAre("a", "b"));
}

TEST_F(Choosing, ByEveryMaterialThatItIsMadeOf) {
    const auto plain = element("IfcWall", "plain"), layered = element("IfcWall", "layered");
    const auto beam = element("IfcBeam", "beam"), window = element("IfcWindow", "window");
    const auto listed = element("IfcStair", "listed");
    element("IfcWall", "none");
    const auto concrete = material("Concrete"), wool = material("Wool"), steel = material("Steel");
    const auto layer = [&](IfcText::Id of) {
        return ifc.add("IfcMaterialLayer", {{"Material", reference(of)}, {"LayerThickness", "0.1"}});
    };
    const auto layers = ifc.add("IfcMaterialLayerSet", {{"MaterialLayers", list({layer(concrete), layer(wool)})}});
    make(plain, concrete);
    make(layered, ifc.add("IfcMaterialLayerSetUsage", {{"ForLayerSet", reference(layers)},
                                                       {"LayerSetDirection", ".AXIS2."},
                                                       {"DirectionSense", ".POSITIVE."},
                                                       {"OffsetFromReferenceLine", "0."}}));
    const auto profile = ifc.add("IfcMaterialProfile", {{"Material", reference(steel)}});
    make(beam, ifc.add("IfcMaterialProfileSet", {{"MaterialProfiles", list({profile})}}));
    const auto part = ifc.add("IfcMaterialConstituent", {{"Name", "'Frame'"}, {"Material", reference(steel)}});
    make(window, ifc.add("IfcMaterialConstituentSet", {{"MaterialConstituents", list({part})}}));
    make(listed, ifc.add("IfcMaterialList", {{"Materials", list({steel, wool})}}));
    EXPECT_THAT(chosen("material=Concrete"), ElementsAre("plain", "layered"));
    EXPECT_THAT(chosen("material=Wool"), ElementsAre("layered", "listed"));
    EXPECT_THAT(chosen("material*=tee"), ElementsAre("beam", "window", "listed"));
    EXPECT_THAT(chosen("material!=Wool"), ElementsAre("plain", "beam", "window", "none"));
    EXPECT_THAT(chosen("material=NULL"), ElementsAre("none"));
    EXPECT_THAT(chosen("material=Frame"), IsEmpty());
}

TEST_F(Choosing, JoinsFacetsByAndAndGroupsByOr) {
    const auto a = element("IfcWall", "a"), b = element("IfcWall", "b");
    const auto c = element("IfcDoor", "a");
    for (const auto id : {a, c}) ifc.property(id, "Pset_Any", "X", "IFCINTEGER(1)");
    ifc.property(b, "Pset_Any", "X", "IFCINTEGER(2)");
    EXPECT_THAT(chosen("X=1, IfcWall"), ElementsAre("a"));
    EXPECT_THAT(chosen("IfcWall, X=1"), ElementsAre("a"));
    EXPECT_THAT(chosen("IfcWall, X=1, X=2"), IsEmpty());
    EXPECT_THAT(chosen("IfcWall, X=2 + IfcDoor"), ElementsAre("b", "a"));
}

TEST_F(Choosing, RefusesAnExpressionThatTriesTooManyWays) {
    element("IfcWall", std::string(60, 'a'));
    EXPECT_THAT(
        chosen("Name=/(a*)*(a*)*(a*)*b/"),
        ElementsAre("the expression tries too many ways on some text; write it with fewer * and +, at character "
                    "6: Name=<<here>>/(a*)*(a*)*(a*)*b/"));
}

/// Thousands of elements share a type with a long set, and stand below one another.
TEST_F(Choosing, TakesLinearTimeWhereMuchIsShared) {
    const auto secondsFor = [](int count) {
        IfcText text("IFC4");
        std::vector<IfcText::Id> walls;
        for (int i = 0; i < count; ++i) {
            walls.push_back(text.element("IfcWall", guidText(static_cast<unsigned>(i + 1)), "w"));
        }
        IfcText::Values values;
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i) names.push_back("P" + std::to_string(i));
        for (const auto& name : names) values.emplace_back(name, "IFCLABEL('x')");
        const auto type = text.type(walls.front(), "IfcWallType", "Pset_Long", values);
        text.add("IfcRelDefinesByType", {{"GlobalId", stepText(globalId(guidText(999999)))},
                                         {"RelatingType", reference(type)},
                                         {"RelatedObjects", list(walls)}});
        for (int i = 1; i < count; ++i) {
            text.add("IfcRelAggregates",
                     {{"GlobalId", stepText(globalId(guidText(static_cast<unsigned>(2000000 + i))))},
                      {"RelatingObject", reference(walls[static_cast<std::size_t>(i - 1)])},
                      {"RelatedObjects", list({walls[static_cast<std::size_t>(i)]})}});
        }
        const auto model = std::move(*model::Model::fromBytes(text.text()));
        const auto begin = std::chrono::steady_clock::now();
        for (const char* selection : {"Pset_Long.Missing=NULL", "/P.*/./M.*/=NULL", "location=x", "type=x"}) {
            EXPECT_TRUE(choose(*model, selection));
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    };
    const double small = secondsFor(2000);
    EXPECT_LT(secondsFor(16000), 40 * small + 0.2);
}

}  // namespace
}  // namespace selection
