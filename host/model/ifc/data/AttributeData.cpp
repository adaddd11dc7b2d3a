#include "model/ifc/data/AttributeData.hpp"

#include "model/ifc/values/InQuotes.hpp"
#include "model/ifc/values/ValueText.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "text/Message.hpp"

namespace model::ifc {

namespace {

using step::Value;
using step::ValueKind;

bool isListed(const Attribute& attribute) {
    switch (attribute.base) {
        case BaseType::Integer:
        case BaseType::Real:
        case BaseType::Number:
        case BaseType::Boolean:
        case BaseType::Logical:
        case BaseType::String:
        case BaseType::Enumeration:
            return !attribute.derived;
        default:
            return false;
    }
}

AttributeType typeOf(BaseType base) {
    switch (base) {
        case BaseType::Integer:
            return AttributeType::Integer;
        case BaseType::Real:
        case BaseType::Number:
            return AttributeType::Real;
        case BaseType::Boolean:
            return AttributeType::Boolean;
        case BaseType::Logical:
            return AttributeType::Logical;
        case BaseType::Enumeration:
            return AttributeType::Enumeration;
        default:
            return AttributeType::Text;
    }
}

Error refused(std::string reason) {
    return {ErrorKind::Refused, std::move(reason)};
}

/// Whether a value of that kind may be replaced by another one. What the schema does not allow there (a reference, a
/// list, a typed value) was put there by a program that knows more than we do: it stays.
Status checkReplaceable(Value held) {
    switch (held.kind) {
        case ValueKind::Derived:
            return refused(text::message("it is derived from other attributes (the file holds *)"));
        case ValueKind::String: {
            std::u16string text;
            if (step::decodeString(held.text, text) != step::Decoding::Undecodable) return {};
            return refused(text::message(
                "the file holds a text that cannot be decoded, {}; fix it in the program that wrote it", held.text));
        }
        case ValueKind::Unset:
        case ValueKind::Integer:
        case ValueKind::Real:
        case ValueKind::Enumeration:
            return {};
        default:
            return refused(text::message("the file holds no value of its type, {}", held.text));
    }
}

/// The new value in STEP form.
Result<std::string> newValue(const Attribute& attribute, std::u16string_view text) {
    if (text.empty() && attribute.optional) return std::string("$");
    if (text.empty()) return Error{ErrorKind::BadValue, text::message("it must have a value in this schema")};
    Result<std::string> parsed = parseValue(text, attribute.base, attribute.type);
    if (!parsed) return Error{ErrorKind::BadValue, inQuotes(text) + " " + parsed.error().message};
    return parsed;
}

}  // namespace

Result<std::vector<model::Attribute>> readAttributes(Workspace& work, Element element) {
    const step::Slot slot = work.elements.slot(element);
    step::Instance instance;
    if (!work.file.read(slot, instance)) return refused(text::message("the instance is not well formed"));
    const auto declared = work.classes.of(slot).entity->attributes();
    std::vector<model::Attribute> attributes;
    attributes.reserve(declared.size());
    for (std::size_t i = 0; i < declared.size(); ++i) {
        if (!isListed(declared[i])) continue;
        // Old exporters leave out the last attributes of an instance.
        const Value value = i < instance.arguments.size() ? instance.arguments[i] : Value{ValueKind::Unset, {}};
        attributes.push_back({declared[i].name, valueText(value, declared[i].base), typeOf(declared[i].base)});
    }
    return attributes;
}

std::u16string attributeText(Workspace& work, step::Slot slot, std::string_view name) {
    const Entity* entity = work.classes.of(slot).entity;
    const int found = entity == nullptr ? -1 : entity->attributeIndex(name);
    step::Instance instance;
    if (found < 0 || !work.file.read(slot, instance)) return {};
    const auto index = static_cast<std::size_t>(found);
    return index < instance.arguments.size() ? valueText(instance.arguments[index], entity->attributes()[index].base)
                                             : std::u16string{};
}

Status setAttribute(Workspace& work, Element element, std::string_view name, std::u16string_view text) {
    const step::Slot slot = work.elements.slot(element);
    const Entity& entity = *work.classes.of(slot).entity;
    const int index = entity.attributeIndex(name);
    if (index < 0 || !isListed(entity.attributes()[static_cast<std::size_t>(index)])) {
        return Error{ErrorKind::BadName,
                     text::message("{} has no such attribute that is a single value", entity.name())};
    }
    if (name == "GlobalId")
        return Error{ErrorKind::ReadOnly, text::message("the GlobalId identifies the element and stays")};
    const Attribute& attribute = entity.attributes()[static_cast<std::size_t>(index)];
    step::Instance instance;
    if (!work.file.read(slot, instance)) return refused(text::message("the instance is not well formed"));
    if (static_cast<std::size_t>(index) >= instance.arguments.size()) {
        return refused(
            text::message("the file gives this instance fewer attributes than its schema, and not this one"));
    }
    const Value held = instance.arguments[static_cast<std::size_t>(index)];
    // Before the values are compared: of a text that cannot be decoded nobody can say that it is the same.
    if (Status replaceable = checkReplaceable(held); !replaceable) return replaceable;
    if (valueText(held, attribute.base) == text) return {};
    Result<std::string> stepText = newValue(attribute, text);
    if (!stepText) return stepText.error();
    // *9.0* asked for where the file holds 9. is no change, and leaves no undo step.
    if (sameValue(held, attribute.base, *stepText)) return {};
    return work.file.replaceValue(slot, held, *stepText);
}

}  // namespace model::ifc
