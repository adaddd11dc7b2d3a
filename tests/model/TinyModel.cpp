#include "TinyModel.hpp"
#include "text/Guid.hpp"

#include "model/ifc/schema/Schema.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "support/InstanceText.hpp"
#include "text/Unicode.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using model::ifc::Schema;

std::string utf8(std::u16string_view text) {
    return text::toUtf8(text);
}

std::u16string utf16(std::string_view text) {
    return text::fromUtf8(text);
}

std::string ref(Id id) {
    return "#" + std::to_string(id);
}

std::string refs(const Ids& ids) {
    std::string list;
    for (const Id id : ids) list += (list.empty() ? "" : ",") + ref(id);
    return "(" + list + ")";
}

namespace {

model::Primitive primitiveOf(model::ifc::BaseType base) {
    switch (base) {
        case model::ifc::BaseType::Integer:
            return model::Primitive::Integer;
        case model::ifc::BaseType::Real:
        case model::ifc::BaseType::Number:
            return model::Primitive::Real;
        case model::ifc::BaseType::Boolean:
            return model::Primitive::Boolean;
        case model::ifc::BaseType::Logical:
            return model::Primitive::Logical;
        default:
            return model::Primitive::String;
    }
}

std::string quotedStep(const std::string& text) {
    return model::step::encodeString(utf16(text));
}

}  // namespace

TinyModel::TinyModel(std::string schemaName) : schema(std::move(schemaName)) {
    if (schema == "IFC2X3") ownerHistory_ = add("IfcOwnerHistory");
}

Id TinyModel::raw(const std::string& body) {
    instances_ += ref(++lastId_) + "=" + body + ";\n";
    return lastId_;
}

Id TinyModel::add(std::string_view ifcClass, const Values& values) {
    const auto& entity = testing_support::entityOf(schema, ifcClass);
    Values all;
    if (entity.attributeIndex("GlobalId") >= 0) all.emplace_back("GlobalId", "'" + globalIdText(++rootsMade_) + "'");
    if (entity.attributeIndex("OwnerHistory") >= 0 && ownerHistory_ != 0)
        all.emplace_back("OwnerHistory", ref(ownerHistory_));
    all.insert(all.end(), values.begin(), values.end());
    return raw(testing_support::instanceText(entity, all));
}

std::string TinyModel::globalIdText(unsigned number) {
    model::Guid guid{};
    for (std::size_t i = 0; i < 4; ++i) guid[15 - i] = static_cast<std::uint8_t>(number >> (8 * i));
    guid[0] = 0xC0;
    return text::toGlobalId(guid);
}

Id TinyModel::element(std::string_view ifcClass, const std::string& name, const Values& more) {
    Values values{{"Name", quotedStep(name)}};
    values.insert(values.end(), more.begin(), more.end());
    return add(ifcClass, values);
}

Id TinyModel::single(const std::string& name, const std::string& value) {
    return add("IfcPropertySingleValue", {{"Name", quotedStep(name)}, {"NominalValue", value}});
}

Id TinyModel::set(const std::string& name, const Ids& properties) {
    return add("IfcPropertySet", {{"Name", quotedStep(name)}, {"HasProperties", refs(properties)}});
}

Id TinyModel::give(const Ids& objects, Id set) {
    return add("IfcRelDefinesByProperties",
               {{"RelatedObjects", refs(objects)}, {"RelatingPropertyDefinition", ref(set)}});
}

Id TinyModel::giveSetOfSets(const Ids& objects, const Ids& sets) {
    return add("IfcRelDefinesByProperties",
               {{"RelatedObjects", refs(objects)},
                {"RelatingPropertyDefinition", "IFCPROPERTYSETDEFINITIONSET(" + refs(sets) + ")"}});
}

Id TinyModel::overrideProperties(const Ids& objects, Id set, const Ids& properties) {
    return add("IfcRelOverridesProperties", {{"RelatedObjects", refs(objects)},
                                             {"RelatingPropertyDefinition", ref(set)},
                                             {"OverridingProperties", refs(properties)}});
}

Id TinyModel::type(const Ids& objects, const Ids& sets) {
    const Id id = add("IfcWallType", {{"Name", "'Type'"}, {"HasPropertySets", sets.empty() ? "$" : refs(sets)}});
    add("IfcRelDefinesByType", {{"RelatedObjects", refs(objects)}, {"RelatingType", ref(id)}});
    return id;
}

Id TinyModel::classification(const std::string& name) {
    return add("IfcClassification", {{"Source", "'Publisher'"}, {"Edition", "'1'"}, {"Name", quotedStep(name)}});
}

Id TinyModel::classificationReference(const std::string& item, const std::string& name, Id source) {
    const std::string_view itemName = schema == "IFC2X3" ? "ItemReference" : "Identification";
    return add("IfcClassificationReference", {{itemName, quotedStep(item)},
                                              {"Name", quotedStep(name)},
                                              {"ReferencedSource", source == 0 ? "$" : ref(source)}});
}

Id TinyModel::classify(const Ids& objects, const std::string& label, Id reference) {
    return add("IfcRelAssociatesClassification", {{"Name", label.empty() ? "$" : quotedStep(label)},
                                                  {"RelatedObjects", refs(objects)},
                                                  {"RelatingClassification", ref(reference)}});
}

std::string TinyModel::text() const {
    return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
           "FILE_SCHEMA(('" +
           schema + "'));\nENDSEC;\nDATA;\n" + instances_ + "ENDSEC;\nEND-ISO-10303-21;\n";
}

Opened::Opened(std::string bytes) {
    auto opened = model::Model::fromBytes(std::move(bytes));
    if (!opened) throw std::invalid_argument(opened.error().message);
    model_ = std::move(*opened);
}

