#pragma once
// One instance in STEP form, by the schema tables: only the attributes that a test is about have to be named.

#include "model/ifc/schema/Schema.hpp"
#include "text/Ascii.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_support {

/// Attribute names of the schema with their STEP text.
using AttributeValues = std::vector<std::pair<std::string_view, std::string>>;

inline const model::ifc::Entity& entityOf(std::string_view schema, std::string_view ifcClass) {
    const auto version = model::ifc::Schema::versionOf(schema);
    if (!version) throw std::invalid_argument("no such schema: " + std::string(schema));
    const model::ifc::Entity* entity = model::ifc::Schema::of(*version).entity(ifcClass);
    if (entity == nullptr) throw std::invalid_argument(std::string(schema) + " has no " + std::string(ifcClass));
    return *entity;
}

/// "IFCWALL(...)". Attributes that are not named become "$", derived ones "*"; of one named twice the last value
/// counts.
inline std::string instanceText(const model::ifc::Entity& entity, const AttributeValues& values) {
    std::vector<std::string> arguments;
    for (const auto& attribute : entity.attributes()) arguments.emplace_back(attribute.derived ? "*" : "$");
    for (const auto& [name, value] : values) {
        const int index = entity.attributeIndex(name);
        if (index < 0) throw std::invalid_argument(std::string(entity.name()) + " has no " + std::string(name));
        arguments[static_cast<std::size_t>(index)] = value;
    }
    std::string text = text::toUpperCase(entity.name());
    for (std::size_t i = 0; i < arguments.size(); ++i) text += (i == 0 ? "(" : ",") + arguments[i];
    return text + (arguments.empty() ? "()" : ")");
}

}  // namespace testing_support
