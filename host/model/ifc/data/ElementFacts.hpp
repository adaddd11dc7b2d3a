#pragma once
// What an element is chosen by beside its own values: its type, the places it stands in, its materials, its codes.

#include "model/ifc/index/RelationIndex.hpp"
#include "model/ifc/values/FactValue.hpp"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace model::ifc {

/// What a classification reference says, a code or a title or both.
struct ClassificationFact {
    step::Slot system;  ///< The IfcClassification it belongs to; NoSlot where it tells none.
    FactValues code, title;
};

/// Made for one pass over the elements and valid until the next change of the model. What many elements share is
/// found out once.
class ElementFacts {
public:
    explicit ElementFacts(Workspace& work);

    step::Slot slot(Element element) const { return work_.elements.slot(element); }
    const Entity& entity(Element element) const { return *work_.classes.of(slot(element)).entity; }

    /// An attribute of any kind; none where the class has not got it. What says more about the kind of an element than
    /// the file's "USERDEFINED" stands in for PredefinedType, the type object's before the element's own.
    FactValues attribute(Element element, std::string_view name);

    /// NoSlot where it has none.
    step::Slot typeObject(Element element) { return work_.typeObject(slot(element)); }
    /// The storey or other container that the element, or the whole it is part of, stands in; without one the whole
    /// itself. NoSlot where there is neither.
    step::Slot place(Element element);
    /// The place that a place is part of, the project not counted; NoSlot at the outermost.
    step::Slot outerPlace(step::Slot place);
    /// Name and GlobalId of a rooted instance.
    FactValues name(step::Slot object) { return attributeOf(object, "Name"); }
    FactValues globalId(step::Slot object) { return attributeOf(object, "GlobalId"); }

    /// The IfcMaterials it is made of, those of layers, profiles and constituents; its type's where it has none itself.
    /// One and the same list for all elements that share it.
    const std::vector<step::Slot>& materials(Element element);
    /// The material, set or usage that says so; NoSlot where there is none.
    step::Slot materialDefinition(Element element);
    FactValues attributeOf(step::Slot instance, std::string_view name);

    /// Its own ones; those of one reference are one and the same.
    std::vector<const ClassificationFact*> ownClassifications(Element element);
    /// Those of a type object, once for all elements. An element has those of systems that it has none of itself.
    const std::vector<const ClassificationFact*>& classificationsOfType(step::Slot type);

private:
    step::Slot aggregateOf(step::Slot object);
    step::Slot parentOf(step::Slot object);
    step::Slot containerOf(step::Slot object);
    step::Slot related(step::Slot object, Role role, std::string_view relationClass);
    FactValues predefinedType(Element element);
    FactValues kindOf(step::Slot object, std::string_view ownWords);
    const FactValues& kindOfType(step::Slot type);
    step::Slot setOfUsage(step::Slot definition);
    std::vector<step::Slot> readMaterials(step::Slot definition);
    const std::vector<step::Slot>& materialsIn(step::Slot definition);
    std::vector<step::Slot> references(step::Slot slot, std::string_view attribute);
    std::vector<const ClassificationFact*> readClassifications(step::Slot object);
    const ClassificationFact& classification(step::Slot reference);

    Workspace& work_;
    std::optional<RelationIndex> materialOf_;
    std::optional<RelationIndex> adheresTo_;
    std::unordered_map<step::Slot, step::Slot> containers_;
    std::unordered_map<step::Slot, step::Slot> aggregates_;
    std::unordered_map<step::Slot, FactValues> typeKinds_;
    std::unordered_map<step::Slot, step::Slot> materialSets_;             // by material definition
    std::unordered_map<step::Slot, std::vector<step::Slot>> materials_;   // by definition that is no usage
    std::unordered_map<step::Slot, ClassificationFact> classifications_;  // by reference
    std::unordered_map<step::Slot, std::vector<const ClassificationFact*>> typeClassifications_;
};

}  // namespace model::ifc
