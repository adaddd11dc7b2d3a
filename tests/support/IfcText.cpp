#include "support/IfcText.hpp"
#include "text/Guid.hpp"

#include "Guid.hpp"
#include "model/Model.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace testing_support {

namespace {

using Id = IfcText::Id;

std::string reference(Id id) {
    return fmt::format("#{}", id);
}

std::string references(const std::vector<Id>& ids) {
    std::vector<std::string> list;
    for (Id id : ids) list.push_back(reference(id));
    return fmt::format("({})", fmt::join(list, ","));
}

std::string optionalText(std::string_view text) {
    return text.empty() ? "$" : stepText(text);
}

}  // namespace

std::string guidText(unsigned number) {
    return fmt::format("C0FFEE00-1234-4ABC-8DEF-0000{:08X}", number);
}

std::string globalId(std::string_view guid) {
    GS::Guid parsed;
    if (parsed.ConvertFromString(std::string(guid).c_str()) != NoError) {
        throw std::invalid_argument("no GUID: " + std::string(guid));
    }
    model::Guid bytes;
    std::copy(std::begin(parsed.bytes), std::end(parsed.bytes), bytes.begin());
    return text::toGlobalId(bytes);
}

std::string stepText(std::string_view text) {
    std::string result = "'";
    for (char c : text) {
        if (c == '\'' || c == '\\') result += c;
        result += c;
    }
    return result + "'";
}

IfcText::IfcText(std::string schemaName) : schema_(std::move(schemaName)) {}

std::string IfcText::instance(std::string_view ifcClass, const Values& values) const {
    return instanceText(entityOf(schema_, ifcClass), values);
}

Id IfcText::add(std::string_view ifcClass, const Values& values) {
    const Id id = ++lastId_;
    instances_[id] = instance(ifcClass, values);
    return id;
}

std::string IfcText::newGuid() {
    return stepText(globalId(fmt::format("0DDBA11E-0000-4000-8000-0000{:08X}", ++guidsMade_)));
}

std::string IfcText::ownerHistory() {
    if (history_ == 0) {
        const Id person = add("IfcPerson", {});
        const Id organization = add("IfcOrganization", {{"Name", "'Test'"}});
        const Id both = add("IfcPersonAndOrganization",
                            {{"ThePerson", reference(person)}, {"TheOrganization", reference(organization)}});
        const Id application = add("IfcApplication", {{"ApplicationDeveloper", reference(organization)},
                                                      {"Version", "'1'"},
                                                      {"ApplicationFullName", "'Test'"},
                                                      {"ApplicationIdentifier", "'test'"}});
        history_ = add("IfcOwnerHistory", {{"OwningUser", reference(both)},
                                           {"OwningApplication", reference(application)},
                                           {"ChangeAction", ".ADDED."},
                                           {"CreationDate", "0"}});
    }
    return reference(history_);
}

Id IfcText::element(std::string_view ifcClass, std::string_view guid, std::string_view name, const Values& more) {
    Values values{
        {"GlobalId", stepText(globalId(guid))}, {"OwnerHistory", ownerHistory()}, {"Name", optionalText(name)}};
    values.insert(values.end(), more.begin(), more.end());
    return add(ifcClass, values);
}

IfcText::PropertySet& IfcText::setOf(Id element, std::string_view name) {
    for (PropertySet& set : propertySets_) {
        if (set.element == element && set.name == name) return set;
    }
    ownerHistory();  // Before the numbers below: the history comes first in the file.
    const Id id = ++lastId_;
    const Id relation = ++lastId_;
    return propertySets_.emplace_back(PropertySet{element, std::string(name), id, relation, newGuid(), newGuid(), {}});
}

Id IfcText::singleValue(std::string_view name, std::string_view value) {
    return add("IfcPropertySingleValue", {{"Name", stepText(name)}, {"NominalValue", std::string(value)}});
}

void IfcText::addProperty(Id element, std::string_view set, Id property) {
    setOf(element, set).members.push_back(property);
}

void IfcText::property(Id element, std::string_view set, std::string_view name, std::string_view value) {
    addProperty(element, set, singleValue(name, value));
}

Id IfcText::type(Id element, std::string_view ifcClass, std::string_view set, const Values& singleValues) {
    std::vector<Id> members;
    for (const auto& [name, value] : singleValues) members.push_back(singleValue(name, value));
    const Id propertySet = add("IfcPropertySet", {{"GlobalId", newGuid()},
                                                  {"OwnerHistory", ownerHistory()},
                                                  {"Name", stepText(set)},
                                                  {"HasProperties", references(members)}});
    const Id typeObject = add(ifcClass, {{"GlobalId", newGuid()},
                                         {"OwnerHistory", ownerHistory()},
                                         {"Name", "'Type'"},
                                         {"HasPropertySets", references({propertySet})}});
    add("IfcRelDefinesByType", {{"GlobalId", newGuid()},
                                {"OwnerHistory", ownerHistory()},
                                {"RelatedObjects", references({element})},
                                {"RelatingType", reference(typeObject)}});
    return typeObject;
}

void IfcText::classification(Id element, std::string_view systemLabel, std::string_view itemReference,
                             std::string_view name, std::string_view classificationName) {
    const Id source =
        add("IfcClassification", {{"Source", "'Test'"}, {"Edition", "'1'"}, {"Name", stepText(classificationName)}});
    const std::string_view itemAttribute = schema_.starts_with("IFC2X3") ? "ItemReference" : "Identification";
    const Id entry = add("IfcClassificationReference", {{itemAttribute, optionalText(itemReference)},
                                                        {"Name", optionalText(name)},
                                                        {"ReferencedSource", reference(source)}});
    add("IfcRelAssociatesClassification", {{"GlobalId", newGuid()},
                                           {"OwnerHistory", ownerHistory()},
                                           {"Name", optionalText(systemLabel)},
                                           {"RelatedObjects", references({element})},
                                           {"RelatingClassification", reference(entry)}});
}

std::string IfcText::placementAt(double x, double y, double z) {
    const Id point = add("IfcCartesianPoint", {{"Coordinates", fmt::format("({:#},{:#},{:#})", x, y, z)}});
    const Id axes = add("IfcAxis2Placement3D", {{"Location", reference(point)}});
    return reference(add("IfcLocalPlacement", {{"RelativePlacement", reference(axes)}}));
}

std::string IfcText::text() const {
    std::map<Id, std::string> all = instances_;
    for (const PropertySet& set : propertySets_) {
        all[set.id] = instance("IfcPropertySet", {{"GlobalId", set.guid},
                                                  {"OwnerHistory", reference(history_)},
                                                  {"Name", stepText(set.name)},
                                                  {"HasProperties", references(set.members)}});
        all[set.relation] = instance("IfcRelDefinesByProperties", {{"GlobalId", set.relationGuid},
                                                                   {"OwnerHistory", reference(history_)},
                                                                   {"RelatedObjects", references({set.element})},
                                                                   {"RelatingPropertyDefinition", reference(set.id)}});
    }
    std::string result =
        "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('ViewDefinition [CoordinationView]'),'2;1');\n"
        "FILE_NAME('test.ifc','2024-01-01T00:00:00',(''),(''),'','','');\n";
    result += fmt::format("FILE_SCHEMA(('{}'));\nENDSEC;\nDATA;\n", schema_);
    for (const auto& [id, content] : all) result += fmt::format("#{}={};\n", id, content);
    return result + "ENDSEC;\nEND-ISO-10303-21;\n";
}

}  // namespace testing_support