model::Element Opened::find(std::string_view name) {
    for (model::Element element = 0; element < model_->elementCount(); ++element) {
        if (utf8(model_->name(element)) == name) return element;
    }
    throw std::invalid_argument("no element " + std::string(name));
}

std::string Opened::attribute(model::Element element, std::string_view name) {
    const auto attributes = model_->attributes(element);
    for (const auto& attribute : *attributes) {
        if (attribute.name == name) return utf8(attribute.value);
    }
    return "(none)";
}

std::string Opened::property(model::Element element, std::string_view set, std::string_view name) {
    const auto properties = model_->properties(element);
    for (const auto& property : *properties) {
        if (utf8(property.set) != set || utf8(property.name) != name) continue;
        return valueText(property.value) + (property.inherited ? "^" : "");
    }
    return "(none)";
}

std::string Opened::classification(model::Element element, std::string_view label) {
    const auto references = model_->classifications(element);
    for (const auto& reference : *references) {
        if (utf8(reference.system) != label) continue;
        return utf8(reference.itemReference.value_or(u"$")) + "{" + utf8(reference.name.value_or(u"$")) + "}";
    }
    return "(none)";
}

model::Status Opened::setAttribute(model::Element element, std::string_view name, std::string_view value) {
    model::Status status;
    const auto ran = model_->command("set attribute", [&] {
        status = model_->setAttribute(element, name, utf16(value));
        return 0;
    });
    EXPECT_TRUE(ran);
    return status;
}

model::Property Opened::wantedProperty(model::Element element, std::string_view set, std::string_view name,
                                       std::string_view value, std::string_view newType) {
    const auto* type = Schema::of(*Schema::versionOf(model_->schemaName())).type(newType);
    if (type == nullptr) throw std::invalid_argument("no type " + std::string(newType));
    model::Property wanted;
    wanted.set = utf16(set);
    wanted.name = utf16(name);
    wanted.value = valueOf(type->name, primitiveOf(type->base), value);
    const auto properties = model_->properties(element);
    for (const auto& property : *properties) {
        if (property.set != wanted.set || property.name != wanted.name) continue;
        wanted = property;
        wanted.value = valueOf(property.value.type, property.value.primitive, value);
        break;
    }
    return wanted;
}

model::Status Opened::setProperty(model::Element element, std::string_view set, std::string_view name,
                                  std::string_view value, std::string_view newType) {
    const model::Property wanted = wantedProperty(element, set, name, value, newType);
    model::Status status;
    const auto ran = model_->command("set property", [&] {
        status = model_->setProperty(element, wanted);
        return 0;
    });
    EXPECT_TRUE(ran);
    return status;
}

model::Status Opened::setClassification(model::Element element, const model::ClassificationReference& reference) {
    model::Status status;
    const auto ran = model_->command("set classification", [&] {
        status = model_->setClassification(element, reference);
        return 0;
    });
    EXPECT_TRUE(ran);
    return status;
}

model::ClassificationReference Opened::wantedReference(model::Element element, std::string_view label,
                                                       std::string_view item, std::string_view name) {
    model::ClassificationReference wanted;
    const auto references = model_->classifications(element);
    for (const auto& reference : *references) {
        if (utf8(reference.system) != label) continue;
        wanted = reference;
        break;
    }
    wanted.system = utf16(label);
    wanted.itemReference = utf16(item);
    wanted.name = utf16(name);
    return wanted;
}

model::Status Opened::classify(model::Element element, std::string_view label, std::string_view item,
                               std::string_view name) {
    return setClassification(element, wantedReference(element, label, item, name));
}

std::string Opened::data(model::Element element) {
    std::string text;
    const auto attributes = model_->attributes(element);
    for (const auto& attribute : *attributes) {
        text += std::string(attribute.name) + "=" + utf8(attribute.value) + "\n";
    }
    const auto properties = model_->properties(element);
    for (const auto& property : *properties) {
        text += utf8(property.set) + "." + utf8(property.name) + "=" + valueText(property.value) + ":" +
                property.value.type + std::to_string(static_cast<int>(property.kind)) +
                (property.inherited ? "^" : "") + "\n";
    }
    const auto references = model_->classifications(element);
    for (const auto& r : *references) {
        text += utf8(r.system + u"|" + r.location.value_or(u"$") + u"|" + r.itemReference.value_or(u"$") + u"|" +
                     r.name.value_or(u"$") + u"|" + r.source + u"|" + r.edition + u"|" + r.classificationName) +
                "\n";
    }
    return text;
}

std::vector<std::string> Opened::snapshot() {
    std::vector<std::string> all;
    for (model::Element element = 0; element < model_->elementCount(); ++element) all.push_back(data(element));
    return all;
}

std::string valueText(const model::PropertyValue& value) {
    switch (value.primitive) {
        case model::Primitive::Integer:
            return std::to_string(value.integer);
        case model::Primitive::Real:
            return model::step::displayReal(value.real);
        case model::Primitive::Boolean:
            return value.boolean ? "true" : "false";
        case model::Primitive::Logical:
            return value.integer == 0 ? "false" : value.integer == 1 ? "unknown" : "true";
        case model::Primitive::String:
            return utf8(value.string);
        case model::Primitive::Other:
            break;
    }
    return "?";
}

model::PropertyValue valueOf(std::string_view type, model::Primitive primitive, std::string_view text) {
    model::PropertyValue value;
    value.type = type;
    value.primitive = primitive;
    value.integer = text == "true" ? 2 : text == "unknown" ? 1 : std::strtoll(std::string(text).c_str(), nullptr, 10);
    value.real = std::strtod(std::string(text).c_str(), nullptr);
    value.boolean = text == "true";
    if (primitive == model::Primitive::String) value.string = utf16(text);
    return value;
}
