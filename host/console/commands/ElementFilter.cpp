#include "console/commands/ElementFilter.hpp"

#include "console/Failure.hpp"
#include "console/output/Text.hpp"
#include "model/ifc/ElementTypes.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace console {
namespace {

void checkType(const std::string& type) {
    const std::vector<std::string_view> names = model::ifc::elementTypeNames();
    const bool known = std::any_of(names.begin(), names.end(),
                                   [&type](std::string_view name) { return equalIgnoringCase(name, type); });
    if (!known)
        throw Failure(fmt::format("--type {}: there is no such type; write one of {}", type, fmt::join(names, ", ")));
}

}  // namespace

ElementFilter::ElementFilter(const model::Model& theModel, std::string theType, const std::string& className)
    : model(theModel), type(std::move(theType)) {
    if (!type.empty()) checkType(type);
    if (className.empty()) return;
    const auto version = model::ifc::Schema::versionOf(model.schemaName());
    schema = version ? &model::ifc::Schema::of(*version) : nullptr;
    ifcClass = schema == nullptr ? nullptr : schema->entity(className);
    if (ifcClass == nullptr)
        throw Failure(
            fmt::format("--class {}: {} has no such class; write one such as IfcWall", className, model.schemaName()));
}

bool ElementFilter::takes(const model::ElementInfo& info) const {
    if (!type.empty() && !equalIgnoringCase(type, info.typeName)) return false;
    if (ifcClass == nullptr) return true;
    const model::ifc::Entity* entity = schema->entity(info.ifcClass);
    return entity != nullptr && entity->isA(ifcClass->name());
}

std::vector<model::Element> ElementFilter::elements() const {
    std::vector<model::Element> taken;
    for (model::Element element = 0; element < model.elementCount(); ++element) {
        const model::ElementInfo info = model.info(element);
        if (takes(info)) taken.push_back(element);
    }
    return taken;
}

}  // namespace console
