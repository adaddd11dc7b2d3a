#include "model/ifc/Links.hpp"

#include "model/ifc/InstanceScan.hpp"

namespace model::ifc {

namespace {

std::uint64_t keyOf(step::Slot slot, Field field) {
    return std::uint64_t{slot} << 8U | static_cast<std::uint64_t>(field);
}

}  // namespace

Links::Links(const step::StepFile& stepFile, Classes& knownClasses) : file(stepFile), classes(knownClasses) {}

const std::vector<step::Slot>& Links::of(step::Slot slot, Field field) {
    const auto [entry, isNew] = known.try_emplace(keyOf(slot, field));
    std::vector<step::Slot>& slots = entry->second;
    if (!isNew) return slots;
    const std::uint64_t arguments = argumentBit(classes.of(slot).place(field));
    if (arguments == 0) return slots;
    forEachReference(file.text(slot), arguments, [&](unsigned, std::string_view token) {
        if (const step::Slot target = file.find(tokenId(token)); target != step::NoSlot) slots.push_back(target);
        return true;
    });
    return slots;
}

void Links::forget(step::Slot slot) {
    for (const Field field : {Field::Relating, Field::Overriding, Field::HasPropertySets, Field::HasProperties}) {
        known.erase(keyOf(slot, field));
    }
}

void Links::trim() {
    constexpr std::size_t Most = 100'000;
    if (known.size() > Most) known.clear();
}

}  // namespace model::ifc
