#include "model/ifc/Draft.hpp"

namespace model::ifc {

Draft::Draft(const Entity& cls) : entity(cls), keyword(cls.name()) {
    for (char& c : keyword) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    for (const Attribute& attribute : entity.attributes()) arguments.emplace_back(attribute.derived ? "*" : "$");
}

Draft::Draft(const Entity& cls, const step::Instance& original) : entity(cls), keyword(original.keyword) {
    for (const step::Value& value : original.arguments) arguments.emplace_back(value.text);
}

Draft& Draft::set(std::string_view attribute, std::string stepText) {
    const int place = entity.attributeIndex(attribute);
    if (place >= 0 && static_cast<std::size_t>(place) < arguments.size()) {
        arguments[static_cast<std::size_t>(place)] = std::move(stepText);
    }
    return *this;
}

std::string Draft::body() const {
    std::string text = keyword + '(';
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) text += ',';
        text += arguments[i];
    }
    return text + ')';
}

std::string referenceText(step::InstanceId id) {
    return '#' + std::to_string(id);
}

}  // namespace model::ifc
