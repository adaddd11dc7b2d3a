#pragma once

#include "model/ifc/Classes.hpp"
#include "model/ifc/References.hpp"

#include <memory>
#include <unordered_map>
#include <vector>

namespace model::ifc {

/// An IfcPropertySet with its properties as the host lists them: complex ones are left out.
struct DecodedSet {
    std::u16string name;
    std::vector<Property> properties;
    std::vector<step::Slot> slots;  ///< Of the properties, one each.
};

/// Property sets, decoded once: the lines of an update file that concern one element stand together, and elements share
/// sets.
class PropertySets {
public:
    PropertySets(const step::StepFile& file, Classes& classes, const Schema& schema);

    std::shared_ptr<const DecodedSet> of(step::Slot set);
    /// One property that is not in a set (an overriding one). Nothing for a complex property or what is none.
    std::optional<Property> property(step::Slot slot, const std::u16string& setName);

    /// Of a change to the instance: drops what was decoded from it.
    void forget(step::Slot slot, References& references);

private:
    std::shared_ptr<const DecodedSet> decode(step::Slot set);

    const step::StepFile& file;
    Classes& classes;
    const Schema& schema;
    std::unordered_map<step::Slot, std::shared_ptr<const DecodedSet>> known;
    std::size_t knownProperties = 0;
    step::Instance setInstance, propertyInstance;  // kept to save allocations
    std::vector<step::Value> members;
};

/// The text of a string argument; empty for anything else.
std::u16string stringArgument(const step::Instance& instance, const Class& cls, Field field);

}  // namespace model::ifc
