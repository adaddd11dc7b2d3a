#include "model/ifc/schema/Classes.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

/// The names a field goes by; the first that an entity has counts.
std::span<const std::string_view> namesOf(Field field) {
    using Names = std::array<std::string_view, 7>;
    static constexpr auto Table = [] {
        std::array<Names, static_cast<std::size_t>(Field::Count)> table{};
        const auto put = [&](Field key, Names names) { table[static_cast<std::size_t>(key)] = names; };
        put(Field::GlobalId, {"GlobalId"});
        put(Field::OwnerHistory, {"OwnerHistory"});
        put(Field::Name, {"Name"});
        put(Field::HasProperties, {"HasProperties"});
        put(Field::HasPropertySets, {"HasPropertySets"});
        put(Field::NominalValue, {"NominalValue"});
        put(Field::Related, {"RelatedObjects", "RelatedElements", "RelatedOpeningElement", "RelatedBuildingElement"});
        put(Field::Relating,
            {"RelatingPropertyDefinition", "RelatingType", "RelatingClassification", "RelatingStructure",
             "RelatingObject", "RelatingBuildingElement", "RelatingOpeningElement"});
        put(Field::Overriding, {"OverridingProperties"});
        put(Field::Location, {"Location"});
        put(Field::ItemReference, {"ItemReference", "Identification"});
        put(Field::ReferencedSource, {"ReferencedSource"});
        put(Field::Source, {"Source"});
        put(Field::Edition, {"Edition"});
        put(Field::ObjectPlacement, {"ObjectPlacement"});
        put(Field::Representation, {"Representation"});
        return table;
    }();
    return Table[static_cast<std::size_t>(field)];
}

int attributeIndexOf(const Entity& entity, Field field) {
    for (const auto name : namesOf(field)) {
        if (const int index = name.empty() ? -1 : entity.attributeIndex(name); index >= 0) return index;
    }
    return -1;
}

struct RoleRow {
    std::string_view ifcClass;
    Role role;
};

// A subtype stands before its supertype.
constexpr std::array RoleRows = {
    RoleRow{"IfcProduct", Role::Product},
    RoleRow{"IfcTypeObject", Role::TypeObject},
    RoleRow{"IfcPropertySet", Role::PropertySet},
    RoleRow{"IfcComplexProperty", Role::ComplexProperty},
    RoleRow{"IfcSimpleProperty", Role::SimpleProperty},
    RoleRow{"IfcRelOverridesProperties", Role::OverridesProperties},
    RoleRow{"IfcRelDefinesByProperties", Role::DefinesByProperties},
    RoleRow{"IfcRelDefinesByType", Role::DefinesByType},
    RoleRow{"IfcRelAssociatesClassification", Role::AssociatesClassification},
    RoleRow{"IfcRelContainedInSpatialStructure", Role::Contains},
    RoleRow{"IfcRelAggregates", Role::Decomposes},
    RoleRow{"IfcRelNests", Role::Decomposes},
    RoleRow{"IfcRelVoidsElement", Role::Voids},
    RoleRow{"IfcRelFillsElement", Role::Fills},
    RoleRow{"IfcClassification", Role::Classification},
    RoleRow{"IfcClassificationReference", Role::ClassificationReference},
};

Role roleOf(const Entity& entity) {
    for (const RoleRow& row : RoleRows) {
        if (entity.isA(row.ifcClass)) return row.role;
    }
    return Role::Other;
}

PropertyKind propertyKindOf(const Entity& entity) {
    if (entity.isA("IfcPropertyListValue")) return PropertyKind::List;
    if (entity.isA("IfcPropertyBoundedValue")) return PropertyKind::Bounded;
    if (entity.isA("IfcPropertyEnumeratedValue")) return PropertyKind::Enumerated;
    if (entity.isA("IfcPropertyTableValue")) return PropertyKind::Table;
    if (entity.isA("IfcPropertyReferenceValue")) return PropertyKind::Reference;
    return PropertyKind::Single;
}

Class classOf(const Entity* entity) {
    Class cls;
    cls.entity = entity;
    cls.attributeIndexes.fill(-1);
    if (entity == nullptr) return cls;
    // Nothing that exists is an instance of an abstract class, but files say so: several classes of the release
    // candidates of IFC4X3 have become abstract since. Their attributes are known, so they are read like others. But a
    // property that is of none of the kinds has no value to be listed.
    cls.role = entity->abstract() && entity->isA("IfcSimpleProperty") ? Role::Other : roleOf(*entity);
    cls.rooted = entity->isA("IfcRoot");
    if (cls.role == Role::Product) cls.type = elementTypeOf(*entity);
    if (cls.role == Role::SimpleProperty) cls.propertyKind = propertyKindOf(*entity);
    for (std::size_t field = 0; field < cls.attributeIndexes.size(); ++field) {
        cls.attributeIndexes[field] = static_cast<std::int8_t>(attributeIndexOf(*entity, static_cast<Field>(field)));
    }
    return cls;
}

}  // namespace

Classes::Classes(const step::StepFile& stepFile, const Schema& facts)
    : file_(stepFile), schema_(facts), complexInstance_(classOf(nullptr)) {}

const Class& Classes::ofKeyword(step::KeywordCode code) {
    if (code == step::NoKeyword) return complexInstance_;
    while (known_.size() <= code) {
        const auto next = static_cast<step::KeywordCode>(known_.size());
        known_.push_back(classOf(schema_.entity(file_.keywordText(next))));
    }
    return known_[code];
}

step::Value argument(const step::Instance& instance, const Class& cls, Field field) {
    const int index = cls.attributeIndex(field);
    if (index < 0 || static_cast<std::size_t>(index) >= instance.arguments.size()) {
        return {step::ValueKind::Unset, {}};
    }
    return instance.arguments[static_cast<std::size_t>(index)];
}

bool isWellFormed(const step::Instance& instance) {
    return !instance.complex &&
           std::none_of(instance.arguments.begin(), instance.arguments.end(),
                        [](const step::Value& value) { return value.kind == step::ValueKind::Malformed; });
}

}  // namespace model::ifc
