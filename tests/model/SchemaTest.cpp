#include "model/ifc/schema/Schema.hpp"

#include <gtest/gtest.h>

namespace {

using namespace model::ifc;

std::string attributeNames(const Entity& entity) {
    std::string names;
    for (const Attribute& attribute : entity.attributes()) names += std::string(attribute.name) + " ";
    return names;
}

TEST(Schema, IsRecognisedWhateverItsAddendumAndCase) {
    const std::pair<std::string_view, std::optional<SchemaVersion>> table[] = {{"IFC2X3", SchemaVersion::Ifc2x3},
                                                                               {"IFC2X3_TC1", SchemaVersion::Ifc2x3},
                                                                               {"ifc2x3", SchemaVersion::Ifc2x3},
                                                                               {"IFC4", SchemaVersion::Ifc4},
                                                                               {"IFC4_ADD2_TC1", SchemaVersion::Ifc4},
                                                                               {"IFC4X3", SchemaVersion::Ifc4x3},
                                                                               {"IFC4X3_ADD2", SchemaVersion::Ifc4x3},
                                                                               {"IFC4X1", std::nullopt},
                                                                               {"IFC2X2_FINAL", std::nullopt},
                                                                               {"IFC5", std::nullopt},
                                                                               {"", std::nullopt},
                                                                               {"IFC", std::nullopt}};
    for (const auto& [name, version] : table) EXPECT_EQ(Schema::versionOf(name), version) << name;
}

TEST(Schema, ListsInheritedAttributesFirst) {
    EXPECT_EQ(attributeNames(*Schema::of(SchemaVersion::Ifc4).entity("IfcWall")),
              "GlobalId OwnerHistory Name Description ObjectType ObjectPlacement Representation Tag PredefinedType ");
    EXPECT_EQ(attributeNames(*Schema::of(SchemaVersion::Ifc2x3).entity("IfcWall")),
              "GlobalId OwnerHistory Name Description ObjectType ObjectPlacement Representation Tag ");
    EXPECT_EQ(attributeNames(*Schema::of(SchemaVersion::Ifc4x3).entity("IfcPropertySingleValue")),
              "Name Specification NominalValue Unit ");
}

TEST(Schema, FindsEntitiesAndTypesInAnyCase) {
    const Schema& schema = Schema::of(SchemaVersion::Ifc4);
    for (const std::string_view keyword : {"IFCWALL", "IfcWall", "ifcwall"}) {
        ASSERT_NE(schema.entity(keyword), nullptr) << keyword;
        EXPECT_EQ(schema.entity(keyword)->name(), "IfcWall");
    }
    EXPECT_EQ(schema.type("IFCLABEL")->name, "IfcLabel");
    EXPECT_EQ(schema.entity("IFCNOSUCHTHING"), nullptr);
    EXPECT_EQ(schema.entity(std::string(1000, 'I')), nullptr);
    EXPECT_EQ(schema.type(""), nullptr);
}

TEST(Schema, KnowsWhatIsDerivedOptionalAndAbstract) {
    const Schema& schema = Schema::of(SchemaVersion::Ifc4);
    const Entity& unit = *schema.entity("IfcSIUnit");
    EXPECT_TRUE(unit.attributes()[static_cast<std::size_t>(unit.attributeIndex("Dimensions"))].derived);
    EXPECT_FALSE(unit.attributes()[static_cast<std::size_t>(unit.attributeIndex("Prefix"))].derived);
    EXPECT_TRUE(schema.entity("IfcRoot")->attributes()[1].optional);
    EXPECT_FALSE(Schema::of(SchemaVersion::Ifc2x3).entity("IfcRoot")->attributes()[1].optional);
    EXPECT_TRUE(schema.entity("IfcProduct")->abstract());
    EXPECT_FALSE(schema.entity("IfcWall")->abstract());
    EXPECT_TRUE(schema.entity("IfcWallStandardCase")->isA("IfcElement"));
    EXPECT_FALSE(schema.entity("IfcWall")->isA("IfcDoor"));
}

TEST(Schema, FollowsTypesToTheirRootWithTheirLimits) {
    const Schema& ifc4 = Schema::of(SchemaVersion::Ifc4);
    const Schema& ifc2x3 = Schema::of(SchemaVersion::Ifc2x3);
    EXPECT_EQ(ifc4.type("IfcLabel")->base, BaseType::String);
    EXPECT_EQ(ifc4.type("IfcLabel")->maxLength, 255);
    EXPECT_EQ(ifc2x3.type("IfcLabel")->maxLength, 0);
    EXPECT_EQ(ifc4.type("IfcGloballyUniqueId")->exactLength, 22);
    EXPECT_EQ(ifc4.type("IfcPositiveLengthMeasure")->minimum, 0);
    EXPECT_TRUE(ifc4.type("IfcPositiveLengthMeasure")->minimumExcluded);
    EXPECT_FALSE(ifc4.type("IfcNonNegativeLengthMeasure")->minimumExcluded);
    EXPECT_EQ(ifc2x3.type("IfcSecondInMinute")->maximum, 60);
    EXPECT_TRUE(ifc2x3.type("IfcSecondInMinute")->maximumExcluded);
    EXPECT_EQ(ifc4.type("IfcFontStyle")->items.size(), 3U);
    EXPECT_EQ(ifc4.type("IfcWallTypeEnum")->base, BaseType::Enumeration);
    EXPECT_EQ(ifc2x3.type("IfcCountMeasure")->base, BaseType::Number);
    EXPECT_EQ(Schema::of(SchemaVersion::Ifc4x3).type("IfcCountMeasure")->base, BaseType::Integer);
}

TEST(Schema, SaysWhatAnAttributeCanReferTo) {
    const Schema& schema = Schema::of(SchemaVersion::Ifc4);
    const Entity& set = *schema.entity("IfcPropertySet");
    EXPECT_TRUE(schema.canReferTo("IfcPropertySetDefinitionSelect", set));
    EXPECT_TRUE(schema.canReferTo("SET(IfcPropertySetDefinition)", set));
    EXPECT_TRUE(schema.canReferTo("SET(IfcDefinitionSelect)", set));
    EXPECT_FALSE(schema.canReferTo("IfcOwnerHistory", set));
    EXPECT_FALSE(schema.canReferTo("IfcLabel", set));
}

}  // namespace
