#include "model/step/editing/ReferenceRemovals.hpp"

#include "model/step/editing/InstanceEdits.hpp"
#include "model/step/syntax/Instance.hpp"

#include <algorithm>

namespace model::step {

namespace {

bool splitList(std::string_view instanceText, std::size_t attributeIndex, std::vector<Value>& elements) {
    Instance instance;
    return splitInstance(instanceText, instance) && !instance.complex && attributeIndex < instance.arguments.size() &&
           splitAggregate(instance.arguments[attributeIndex], elements);
}

std::size_t find(const std::vector<InstanceId>& sorted, InstanceId id) {
    const auto at = std::lower_bound(sorted.begin(), sorted.end(), id);
    return static_cast<std::size_t>((at != sorted.end() && *at == id ? at : sorted.end()) - sorted.begin());
}

}  // namespace

std::optional<ReferenceRemovals> ReferenceRemovals::of(std::string_view instanceText, std::size_t attributeIndex) {
    std::vector<Value> elements;
    if (!splitList(instanceText, attributeIndex, elements)) return std::nullopt;
    ReferenceRemovals removals;
    removals.attributeIndex_ = attributeIndex;
    removals.members_.reserve(elements.size());
    for (const Value& element : elements) {
        if (const InstanceId id = referenceId(element); id != 0) removals.members_.push_back(id);
    }
    // Files name an element twice in one list; both go at once.
    std::sort(removals.members_.begin(), removals.members_.end());
    removals.members_.erase(std::unique(removals.members_.begin(), removals.members_.end()), removals.members_.end());
    removals.marked_.assign(removals.members_.size(), false);
    return removals;
}

bool ReferenceRemovals::names(InstanceId member) const {
    const std::size_t at = find(members_, member);
    return at < members_.size() && !marked_[at];
}

void ReferenceRemovals::remove(InstanceId member) {
    if (!names(member)) return;
    marked_[find(members_, member)] = true;
    ++removed_;
}

std::string ReferenceRemovals::applyTo(std::string_view instanceText) const {
    std::vector<Value> elements;
    splitList(instanceText, attributeIndex_, elements);
    std::vector<bool> gone(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const std::size_t at = find(members_, referenceId(elements[i]));
        gone[i] = at < members_.size() && marked_[at];
    }
    return withoutMarked(instanceText, elements, gone);
}

}  // namespace model::step
