// What is told of an element besides its data, and what is no difference at all.

#include "Models.hpp"

#include "support/Places.hpp"
#include "support/TempFolder.hpp"

namespace comparing_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A wall with whatever can be another of it.
struct Wall {
    std::string ifcClass = "IfcWall";
    double x = 1;
    std::string depth = "3.";
    std::string storey = "Erdgeschoss";
    std::string type = "Wall 24";
    std::string thickness = "0.24";

    std::string text() const {
        IfcText ifc;
        const auto reference = [](IfcText::Id id) { return "#" + std::to_string(id); };
        const auto list = [&](IfcText::Id id) { return "(" + reference(id) + ")"; };
        const auto ground = ifc.element("IfcBuildingStorey", guidText(10), "Erdgeschoss");
        const auto upper = ifc.element("IfcBuildingStorey", guidText(11), "Obergeschoss");
        const auto profile =
            ifc.add("IfcRectangleProfileDef", {{"ProfileType", ".AREA."}, {"XDim", "5."}, {"YDim", "0.24"}});
        const auto direction = ifc.add("IfcDirection", {{"DirectionRatios", "(0.,0.,1.)"}});
        const auto solid =
            ifc.add("IfcExtrudedAreaSolid",
                    {{"SweptArea", reference(profile)}, {"ExtrudedDirection", reference(direction)}, {"Depth", depth}});
        const auto shape =
            ifc.add("IfcShapeRepresentation", {{"RepresentationIdentifier", "'Body'"}, {"Items", list(solid)}});
        const auto definition = ifc.add("IfcProductDefinitionShape", {{"Representations", list(shape)}});
        const auto wall =
            ifc.element(ifcClass, guidText(1), "Wall-01",
                        {{"ObjectPlacement", ifc.placementAt(x, 2, 0)}, {"Representation", reference(definition)}});
        ifc.add("IfcRelContainedInSpatialStructure",
                {{"GlobalId", "'" + testing_support::globalId(guidText(20)) + "'"},
                 {"RelatedElements", list(wall)},
                 {"RelatingStructure", reference(storey == "Erdgeschoss" ? ground : upper)}});
        const auto wallType = ifc.add("IfcWallType", {{"GlobalId", "'" + testing_support::globalId(guidText(21)) + "'"},
                                                      {"Name", "'" + type + "'"}});
        ifc.add("IfcRelDefinesByType", {{"GlobalId", "'" + testing_support::globalId(guidText(22)) + "'"},
                                        {"RelatedObjects", list(wall)},
                                        {"RelatingType", reference(wallType)}});
        const auto material = ifc.add("IfcMaterial", {{"Name", "'Ziegel'"}});
        const auto layer =
            ifc.add("IfcMaterialLayer", {{"Material", reference(material)}, {"LayerThickness", thickness}});
        const auto layers = ifc.add("IfcMaterialLayerSet", {{"MaterialLayers", list(layer)}});
        ifc.add("IfcRelAssociatesMaterial", {{"GlobalId", "'" + testing_support::globalId(guidText(23)) + "'"},
                                             {"RelatedObjects", list(wall)},
                                             {"RelatingMaterial", reference(layers)}});
        return ifc.text();
    }
};

TEST(Other, IsToldByItsKind) {
    const std::string before = Wall{}.text();
    Wall other;
    other.ifcClass = "IfcWallStandardCase";
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other class: IfcWall -> IfcWallStandardCase (an update changes no class)"));
    other = {};
    other.x = 1.5;
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other placement: nothing -> nothing (an update moves nothing)"));
    other = {};
    other.depth = "3.5";
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other geometry: nothing -> nothing (an update changes no geometry)"));
    other = {};
    other.storey = "Obergeschoss";
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other storey: Erdgeschoss -> Obergeschoss (an update moves nothing to another storey)"));
    other = {};
    other.type = "Wall 30";
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other type: Wall 24 -> Wall 30 (an update gives no other type)"));
    other = {};
    other.thickness = "0.3";
    EXPECT_THAT(changes(before, other.text()),
                ElementsAre("other material: Ziegel -> Ziegel (an update gives no other material)"));
}

