#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using model::Primitive;
using model::PropertyKind;
using testing::ElementsAre;
using testing::IsEmpty;

/// "Set.Name", inherited ones with "^", in the host's order.
std::vector<std::string> listed(Opened& model, std::string_view element) {
    std::vector<std::string> names;
    const auto properties = model->properties(model.find(element));
    for (const auto& property : *properties) {
        names.push_back(utf8(property.set) + "." + utf8(property.name) + (property.inherited ? "^" : ""));
    }
    return names;
}

TEST(Properties, ComeInFileOrderOfTheRelationsThatNameTheElement) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
        const Id late = ifc.set("Late", {ifc.single("A", "IFCLABEL('1')")});
        const Id early = ifc.set("Early", {ifc.single("B", "IFCLABEL('2')"), ifc.single("A", "IFCLABEL('3')")});
        ifc.give({other}, ifc.set("Foreign", {ifc.single("C", "$")}));
        ifc.give({other, wall}, early);
        ifc.give({wall}, late);
        Opened model(ifc);
        EXPECT_THAT(listed(model, "Wall"), ElementsAre("Early.B", "Early.A", "Late.A")) << schema;
        EXPECT_EQ(model.property(model.find("Wall"), "Late", "A"), "1");
    }
}

TEST(Properties, OfTheTypeObjectFollowWhereTheElementHasNoneOfThatSetAndName) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.give({wall}, ifc.set("S", {ifc.single("A", "IFCLABEL('own')")}));
    ifc.type({wall}, {ifc.set("S", {ifc.single("A", "IFCLABEL('typed')"), ifc.single("B", "IFCLABEL('typed')")}),
                      ifc.set("T", {ifc.single("A", "IFCLABEL('typed')")})});
    Opened model(ifc);
    EXPECT_THAT(listed(model, "Wall"), ElementsAre("S.A", "S.B^", "T.A^"));
    EXPECT_EQ(model.property(0, "S", "A"), "own");
    EXPECT_EQ(model.property(0, "S", "B"), "typed^");
}

TEST(Properties, OfASetOfSetsAreAllListed) {
    for (const std::string schema : {"IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        const Id wall = ifc.element("IfcWall", "Wall");
        const Id a = ifc.set("A", {ifc.single("P", "IFCLABEL('1')")});
        const Id b = ifc.set("B", {ifc.single("P", "IFCLABEL('2')")});
        ifc.giveSetOfSets({wall}, {b, a});
        Opened model(ifc);
        EXPECT_THAT(listed(model, "Wall"), ElementsAre("B.P", "A.P")) << schema;
    }
}

TEST(Properties, OverridesHideTheSetsOwnValueForTheirElementAlone) {
    TinyModel ifc("IFC2X3");
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id set = ifc.set("S", {ifc.single("A", "IFCLABEL('base')"), ifc.single("B", "IFCLABEL('base')")});
    ifc.give({wall, other}, set);
    ifc.overrideProperties({wall}, set, {ifc.single("A", "IFCLABEL('mine')"), ifc.single("C", "IFCLABEL('mine')")});
    Opened model(ifc);
    EXPECT_THAT(listed(model, "Wall"), ElementsAre("S.A", "S.B", "S.C"));
    EXPECT_EQ(model.property(model.find("Wall"), "S", "A"), "mine");
    EXPECT_EQ(model.property(model.find("Wall"), "S", "B"), "base");
    EXPECT_THAT(listed(model, "Other"), ElementsAre("S.A", "S.B"));
    EXPECT_EQ(model.property(model.find("Other"), "S", "A"), "base");
}

TEST(Properties, OfASetGivenTwiceAreListedOnce) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id set = ifc.set("S", {ifc.single("A", "$")});
    ifc.give({wall}, set);
    ifc.give({wall}, set);
    Opened model(ifc);
    EXPECT_THAT(listed(model, "Wall"), ElementsAre("S.A"));
}

TEST(Properties, ComplexOnesQuantitiesAndPredefinedSetsAreLeftOut) {
    TinyModel ifc;
    const Id door = ifc.element("IfcDoor", "Door");
    const Id inner = ifc.single("Inner", "IFCLABEL('x')");
    const Id complex =
        ifc.add("IfcComplexProperty", {{"Name", "'Complex'"}, {"UsageName", "''"}, {"HasProperties", refs({inner})}});
    ifc.give({door}, ifc.set("S", {complex, ifc.single("A", "IFCLABEL('1')")}));
    ifc.give({door}, ifc.add("IfcElementQuantity", {{"Name", "'Q'"}, {"Quantities", "()"}}));
    ifc.give({door}, ifc.add("IfcDoorLiningProperties", {{"Name", "'Lining'"}}));
    Opened model(ifc);
    EXPECT_THAT(listed(model, "Door"), ElementsAre("S.A"));
}

TEST(Properties, TellTheirKind) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const std::pair<std::string_view, PropertyKind> table[] = {
        {"IfcPropertySingleValue", PropertyKind::Single},   {"IfcPropertyListValue", PropertyKind::List},
        {"IfcPropertyBoundedValue", PropertyKind::Bounded}, {"IfcPropertyEnumeratedValue", PropertyKind::Enumerated},
        {"IfcPropertyTableValue", PropertyKind::Table},     {"IfcPropertyReferenceValue", PropertyKind::Reference}};
    Ids ids;
    for (const auto& [ifcClass, kind] : table) ids.push_back(ifc.add(ifcClass, {{"Name", "'P'"}}));
    ifc.give({wall}, ifc.set("S", ids));
    Opened model(ifc);
    const auto properties = model->properties(0);
    ASSERT_EQ(properties->size(), std::size(table));
    for (std::size_t i = 0; i < std::size(table); ++i) EXPECT_EQ((*properties)[i].kind, table[i].second) << i;
}

