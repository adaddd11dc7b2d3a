#include "model/ifc/geometry/ElementGeometry.hpp"

#include "model/ifc/geometry/Curves.hpp"
#include "model/ifc/values/InstanceScan.hpp"

namespace model::ifc {

namespace {

using step::Slot;

std::vector<Slot> chosenRepresentations(GeometryReader& reader, Slot shape) {
    std::vector<Slot> all, bodies;
    forEachReference(reader.text(shape), AllArguments, [&](unsigned, std::string_view token) {
        const Slot slot = reader.find(tokenId(token));
        if (!isOfClass(reader, slot, "IfcRepresentation")) return !reader.spent();
        all.push_back(slot);
        if (leadingString(reader.text(slot), 1) == "'Body'") bodies.push_back(slot);
        return !reader.spent();
    });
    return bodies.empty() ? all : bodies;
}

/// Windows of one kind each have a representation of their own, of one item, which places what is written once.
void followMapping(GeometryReader& reader, ElementGeometry& geometry) {
    step::Instance representation;
    if (geometry.representations.size() != 1 || !reader.read(geometry.representations[0], representation)) return;
    const std::vector<Slot> items = targetsOf(reader, representation, 3);
    if (items.size() != 1) return;
    const auto mapping = mappingOf(reader, items[0]);
    if (!mapping || !isOfClass(reader, mapping->representation, "IfcRepresentation")) return;
    geometry.source = mapping->representation;
    geometry.representations = {mapping->representation};
    geometry.frame = geometry.frame.toOuter(mapping->frame);
}

}  // namespace

std::optional<ElementGeometry> geometryOf(GeometryReader& reader, Slot element) {
    step::Instance instance;
    if (!reader.read(element, instance)) return std::nullopt;
    const Class& cls = reader.classOf(element);
    const Slot shape = reader.find(step::referenceId(argument(instance, cls, Field::Representation)));
    const bool placed = argument(instance, cls, Field::ObjectPlacement).kind != step::ValueKind::Unset;
    const auto frame = placed ? placementOf(reader, element) : std::optional(Frame{});
    if (!frame || shape == step::NoSlot) return std::nullopt;
    ElementGeometry geometry{shape, chosenRepresentations(reader, shape), *frame};
    followMapping(reader, geometry);
    return reader.spent() ? std::nullopt : std::optional(std::move(geometry));
}

std::optional<Mapping> mappingOf(GeometryReader& reader, Slot item) {
    step::Instance instance, map;
    if (!isOfClass(reader, item, "IfcMappedItem") || !reader.read(item, instance)) return std::nullopt;
    const Slot source = targetOf(reader, instance, 0);
    if (!isOfClass(reader, source, "IfcRepresentationMap") || !reader.read(source, map)) return std::nullopt;
    const Frame origin = readAxisPlacement(reader, targetOf(reader, map, 0)).value_or(Frame{});
    const Frame target = readTransformation(reader, targetOf(reader, instance, 1)).value_or(Frame{});
    return Mapping{targetOf(reader, map, 1), target.toOuter(inverseOf(origin))};
}

}  // namespace model::ifc