TEST(Other, IsNothingWhereNumbersAreWrittenInAnotherWay) {
    Wall other;
    other.depth = "3.0E0";
    other.thickness = "2.4E-01";
    EXPECT_THAT(changes(Wall{}.text(), other.text()), IsEmpty());
}

/// The file with every instance under another number, and in the opposite order.
std::string renumbered(const std::string& bytes) {
    std::string head, tail, line;
    std::vector<std::string> instances;
    std::istringstream lines(bytes);
    while (std::getline(lines, line)) {
        if (!line.starts_with('#')) {
            (instances.empty() ? head : tail) += line + "\n";
            continue;
        }
        std::string moved;
        bool quoted = false;
        for (std::size_t i = 0; i < line.size(); ++i) {
            quoted ^= line[i] == '\'';
            moved += line[i];
            if (line[i] != '#' || quoted) continue;
            std::size_t end = i + 1;
            while (end < line.size() && std::isdigit(static_cast<unsigned char>(line[end])) != 0) ++end;
            moved += std::to_string(100000 - std::stoul(line.substr(i + 1, end - i - 1)));
            i = end - 1;
        }
        instances.insert(instances.begin(), moved + "\n");
    }
    for (const std::string& instance : instances) head += instance;
    return head + tail;
}

TEST(Other, IsNothingWhereOnlyTheNumberingIsAnother) {
    const std::string house = testing_support::bytesOf(testing_support::projectFile("samples/house.ifc"));
    const std::string other = renumbered(house);
    ASSERT_NE(house, other);
    // Which of two relations stands first decides what is listed first, which is no difference.
    EXPECT_THAT(changes(house, other), IsEmpty());
    EXPECT_EQ(compared(house, other).same, opened(house)->elementCount());
}

TEST(Other, SharedAndOwnSetsAreTheSame) {
    const auto model = [](bool shared) {
        IfcText ifc;
        const auto value = [&] {
            return ifc.add("IfcPropertySingleValue", {{"Name", "'P'"}, {"NominalValue", "IFCLABEL('x')"}});
        };
        const auto root = [](unsigned number) { return "'" + testing_support::globalId(guidText(number)) + "'"; };
        const auto set = [&](unsigned number) {
            return "#" +
                   std::to_string(ifc.add("IfcPropertySet", {{"GlobalId", root(number)},
                                                             {"Name", "'S'"},
                                                             {"HasProperties", "(#" + std::to_string(value()) + ")"}}));
        };
        const auto give = [&](unsigned number, const std::string& to, const std::string& what) {
            ifc.add("IfcRelDefinesByProperties",
                    {{"GlobalId", root(number)}, {"RelatedObjects", to}, {"RelatingPropertyDefinition", what}});
        };
        const std::string one = "#" + std::to_string(ifc.element("IfcWall", guidText(1), "A")),
                          two = "#" + std::to_string(ifc.element("IfcWall", guidText(2), "B"));
        if (shared) {
            give(11, "(" + one + "," + two + ")", set(10));
        } else {
            give(11, "(" + one + ")", set(10));
            give(13, "(" + two + ")", set(12));
        }
        return ifc.text();
    };
    EXPECT_THAT(changes(model(true), model(false)), IsEmpty());
    EXPECT_THAT(changes(model(false), model(true)), IsEmpty());
}

TEST(Elements, ThatOneModelAloneHasAreAddedAndRemoved) {
    const auto model = [](std::initializer_list<unsigned> walls) {
        IfcText ifc;
        for (const unsigned wall : walls) ifc.element("IfcWall", guidText(wall), "Wall");
        return ifc.text();
    };
    const auto found = compared(model({1, 2, 3}), model({4, 3, 2, 5}));
    EXPECT_THAT(found.removed, ElementsAre(0));
    EXPECT_THAT(found.added, ElementsAre(0, 3));
    EXPECT_EQ(found.same, 2U);
    EXPECT_THAT(found.changed, IsEmpty());
}