struct ValueRow {
    std::string_view schema, step, type;
    Primitive primitive;
    std::string_view text;
};

TEST(Properties, ValuesHaveTheTypeOfTheSchemaAndItsPrimitive) {
    const ValueRow table[] = {
        {"IFC4", "IFCLABEL('It''s')", "IfcLabel", Primitive::String, "It's"},
        {"IFC4", "IfcText('x')", "IfcText", Primitive::String, "x"},
        {"IFC4", "IFCINTEGER(-7)", "IfcInteger", Primitive::Integer, "-7"},
        {"IFC4", "IFCINTEGER(7.)", "IfcInteger", Primitive::Integer, "7"},
        {"IFC4", "IFCINTEGER(7.5)", "IfcInteger", Primitive::Other, "?"},
        {"IFC4", "IFCINTEGER(99999999999999999999)", "IfcInteger", Primitive::Other, "?"},
        {"IFC4", "IFCREAL(2.5)", "IfcReal", Primitive::Real, "2.5"},
        {"IFC4", "IFCREAL(2)", "IfcReal", Primitive::Real, "2"},
        {"IFC4", "IFCPOSITIVELENGTHMEASURE(1.E-05)", "IfcPositiveLengthMeasure", Primitive::Real, "1e-05"},
        {"IFC2X3", "IFCCOUNTMEASURE(3.)", "IfcCountMeasure", Primitive::Real, "3"},
        {"IFC4X3", "IFCCOUNTMEASURE(3)", "IfcCountMeasure", Primitive::Integer, "3"},
        {"IFC4", "IFCBOOLEAN(.T.)", "IfcBoolean", Primitive::Boolean, "true"},
        {"IFC4", "IFCBOOLEAN(.F.)", "IfcBoolean", Primitive::Boolean, "false"},
        {"IFC4", "IFCLOGICAL(.T.)", "IfcLogical", Primitive::Logical, "true"},
        {"IFC4", "IFCLOGICAL(.F.)", "IfcLogical", Primitive::Logical, "false"},
        {"IFC4", "IFCLOGICAL(.U.)", "IfcLogical", Primitive::Logical, "unknown"},
        {"IFC4", "IFCDATE('2024-01-31')", "IfcDate", Primitive::String, "2024-01-31"},
        {"IFC4", "IFCTIMESTAMP(1)", "IfcTimeStamp", Primitive::Integer, "1"},
        {"IFC4", "IFCCOMPLEXNUMBER((1.,2.))", "IfcComplexNumber", Primitive::Other, "?"},
        {"IFC4", "IFCBINARY(\"0A1F\")", "IfcBinary", Primitive::Other, "?"},
        {"IFC4", "IFCFUTUREMEASURE(1.)", "IFCFUTUREMEASURE", Primitive::Other, "?"},
        {"IFC4", "IFCLABEL( /* c */ 'x' )", "IfcLabel", Primitive::String, "x"},
        {"IFC4", "$", "", Primitive::String, ""},
        {"IFC4", "'bare'", "", Primitive::String, "bare"},
        {"IFC4", "5", "", Primitive::Integer, "5"},
    };
    for (const ValueRow& row : table) {
        TinyModel ifc{std::string(row.schema)};
        const Id wall = ifc.element("IfcWall", "Wall");
        ifc.give({wall}, ifc.set("S", {ifc.single("P", std::string(row.step))}));
        Opened model(ifc);
        const auto properties = model->properties(0);
        ASSERT_EQ(properties->size(), 1U) << row.step;
        EXPECT_EQ((*properties)[0].value.type, row.type) << row.step;
        EXPECT_EQ((*properties)[0].value.primitive, row.primitive) << row.step;
        EXPECT_EQ(valueText((*properties)[0].value), row.text) << row.step;
    }
}

TEST(Properties, DanglingAndBrokenPartsArePassedOver) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.raw("IFCRELDEFINESBYPROPERTIES('x',$,$,$,(#1),#999)");
    ifc.raw("IFCRELDEFINESBYPROPERTIES('x',$,$,$,(#1),$)");
    ifc.raw("IFCRELDEFINESBYPROPERTIES('x',$,$,$,(#1))");
    ifc.raw("IFCRELDEFINESBYPROPERTIES('x',$,$,$,(#1),#1)");
    ifc.give({wall}, ifc.raw("IFCPROPERTYSET('x',$,'Broken',$,(#998,#1,))"));
    ifc.give({wall}, ifc.set("S", {998, wall, ifc.single("A", "$"), ifc.raw("IFCPROPERTYSINGLEVALUE('Short')")}));
    Opened model(ifc);
    EXPECT_THAT(listed(model, "Wall"), ElementsAre("S.A", "S.Short"));
}

TEST(Properties, OfAnElementThatNothingDescribesAreNone) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    EXPECT_THAT(*model->properties(0), IsEmpty());
    EXPECT_THAT(*model->classifications(0), IsEmpty());
}

}  // namespace
