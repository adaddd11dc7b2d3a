#pragma once

#include "TinyModel.hpp"

/// Short ways to write geometry.
class Geometry {
public:
    explicit Geometry(TinyModel& model) : ifc_(model) {}

    Id point(const std::string& coordinates) { return ifc_.add("IfcCartesianPoint", {{"Coordinates", coordinates}}); }
    Id direction(const std::string& ratios) { return ifc_.add("IfcDirection", {{"DirectionRatios", ratios}}); }
    /// Axis and reference direction "" for none.
    Id axes(const std::string& location, const std::string& axis = "", const std::string& refDirection = "") {
        Values values{{"Location", ref(point(location))}};
        if (!axis.empty()) values.emplace_back("Axis", ref(direction(axis)));
        if (!refDirection.empty()) values.emplace_back("RefDirection", ref(direction(refDirection)));
        return ifc_.add("IfcAxis2Placement3D", values);
    }
    Id placement(Id axes, Id relativeTo = 0) {
        return ifc_.add("IfcLocalPlacement", {{"PlacementRelTo", relativeTo == 0 ? "$" : ref(relativeTo)},
                                              {"RelativePlacement", ref(axes)}});
    }
    /// The value for "Representation".
    std::string shape(const Ids& items, const std::string& identifier = "Body") {
        return ref(
            ifc_.add("IfcProductDefinitionShape", {{"Representations", refs({representation(items, identifier)})}}));
    }
    Id representation(const Ids& items, const std::string& identifier = "Body") {
        return ifc_.add("IfcShapeRepresentation",
                        {{"RepresentationIdentifier", "'" + identifier + "'"}, {"Items", refs(items)}});
    }
    Id rectangle(const std::string& x, const std::string& y) {
        return ifc_.add("IfcRectangleProfileDef", {{"XDim", x}, {"YDim", y}});
    }
    Id extruded(Id profile, const std::string& depth, const std::string& along = "(0.,0.,1.)", Id position = 0) {
        return ifc_.add("IfcExtrudedAreaSolid", {{"SweptArea", ref(profile)},
                                                 {"Position", position == 0 ? "$" : ref(position)},
                                                 {"ExtrudedDirection", ref(direction(along))},
                                                 {"Depth", depth}});
    }
    Id polyline(const std::vector<std::string>& points) {
        Ids ids;
        for (const std::string& coordinates : points) ids.push_back(point(coordinates));
        return ifc_.add("IfcPolyline", {{"Points", refs(ids)}});
    }

private:
    TinyModel& ifc_;
};
