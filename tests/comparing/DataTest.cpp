// Attributes, properties and classifications of an element in two models.

#include "Models.hpp"

namespace comparing_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A wall with one property of the value.
std::string wallWith(const std::string& value, const std::string& schema = "IFC4") {
    IfcText ifc(schema);
    const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
    ifc.property(wall, "Pset_WallCommon", "FireRating", value);
    return ifc.text();
}

TEST(Data, OfEqualBytesIsTheSame) {
    const auto comparison = compared(wallWith("IFCLABEL('F 30')"), wallWith("IFCLABEL('F 30')"));
    EXPECT_EQ(comparison.same, 1U);
    EXPECT_THAT(comparison.changed, IsEmpty());
}

TEST(Data, ShowsOldAndNewOfAttributePropertyAndClassification) {
    const auto model = [](const std::string& name, const std::string& rating, const std::string& code) {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), name);
        ifc.property(wall, "Pset_WallCommon", "FireRating", rating);
        ifc.classification(wall, "UniFormat Classification", code, "Walls");
        return ifc.text();
    };
    EXPECT_THAT(changes(model("A", "IFCLABEL('F 30')", "B20"), model("B", "IFCLABEL('F 90')", "B21")),
                ElementsAre("attribute Name: A -> B", "property FireRating[WallCommon]: F 30 -> F 90",
                            "classification UniFormat Classification: B20{Walls} -> B21{Walls}"));
}

struct Pair {
    std::string a, b;
    std::vector<std::string> expected;
};

class PropertyPairs : public testing::TestWithParam<Pair> {};

TEST_P(PropertyPairs, AreTold) {
    EXPECT_EQ(changes(wallWith(GetParam().a), wallWith(GetParam().b)), GetParam().expected);
}

const std::string Item = "property FireRating[WallCommon]: ";

INSTANTIATE_TEST_SUITE_P(
    Values, PropertyPairs,
    testing::Values(
        Pair{"IFCREAL(0.25)", "IFCREAL(0.250)", {}}, Pair{"IFCREAL(0.25)", "IFCREAL(2.5E-1)", {}},
        Pair{"IFCLABEL('\\X2\\00E9\\X0\\')", "IFCLABEL('\\X\\E9')", {}},
        // The type of a text is no part of what an export gives.
        Pair{"IFCLABEL('a')", "IFCTEXT('a')", {}},
        Pair{"IFCREAL(0.25)", "IFCREAL(0.5)", {Item + "0.250000 -> 0.500000"}},
        // Six decimals do not tell these apart.
        Pair{"IFCREAL(0.1234567)", "IFCREAL(0.1234568)", {Item + "0.1234567 -> 0.1234568"}},
        Pair{"IFCREAL(0.1234567)", "IFCREAL(0.123457)", {Item + "0.1234567 -> 0.123457"}},
        Pair{"IFCREAL(1.E+30)", "IFCREAL(1.E-30)", {Item + "1000000000000000019884624838656.000000 -> 1e-30"}},
        Pair{"IFCINTEGER(5)", "IFCINTEGER(6)", {Item + "5 -> 6"}},
        Pair{"IFCBOOLEAN(.T.)", "IFCBOOLEAN(.F.)", {Item + "true -> false"}},
        Pair{"IFCLOGICAL(.T.)", "IFCLOGICAL(.U.)", {Item + "true -> unknown"}},
        Pair{"IFCLABEL('a')", "IFCLABEL('')", {Item + "a -> "}}, Pair{"IFCREAL(1.)", "$", {Item + "1.000000 -> "}},
        Pair{"$", "IFCLABEL('')", {}}, Pair{"IFCLABEL('5')", "IFCINTEGER(5)", {}},
        Pair{"IFCINTEGER(5)", "IFCREAL(5.)", {Item + "5 -> 5.000000 (\"5.0\" is no whole number)"}}));

}  // namespace
}  // namespace comparing_tests
