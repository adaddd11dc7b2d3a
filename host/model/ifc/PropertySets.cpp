#include "model/ifc/PropertySets.hpp"

#include <algorithm>

namespace model::ifc {

std::u16string stringArgument(const step::Instance& instance, const Class& cls, Field field) {
    std::u16string text;
    const step::Value value = argument(instance, cls, field);
    if (value.kind == step::ValueKind::String) step::decodeString(value.text, text);
    return text;
}

PropertyView DecodedSet::property(std::size_t index) const {
    const Row& row = rows[index];
    return {name(),        text(row.name), row.kind, false,       row.type,
            row.primitive, row.integer,    row.real, row.boolean, text(row.string)};
}

std::size_t DecodedSet::find(std::u16string_view sought) const {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) { return text(candidate.name) == sought; });
    return static_cast<std::size_t>(row - rows.begin());
}

PropertySets::PropertySets(const step::StepFile& stepFile, Classes& knownClasses, const Schema& facts)
    : file(stepFile),
      classes(knownClasses),
      schema(facts),
      // A part of the file's size: reviewing a large model must not keep a decoded copy of all of it.
      byteLimit((std::size_t{4} << 20U) + file.byteCount() / 8) {}

const DecodedSet& PropertySets::of(step::Slot set) {
    const auto [entry, isNew] = known.try_emplace(set);
    if (isNew) {
        entry->second = decode(set);
        knownBytes += entry->second.bytes();
    }
    return entry->second;
}

const DecodedSet& PropertySets::overriding(step::Slot property, step::Slot set) {
    const auto [entry, isNew] = knownOverriding.try_emplace({property, set});
    DecodedSet& single = entry->second;
    if (isNew) {
        single.texts = of(set).name();
        single.setName.length = static_cast<std::uint32_t>(single.texts.size());
        addRow(property, single);
        knownBytes += single.bytes();
    }
    return single;
}

void PropertySets::trim() {
    if (knownBytes <= byteLimit) return;
    known.clear();
    knownOverriding.clear();
    knownBytes = 0;
    ++trims;
}

void PropertySets::dropSet(step::Slot set) {
    const auto found = known.find(set);
    if (found == known.end()) return;
    knownBytes -= found->second.bytes();
    known.erase(found);
}

void PropertySets::dropOverriding(step::Slot property) {
    const auto begin = knownOverriding.lower_bound({property, 0});
    auto end = begin;
    for (; end != knownOverriding.end() && end->first.first == property; ++end) knownBytes -= end->second.bytes();
    knownOverriding.erase(begin, end);
}

DecodedSet PropertySets::decode(step::Slot slot) {
    DecodedSet set;
    const Class& cls = classes.of(slot);
    if (cls.role != Role::PropertySet || !file.read(slot, setInstance)) return set;
    set.setName = addText(argument(setInstance, cls, Field::Name), set);
    if (!step::splitAggregate(argument(setInstance, cls, Field::HasProperties), members)) return set;
    set.rows.reserve(members.size());
    for (const step::Value& member : members) {
        const step::Slot property = file.find(step::referenceId(member));
        if (property != step::NoSlot) addRow(property, set);
    }
    set.texts.shrink_to_fit();
    return set;
}

void PropertySets::addRow(step::Slot property, DecodedSet& set) {
    const Class& cls = classes.of(property);
    if (cls.role != Role::SimpleProperty || !file.read(property, propertyInstance)) return;
    DecodedSet::Row row{property, {}, {}, cls.propertyKind, Primitive::String, false, {}, 0, 0};
    row.name = addText(argument(propertyInstance, cls, Field::Name), set);
    if (cls.propertyKind == PropertyKind::Single) {
        const NominalValue value = readNominalValue(argument(propertyInstance, cls, Field::NominalValue), schema);
        row.primitive = value.primitive;
        row.integer = value.integer;
        row.real = value.real;
        row.boolean = value.boolean;
        row.type = value.typeKnown ? value.type : *unknownTypes.emplace(value.type).first;
        if (value.primitive == Primitive::String) row.string = addText(value.string, set);
    }
    set.rows.push_back(row);
}

DecodedSet::Part PropertySets::addText(step::Value string, DecodedSet& set) {
    if (string.kind != step::ValueKind::String) return {};
    step::decodeString(string.text, decoded);
    const auto begin = static_cast<std::uint32_t>(set.texts.size());
    set.texts += decoded;
    return {begin, static_cast<std::uint32_t>(decoded.size())};
}

void PropertySets::append(step::Slot set, step::Slot property) {
    const auto found = known.find(set);
    if (found == known.end()) return;
    knownBytes -= found->second.bytes();
    addRow(property, found->second);
    knownBytes += found->second.bytes();
}

void PropertySets::forget(step::Slot slot, References& references) {
    if (known.empty() && knownOverriding.empty()) return;
    const Role role = classes.of(slot).role;
    if (role == Role::PropertySet) dropSet(slot);
    if (role != Role::SimpleProperty) return;
    dropOverriding(slot);
    references.forEachUse(slot, [&](const Use& use) {
        dropSet(use.user);
        return true;
    });
}

}  // namespace model::ifc
