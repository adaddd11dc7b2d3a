#pragma once
// Files in which thousands of walls share thousands of things. They are short, and take minutes to read for whoever
// reads what is shared anew for each wall.

#include "support/IfcText.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_support {

class CrowdText {
public:
    using Id = IfcText::Id;

    static constexpr unsigned Many = 12000;

    static std::string reference(Id id) { return "#" + std::to_string(id); }
    static std::string list(const std::vector<Id>& ids) {
        std::string text;
        for (const Id id : ids) text.append(text.empty() ? "(" : ",").append(reference(id));
        return text + ")";
    }

    explicit CrowdText(const std::string& name = "Wall") {
        for (unsigned i = 0; i < Many; ++i) walls_.push_back(ifc_.element("IfcWall", guidText(i + 1), name));
    }

    const std::vector<Id>& walls() const { return walls_; }
    Id add(std::string_view ifcClass, const IfcText::Values& values) { return ifc_.add(ifcClass, values); }
    /// With a GlobalId of its own.
    Id rooted(std::string_view ifcClass, IfcText::Values values) {
        values.emplace_back("GlobalId", stepText(globalId(guidText(1000000 + ++roots_))));
        return add(ifcClass, values);
    }
    /// Relates it to the walls, to all where none are named.
    void relate(std::string_view relation, std::string_view relating, Id what, const std::vector<Id>& walls = {}) {
        rooted(relation, {{relating, reference(what)}, {"RelatedObjects", list(walls.empty() ? walls_ : walls)}});
    }
    /// "P0", "P1", ...; the first with the value, the others with "v".
    Id propertySet(const std::string& first) {
        std::vector<Id> properties;
        for (unsigned i = 0; i < Many; ++i) {
            properties.push_back(
                add("IfcPropertySingleValue", {{"Name", stepText("P" + std::to_string(i))},
                                               {"NominalValue", "IFCLABEL('" + (i == 0 ? first : "v") + "')"}}));
        }
        return rooted("IfcPropertySet", {{"Name", "'Pset_Long'"}, {"HasProperties", list(properties)}});
    }
    void giveToAll(Id set) { relate("IfcRelDefinesByProperties", "RelatingPropertyDefinition", set); }
    Id type(const std::vector<Id>& sets) {
        IfcText::Values values{{"Name", "'Type'"}};
        if (!sets.empty()) values.emplace_back("HasPropertySets", list(sets));
        const Id type = rooted("IfcWallType", values);
        relate("IfcRelDefinesByType", "RelatingType", type);
        return type;
    }
    /// As many of the object, "S0", "S1", ...; the first of the code, the others of "c".
    void classify(Id object, const std::string& first) {
        for (unsigned i = 0; i < Many; ++i) {
            const Id code =
                add("IfcClassificationReference", {{"Identification", stepText(i == 0 ? first : std::string("c"))}});
            rooted("IfcRelAssociatesClassification", {{"Name", stepText("S" + std::to_string(i))},
                                                      {"RelatedObjects", list({object})},
                                                      {"RelatingClassification", reference(code)}});
        }
    }
    /// "M0", "M1", ... with the ending.
    std::vector<Id> materials(unsigned count, const std::string& ending) {
        std::vector<Id> materials;
        for (unsigned i = 0; i < count; ++i)
            materials.push_back(add("IfcMaterial", {{"Name", stepText("M" + std::to_string(i) + ending)}}));
        return materials;
    }

    std::string text() const { return ifc_.text(); }

private:
    IfcText ifc_{"IFC4"};
    std::vector<Id> walls_;
    unsigned roots_ = 0;
};

}  // namespace testing_support
