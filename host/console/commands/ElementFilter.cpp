#include "console/commands/ElementFilter.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "model/ifc/schema/ElementTypes.hpp"

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

ElementFilter::ElementFilter(const model::Model& model, std::string type, const std::string& ifcClass)
    : model_(model), type_(std::move(type)) {
    if (!type_.empty()) checkType(type_);
    if (ifcClass.empty()) return;
    const auto version = model::ifc::Schema::versionOf(model_.schemaName());
    schema_ = version ? &model::ifc::Schema::of(*version) : nullptr;
    ifcClass_ = schema_ == nullptr ? nullptr : schema_->entity(ifcClass);
    if (ifcClass_ == nullptr)
        throw Failure(
            fmt::format("--class {}: {} has no such class; write one such as IfcWall", ifcClass, model_.schemaName()));
}

bool ElementFilter::takes(const model::ElementInfo& info) const {
    if (!type_.empty() && !equalIgnoringCase(type_, info.typeName)) return false;
    if (ifcClass_ == nullptr) return true;
    const model::ifc::Entity* entity = schema_->entity(info.ifcClass);
    return entity != nullptr && entity->isA(ifcClass_->name());
}

std::vector<model::Element> ElementFilter::elements() const {
    std::vector<model::Element> taken;
    for (model::Element element = 0; element < model_.elementCount(); ++element) {
        const model::ElementInfo info = model_.info(element);
        if (takes(info)) taken.push_back(element);
    }
    return taken;
}

}  // namespace console
