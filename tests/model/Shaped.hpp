#pragma once

#include "Geometry.hpp"

/// The area of an outline: of all outer rings less the holes, which go the other way round.
double areaOf(const model::PlanOutline& outline);

/// A model of one element with this shape.
class Shaped {
public:
    explicit Shaped(const std::string& schema = "IFC4") : ifc(schema), g(ifc) {}

    void items(const Ids& ids, const std::string& elementClass = "IfcWall") {
        ifc.element(elementClass, "One", {{"Representation", g.shape(ids)}});
    }
    void item(Id id, const std::string& elementClass = "IfcWall") { items({id}, elementClass); }
    model::PlanOutline outline() const {
        Opened model(ifc.text());
        return model->outline(0);
    }

    TinyModel ifc;
    Geometry g;
};

using Corners = std::vector<model::Point>;

/// A face set of faces with these corners, each with its own.
Id faces(TinyModel& ifc, const std::vector<Corners>& rings);
/// The same of triangles, of three corners each.
Id triangles(TinyModel& ifc, const Corners& corners);
/// A ring around a circle from which a straight line leads over `step` others to the next corner.
Corners star(std::size_t corners, std::size_t step, double radius = 100);
