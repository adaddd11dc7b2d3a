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
    Row{"IfcWall", {ElementTypeIds::Wall, "Wall"}},
    Row{"IfcColumn", {ElementTypeIds::Column, "Column"}},
    Row{"IfcBeam", {ElementTypeIds::Beam, "Beam"}},
    Row{"IfcMember", {ElementTypeIds::Beam, "Beam"}},
    Row{"IfcWindow", {ElementTypeIds::Window, "Window"}},
    Row{"IfcDoor", {ElementTypeIds::Door, "Door"}},
    Row{"IfcElement", {ElementTypeIds::Object, "Object"}},
    Row{"IfcLightFixture", {ElementTypeIds::Lamp, "Lamp"}},
    Row{"IfcSlab", {ElementTypeIds::Slab, "Slab"}},
    Row{"IfcRoof", {ElementTypeIds::Roof, "Roof"}},
    Row{"IfcGeographicElement", {ElementTypeIds::Mesh, "Mesh"}},
    Row{"IfcSpace", {ElementTypeIds::Zone, "Zone"}},
    Row{"IfcCurtainWall", {ElementTypeIds::CurtainWall, "Curtain Wall"}},
    Row{"IfcSite", {ElementTypeIds::Site, "Site"}},
    Row{"IfcBuilding", {ElementTypeIds::Building, "Building"}},
    Row{"IfcBuildingStorey", {ElementTypeIds::Storey, "Storey"}},
    Row{"IfcProduct", {ElementTypeIds::Product, "Product"}},
    Row{"IfcFeatureElement", {ElementTypeIds::Opening, "Opening"}},
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

std::string_view elementTypeName(std::int32_t id) {
    const auto row =
        std::find_if(Rows.begin(), Rows.end(), [&](const Row& candidate) { return candidate.type.id == id; });
    return row == Rows.end() ? std::string_view() : row->type.name;
}

std::vector<std::string_view> elementTypeNames() {
    std::vector<std::string_view> names;
    for (const Row& row : Rows)
        if (std::find(names.begin(), names.end(), row.type.name) == names.end()) names.push_back(row.type.name);
    return names;
}

}  // namespace model::ifc
