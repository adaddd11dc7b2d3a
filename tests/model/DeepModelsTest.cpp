// Long chains, and many links to one thing: up to the longest that is followed where there is such a limit, and one
// beyond.

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

TEST(Storey, IsFoundThroughHoweverManyParents) {
    constexpr int Many = 20000;
    Opened model(assembledIn(Many));
    // Each element on its own way up would make 200 million steps.
    for (model::Element element = 0; element < Many + 1; ++element)
        ASSERT_EQ(model->storey(element), "Attic") << element;
}

TEST(Storey, OfThePartsOfOneWholeIsFoundHoweverManyTheyAre) {
    constexpr int Many = 40000;
    TinyModel ifc;
    const Id whole = ifc.element("IfcElementAssembly", "Assembly");
    for (int i = 0; i < Many; ++i) {
        const Id part = ifc.element("IfcBeam", "Part");
        ifc.add("IfcRelAggregates", {{"RelatingObject", ref(whole)}, {"RelatedObjects", refs({part})}});
    }
    const Id storey = ifc.element("IfcBuildingStorey", "Attic");
    ifc.add("IfcRelContainedInSpatialStructure",
            {{"RelatedElements", refs({whole})}, {"RelatingStructure", ref(storey)}});
    Opened model(ifc);
    for (model::Element element = 0; element < Many + 1; ++element)
        ASSERT_EQ(model->storey(element), "Attic") << element;
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
