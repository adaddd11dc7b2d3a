#pragma once
// What the model needs to know of each keyword that a file uses, looked up in the schema once per keyword.

#include "model/base/Records.hpp"
#include "model/ifc/schema/ElementTypes.hpp"
#include "model/ifc/schema/Schema.hpp"
#include "model/step/StepFile.hpp"

#include <array>
#include <deque>

namespace model::ifc {

enum class Role : std::uint8_t {
    Other,
    Product,  ///< Instances with a valid GlobalId are elements.
    TypeObject,
    PropertySet,
    SimpleProperty,
    ComplexProperty,
    DefinesByProperties,
    OverridesProperties,  ///< IFC2X3 only.
    DefinesByType,
    AssociatesClassification,
    Contains,    ///< In a spatial structure.
    Decomposes,  ///< Aggregation and nesting.
    Voids,
    Fills,
    Classification,
    ClassificationReference,
};

/// Attributes by what they are for: their names and places differ between the schemas.
enum class Field : std::uint8_t {
    GlobalId,
    OwnerHistory,
    Name,
    HasProperties,
    HasPropertySets,
    NominalValue,
    Related,     ///< The many side of a relation.
    Relating,    ///< Its one side.
    Overriding,  ///< Properties of an IfcRelOverridesProperties.
    Location,
    ItemReference,
    ReferencedSource,
    Source,
    Edition,
    ObjectPlacement,
    Representation,
    Count
};

struct Class {
    const Entity* entity = nullptr;  ///< Null where the schema does not know the keyword.
    Role role = Role::Other;
    ElementType type{0, {}};                           ///< Of a product.
    PropertyKind propertyKind = PropertyKind::Single;  ///< Of a simple property.
    bool rooted = false;                               ///< Has a GlobalId.
    std::array<std::int8_t, static_cast<std::size_t>(Field::Count)> attributeIndexes{};

    int attributeIndex(Field field) const { return attributeIndexes[static_cast<std::size_t>(field)]; }
};

class Classes {
public:
    Classes(const step::StepFile& file, const Schema& schema);

    /// Stays where it is as long as the Classes live.
    const Class& of(step::Slot slot) { return ofKeyword(file_.keyword(slot)); }
    const Class& ofKeyword(step::KeywordCode code);

private:
    const step::StepFile& file_;
    const Schema& schema_;
    std::deque<Class> known_;  // by keyword code; a file gains keywords when instances are added
    Class complexInstance_;
};

/// The argument for a field; Unset where the class has none such or the instance gives fewer arguments.
step::Value argument(const step::Instance& instance, const Class& cls, Field field);

/// Whether the instance can be changed: no complex one, and none of its arguments malformed.
bool isWellFormed(const step::Instance& instance);

}  // namespace model::ifc
