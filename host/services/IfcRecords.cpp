#include "services/IfcRecords.hpp"

#include "text/Unicode.hpp"

#include <algorithm>
#include <optional>
#include <string>

namespace host {

namespace {

/// A name of the schema, which is ASCII: no decoding needed.
GS::UniString asciiText(std::string_view name) {
    constexpr std::size_t Longest = 64;
    if (name.size() > Longest) return GS::UniString(name.data(), static_cast<USize>(name.size()));
    char16_t widened[Longest];
    std::copy(name.begin(), name.end(), widened);
    return GS::UniString(widened, static_cast<USize>(name.size()));
}

std::u16string units(const GS::UniString& text) {
    return std::u16string(text.View());
}

API_IFCOptionalText toRecord(const std::optional<std::u16string>& text) {
    return text ? API_IFCOptionalText{GS::UniString(*text), true} : API_IFCOptionalText{};
}

std::optional<std::u16string> fromRecord(const API_IFCOptionalText& record) {
    return record.present ? std::optional(units(record.text)) : std::nullopt;
}

model::PropertyValue fromRecord(const API_IFCPropertyValue& record) {
    model::PropertyValue value;
    value.type = text::toUtf8(record.valueType.View());
    value.primitive = static_cast<model::Primitive>(record.primitiveType);
    value.integer = record.integerValue;
    value.real = record.realValue;
    value.boolean = (record.booleanValue & 1U) != 0;
    value.string = units(record.stringValue);
    return value;
}

// The conversions above and below are casts: both sides number alike.
template <class Side, class Other>
constexpr bool same(Side side, Other other) {
    return static_cast<int>(side) == static_cast<int>(other);
}
static_assert(same(model::PropertyKind::Single, API_IFCPropertySingleValueType) &&
              same(model::PropertyKind::List, API_IFCPropertyListValueType) &&
              same(model::PropertyKind::Bounded, API_IFCPropertyBoundedValueType) &&
              same(model::PropertyKind::Enumerated, API_IFCPropertyEnumeratedValueType) &&
              same(model::PropertyKind::Table, API_IFCPropertyTableValueType) &&
              same(model::PropertyKind::Reference, API_IFCPropertyReferenceValueType));
static_assert(same(model::Primitive::Integer, API_IFCIntegerType) && same(model::Primitive::Real, API_IFCRealType) &&
              same(model::Primitive::Boolean, API_IFCBooleanType) &&
              same(model::Primitive::Logical, API_IFCLogicalType) &&
              same(model::Primitive::String, API_IFCStringType) && same(model::Primitive::Other, API_IFCOtherType));

}  // namespace

API_IFCAttribute toRecord(const model::Attribute& attribute) {
    return {asciiText(attribute.name), GS::UniString(attribute.value)};
}

// One expression, so that every text is made in its place: this runs for each property of each line reviewed.
API_IFCProperty toRecord(const model::PropertyView& property) {
    return {{GS::UniString(property.set), GS::UniString(property.name), static_cast<Int32>(property.kind),
             property.inherited},
            {{asciiText(property.type), static_cast<Int32>(property.primitive), property.integer, property.real,
              static_cast<unsigned char>(property.boolean ? 1 : 0), GS::UniString(property.string)}}};
}

API_IFCClassificationReference toRecord(const model::ClassificationReference& reference) {
    return {GS::UniString(reference.system),
            toRecord(reference.location),
            toRecord(reference.name),
            toRecord(reference.itemReference),
            {GS::UniString(reference.source), GS::UniString(reference.edition),
             GS::UniString(reference.classificationName)}};
}

bool isKnown(const API_IFCProperty& record) {
    const Int32 kind = record.head.kind;
    const Int32 primitive = record.singleValue.nominalValue.primitiveType;
    return kind >= API_IFCPropertySingleValueType && kind <= API_IFCPropertyReferenceValueType &&
           primitive >= API_IFCIntegerType && primitive <= API_IFCOtherType;
}

model::Property fromRecord(const API_IFCProperty& record) {
    model::Property property;
    property.set = units(record.head.propertySetName);
    property.name = units(record.head.propertyName);
    property.kind = static_cast<model::PropertyKind>(record.head.kind);
    property.inherited = record.head.inherited;
    property.value = fromRecord(record.singleValue.nominalValue);
    return property;
}

model::ClassificationReference fromRecord(const API_IFCClassificationReference& record) {
    model::ClassificationReference reference;
    reference.system = units(record.systemLabel);
    reference.location = fromRecord(record.location);
    reference.name = fromRecord(record.name);
    reference.itemReference = fromRecord(record.itemReference);
    reference.source = units(record.referencedSource.source);
    reference.edition = units(record.referencedSource.edition);
    reference.classificationName = units(record.referencedSource.classificationName);
    return reference;
}

}  // namespace host
