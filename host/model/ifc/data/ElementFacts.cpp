#include "model/ifc/data/ElementFacts.hpp"

#include "model/ifc/values/InstanceScan.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

bool isText(const FactValues& values, std::u16string_view text) {
    return values.front().kind == FactValue::Kind::Text && values.front().text == text;
}

bool isEmpty(const FactValues& values) {
    return values.front().kind == FactValue::Kind::None || isText(values, u"");
}

}  // namespace

ElementFacts::ElementFacts(Workspace& work) : work_(work) {}

FactValues ElementFacts::attributeOf(Slot instance, std::string_view name) {
    const Entity* entity = work_.classes.of(instance).entity;
    const int index = entity == nullptr ? -1 : entity->attributeIndex(name);
    step::Instance content;
    if (index < 0 || !work_.file.read(instance, content)) return noValue();
    const auto at = static_cast<std::size_t>(index);
    return at < content.arguments.size() ? attributeValues(content.arguments[at], entity->attributes()[at].base)
                                         : noValue();
}

FactValues ElementFacts::attribute(Element element, std::string_view name) {
    return name == "PredefinedType" ? predefinedType(element) : attributeOf(slot(element), name);
}

/// By the IFC schema the kind that an element's type gives goes before the element's own.
FactValues ElementFacts::predefinedType(Element element) {
    if (const Slot type = typeObject(element); type != step::NoSlot) {
        const FactValues& kind = kindOfType(type);
        if (!isEmpty(kind) && !isText(kind, u"NOTDEFINED")) return kind;
    }
    return kindOf(slot(element), "ObjectType");
}

/// A kind that is USERDEFINED is told in words, by IFC in another attribute.
FactValues ElementFacts::kindOf(Slot object, std::string_view ownWords) {
    FactValues kind = attributeOf(object, "PredefinedType");
    return isEmpty(kind) || isText(kind, u"USERDEFINED") ? attributeOf(object, ownWords) : kind;
}

const FactValues& ElementFacts::kindOfType(Slot type) {
    const auto [known, isNew] = typeKinds_.try_emplace(type);
    if (isNew) known->second = kindOf(type, "ElementType");
    return known->second;
}

// --- Places ---

Slot ElementFacts::related(Slot object, Role role, std::string_view relationClass) {
    Slot found = step::NoSlot;
    work_.forEachRelation(object, role, [&](Slot relation) {
        if (work_.classes.of(relation).entity->isA(relationClass)) {
            found = work_.forwardReferences.first(relation, Field::Relating);
        }
        return found == step::NoSlot;
    });
    return found;
}

Slot ElementFacts::aggregateOf(Slot object) {
    const auto [known, isNew] = aggregates_.try_emplace(object, step::NoSlot);
    if (isNew) known->second = related(object, Role::Decomposes, "IfcRelAggregates");
    return known->second;
}

Slot ElementFacts::parentOf(Slot object) {
    if (const Slot whole = aggregateOf(object); whole != step::NoSlot) return whole;
    if (const Slot host = related(object, Role::Decomposes, "IfcRelNests"); host != step::NoSlot) return host;
    if (const Slot opening = related(object, Role::Fills, "IfcRelFillsElement"); opening != step::NoSlot)
        return opening;
    if (const Slot voided = related(object, Role::Voids, "IfcRelVoidsElement"); voided != step::NoSlot) return voided;
    if (!adheresTo_) {
        adheresTo_.emplace(work_, "IfcRelAdheresToElement", "RelatedSurfaceFeatures", "RelatingElement");
    }
    return adheresTo_->find(object);
}

/// Up the parents to the first that is contained. All that were passed on the way get the same answer, and a circle
/// meets itself there.
Slot ElementFacts::containerOf(Slot object) {
    std::vector<Slot> passed;
    Slot container = step::NoSlot;
    for (Slot current = object; current != step::NoSlot && container == step::NoSlot; current = parentOf(current)) {
        const auto [known, isNew] = containers_.try_emplace(current, step::NoSlot);
        if (!isNew) {
            container = known->second;
            break;
        }
        passed.push_back(current);
        container = related(current, Role::Contains, "IfcRelContainedInSpatialStructure");
        if (container != step::NoSlot) break;
    }
    for (const Slot below : passed) containers_[below] = container;
    return container;
}

Slot ElementFacts::place(Element element) {
    const Slot container = containerOf(slot(element));
    return container != step::NoSlot ? container : outerPlace(slot(element));
}

