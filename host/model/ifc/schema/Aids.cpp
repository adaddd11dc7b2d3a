#include "model/ifc/schema/Aids.hpp"

#include <algorithm>
#include <array>

namespace model::ifc {

namespace {

// IfcGrid stands below IfcPositioningElement in IFC4X3 alone, the alignment's segments below IfcLinearElement.
constexpr std::array<std::string_view, 9> Roots = {
    "IfcFeatureElement", "IfcAnnotation", "IfcGrid",           "IfcPositioningElement", "IfcLinearElement",
    "IfcVirtualElement", "IfcPort",       "IfcStructuralItem", "IfcStructuralActivity",
};

}  // namespace

bool isAid(const Entity& product) {
    return std::any_of(Roots.begin(), Roots.end(), [&](std::string_view root) { return product.isA(root); });
}

}  // namespace model::ifc
