#pragma once

#include "model/ifc/Workspace.hpp"

namespace model::ifc {

/// An IfcPropertySet that a relation gives to an element.
struct AssignedSet {
    step::Slot relation;
    step::Slot set;
    bool overriding;  ///< By an IfcRelOverridesProperties, which replaces some of the set's properties.
};

/// Where one property of an element's own stands.
struct PropertyPlace {
    step::Slot property;
    step::Slot set;
    step::Slot overriding = step::NoSlot;  ///< The IfcRelOverridesProperties that holds it; NoSlot where its set does.
};

/// One listed property with its place, valid during the visit.
struct ListedProperty {
    const Property& property;
    PropertyPlace place;
};

/// The property sets that relations give to the element, in file order; a set given twice stands twice.
std::vector<AssignedSet> assignedSets(Workspace& work, step::Slot element);

/// The element's own properties in the host's order; a set given twice is listed once. Until visit returns false.
void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned,
                        const std::function<bool(const ListedProperty&)>& visit);

/// The properties of the element's type object, those the element has itself included. Until visit returns false.
void forEachTypeProperty(Workspace& work, step::Slot element, const std::function<bool(const ListedProperty&)>& visit);

/// Own properties, then those inherited from the type object.
std::vector<Property> readProperties(Workspace& work, step::Slot element);

}  // namespace model::ifc
