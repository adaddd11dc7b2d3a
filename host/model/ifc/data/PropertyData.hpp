#pragma once

#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

/// An IfcPropertySet that a relation gives to an element.
struct AssignedSet {
    step::Slot relation;
    step::Slot set;
    bool overriding;  ///< By an IfcRelOverridesProperties, which replaces some of the set's properties.
    bool repeated;    ///< Another relation before it gives the same set.
};

/// Where one property of an element's own stands.
struct PropertyPlace {
    step::Slot property;
    step::Slot set;
    step::Slot overriding = step::NoSlot;  ///< The IfcRelOverridesProperties that holds it; NoSlot where its set does.
};

/// One listed property with its place, valid during the visit. @return false to end the visit.
using PropertyVisit = std::function<bool(const PropertyView& property, const PropertyPlace& place)>;

/// The property sets that relations give to the element, in file order; a set that two relations give stands twice.
std::vector<AssignedSet> assignedSets(Workspace& work, step::Slot element);

/// The element's own properties in the host's order; a set given twice is listed once.
void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned, const PropertyVisit& visit);

/// The property sets of the element's type object, each once.
std::vector<step::Slot> setsOfType(Workspace& work, step::Slot element);

/// The properties of the element's type object, those that the element has itself included.
void forEachTypeProperty(Workspace& work, step::Slot element, const PropertyVisit& visit);

/// The property of each set and name: the element's own, or else the one of its type object. NoSlot where there is
/// none.
std::vector<step::Slot> findProperties(Workspace& work, step::Slot element, const std::vector<PropertyName>& names);

/// Own properties, then those inherited from the type object.
void forEachProperty(Workspace& work, step::Slot element, const std::function<void(const PropertyView&)>& visit);

}  // namespace model::ifc
