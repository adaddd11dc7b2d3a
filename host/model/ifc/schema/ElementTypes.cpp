#include "model/ifc/schema/ElementTypes.hpp"

#include <algorithm>
#include <array>

namespace model::ifc {

namespace {

struct Row {
    std::string_view ifcClass;
    ElementType type;
};

constexpr std::array Rows = {
    Row{"IfcWall", {1, "Wall"}},
    Row{"IfcColumn", {2, "Column"}},
    Row{"IfcBeam", {3, "Beam"}},
    Row{"IfcMember", {3, "Beam"}},
    Row{"IfcWindow", {4, "Window"}},
    Row{"IfcDoor", {5, "Door"}},
    Row{"IfcElement", {6, "Object"}},
    Row{"IfcLightFixture", {7, "Lamp"}},
    Row{"IfcSlab", {8, "Slab"}},
    Row{"IfcRoof", {9, "Roof"}},
    Row{"IfcGeographicElement", {10, "Mesh"}},
    Row{"IfcSpace", {17, "Zone"}},
    Row{"IfcCurtainWall", {37, "Curtain Wall"}},
    Row{"IfcSite", {1001, "Site"}},
    Row{"IfcBuilding", {1002, "Building"}},
    Row{"IfcBuildingStorey", {1003, "Storey"}},
    Row{"IfcProduct", {1005, "Product"}},
    Row{"IfcFeatureElement", {1006, "Opening"}},
};

}  // namespace

ElementType elementTypeOf(const Entity& product) {
    for (const Entity* entity = &product; entity != nullptr; entity = entity->super()) {
        const auto row = std::find_if(Rows.begin(), Rows.end(),
                                      [&](const Row& candidate) { return candidate.ifcClass == entity->name(); });
        if (row != Rows.end()) return row->type;
    }
    return {0, {}};
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
