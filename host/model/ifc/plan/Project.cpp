#include "model/ifc/plan/Project.hpp"

#include "model/ifc/geometry/Curves.hpp"
#include "model/ifc/geometry/Placement.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace model::ifc {

namespace {

using step::Slot;

/// Units are named by other units; a circle of them ends here.
constexpr int DeepestUnit = 8;
/// A list of units or contexts of more is none that a program wrote.
constexpr std::size_t MostListed = 1000;

constexpr std::array<std::pair<std::string_view, double>, 16> Prefixes{{{"EXA", 1e18},
                                                                        {"PETA", 1e15},
                                                                        {"TERA", 1e12},
                                                                        {"GIGA", 1e9},
                                                                        {"MEGA", 1e6},
                                                                        {"KILO", 1e3},
                                                                        {"HECTO", 1e2},
                                                                        {"DECA", 1e1},
                                                                        {"DECI", 1e-1},
                                                                        {"CENTI", 1e-2},
                                                                        {"MILLI", 1e-3},
                                                                        {"MICRO", 1e-6},
                                                                        {"NANO", 1e-9},
                                                                        {"PICO", 1e-12},
                                                                        {"FEMTO", 1e-15},
                                                                        {"ATTO", 1e-18}}};

double prefixOf(const step::Value& value) {
    const auto found = std::find_if(Prefixes.begin(), Prefixes.end(),
                                    [&](const auto& known) { return known.first == step::enumerationItem(value); });
    return found == Prefixes.end() ? 1 : found->second;
}

bool isUsable(double size) {
    return std::isfinite(size) && size > 1e-12 && size < 1e12;
}

Slot findProject(Workspace& work) {
    const auto count = static_cast<Slot>(work.file.slotCount());
    for (Slot slot = 0; slot < count; ++slot) {
        const Class& cls = work.classes.of(slot);
        if (cls.rooted && cls.entity->name() == "IfcProject") return slot;
    }
    return step::NoSlot;
}

}  // namespace

std::optional<double> Project::metres() {
    read();
    return metres_;
}

std::optional<double> Project::squareMetres() {
    read();
    return squareMetres_;
}

std::optional<Point> Project::trueNorth() {
    read();
    return trueNorth_;
}

void Project::read() {
    if (std::exchange(known_, true)) return;
    GeometryReader reader(work_);
    step::Instance project, units;
    const Slot slot = findProject(work_);
    if (slot == step::NoSlot || !reader.read(slot, project)) return;
    const auto listed = [&](const step::Instance& instance, Slot of, std::string_view name) {
        const Entity* entity = work_.classes.of(of).entity;
        const int index = entity == nullptr ? -1 : entity->attributeIndex(name);
        auto slots = index < 0 ? std::vector<Slot>() : targetsOf(reader, instance, static_cast<std::size_t>(index));
        slots.resize(std::min(slots.size(), MostListed));
        return slots;
    };
    const Slot assignment = reader.find(step::referenceId(argumentNamed(reader, slot, project, "UnitsInContext")));
    if (isOfClass(reader, assignment, "IfcUnitAssignment") && reader.read(assignment, units)) {
        for (const Slot unit : listed(units, assignment, "Units")) {
            if (!metres_) metres_ = sizeOf(reader, unit, "LENGTHUNIT");
            if (!squareMetres_) squareMetres_ = sizeOf(reader, unit, "AREAUNIT");
        }
    }
    for (const Slot context : listed(project, slot, "RepresentationContexts")) {
        step::Instance instance;
        if (!isOfClass(reader, context, "IfcGeometricRepresentationContext") || !reader.read(context, instance))
            continue;
        const auto north = readDirection(
            reader, reader.find(step::referenceId(argumentNamed(reader, context, instance, "TrueNorth"))));
        const double length = north ? std::hypot(north->x, north->y) : 0;
        if (!(length > 1e-6)) continue;
        trueNorth_ = Point{north->x / length, north->y / length, 0};
        return;
    }
}

std::optional<double> Project::sizeOf(GeometryReader& reader, Slot unit, std::string_view unitType) {
    return sizeOf(reader, unit, unitType, 0);
}

std::optional<double> Project::sizeOf(GeometryReader& reader, Slot unit, std::string_view unitType, int depth) {
    step::Instance instance, measure;
    if (depth == DeepestUnit || !isOfClass(reader, unit, "IfcNamedUnit") || !reader.read(unit, instance) ||
        step::enumerationItem(argumentNamed(reader, unit, instance, "UnitType")) != unitType) {
        return std::nullopt;
    }
    if (isOfClass(reader, unit, "IfcSIUnit")) {
        const double prefix = prefixOf(argumentNamed(reader, unit, instance, "Prefix"));
        // A square millimetre is a millimetre squared.
        const double size = unitType == "AREAUNIT" ? prefix * prefix : prefix;
        return isUsable(size) ? std::optional(size) : std::nullopt;
    }
    const Slot factor = reader.find(step::referenceId(argumentNamed(reader, unit, instance, "ConversionFactor")));
    if (!isOfClass(reader, factor, "IfcMeasureWithUnit") || !reader.read(factor, measure)) return std::nullopt;
    std::string_view keyword;
    step::Value inner;
    if (measure.arguments.empty() || !step::splitTyped(measure.arguments[0], keyword, inner)) return std::nullopt;
    const auto base = sizeOf(reader, targetOf(reader, measure, 1), unitType, depth + 1);
    const auto count = step::realValue(inner);
    if (!base || !count || !isUsable(*base * *count)) return std::nullopt;
    return *base * *count;
}

}  // namespace model::ifc
