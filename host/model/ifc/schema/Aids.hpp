#pragma once

#include "model/ifc/schema/Schema.hpp"

namespace model::ifc {

/// Whether a class's instances are no part of what is built, but help to describe it: openings and what else only
/// shapes others, annotations, grids and what else others are placed by, virtual elements, ports, the idealisations of
/// structural analysis. Tables and plans leave them out until they are asked for.
/// @param product  A subtype of IfcProduct.
bool isAid(const Entity& product);

}  // namespace model::ifc
