#include "model/ifc/values/FactValue.hpp"

#include "model/ifc/values/PropertyValues.hpp"
#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "text/Unicode.hpp"

namespace model::ifc {

namespace {

using step::Value;
using step::ValueKind;
using Kind = FactValue::Kind;

FactValue other() {
    return {Kind::Other, 0, 0, {}};
}

FactValue textFact(std::u16string content) {
    return {Kind::Text, 0, 0, std::move(content)};
}

FactValue decoded(Value string) {
    std::u16string content;
    step::decodeString(string.text, content);
    return textFact(std::move(content));
}

/// The third value of a logical is neither true nor false, so that it can only be compared as a word.
FactValue truth(std::string_view item) {
    if (item == "T" || item == "F") return {Kind::Truth, item == "T" ? 1 : 0, 0, {}};
    return textFact(u"UNKNOWN");
}

/// A real without its point ("2") is against ISO 10303-21, and common: what the schema declares counts.
FactValue number(Value value, bool whole) {
    if (whole) {
        const auto integer = step::integerValue(value);
        return integer ? FactValue{Kind::Integer, *integer, 0, {}} : other();
    }
    const auto real = step::realValue(value);
    return real ? FactValue{Kind::Real, 0, *real, {}} : other();
}

bool isTruth(BaseType base) {
    return base == BaseType::Boolean || base == BaseType::Logical;
}

FactValue simpleValue(Value value, BaseType base) {
    switch (value.kind) {
        case ValueKind::Unset:
            return {};
        case ValueKind::String:
            return decoded(value);
        case ValueKind::Integer:
            return number(value, base != BaseType::Real && base != BaseType::Number);
        case ValueKind::Real:
            return number(value, false);
        case ValueKind::Enumeration: {
            const std::string_view item = step::enumerationItem(value);
            return isTruth(base) ? truth(item) : textFact(text::fromUtf8(item));
        }
        default:
            return other();
    }
}

FactValue propertyValue(Value value, const Schema& schema) {
    const NominalValue nominal = readNominalValue(value, schema);
    switch (nominal.primitive) {
        case Primitive::Integer:
            return {Kind::Integer, nominal.integer, 0, {}};
        case Primitive::Real:
            return {Kind::Real, 0, nominal.real, {}};
        case Primitive::Boolean:
            return {Kind::Truth, nominal.boolean ? 1 : 0, 0, {}};
        case Primitive::Logical:
            return nominal.integer == 1 ? textFact(u"UNKNOWN")
                                        : FactValue{Kind::Truth, nominal.integer == 2 ? 1 : 0, 0, {}};
        case Primitive::String:
            return nominal.string.kind == ValueKind::String ? decoded(nominal.string) : FactValue{};
        case Primitive::Other:
            break;
    }
    return other();
}

template <class Read>
FactValues listOr(Value argument, const Read& read) {
    if (argument.kind != ValueKind::Aggregate) return {read(argument)};
    std::vector<Value> elements;
    if (!step::splitAggregate(argument, elements)) return otherValue();
    FactValues values;
    for (const Value element : elements) values.push_back(read(element));
    // A list without elements is no value, so that =NULL finds it.
    return values.empty() ? noValue() : values;
}

}  // namespace

FactValues noValue() {
    return {FactValue{}};
}

FactValues otherValue() {
    return {other()};
}

FactValues textValue(std::u16string content) {
    return {textFact(std::move(content))};
}

FactValues attributeValues(Value argument, BaseType base) {
    return listOr(argument, [&](Value value) { return simpleValue(value, base); });
}

FactValues propertyValues(Value argument, const Schema& schema) {
    return listOr(argument, [&](Value value) { return propertyValue(value, schema); });
}

}  // namespace model::ifc