TEST(Elements, AreComparedWhereEitherModelChoosesThem) {
    const auto model = [](const char* first, const char* second) {
        IfcText ifc;
        ifc.element("IfcWall", guidText(1), first);
        ifc.element("IfcWall", guidText(2), second);
        return ifc.text();
    };
    const auto a = opened(model("A", "B")), b = opened(model("C", "D"));
    const auto found = comparing::compare(*a, *b, {{true, false}, {false, false}});
    ASSERT_TRUE(found);
    ASSERT_EQ(found->changed.size(), 1U);
    EXPECT_EQ(found->changed[0].a, 0U);
    EXPECT_EQ(comparing::compare(*a, *b, {{true, false}, {false, true}})->changed.size(), 2U);
}

/// A shape at the end of a chain of so many instances, closed to a circle where wanted.
std::string chained(int links, bool circle, const std::string& last) {
    IfcText ifc;
    auto item = ifc.add("IfcSphere", {{"Radius", last}});
    const auto first = item + 1;
    for (int i = 0; i < links; ++i)
        item = ifc.add("IfcBooleanResult",
                       {{"Operator", ".UNION."},
                        {"FirstOperand",
                         "#" + std::to_string(circle && i == 0 ? first + static_cast<IfcText::Id>(links) - 1 : item)},
                        {"SecondOperand", "#1"}});
    const auto shape = ifc.add("IfcShapeRepresentation", {{"Items", "(#" + std::to_string(item) + ")"}});
    const auto definition =
        ifc.add("IfcProductDefinitionShape", {{"Representations", "(#" + std::to_string(shape) + ")"}});
    ifc.element("IfcWall", guidText(1), "Wall-01", {{"Representation", "#" + std::to_string(definition)}});
    return ifc.text();
}

TEST(Geometry, OfAnyDepthIsComparedWithoutEnd) {
    EXPECT_THAT(changedItems(chained(100'000, false, "1."), chained(100'000, false, "1.0")), IsEmpty());
    EXPECT_THAT(changedItems(chained(100'000, false, "1."), chained(100'000, false, "2.")), ElementsAre("geometry"));
}

TEST(Geometry, ThatRefersToItselfIsComparedWithoutEnd) {
    EXPECT_THAT(changedItems(chained(100, true, "1."), chained(100, true, "1.0")), IsEmpty());
    EXPECT_THAT(changedItems(chained(100, true, "1."), chained(100, true, "2.")), ElementsAre("geometry"));
}

/// The file with every instance under another number; strings and comments stay.
std::string withOtherNumbers(const std::string& bytes) {
    std::string moved;
    for (std::size_t i = 0; i < bytes.size();) {
        const char c = bytes[i];
        std::size_t end = i + 1;
        if (c == '\'' || c == '"') end = bytes.find(c, i + 1) + 1;
        if (bytes.compare(i, 2, "/*") == 0) end = bytes.find("*/", i) + 2;
        if (c == '#') end = bytes.find_first_not_of("0123456789", i + 1);
        if (end == 0 || end == std::string::npos) end = bytes.size();
        if (c == '#' && end > i + 1) {
            moved += "#" + std::to_string(std::stoul(bytes.substr(i + 1, end - i - 1)) * 3 + 7);
        } else {
            moved += bytes.substr(i, end - i);
        }
        i = end;
    }
    return moved;
}

class AnyModel : public testing::TestWithParam<std::string> {};

TEST_P(AnyModel, IsTheSameAsItsCopies) {
    const auto model = model::Model::open(GetParam());
    ASSERT_TRUE(model);
    const std::string bytes = (*model)->bytes(), other = withOtherNumbers(bytes);
    ASSERT_NE(bytes, other);
    for (const std::string& copy : {bytes, bytes + "\n", other}) {
        const auto found = compared(bytes, copy);
        EXPECT_EQ(found.same, (*model)->elementCount());
        EXPECT_THAT(found.changed, IsEmpty());
        EXPECT_THAT(found.added, IsEmpty());
        EXPECT_THAT(found.removed, IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Models, AnyModel, testing::ValuesIn(testing_support::models()), testing_support::nameOfModel);

}  // namespace
}  // namespace comparing_tests
