#include "updatefile/CurrentText.hpp"

#include "text/Unicode.hpp"

#include <fmt/format.h>

#include <optional>
#include <utility>

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

void takeAttribute(CurrentText& current, const model::Attribute& attribute) {
    current.source = Source::Attribute;
    current.text = attribute.value;
}

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

std::size_t length(const std::optional<std::u16string>& text) {
    return text ? text->size() : 0;
}

std::size_t bytesOf(const model::ClassificationReference& reference) {
    return sizeof(reference) + 2 * (reference.system.size() + length(reference.location) + length(reference.name) +
                                    length(reference.itemReference) + reference.source.size() +
                                    reference.edition.size() + reference.classificationName.size());
}

}  // namespace

CurrentText currentText(const ElementData& element, std::u16string_view itemName) {
    // As in the add-on: attributes come before properties, and these before classifications. Of several with the name
    // the add-on keeps the last one that it reads.
    CurrentText current;
    const std::string attributeName = text::toUtf8(itemName);
    for (const model::Attribute& attribute : element.attributes)
        if (attribute.name == attributeName) takeAttribute(current, attribute);
    if (current.source != Source::None) return current;
    for (const model::Property& property : element.properties)
        if (property.name == itemName) takeProperty(current, property);
    if (current.source != Source::None) return current;
    for (const model::ClassificationReference& reference : element.classifications)
        if (reference.system == itemName) takeClassification(current, reference);
    return current;
}

CurrentTexts::CurrentTexts(ElementData element) : element_(std::move(element)) {
    for (const model::Attribute& attribute : element_.attributes) {
        attributes_[attribute.name] = &attribute;
        bytes_ += sizeof(attribute) + 2 * attribute.value.size();
    }
    for (const model::Property& property : element_.properties) {
        NamedProperty& named = properties_[property.name];
        named = {&property, named.last != nullptr};
        bytes_ += sizeof(property) + 2 * (property.set.size() + property.name.size() + property.value.string.size());
    }
    for (const model::ClassificationReference& reference : element_.classifications) {
        classifications_[reference.system] = &reference;
        bytes_ += bytesOf(reference);
    }
}

CurrentText CurrentTexts::of(std::u16string_view itemName) const {
    CurrentText current;
    if (const auto found = attributes_.find(text::toUtf8(itemName)); found != attributes_.end()) {
        takeAttribute(current, *found->second);
    } else if (const auto named = properties_.find(itemName); named != properties_.end()) {
        takeProperty(current, *named->second.last);
        current.ambiguous = named->second.several;
    } else if (const auto reference = classifications_.find(itemName); reference != classifications_.end()) {
        takeClassification(current, *reference->second);
    }
    return current;
}

}  // namespace updatefile
