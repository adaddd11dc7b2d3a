#include "console/commands/ElementFilter.hpp"

#include "console/Failure.hpp"
#include "console/output/Text.hpp"

#include <fmt/format.h>

#include <set>

namespace console {

ElementFilter::ElementFilter(const model::Model& theModel, std::string theType, const std::string& className)
    : model(theModel), type(std::move(theType)) {
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
    std::set<std::string_view> types;
    for (model::Element element = 0; element < model.elementCount(); ++element) {
        const model::ElementInfo info = model.info(element);
        types.insert(info.typeName);
        if (takes(info)) taken.push_back(element);
    }
    return taken;
}

}  // namespace console
