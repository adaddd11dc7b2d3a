#include "model/ifc/schema/ElementTypes.hpp"

#include "model/base/ElementTypeIds.hpp"

#include <algorithm>
#include <array>

namespace model::ifc {

namespace {

struct Row {
    std::string_view ifcClass;
    ElementType type;
};

constexpr std::array Rows = {
    Row{"IfcWall", {ElementTypeIds::Wall, text::phrase("Wall")}},
    Row{"IfcColumn", {ElementTypeIds::Column, text::phrase("Column")}},
    Row{"IfcBeam", {ElementTypeIds::Beam, text::phrase("Beam")}},
    Row{"IfcMember", {ElementTypeIds::Beam, text::phrase("Beam")}},
    Row{"IfcWindow", {ElementTypeIds::Window, text::phrase("Window")}},
    Row{"IfcDoor", {ElementTypeIds::Door, text::phrase("Door")}},
    Row{"IfcElement", {ElementTypeIds::Object, text::phrase("Object")}},
    Row{"IfcLightFixture", {ElementTypeIds::Lamp, text::phrase("Lamp")}},
    Row{"IfcSlab", {ElementTypeIds::Slab, text::phrase("Slab")}},
    Row{"IfcRoof", {ElementTypeIds::Roof, text::phrase("Roof")}},
    Row{"IfcGeographicElement", {ElementTypeIds::Mesh, text::phrase("Mesh")}},
    Row{"IfcSpace", {ElementTypeIds::Zone, text::phrase("Zone")}},
    Row{"IfcCurtainWall", {ElementTypeIds::CurtainWall, text::phrase("Curtain Wall")}},
    Row{"IfcSite", {ElementTypeIds::Site, text::phrase("Site")}},
    Row{"IfcBuilding", {ElementTypeIds::Building, text::phrase("Building")}},
    Row{"IfcBuildingStorey", {ElementTypeIds::Storey, text::phrase("Storey")}},
    Row{"IfcProduct", {ElementTypeIds::Product, text::phrase("Product")}},
    Row{"IfcFeatureElement", {ElementTypeIds::Opening, text::phrase("Opening")}},
};

}  // namespace

/// From the class itself upwards, so that the closest class counts: a slab is an IfcElement as well.
ElementType elementTypeOf(const Entity& product) {
    for (const Entity* entity = &product; entity != nullptr; entity = entity->super()) {
        const auto row = std::find_if(Rows.begin(), Rows.end(),
                                      [&](const Row& candidate) { return candidate.ifcClass == entity->name(); });
        if (row != Rows.end()) return row->type;
    }
    return {ElementTypeIds::NoType, {}};
}

text::Phrase elementTypeName(std::int32_t id) {
    const auto row =
        std::find_if(Rows.begin(), Rows.end(), [&](const Row& candidate) { return candidate.type.id == id; });
    return row == Rows.end() ? text::Phrase() : row->type.name;
}

std::vector<std::string_view> elementTypeNames() {
    std::vector<std::string_view> names;
    for (const Row& row : Rows) {
        const std::string_view name = row.type.name.english();
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    return names;
}

}  // namespace model::ifc
