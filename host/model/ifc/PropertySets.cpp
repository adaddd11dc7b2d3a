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
    set.setName = putText(argument(setInstance, cls, Field::Name), set, {});
    if (!step::splitAggregate(argument(setInstance, cls, Field::HasProperties), members)) return set;
    set.rows.reserve(members.size());
    for (const step::Value& member : members) {
        const step::Slot property = file.find(step::referenceId(member));
        if (property != step::NoSlot) addRow(property, set);
    }
    set.texts.shrink_to_fit();
    set.textsWhenRead = set.texts.size();
    return set;
}

void PropertySets::addRow(step::Slot property, DecodedSet& set) {
    DecodedSet::Row row;
    if (readRow(property, set, row)) set.rows.push_back(row);
}

/// @param row  As it was read before; its texts are overwritten where the new ones are no longer.
bool PropertySets::readRow(step::Slot property, DecodedSet& set, DecodedSet::Row& row) {
    const Class& cls = classes.of(property);
    if (cls.role != Role::SimpleProperty || !file.read(property, propertyInstance)) return false;
    row.slot = property;
    row.kind = cls.propertyKind;
    row.name = putText(argument(propertyInstance, cls, Field::Name), set, row.name);
    if (cls.propertyKind != PropertyKind::Single) return true;
    const NominalValue value = readNominalValue(argument(propertyInstance, cls, Field::NominalValue), schema);
    row.primitive = value.primitive;
    row.integer = value.integer;
    row.real = value.real;
    row.boolean = value.boolean;
    row.type = value.typeKnown ? value.type : *unknownTypes.emplace(value.type).first;
    row.string = value.primitive == Primitive::String ? putText(value.string, set, row.string) : DecodedSet::Part{};
    return true;
}

DecodedSet::Part PropertySets::putText(step::Value string, DecodedSet& set, DecodedSet::Part old) {
    if (string.kind != step::ValueKind::String) return {};
    step::decodeString(string.text, decoded);
    const auto length = static_cast<std::uint32_t>(decoded.size());
    if (length <= old.length) {
        set.texts.replace(old.begin, length, decoded);
        return {old.begin, length};
    }
    const auto begin = static_cast<std::uint32_t>(set.texts.size());
    set.texts += decoded;
    return {begin, length};
}

void PropertySets::append(step::Slot set, step::Slot property) {
    const auto found = known.find(set);
    if (found == known.end()) return;
    knownBytes -= found->second.bytes();
    addRow(property, found->second);
    knownBytes += found->second.bytes();
}

void PropertySets::beforeChange(step::Slot slot) {
    if (known.empty() && knownOverriding.empty()) return;
    const Role role = classes.of(slot).role;
    if (role == Role::PropertySet) dropSet(slot);
    if (role == Role::SimpleProperty) dropOverriding(slot);
}

void PropertySets::afterChange(step::Slot slot, References& references) {
    beforeChange(slot);
    if (known.empty() || classes.of(slot).role != Role::SimpleProperty) return;
    references.forEachUse(slot, [&](const Use& use) {
        readAgain(use.user, slot);
        return true;
    });
}

/// One property of a set that is known: an update file changes one after the other of a set of many.
void PropertySets::readAgain(step::Slot slot, step::Slot property) {
    const auto found = known.find(slot);
    if (found == known.end()) return;
    DecodedSet& set = found->second;
    knownBytes -= set.bytes();
    const bool read = std::all_of(set.rows.begin(), set.rows.end(), [&](DecodedSet::Row& row) {
        return row.slot != property || readRow(property, set, row);
    });
    knownBytes += set.bytes();
    // Texts that grew leave their old places unused.
    if (!read || set.texts.size() > 2 * set.textsWhenRead + 1000) dropSet(slot);
}

}  // namespace model::ifc
