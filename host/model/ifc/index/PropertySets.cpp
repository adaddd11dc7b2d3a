#include "model/ifc/index/PropertySets.hpp"

#include "model/step/syntax/StringDecoder.hpp"

#include <algorithm>

namespace model::ifc {

std::u16string stringArgument(const step::Instance& instance, const Class& cls, Field field) {
    std::u16string text;
    const step::Value value = argument(instance, cls, field);
    if (value.kind == step::ValueKind::String) step::decodeString(value.text, text);
    return text;
}

PropertyView DecodedSet::property(std::size_t index) const {
    const Row& row = rows_[index];
    return {name(),        text(row.name), row.kind, false,       row.type,
            row.primitive, row.integer,    row.real, row.boolean, text(row.string)};
}

PropertySets::PropertySets(const step::StepFile& stepFile, Classes& knownClasses, const Schema& facts)
    : file_(stepFile),
      classes_(knownClasses),
      schema_(facts),
      // A part of the file's size: reviewing a large model must not keep a decoded copy of all of it.
      byteLimit_((std::size_t{4} << 20U) + file_.byteCount() / 8) {}

const DecodedSet& PropertySets::of(step::Slot set) {
    if (const auto found = known_.find(set); found != known_.end()) return found->second;
    const DecodedSet& decoded = known_.emplace(set, decode(set)).first->second;
    count(set, decoded);
    return decoded;
}

std::optional<std::size_t> PropertySets::find(step::Slot slot, std::u16string_view name) {
    const DecodedSet& set = of(slot);
    if (const SortedNames* names = sortedNames(slot, set)) {
        const auto first = names->indexes.lower_bound(name);
        if (first == names->indexes.end() || set.propertyName(*first) != name) return std::nullopt;
        return *first;
    }
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (set.propertyName(i) == name) return i;
    }
    return std::nullopt;
}

/// Null where the set is short, or was not walked through so often yet that sorting it would have cost no more.
const PropertySets::SortedNames* PropertySets::sortedNames(step::Slot slot, const DecodedSet& set) {
    constexpr std::size_t LongSet = 64, FewWalks = 32;
    if (set.size() < LongSet) return nullptr;
    SortedNames& names = sortedNames_[slot];
    if (!names.indexes.empty()) return &names;
    if (++names.walks <= FewWalks) return nullptr;
    std::set<std::uint32_t, ByName> indexes(ByName{&set});
    for (std::size_t i = 0; i < set.size(); ++i) indexes.insert(static_cast<std::uint32_t>(i));
    knownBytes_ -= bytesOf(slot, set);
    names.indexes.swap(indexes);
    count(slot, set);
    return &names;
}

/// Null where the names were not sorted.
PropertySets::SortedNames* PropertySets::knownOrder(step::Slot set) {
    const auto found = sortedNames_.find(set);
    return found == sortedNames_.end() || found->second.indexes.empty() ? nullptr : &found->second;
}

std::size_t PropertySets::bytesOf(step::Slot slot, const DecodedSet& set) const {
    constexpr std::size_t OfIndex = 48;
    const auto names = sortedNames_.find(slot);
    return set.bytes() + (names == sortedNames_.end() ? 0 : names->second.indexes.size() * OfIndex);
}

void PropertySets::count(step::Slot slot, const DecodedSet& set) {
    const std::size_t bytes = bytesOf(slot, set);
    knownBytes_ += bytes;
    largestSet_ = std::max(largestSet_, bytes);
}

const DecodedSet& PropertySets::overriding(step::Slot property) {
    if (const auto found = knownOverriding_.find(property); found != knownOverriding_.end()) return found->second;
    DecodedSet single;
    addRow(property, single);
    const DecodedSet& kept = knownOverriding_.emplace(property, std::move(single)).first->second;
    knownBytes_ += kept.bytes();
    return kept;
}

/// A set that alone is beyond the limit stays: one edit after the other of it would decode all of it anew.
void PropertySets::trim() {
    if (knownBytes_ > std::max(byteLimit_, 2 * largestSet_)) forgetAll();
}

void PropertySets::forgetAll() noexcept {
    known_.clear();
    sortedNames_.clear();
    knownOverriding_.clear();
    knownBytes_ = 0;
    largestSet_ = 0;
    ++trims_;
}

void PropertySets::dropSet(step::Slot set) {
    const auto found = known_.find(set);
    if (found == known_.end()) return;
    knownBytes_ -= bytesOf(set, found->second);
    sortedNames_.erase(set);
    known_.erase(found);
}

void PropertySets::dropOverriding(step::Slot property) {
    const auto found = knownOverriding_.find(property);
    if (found == knownOverriding_.end()) return;
    knownBytes_ -= found->second.bytes();
    knownOverriding_.erase(found);
}

