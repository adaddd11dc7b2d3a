#include "console/commands/ElementFilter.hpp"

#include "console/Failure.hpp"
#include "console/help/Nearest.hpp"
#include "console/output/HostText.hpp"
#include "model/ifc/schema/ElementTypes.hpp"
#include "selection/Selection.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <numeric>

namespace console {
namespace {

std::string nearestClass(const model::Model& model, const std::string& name) {
    std::vector<std::string> classes;
    if (const auto version = model::ifc::Schema::versionOf(model.schemaName()))
        for (const model::ifc::Entity& entity : model::ifc::Schema::of(*version).entities())
            classes.emplace_back(entity.name());
    return nearest(name, classes);
}

std::vector<model::Element> choose(const model::Model& model, const std::string& where) {
    auto chosen = selection::choose(model, where);
    if (!chosen) throw Failure(fmt::format("--where: {}", chosen.error().message));
    return std::move(*chosen);
}

std::vector<model::Element> all(const model::Model& model) {
    std::vector<model::Element> elements(model.elementCount());
    std::iota(elements.begin(), elements.end(), model::Element{0});
    return elements;
}

}  // namespace

void checkType(const std::string& type) {
    const std::vector<std::string_view> names = model::ifc::elementTypeNames();
    const bool known = std::any_of(names.begin(), names.end(),
                                   [&type](std::string_view name) { return equalIgnoringCase(name, type); });
    if (known) return;
    const std::string meant = nearest(type, std::vector<std::string>(names.begin(), names.end()));
    throw Failure(fmt::format("--type {}: there is no such type; {}write one of {}", type,
                              meant.empty() ? "" : fmt::format("did you mean {}? Else ", meant),
                              fmt::join(names, ", ")));
}

ElementFilter::ElementFilter(const model::Model& model, std::string type, const std::string& ifcClass,
                             const std::string& where)
    : model_(model), type_(std::move(type)), chosen_(where.empty() ? all(model) : choose(model, where)) {
    if (!type_.empty()) checkType(type_);
    if (ifcClass.empty()) return;
    const auto version = model::ifc::Schema::versionOf(model_.schemaName());
    schema_ = version ? &model::ifc::Schema::of(*version) : nullptr;
    ifcClass_ = schema_ == nullptr ? nullptr : schema_->entity(ifcClass);
    if (ifcClass_ == nullptr) {
        const std::string meant = nearestClass(model_, ifcClass);
        throw Failure(
            fmt::format("--class {}: {} has no such class; {}", ifcClass, model_.schemaName(),
                        meant.empty() ? "write one such as IfcWall" : fmt::format("did you mean {}?", meant)));
    }
}

bool ElementFilter::takes(model::Element element) const {
    const model::ElementInfo info = model_.info(element);
    if (!type_.empty() && !equalIgnoringCase(type_, info.typeName.english())) return false;
    if (ifcClass_ == nullptr) return true;
    // Who asks for IfcWall wants the IfcWallStandardCase, too.
    const model::ifc::Entity* entity = schema_->entity(info.ifcClass);
    return entity != nullptr && entity->isA(ifcClass_->name());
}

std::vector<model::Element> ElementFilter::elements() const {
    std::vector<model::Element> taken;
    std::copy_if(chosen_.begin(), chosen_.end(), std::back_inserter(taken),
                 [this](model::Element element) { return takes(element); });
    return taken;
}

}  // namespace console
