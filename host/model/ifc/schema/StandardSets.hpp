#pragma once
// The property sets that come with each IFC schema: which properties they have, of which types, for which classes.

#include "model/ifc/schema/StandardSetTables.hpp"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace model::ifc {

struct StandardProperty {
    std::string_view name;
    PropertyKind kind;
    std::string_view type;  ///< "IfcLabel"; of a reference the class it refers to; empty where the standard has none.
};

/// One set, as a view of the tables: cheap to copy, valid for ever.
class StandardSet {
public:
    StandardSet(const StandardSetRows& tables, const StandardSetRow& row) : tables_(&tables), row_(&row) {}

    std::string_view name() const { return tables_->names[row_->name]; }
    std::size_t size() const { return row_->propertyCount; }
    StandardProperty property(std::size_t index) const;
    std::optional<StandardProperty> find(std::string_view propertyName) const;

    /// Whether it is for elements of the class, whatever their predefined type. A set for a type object's class is for
    /// the elements of that type as well: one for IfcDoorStyle or IfcWallType for every IfcDoor or IfcWall.
    bool isFor(const Entity& ifcClass) const;
    /// Leaves out what is for another predefined type only.
    /// @param predefinedType  An item of the class's enumeration, without points; empty: none is known.
    bool isFor(const Entity& ifcClass, std::string_view predefinedType) const;

private:
    const StandardSetRows* tables_;
    const StandardSetRow* row_;
};

class StandardSets {
public:
    static const StandardSets& of(SchemaVersion version);

    std::size_t size() const { return rows_.sets.size(); }
    StandardSet at(std::size_t index) const { return {rows_, rows_.sets[index]}; }
    /// @param setName  with its "Pset_"; exact, as all names are.
    std::optional<StandardSet> find(std::string_view setName) const;
    std::optional<StandardProperty> find(std::string_view setName, std::string_view propertyName) const;
    /// Every set that has a property of that name.
    std::vector<StandardSet> having(std::string_view propertyName) const;

    /// A standard set's name that is written much like this one, but not the same. Empty where there is none, or where
    /// several come equally near.
    std::string_view nearestSet(std::string_view setName) const;
    /// The same for a property, in any of the sets that are for the class.
    std::string_view nearestProperty(std::string_view propertyName, const Entity& ifcClass) const;

private:
    explicit StandardSets(SchemaVersion version);

    const StandardSetRows& rows_;
    std::unordered_map<std::string_view, std::vector<std::uint16_t>> setsByProperty_;
};

}  // namespace model::ifc
