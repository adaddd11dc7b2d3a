#include "comparing/ListText.hpp"

#include "model/step/syntax/StringDecoder.hpp"
#include "text/Unicode.hpp"

namespace comparing {

namespace {

using model::step::Value;
using model::step::ValueKind;

/// Deeper ones are given as they stand: no schema nests values so far, but a file may.
constexpr int Deepest = 4;

std::string textOf(Value value, int depth);

std::string joined(const std::vector<Value>& values, int depth) {
    std::string text;
    for (const Value& value : values) text.append(&value == values.data() ? "" : ", ").append(textOf(value, depth));
    return text;
}

std::string textOf(Value value, int depth) {
    std::vector<Value> elements;
    std::string_view keyword;
    Value inner;
    std::u16string decoded;
    switch (value.kind) {
        case ValueKind::Unset:
        // A unit, for one. Its id says nothing to people, and is another one in another file.
        case ValueKind::Reference:
            return {};
        case ValueKind::String:
            model::step::decodeString(value.text, decoded);
            return text::toUtf8(decoded);
        case ValueKind::Enumeration:
            return std::string(model::step::enumerationItem(value));
        case ValueKind::Aggregate:
            if (depth < Deepest && model::step::splitAggregate(value, elements)) return joined(elements, depth + 1);
            break;
        case ValueKind::Typed:
            if (depth < Deepest && model::step::splitTyped(value, keyword, inner)) return textOf(inner, depth + 1);
            break;
        default:
            break;
    }
    return text::wellFormed(std::string(value.text));
}

}  // namespace

std::string listText(model::ifc::Workspace& work, model::step::Slot property) {
    // Name and description stand before the values.
    constexpr std::size_t FirstValue = 2;
    model::step::Instance instance;
    if (property == model::step::NoSlot || !work.file.read(property, instance)) return {};
    std::string text;
    for (std::size_t i = FirstValue; i < instance.arguments.size(); ++i)
        text.append(i == FirstValue ? "" : "; ").append(textOf(instance.arguments[i], 0));
    while (text.ends_with("; ")) text.resize(text.size() - 2);
    return text;
}

}  // namespace comparing
