#include "model/ifc/PropertySets.hpp"

#include "model/ifc/PropertyValues.hpp"

namespace model::ifc {

std::u16string stringArgument(const step::Instance& instance, const Class& cls, Field field) {
    std::u16string text;
    const step::Value value = argument(instance, cls, field);
    if (value.kind == step::ValueKind::String) step::decodeString(value.text, text);
    return text;
}

PropertySets::PropertySets(const step::StepFile& stepFile, Classes& knownClasses, const Schema& facts)
    : file(stepFile), classes(knownClasses), schema(facts) {}

std::shared_ptr<const DecodedSet> PropertySets::of(step::Slot set) {
    // Bounded, or reviewing a large model would keep a decoded copy of all of it in memory.
    constexpr std::size_t MostProperties = 50'000;
    const auto found = known.find(set);
    if (found != known.end()) return found->second;
    if (knownProperties > MostProperties) {
        known.clear();
        knownProperties = 0;
    }
    auto decoded = decode(set);
    knownProperties += decoded->properties.size() + 1;
    known.emplace(set, decoded);
    return decoded;
}

std::optional<Property> PropertySets::property(step::Slot slot, const std::u16string& setName) {
    const Class& cls = classes.of(slot);
    if (cls.role != Role::SimpleProperty || !file.read(slot, propertyInstance)) return std::nullopt;
    Property property;
    property.set = setName;
    property.name = stringArgument(propertyInstance, cls, Field::Name);
    property.kind = cls.propertyKind;
    if (cls.propertyKind == PropertyKind::Single) {
        property.value = readNominalValue(argument(propertyInstance, cls, Field::NominalValue), schema);
    }
    return property;
}

std::shared_ptr<const DecodedSet> PropertySets::decode(step::Slot set) {
    auto decoded = std::make_shared<DecodedSet>();
    const Class& cls = classes.of(set);
    if (cls.role != Role::PropertySet || !file.read(set, setInstance)) return decoded;
    decoded->name = stringArgument(setInstance, cls, Field::Name);
    if (!step::splitAggregate(argument(setInstance, cls, Field::HasProperties), members)) return decoded;
    decoded->properties.reserve(members.size());
    decoded->slots.reserve(members.size());
    for (const step::Value& member : members) {
        const step::Slot slot = file.find(step::referenceId(member));
        if (slot == step::NoSlot) continue;
        if (auto listed = property(slot, decoded->name)) {
            decoded->properties.push_back(std::move(*listed));
            decoded->slots.push_back(slot);
        }
    }
    return decoded;
}

void PropertySets::forget(step::Slot slot, References& references) {
    if (known.empty()) return;
    const auto drop = [&](step::Slot set) {
        const auto found = known.find(set);
        if (found == known.end()) return;
        knownProperties -= found->second->properties.size() + 1;
        known.erase(found);
    };
    const Role role = classes.of(slot).role;
    if (role == Role::PropertySet) drop(slot);
    if (role != Role::SimpleProperty) return;
    references.forEachUse(slot, [&](const Use& use) {
        drop(use.user);
        return true;
    });
}

}  // namespace model::ifc
