#pragma once

#include "model/ifc/geometry/GeometryReader.hpp"

#include <optional>

namespace model::ifc {

/// What the file's IfcProject says of units and directions. No edit changes these: read once.
class Project {
public:
    explicit Project(Workspace& work) : work_(work) {}

    /// The project's length unit in metres; nothing where there is none that is known.
    std::optional<double> metres();
    /// The same of areas, in square metres.
    std::optional<double> squareMetres();
    /// One of its own that a value names, in the SI unit without a prefix.
    std::optional<double> sizeOf(GeometryReader& reader, step::Slot unit, std::string_view unitType);
    /// A direction of length 1 in plan.
    std::optional<Point> trueNorth();

private:
    void read();
    static std::optional<double> sizeOf(GeometryReader& reader, step::Slot unit, std::string_view unitType, int depth);

    Workspace& work_;
    bool known_ = false;
    std::optional<double> metres_, squareMetres_;
    std::optional<Point> trueNorth_;
};

}  // namespace model::ifc
