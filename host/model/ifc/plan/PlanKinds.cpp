#include "model/ifc/plan/PlanKinds.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace model::ifc {

namespace {

struct Row {
    std::string_view ifcClass;
    PlanKind kind;
};

/// A class counts with all below it, but for those that have a row themselves: the nearest one up holds. Names of all
/// three schemas.
constexpr std::array Rows = {
    Row{"IfcSite", PlanKind::Terrain},
    Row{"IfcSpatialStructureElement", PlanKind::Terrain},  // buildings, storeys, parts of roads and railways
    Row{"IfcGeographicElement", PlanKind::Terrain},
    Row{"IfcCivilElement", PlanKind::Terrain},
    Row{"IfcGeotechnicalElement", PlanKind::Terrain},
    Row{"IfcEarthworksElement", PlanKind::Terrain},
    Row{"IfcSlab", PlanKind::Floor},
    Row{"IfcRoof", PlanKind::Floor},
    Row{"IfcCovering", PlanKind::Floor},
    Row{"IfcFooting", PlanKind::Floor},
    Row{"IfcPavement", PlanKind::Floor},
    Row{"IfcCourse", PlanKind::Floor},
    Row{"IfcSpace", PlanKind::Room},
    Row{"IfcSpatialZone", PlanKind::Room},
    Row{"IfcFurnishingElement", PlanKind::Furniture},
    Row{"IfcDistributionElement", PlanKind::Furniture},
    Row{"IfcElectricalElement", PlanKind::Furniture},
    Row{"IfcEquipmentElement", PlanKind::Furniture},
    Row{"IfcStair", PlanKind::Stair},
    Row{"IfcStairFlight", PlanKind::Stair},
    Row{"IfcRamp", PlanKind::Stair},
    Row{"IfcRampFlight", PlanKind::Stair},
    Row{"IfcWall", PlanKind::Structure},
    Row{"IfcColumn", PlanKind::Structure},
    Row{"IfcCurtainWall", PlanKind::Structure},
    Row{"IfcMember", PlanKind::Structure},
    Row{"IfcPlate", PlanKind::Structure},
    Row{"IfcPile", PlanKind::Structure},
    Row{"IfcWindow", PlanKind::Window},
    Row{"IfcDoor", PlanKind::Door},
    Row{"IfcFeatureElementSubtraction", PlanKind::Opening},
    Row{"IfcAnnotation", PlanKind::Annotation},
    Row{"IfcVirtualElement", PlanKind::Annotation},
    Row{"IfcPort", PlanKind::Annotation},
    Row{"IfcStructuralItem", PlanKind::Annotation},
    Row{"IfcStructuralActivity", PlanKind::Annotation},
    Row{"IfcLinearElement", PlanKind::Annotation},
    Row{"IfcPositioningElement", PlanKind::Annotation},
    Row{"IfcGrid", PlanKind::Grid},
};

}  // namespace

PlanKind PlanKinds::of(const Entity& entity) {
    const auto [known, isNew] = known_.try_emplace(&entity, PlanKind::Object);
    for (const Entity* at = &entity; isNew && at != nullptr; at = at->super()) {
        const auto row = std::find_if(Rows.begin(), Rows.end(), [&](const Row& r) { return r.ifcClass == at->name(); });
        if (row == Rows.end()) continue;
        known->second = row->kind;
        break;
    }
    return known->second;
}

}  // namespace model::ifc
