#include "comparing/Values.hpp"

#include "comparing/ListText.hpp"
#include "model/ifc/data/PropertyData.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"
#include "updatefile/Designation.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <utility>

namespace comparing {

namespace {

using model::Element;
using model::Model;
using text::toUtf8;

/// The shortest decimal that reads back, with a point: without one, an import would take it for an integer.
std::string realText(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::string text(digits.data(), end);
    if (text.find_first_of(".en") == std::string::npos) text += ".0";
    return text;
}

bool readsBack(const std::string& text, double number) {
    double read = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    return error == std::errc() && read == number;
}

Value attributeValue(const model::Attribute& attribute) {
    Value value;
    value.name.assign(attribute.name.begin(), attribute.name.end());
    value.shown = value.exact = toUtf8(attribute.value);
    return value;
}

Value classificationValue(const model::ClassificationReference& reference) {
    Value value;
    value.kind = ChangeKind::Classification;
    value.name = reference.system;
    value.shown = toUtf8(reference.itemReference.value_or(u""));
    if (const std::string title = toUtf8(reference.name.value_or(u"")); !title.empty())
        value.shown.append("{").append(title).append("}");
    value.exact = value.shown;
    return value;
}

/// Where the properties that are no single values stand, by set and name; the element's own before its type's.
class Places {
public:
    Places(const Model& model, Element element) : work_(model.workspace()), slot_(work_.elements.slot(element)) {}

    model::step::Slot find(std::u16string_view set, std::u16string_view name) {
        if (!read_) read();
        const auto found = places_.find({std::u16string(set), std::u16string(name)});
        return found == places_.end() ? model::step::NoSlot : found->second;
    }

private:
    void read() {
        read_ = true;
        const auto keep = [this](const model::PropertyView& property, const model::ifc::PropertyPlace& place) {
            if (property.kind != model::PropertyKind::Single)
                places_.try_emplace({std::u16string(property.set), std::u16string(property.name)}, place.property);
            return true;
        };
        model::ifc::forEachOwnProperty(work_, model::ifc::assignedSets(work_, slot_), keep);
        model::ifc::forEachTypeProperty(work_, slot_, keep);
    }

    model::ifc::Workspace& work_;
    model::step::Slot slot_;
    bool read_ = false;
    std::map<std::pair<std::u16string, std::u16string>, model::step::Slot> places_;
};

void readSingle(const model::PropertyValue& held, Value& value) {
    value.plain = held.primitive != model::Primitive::Other;
    value.shown = value.exact = toUtf8(updatefile::propertyText(held));
    if (held.primitive != model::Primitive::Real) return;
    value.exact = realText(held.real);
    value.rounded = !readsBack(value.shown, held.real);
}

Value propertyValue(const Model& model, const model::Property& property, Places& places) {
    Value value;
    value.kind = ChangeKind::Property;
    value.set = property.set;
    value.name = property.name;
    value.propertyKind = property.kind;
    if (property.kind != model::PropertyKind::Single) {
        value.plain = property.kind == model::PropertyKind::Enumerated;
        value.shown = value.exact = listText(model.workspace(), places.find(property.set, property.name));
        return value;
    }
    readSingle(property.value, value);
    return value;
}

/// Numbers those that are there several times.
std::vector<Value> counted(std::vector<Value> values) {
    std::map<std::pair<std::u16string, std::u16string>, unsigned> counts;
    for (Value& value : values) value.occurrence = counts[{value.set, value.name}]++;
    return values;
}

model::Result<std::vector<Value>> attributesOf(const Model& model, Element element) {
    const auto attributes = model.attributes(element);
    if (!attributes) return attributes.error();
    std::vector<Value> values;
    for (const model::Attribute& attribute : *attributes)
        if (attribute.name != "GlobalId") values.push_back(attributeValue(attribute));
    return values;
}

model::Result<std::vector<Value>> propertiesOf(const Model& model, Element element) {
    const auto properties = model.properties(element);
    if (!properties) return properties.error();
    std::vector<Value> values;
    Places places(model, element);
    for (const model::Property& property : *properties) values.push_back(propertyValue(model, property, places));
    return counted(std::move(values));
}

model::Result<std::vector<Value>> classificationsOf(const Model& model, Element element) {
    const auto classifications = model.classifications(element);
    if (!classifications) return classifications.error();
    std::vector<Value> values;
    for (const auto& reference : *classifications) values.push_back(classificationValue(reference));
    return counted(std::move(values));
}

}  // namespace

model::Result<std::vector<Value>> valuesOf(const Model& model, Element element, ChangeKind kind) {
    switch (kind) {
        case ChangeKind::Attribute:
            return attributesOf(model, element);
        case ChangeKind::Property:
            return propertiesOf(model, element);
        case ChangeKind::Classification:
            return classificationsOf(model, element);
        case ChangeKind::Other:
            break;
    }
    return std::vector<Value>();
}

std::string itemOf(const Value& value) {
    return value.kind == ChangeKind::Property ? updatefile::designationOf(value.set, value.name) : toUtf8(value.name);
}

}  // namespace comparing
