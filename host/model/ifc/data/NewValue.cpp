#include "model/ifc/data/NewValue.hpp"

#include "model/ifc/values/InQuotes.hpp"
#include "model/ifc/values/ValueText.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

namespace model::ifc {

namespace {

Error refused(std::string reason) {
    return {ErrorKind::Refused, std::move(reason)};
}

/// The elements of the aggregate that an attribute holds; empty where it holds none.
std::vector<step::Value> elementsOf(const step::Instance& instance, const Class& cls, std::string_view attribute) {
    std::vector<step::Value> elements;
    const int index = cls.entity == nullptr ? -1 : cls.entity->attributeIndex(attribute);
    if (index < 0 || static_cast<std::size_t>(index) >= instance.arguments.size()) return {};
    return step::splitAggregate(instance.arguments[static_cast<std::size_t>(index)], elements)
               ? elements
               : std::vector<step::Value>();
}

/// "IFCLABEL('NEW')" as NEW.
std::u16string itemText(step::Value item, const Schema& schema) {
    std::string_view keyword;
    step::Value inner = item;
    if (item.kind == step::ValueKind::Typed && !step::splitTyped(item, keyword, inner)) return {};
    const DefinedType* type = schema.type(keyword);
    if (type != nullptr) return valueText(inner, type->base);
    std::u16string text;
    if (inner.kind == step::ValueKind::String) step::decodeString(inner.text, text);
    return text;
}

/// Items are told apart by people, who write them in any case.
bool readsAs(std::u16string_view item, std::u16string_view asked) {
    return text::equalIgnoringCase(text::toUtf8(item), text::toUtf8(asked));
}

std::string typed(const DefinedType& type, const std::string& content) {
    return text::toUpperCase(type.name) + "(" + content + ")";
}

}  // namespace

// --- The host's record ---

bool RecordedValue::settles(const PropertyView& held) const {
    return held.kind != PropertyKind::Single || wanted_.kind != PropertyKind::Single ||
           sameContent(held, wanted_.value);
}

int RecordedValue::attributeIndex(const Class& property) const {
    return property.attributeIndex(Field::NominalValue);
}

Result<Replacement> RecordedValue::replacementIn(step::Value held, const step::Instance&) const {
    return replaceNominalValue(held, wanted_.value, schema_);
}

Result<std::string> RecordedValue::nominalValue() const {
    return encodeNominalValue(wanted_.value, schema_);
}

// --- A text ---

int WrittenValue::attributeIndex(const Class& property) const {
    if (property.propertyKind == PropertyKind::Single) return property.attributeIndex(Field::NominalValue);
    if (property.propertyKind == PropertyKind::Enumerated) return property.entity->attributeIndex("EnumerationValues");
    return -1;
}

Result<Replacement> WrittenValue::replacementIn(step::Value held, const step::Instance& property) const {
    const Class& cls = work_.classes.of(work_.file.find(property.id));
    if (cls.propertyKind == PropertyKind::Enumerated) return chosenItem(held, property);
    if (!wanted_.type.empty() || held.kind == step::ValueKind::Unset) {
        Result<std::string> whole = nominalValue();
        if (!whole) return whole.error();
        return Replacement{held, std::move(*whole)};
    }
    std::string_view keyword;
    step::Value inner = held;
    if (held.kind == step::ValueKind::Typed && !step::splitTyped(held, keyword, inner))
        return refused(text::message("the file holds no well-formed value, {}", held.text));
    const DefinedType* type = keyword.empty() ? nullptr : work_.schema.type(keyword);
    if (type == nullptr) return refused(text::message("the file gives its value no type that this schema knows"));
    // An empty text is a value of strings only; for all others it means that there is to be none.
    if (wanted_.text.empty() && type->base != BaseType::String) return Replacement{held, "$"};
    Result<std::string> content = parseValue(wanted_.text, type->base, type);
    if (!content) return Error{ErrorKind::BadValue, inQuotes(wanted_.text) + " " + content.error().message};
    return Replacement{inner, std::move(*content)};
}

Result<Replacement> WrittenValue::chosenItem(step::Value held, const step::Instance& property) const {
    const Class& cls = work_.classes.of(work_.file.find(property.id));
    const int index = cls.entity->attributeIndex("EnumerationReference");
    const bool given = index >= 0 && static_cast<std::size_t>(index) < property.arguments.size();
    const step::Slot enumeration =
        given ? work_.file.find(step::referenceId(property.arguments[static_cast<std::size_t>(index)])) : step::NoSlot;
    step::Instance offer;
    if (enumeration == step::NoSlot || !work_.file.read(enumeration, offer))
        return refused(text::message("the file does not say which items the property offers"));
    if (wanted_.text.empty() && cls.entity->attributes()[static_cast<std::size_t>(attributeIndex(cls))].optional)
        return Replacement{held, "$"};
    std::string offered;
    for (const step::Value& item : elementsOf(offer, work_.classes.of(enumeration), "EnumerationValues")) {
        const std::u16string content = itemText(item, work_.schema);
        // Copied as the enumeration spells it, type and all: only that is one of its items.
        if (readsAs(content, wanted_.text)) return Replacement{held, "(" + std::string(item.text) + ")"};
        offered.append(offered.empty() ? "" : ", ").append(text::toUtf8(content));
    }
    return Error{ErrorKind::BadValue,
                 text::message("{} is none of the property's items ({})", inQuotes(wanted_.text), offered)};
}

Result<std::string> WrittenValue::ofType(std::string_view name) const {
    const DefinedType* type = work_.schema.type(name);
    if (type == nullptr)
        return Error{ErrorKind::BadValue, text::message("\"{}\" is no type of a value in this schema", name)};
    if (wanted_.text.empty() && type->base != BaseType::String) return std::string("$");
    const Result<std::string> content = parseValue(wanted_.text, type->base, type);
    if (!content) return Error{ErrorKind::BadValue, inQuotes(wanted_.text) + " " + content.error().message};
    return typed(*type, *content);
}

Result<std::string> WrittenValue::nominalValue() const {
    constexpr std::size_t LongestLabel = 255;
    if (!wanted_.type.empty()) return ofType(wanted_.type);
    return ofType(text::characterCount(wanted_.text) > LongestLabel ? "IfcText" : "IfcLabel");
}

std::vector<std::u16string> chosenItems(Workspace& work, step::Slot property) {
    step::Instance instance;
    if (property == step::NoSlot || !work.file.read(property, instance)) return {};
    std::vector<std::u16string> items;
    for (const step::Value& item : elementsOf(instance, work.classes.of(property), "EnumerationValues"))
        items.push_back(itemText(item, work.schema));
    return items;
}

}  // namespace model::ifc
