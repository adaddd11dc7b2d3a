#include "model/ifc/values/InstanceBuilder.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "text/Ascii.hpp"

namespace model::ifc {

/// ISO 10303-21 writes an attribute that the class derives as an asterisk, and one without a value as a dollar sign.
InstanceBuilder::InstanceBuilder(const Entity& cls) : entity_(cls), keyword_(text::toUpperCase(cls.name())) {
    for (const Attribute& attribute : entity_.attributes()) arguments_.emplace_back(attribute.derived ? "*" : "$");
}

/// A copy has the original's spelling of the keyword, and as many attributes, whatever the schema says.
InstanceBuilder::InstanceBuilder(const Entity& cls, const step::Instance& original)
    : entity_(cls), keyword_(original.keyword) {
    for (const step::Value& value : original.arguments) arguments_.emplace_back(value.text);
}

std::string* InstanceBuilder::argument(std::string_view attribute) {
    const int index = entity_.attributeIndex(attribute);
    return index >= 0 && static_cast<std::size_t>(index) < arguments_.size()
               ? &arguments_[static_cast<std::size_t>(index)]
               : nullptr;
}

InstanceBuilder& InstanceBuilder::set(std::string_view attribute, std::string stepText) {
    if (std::string* text = argument(attribute)) *text = std::move(stepText);
    return *this;
}

InstanceBuilder& InstanceBuilder::replaceReference(std::string_view attribute, step::InstanceId from,
                                                   step::InstanceId to) {
    if (std::string* text = argument(attribute)) *text = withReference(*text, from, to);
    return *this;
}

InstanceBuilder& InstanceBuilder::addReference(std::string_view attribute, step::InstanceId member) {
    std::string* text = argument(attribute);
    std::vector<step::Value> members;
    if (text == nullptr || !step::splitAggregate({step::ValueKind::Aggregate, *text}, members)) return *this;
    // Before the closing parenthesis, which ends a well-formed aggregate's text.
    text->insert(text->size() - 1, (members.empty() ? "" : ",") + referenceText(member));
    return *this;
}

std::string InstanceBuilder::body() const {
    std::string text = keyword_ + '(';
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        if (i > 0) text += ',';
        text += arguments_[i];
    }
    return text + ')';
}

std::string referenceText(step::InstanceId id) {
    return '#' + std::to_string(id);
}

std::string withReference(std::string_view argument, step::InstanceId from, step::InstanceId to) {
    const std::string replacement = referenceText(to);
    std::string result;
    std::size_t copied = 0;
    forEachReferenceIn(argument, [&](std::string_view token) {
        if (tokenId(token) != from) return true;
        const auto at = static_cast<std::size_t>(token.data() - argument.data());
        result.append(argument.substr(copied, at - copied)).append(replacement);
        copied = at + token.size();
        return true;
    });
    return result.append(argument.substr(copied));
}

}  // namespace model::ifc
