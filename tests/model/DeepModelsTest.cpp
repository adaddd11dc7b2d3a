// Chains up to the longest that is followed, and one link beyond it, where a circle is taken for granted.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

/// A wall at the end of that many placements, each one unit further along.
std::string placedThrough(int placements) {
    TinyModel ifc;
    const Id point = ifc.add("IfcCartesianPoint", {{"Coordinates", "(1.,0.,0.)"}});
    const Id axes = ifc.add("IfcAxis2Placement3D", {{"Location", ref(point)}});
    std::string outer = "$";
    for (int i = 0; i < placements; ++i) {
        outer = ref(ifc.add("IfcLocalPlacement", {{"PlacementRelTo", outer}, {"RelativePlacement", ref(axes)}}));
    }
    ifc.element("IfcWall", "Wall", {{"ObjectPlacement", outer}});
    return ifc.text();
}

TEST(Placement, IsFollowedThrough256LocalPlacements) {
    for (const int placements : {255, 256}) {
        Opened model(placedThrough(placements));
        ASSERT_TRUE(model->placement(0)) << placements;
        EXPECT_EQ(model->placement(0)->x, placements);
    }
    EXPECT_FALSE(Opened(placedThrough(257))->placement(0));
}

/// A wall in that many assemblies, the outermost of them in a storey.
std::string assembledIn(int assemblies) {
    TinyModel ifc;
    Id inner = ifc.element("IfcWall", "Wall");
    for (int i = 0; i < assemblies; ++i) {
        const Id outer = ifc.element("IfcElementAssembly", "Assembly");
        ifc.add("IfcRelAggregates", {{"RelatingObject", ref(outer)}, {"RelatedObjects", refs({inner})}});
        inner = outer;
    }
    const Id storey = ifc.element("IfcBuildingStorey", "Attic");
    ifc.add("IfcRelContainedInSpatialStructure",
            {{"RelatedElements", refs({inner})}, {"RelatingStructure", ref(storey)}});
    return ifc.text();
}

TEST(Storey, IsLookedForThrough64Parents) {
    for (const int assemblies : {0, 62, 63})
        EXPECT_EQ(Opened(assembledIn(assemblies))->storey(0), "Attic") << assemblies;
    EXPECT_EQ(Opened(assembledIn(64))->storey(0), "");
}

TEST(SourcesOfAClassification, AreFollowedHoweverManyTheyAre) {
    TinyModel ifc("IFC4");
    const Id wall = ifc.element("IfcWall", "Wall");
    Id source = ifc.classification("System");
    for (int i = 0; i < 2000; ++i) source = ifc.classificationReference(std::to_string(i), "Name", source);
    ifc.classify({wall}, "", source);
    Opened model(ifc);
    EXPECT_EQ(model.classification(0, "System"), "1999{Name}");
    ASSERT_TRUE(model.classify(0, "System", "new", "Name"));
    EXPECT_EQ(model.classification(0, "System"), "new{Name}");
    EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
}

}  // namespace
