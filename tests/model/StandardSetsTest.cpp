#include "model/ifc/schema/NearName.hpp"
#include "model/ifc/schema/StandardSets.hpp"

#include <gtest/gtest.h>

namespace {

using namespace model::ifc;
using model::PropertyKind;

constexpr SchemaVersion Versions[] = {SchemaVersion::Ifc2x3, SchemaVersion::Ifc4, SchemaVersion::Ifc4x3};

const Entity& entity(SchemaVersion version, std::string_view name) {
    return *Schema::of(version).entity(name);
}

TEST(StandardSets, TellAPropertysTypeAndKind) {
    struct {
        SchemaVersion version;
        std::string_view set, property, type;
        PropertyKind kind;
    } const table[] = {
        {SchemaVersion::Ifc2x3, "Pset_WallCommon", "FireRating", "IfcLabel", PropertyKind::Single},
        {SchemaVersion::Ifc2x3, "Pset_DoorCommon", "SmokeStop", "IfcBoolean", PropertyKind::Single},
        {SchemaVersion::Ifc4, "Pset_WallCommon", "ThermalTransmittance", "IfcThermalTransmittanceMeasure",
         PropertyKind::Single},
        {SchemaVersion::Ifc4, "Pset_WallCommon", "Status", "IfcLabel", PropertyKind::Enumerated},
        {SchemaVersion::Ifc4x3, "Pset_ActorCommon", "NumberOfActors", "IfcCountMeasure", PropertyKind::Single},
    };
    for (const auto& row : table) {
        const auto found = StandardSets::of(row.version).find(row.set, row.property);
        ASSERT_TRUE(found) << row.set << "." << row.property;
        EXPECT_EQ(found->type, row.type) << row.set << "." << row.property;
        EXPECT_EQ(found->kind, row.kind) << row.set << "." << row.property;
    }
}

TEST(StandardSets, KnowNoOtherNames) {
    const StandardSets& sets = StandardSets::of(SchemaVersion::Ifc4);
    EXPECT_FALSE(sets.find("Pset_Wallcommon"));
    EXPECT_FALSE(sets.find("WallCommon"));
    EXPECT_FALSE(sets.find(""));
    EXPECT_FALSE(sets.find("Pset_zzz"));
    EXPECT_FALSE(sets.find("Pset_WallCommon", "Firerating"));
    EXPECT_FALSE(sets.find("Pset_WallCommon", ""));
    EXPECT_TRUE(sets.having("Slope of the roof").empty());
}

TEST(StandardSets, FindEachSetAndPropertyOfTheirOwnTables) {
    for (const SchemaVersion version : Versions) {
        const StandardSets& sets = StandardSets::of(version);
        EXPECT_GT(sets.size(), 300U);
        for (std::size_t i = 0; i < sets.size(); ++i) {
            const StandardSet set = sets.at(i);
            ASSERT_TRUE(sets.find(set.name())) << set.name();
            for (std::size_t j = 0; j < set.size(); ++j) {
                const auto found = sets.find(set.name(), set.property(j).name);
                ASSERT_TRUE(found) << set.name() << "." << set.property(j).name;
                EXPECT_EQ(found->name, set.property(j).name);
            }
        }
    }
}

TEST(StandardSets, AreForTheClassesOfTheirTablesAndThoseBelow) {
    struct {
        SchemaVersion version;
        std::string_view set, ifcClass;
        bool applies;
    } const table[] = {
        {SchemaVersion::Ifc4, "Pset_WallCommon", "IfcWall", true},
        {SchemaVersion::Ifc4, "Pset_WallCommon", "IfcWallStandardCase", true},
        {SchemaVersion::Ifc4, "Pset_WallCommon", "IfcDoor", false},
        {SchemaVersion::Ifc4, "Pset_WallCommon", "IfcBuildingElement", false},
        {SchemaVersion::Ifc4, "Pset_ManufacturerTypeInformation", "IfcDoor", true},
        {SchemaVersion::Ifc2x3, "Pset_DoorCommon", "IfcDoor", true},
        {SchemaVersion::Ifc2x3, "Pset_DoorCommon", "IfcWindow", false},
        {SchemaVersion::Ifc2x3, "Pset_FanTypeCommon", "IfcFanType", true},
    };
    for (const auto& row : table) {
        const auto set = StandardSets::of(row.version).find(row.set);
        ASSERT_TRUE(set) << row.set;
        EXPECT_EQ(set->isFor(entity(row.version, row.ifcClass)), row.applies) << row.set << " " << row.ifcClass;
    }
}

TEST(StandardSets, ForAPredefinedTypeAreLeftOutForOthers) {
    const auto set = StandardSets::of(SchemaVersion::Ifc4x3).find("Pset_ActuatorTypeElectricActuator");
    ASSERT_TRUE(set);
    const Entity& actuator = entity(SchemaVersion::Ifc4x3, "IfcActuator");
    EXPECT_TRUE(set->isFor(actuator));
    EXPECT_TRUE(set->isFor(actuator, "ELECTRICACTUATOR"));
    EXPECT_FALSE(set->isFor(actuator, "HYDRAULICACTUATOR"));
    EXPECT_FALSE(set->isFor(actuator, ""));
}

TEST(StandardSets, NameTheirNearestOnlyWhereOneIsNearest) {
    const StandardSets& sets = StandardSets::of(SchemaVersion::Ifc4);
    const std::pair<std::string_view, std::string_view> table[] = {
        {"Pset_WallComon", "Pset_WallCommon"},
        {"Pset_wallcommon", "Pset_WallCommon"},
        {"Pset_Wall Common", "Pset_WallCommon"},
        {"Pset_DoorCmomon", "Pset_DoorCommon"},
        {"Pset_WallCommon", ""},
        {"Pset_Custom", ""},
        {"", ""},
        {"Pset_", ""},
    };
    for (const auto& [written, meant] : table) EXPECT_EQ(sets.nearestSet(written), meant) << written;
    const Entity& door = entity(SchemaVersion::Ifc4, "IfcDoor");
    EXPECT_EQ(sets.nearestProperty("FireRatng", door), "FireRating");
    EXPECT_EQ(sets.nearestProperty("fire rating", door), "FireRating");
    EXPECT_EQ(sets.nearestProperty("FireRating", door), "");
    EXPECT_EQ(sets.nearestProperty("Brandschutz", door), "");
}

TEST(EditDistance, CountsChangesUpToItsBound) {
    struct {
        std::string_view a, b;
        std::size_t bound, distance;
    } const table[] = {
        {"", "", 2, 0},         {"a", "", 2, 1},          {"abc", "abc", 0, 0},
        {"abc", "abd", 2, 1},   {"abc", "acb", 2, 1},     {"abcd", "badc", 2, 2},
        {"abcd", "xyzw", 2, 3}, {"abcd", "abcdef", 2, 2}, {"abcd", "abcdefg", 2, 3},
        {"abc", "abd", 0, 1},   {"smoke", "smkoe", 1, 1},
    };
    for (const auto& row : table) {
        EXPECT_EQ(editDistance(row.a, row.b, row.bound), row.distance) << row.a << " " << row.b;
        EXPECT_EQ(editDistance(row.b, row.a, row.bound), row.distance) << row.b << " " << row.a;
    }
}

TEST(EditDistance, PassesOverNamesThatAreTooLong) {
    const std::string longest(80, 'a'), longer(81, 'a');
    EXPECT_EQ(editDistance(longest, longest, 2), 0U);
    EXPECT_EQ(editDistance(longest, longer, 2), 3U);
    EXPECT_EQ(editDistance(longer, longer, 2), 3U);
}

}  // namespace