DecodedSet PropertySets::decode(step::Slot slot) {
    DecodedSet set;
    const Class& cls = classes_.of(slot);
    if (cls.role != Role::PropertySet || !file_.read(slot, setInstance_)) return set;
    set.setName_ = putText(argument(setInstance_, cls, Field::Name), set, {});
    if (!step::splitAggregate(argument(setInstance_, cls, Field::HasProperties), members_)) return set;
    set.rows_.reserve(members_.size());
    // A set is no list: what it names twice it holds once.
    DistinctSlots properties;
    for (const step::Value& member : members_) {
        const step::Slot property = file_.find(step::referenceId(member));
        if (property != step::NoSlot && properties.add(property)) addRow(property, set);
    }
    set.texts_.shrink_to_fit();
    set.textsWhenRead_ = set.texts_.size();
    return set;
}

void PropertySets::addRow(step::Slot property, DecodedSet& set) {
    DecodedSet::Row row;
    if (readRow(property, set, row)) set.rows_.push_back(row);
}

/// @param row  As it was read before; its texts are overwritten where the new ones are no longer.
bool PropertySets::readRow(step::Slot property, DecodedSet& set, DecodedSet::Row& row) {
    const Class& cls = classes_.of(property);
    if (cls.role != Role::SimpleProperty || !file_.read(property, propertyInstance_)) return false;
    row.slot = property;
    row.kind = cls.propertyKind;
    row.name = putText(argument(propertyInstance_, cls, Field::Name), set, row.name);
    if (cls.propertyKind != PropertyKind::Single) return true;
    const NominalValue value = readNominalValue(argument(propertyInstance_, cls, Field::NominalValue), schema_);
    row.primitive = value.primitive;
    row.integer = value.integer;
    row.real = value.real;
    row.boolean = value.boolean;
    // A type's name that is not the schema's points into the file's text, which an edit may replace.
    row.type = value.typeKnown ? value.type : *unknownTypes_.emplace(value.type).first;
    row.string = value.primitive == Primitive::String ? putText(value.string, set, row.string) : DecodedSet::Part{};
    return true;
}

DecodedSet::Part PropertySets::putText(step::Value string, DecodedSet& set, DecodedSet::Part old) {
    if (string.kind != step::ValueKind::String) return {};
    step::decodeString(string.text, decoded_);
    const auto length = static_cast<std::uint32_t>(decoded_.size());
    if (length <= old.length) {
        set.texts_.replace(old.begin, length, decoded_);
        return {old.begin, length};
    }
    const auto begin = static_cast<std::uint32_t>(set.texts_.size());
    set.texts_ += decoded_;
    return {begin, length};
}

void PropertySets::append(step::Slot set, step::Slot property) {
    const auto found = known_.find(set);
    if (found == known_.end()) return;
    DecodedSet& decoded = found->second;
    const std::size_t before = decoded.size();
    knownBytes_ -= bytesOf(set, decoded);
    addRow(property, decoded);
    SortedNames* names = knownOrder(set);
    if (names != nullptr && decoded.size() > before) names->indexes.insert(static_cast<std::uint32_t>(before));
    count(set, decoded);
}

void PropertySets::replace(step::Slot set, step::Slot from, step::Slot to) {
    readAgain(set, from, to);
}

void PropertySets::beforeChange(step::Slot slot) {
    if (known_.empty() && knownOverriding_.empty()) return;
    const Role role = classes_.of(slot).role;
    if (role == Role::PropertySet) dropSet(slot);
    if (role == Role::SimpleProperty) dropOverriding(slot);
}

void PropertySets::afterChange(step::Slot slot, InverseReferences& inverseReferences) {
    beforeChange(slot);
    if (known_.empty() || classes_.of(slot).role != Role::SimpleProperty) return;
    inverseReferences.forEachUse(slot, [&](const Use& use) {
        readAgain(use.user, slot, slot);
        return true;
    });
}

/// One property of a set that is known, or what stands in its place now: an update file changes one after the other of
/// a set of many.
void PropertySets::readAgain(step::Slot slot, step::Slot property, step::Slot now) {
    const auto found = known_.find(slot);
    if (found == known_.end()) return;
    DecodedSet& set = found->second;
    SortedNames* names = knownOrder(slot);
    knownBytes_ -= bytesOf(slot, set);
    bool read = true;
    for (std::size_t i = 0; i < set.size() && read; ++i) {
        read = set.slot(i) != property || readRowAgain(now, set, i, names);
    }
    count(slot, set);
    // Texts that grew leave their old places unused.
    if (!read || set.texts_.size() > 2 * set.textsWhenRead_ + 1000) dropSet(slot);
}

/// It leaves the order of the names meanwhile: it may get another one.
bool PropertySets::readRowAgain(step::Slot property, DecodedSet& set, std::size_t index, SortedNames* names) {
    if (names == nullptr) return readRow(property, set, set.rows_[index]);
    auto place = names->indexes.extract(static_cast<std::uint32_t>(index));
    const bool read = readRow(property, set, set.rows_[index]);
    names->indexes.insert(std::move(place));
    return read;
}

}  // namespace model::ifc
