#pragma once
// IFC files for tests, written instance by instance: only what a test is about has to be said, the schema tables give
// every instance its right number of attributes.
//
//     IfcText ifc("IFC4");
//     auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
//     ifc.property(wall, "Pset_WallCommon", "FireRating", "IFCLABEL('60')");
//     host.openText(ifc.text());

#include "support/InstanceText.hpp"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_support {

/// A GUID in the 36-character upper-case form, another one for each number.
std::string guidText(unsigned number);
/// The GlobalId of a GUID in the 36-character form.
std::string globalId(std::string_view guid);
/// A text as a STEP string: in apostrophes, apostrophes and backslashes doubled. ASCII only; others are written by
/// the test itself, in the encoding that it is about.
std::string stepText(std::string_view text);

class IfcText {
public:
    using Id = std::uint64_t;
    using Values = AttributeValues;

    explicit IfcText(std::string schema = "IFC4");

    /// Any instance. @return its number.
    Id add(std::string_view ifcClass, const Values& values);

    /// A product with a GlobalId and a name. An empty name gives "$".
    Id element(std::string_view ifcClass, std::string_view guid, std::string_view name, const Values& more = {});
    /// A single value in a property set of the element's own. Properties of one element and set share one set.
    /// @param value  STEP text with its type, "IFCLABEL('60')"; "$" for none.
    void property(Id element, std::string_view set, std::string_view name, std::string_view value);
    /// Any property instance (a list, a bounded value...) in the same way.
    void addProperty(Id element, std::string_view set, Id property);
    /// A type object of the element, with single values in one set.
    Id type(Id element, std::string_view ifcClass, std::string_view set, const Values& singleValues);
    void classification(Id element, std::string_view systemLabel, std::string_view itemReference, std::string_view name,
                        std::string_view classificationName = "UniFormat");
    /// A local placement in the model's coordinates. @return the reference for "ObjectPlacement".
    std::string placementAt(double x, double y, double z);

    std::string text() const;

private:
    struct PropertySet {
        Id element;
        std::string name;
        Id id, relation;
        std::string guid, relationGuid;
        std::vector<Id> members;
    };

    std::string instance(std::string_view ifcClass, const Values& values) const;
    std::string newGuid();
    std::string ownerHistory();
    PropertySet& setOf(Id element, std::string_view name);
    Id singleValue(std::string_view name, std::string_view value);

    std::string schema_;
    unsigned guidsMade_ = 0;
    Id lastId_ = 0;
    Id history_ = 0;
    std::map<Id, std::string> instances_;
    /// Written by text(), when their members are known.
    std::deque<PropertySet> propertySets_;
};

}  // namespace testing_support
