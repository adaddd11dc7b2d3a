#include "updatefile/CurrentText.hpp"

#include "text/Unicode.hpp"

#include <fmt/format.h>

namespace updatefile {
namespace {

using Source = CurrentText::Source;

std::u16string widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

std::u16string logicalText(std::int64_t code) {
    switch (code) {
        case 0:
            return u"false";
        case 1:
            return u"unknown";
        case 2:
            return u"true";
        default:
            return {};
    }
}

}  // namespace

std::u16string propertyText(const model::PropertyValue& value) {
    switch (value.primitive) {
        case model::Primitive::Integer:
            return widen(std::to_string(value.integer));
        case model::Primitive::Real:
            return widen(fmt::format("{:f}", value.real));
        case model::Primitive::Boolean:
            return value.boolean ? u"true" : u"false";
        case model::Primitive::Logical:
            return logicalText(value.integer);
        case model::Primitive::String:
            return value.string;
        case model::Primitive::Other:
            break;
    }
    return {};
}

model::PropertyValue valueOf(const model::PropertyView& property) {
    return {std::string(property.type),     property.primitive, property.integer, property.real, property.boolean,
            std::u16string(property.string)};
}

namespace {

void takeProperty(CurrentText& current, const model::Property& property) {
    current.ambiguous = current.source == Source::Property;
    current.source = Source::Property;
    current.plain = property.kind == model::PropertyKind::Single && property.value.primitive != model::Primitive::Other;
    current.text = current.plain ? propertyText(property.value) : std::u16string();
}

void takeClassification(CurrentText& current, const model::ClassificationReference& reference) {
    current.source = Source::Classification;
    current.text = reference.itemReference.value_or(u"");
    current.classificationName = reference.name.value_or(u"");
}

}  // namespace

CurrentText currentText(const ElementData& element, std::u16string_view itemName) {
    // As in the add-on: attributes come before properties, and these before classifications. Of several with the name
    // the add-on keeps the last one that it reads.
    CurrentText current;
    const std::string attributeName = text::toUtf8(itemName);
    for (const model::Attribute& attribute : element.attributes) {
        if (attribute.name != attributeName) continue;
        current.source = Source::Attribute;
        current.text = attribute.value;
    }
    if (current.source != Source::None) return current;
    for (const model::Property& property : element.properties)
        if (property.name == itemName) takeProperty(current, property);
    if (current.source != Source::None) return current;
    for (const model::ClassificationReference& reference : element.classifications)
        if (reference.system == itemName) takeClassification(current, reference);
    return current;
}

}  // namespace updatefile
