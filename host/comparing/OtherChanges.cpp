#include "comparing/OtherChanges.hpp"

#include "model/ifc/data/AttributeData.hpp"
#include "model/ifc/geometry/Placement.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace comparing {

namespace {

using model::Element;
using model::Point;
using model::ifc::Field;
using model::ifc::Role;
using model::ifc::Workspace;
using model::step::NoSlot;
using model::step::Slot;

/// Instances that are reached from an element's shape or place. An owner history is not, and every program that saves
/// a file writes another one.
bool mayShape(Workspace& work, Slot slot) {
    const model::ifc::Class& cls = work.classes.of(slot);
    return cls.role == Role::Other && !cls.rooted && !(cls.entity != nullptr && cls.entity->isA("IfcOwnerHistory"));
}

bool shapesAlike(Workspace& a, Workspace& b) {
    const auto count = static_cast<Slot>(a.file.slotCount());
    for (Slot slot = 0; slot < count; ++slot) {
        if (!mayShape(a, slot) || !a.file.present(slot)) continue;
        const Slot other = b.file.find(a.file.id(slot));
        if (other == NoSlot || a.file.text(slot) != b.file.text(other)) return false;
    }
    return true;
}

std::string nameOfObject(Workspace& work, Slot slot) {
    return slot == NoSlot ? std::string() : text::toUtf8(model::ifc::attributeText(work, slot, "Name"));
}

std::string classOf(Workspace& work, Slot slot) {
    const auto* entity = slot == NoSlot ? nullptr : work.classes.of(slot).entity;
    return entity == nullptr ? std::string() : std::string(entity->name());
}

/// The GlobalId; empty for NoSlot.
std::string_view idOf(Workspace& work, Slot slot) {
    return slot == NoSlot ? std::string_view() : model::ifc::leadingString(work.file.text(slot), 0);
}

std::optional<std::string> orNothing(Slot slot, std::string name) {
    return slot == NoSlot ? std::nullopt : std::optional(std::move(name));
}

/// Thousands of elements may share thousands of materials.
std::string materialsOf(Side& side, Element element) {
    constexpr std::size_t MostNamed = 20;
    const std::vector<Slot>& materials = side.facts.materials(element);
    std::string names;
    for (std::size_t i = 0; i < materials.size() && i < MostNamed; ++i)
        names.append(names.empty() ? "" : ", ").append(nameOfObject(side.work, materials[i]));
    if (materials.size() > MostNamed) names = text::message("{} and {} more", names, materials.size() - MostNamed);
    return names;
}

/// Differences that rounding makes where the same place is reached by another chain of placements; in the model's
/// length unit.
bool near(double a, double b) {
    constexpr double Absolute = 1e-6, Relative = 1e-12;
    return std::abs(a - b) <= Absolute + Relative * std::max(std::abs(a), std::abs(b));
}
bool near(const Point& a, const Point& b) {
    return near(a.x, b.x) && near(a.y, b.y) && near(a.z, b.z);
}

Change other(const char* kind, text::Phrase obstacle) {
    Change change;
    change.item = kind;
    change.obstacle = obstacle.text();
    return change;
}

Slot targetOf(Workspace& work, Slot slot, Field field) {
    const int index = work.classes.of(slot).attributeIndex(field);
    return index < 0 ? NoSlot : work.forwardReferences.first(slot, field);
}

}  // namespace

OtherChanges::OtherChanges(Side a, Side b)
    : a_(std::move(a)), b_(std::move(b)), shapesAlike_(shapesAlike(a_.work, b_.work)) {}

bool OtherChanges::sameTarget(Slot inA, Slot inB, Field field) {
    const Slot a = targetOf(a_.work, inA, field), b = targetOf(b_.work, inB, field);
    // Where all that shapes is the same to the byte, one id is one shape, and nothing has to be summed up.
    if (shapesAlike_ && a_.work.file.id(a) == b_.work.file.id(b)) return true;
    return a_.fingerprints.of(a) == b_.fingerprints.of(b);
}

bool OtherChanges::samePlacement(Slot inA, Slot inB) {
    if (sameTarget(inA, inB, Field::ObjectPlacement)) return true;
    const auto a = model::ifc::placementOf(a_.work, inA), b = model::ifc::placementOf(b_.work, inB);
    return a && b && near(a->origin, b->origin) && near(a->x, b->x) && near(a->y, b->y) && near(a->z, b->z);
}

bool OtherChanges::sameType(Slot typeA, Slot typeB) {
    const auto [known, isNew] = sameTypes_.try_emplace({typeA, typeB}, false);
    if (isNew) {
        known->second = nameOfObject(a_.work, typeA) == nameOfObject(b_.work, typeB) &&
                        classOf(a_.work, typeA) == classOf(b_.work, typeB);
    }
    return known->second;
}

std::vector<Change> OtherChanges::of(Element elementA, Element elementB) {
    const Slot inA = a_.facts.slot(elementA), inB = b_.facts.slot(elementB);
    std::vector<Change> changes;
    const auto add = [&](const char* kind, text::Phrase obstacle, std::optional<std::string> old,
                         std::optional<std::string> now) {
        changes.push_back(other(kind, obstacle));
        changes.back().old = std::move(old);
        changes.back().now = std::move(now);
    };
    if (classOf(a_.work, inA) != classOf(b_.work, inB))
        add("class", text::phrase("an update changes no class"), classOf(a_.work, inA), classOf(b_.work, inB));
    if (!samePlacement(inA, inB)) add("placement", text::phrase("an update moves nothing"), {}, {});
    if (!sameTarget(inA, inB, Field::Representation))
        add("geometry", text::phrase("an update changes no geometry"), {}, {});

    const Slot storeyA = a_.storeys.of(inA), storeyB = b_.storeys.of(inB);
    if (idOf(a_.work, storeyA) != idOf(b_.work, storeyB)) {
        add("storey", text::phrase("an update moves nothing to another storey"),
            orNothing(storeyA, nameOfObject(a_.work, storeyA)), orNothing(storeyB, nameOfObject(b_.work, storeyB)));
    }

    const Slot typeA = a_.work.typeObject(inA), typeB = b_.work.typeObject(inB);
    if (!sameType(typeA, typeB)) {
        add("type", text::phrase("an update gives no other type"), orNothing(typeA, nameOfObject(a_.work, typeA)),
            orNothing(typeB, nameOfObject(b_.work, typeB)));
    }

    const Slot materialA = a_.facts.materialDefinition(elementA), materialB = b_.facts.materialDefinition(elementB);
    if (!(a_.fingerprints.of(materialA) == b_.fingerprints.of(materialB))) {
        add("material", text::phrase("an update gives no other material"),
            orNothing(materialA, materialsOf(a_, elementA)), orNothing(materialB, materialsOf(b_, elementB)));
    }
    return changes;
}

}  // namespace comparing