Slot ElementFacts::outerPlace(Slot place) {
    const Slot outer = aggregateOf(place);
    if (outer == step::NoSlot) return outer;
    const Entity* entity = work_.classes.of(outer).entity;
    // The project is made up of its sites, but is no place where anything stands.
    return entity != nullptr && entity->isA("IfcProject") ? step::NoSlot : outer;
}

// --- Materials ---

std::vector<Slot> ElementFacts::references(Slot slot, std::string_view attribute) {
    std::vector<Slot> found;
    const Entity* entity = work_.classes.of(slot).entity;
    const std::uint64_t bit = entity == nullptr ? 0 : argumentBit(entity->attributeIndex(attribute));
    if (bit == 0) return found;
    forEachReference(work_.file.text(slot), bit, [&](unsigned, std::string_view token) {
        if (const Slot target = work_.file.find(tokenId(token)); target != step::NoSlot) found.push_back(target);
        return true;
    });
    return found;
}

/// Each element may have a usage of its own of what all share.
Slot ElementFacts::setOfUsage(Slot definition) {
    for (const std::string_view usage : {"ForLayerSet", "ForProfileSet"}) {
        const auto sets = references(definition, usage);
        if (!sets.empty()) definition = sets.front();
    }
    return definition;
}

std::vector<Slot> ElementFacts::readMaterials(Slot definition) {
    const Entity* entity = work_.classes.of(definition).entity;
    if (entity == nullptr) return {};
    if (entity->isA("IfcMaterial")) return {definition};
    std::vector<Slot> materials = references(definition, "Materials");
    for (const std::string_view parts : {"MaterialLayers", "MaterialProfiles", "MaterialConstituents"}) {
        for (const Slot part : references(definition, parts)) {
            const auto own = references(part, "Material");
            materials.insert(materials.end(), own.begin(), own.end());
        }
    }
    // A single layer given directly.
    if (materials.empty()) materials = references(definition, "Material");
    return materials;
}

const std::vector<Slot>& ElementFacts::materialsIn(Slot definition) {
    const auto [set, isNewDefinition] = materialSets_.try_emplace(definition, definition);
    if (isNewDefinition && definition != step::NoSlot) set->second = setOfUsage(definition);
    const auto [known, isNew] = materials_.try_emplace(set->second);
    if (isNew && set->second != step::NoSlot) known->second = readMaterials(set->second);
    return known->second;
}

Slot ElementFacts::materialDefinition(Element element) {
    if (!materialOf_) materialOf_.emplace(work_, "IfcRelAssociatesMaterial", "RelatedObjects", "RelatingMaterial");
    const Slot own = materialOf_->find(slot(element));
    return own != step::NoSlot ? own : materialOf_->find(typeObject(element));
}

const std::vector<Slot>& ElementFacts::materials(Element element) {
    return materialsIn(materialDefinition(element));
}

// --- Classifications ---

const ClassificationFact& ElementFacts::classification(Slot reference) {
    if (const auto known = classifications_.find(reference); known != classifications_.end()) return known->second;
    ClassificationFact fact{work_.classifications.endOf(reference), noValue(), attributeOf(reference, "Name")};
    // One attribute under two names: IFC2X3 calls it ItemReference.
    for (const std::string_view code : {"Identification", "ItemReference"}) {
        if (fact.code.front().kind == FactValue::Kind::None) fact.code = attributeOf(reference, code);
    }
    return classifications_.emplace(reference, std::move(fact)).first->second;
}

std::vector<const ClassificationFact*> ElementFacts::readClassifications(Slot object) {
    std::vector<const ClassificationFact*> facts;
    work_.forEachRelation(object, Role::AssociatesClassification, [&](Slot relation) {
        const Slot reference = work_.forwardReferences.first(relation, Field::Relating);
        if (reference != step::NoSlot) facts.push_back(&classification(reference));
        return true;
    });
    return facts;
}

std::vector<const ClassificationFact*> ElementFacts::ownClassifications(Element element) {
    return readClassifications(slot(element));
}

const std::vector<const ClassificationFact*>& ElementFacts::classificationsOfType(Slot type) {
    const auto [known, isNew] = typeClassifications_.try_emplace(type);
    if (isNew && type != step::NoSlot) known->second = readClassifications(type);
    return known->second;
}

}  // namespace model::ifc
