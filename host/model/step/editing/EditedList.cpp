#include "model/step/editing/EditedList.hpp"

#include "model/step/editing/InstanceEdits.hpp"
#include "model/step/syntax/Instance.hpp"

#include <algorithm>

namespace model::step {

namespace {

/// @param list  The argument of that number.
bool splitList(std::string_view instanceText, std::size_t attributeIndex, Value& list, std::vector<Value>& elements) {
    Instance instance;
    if (!splitInstance(instanceText, instance) || instance.complex || attributeIndex >= instance.arguments.size()) {
        return false;
    }
    list = instance.arguments[attributeIndex];
    return splitAggregate(list, elements);
}

std::size_t find(const std::vector<InstanceId>& sorted, InstanceId id) {
    const auto at = std::lower_bound(sorted.begin(), sorted.end(), id);
    return static_cast<std::size_t>((at != sorted.end() && *at == id ? at : sorted.end()) - sorted.begin());
}

}  // namespace

// --- Removals ---

std::optional<ReferenceRemovals> ReferenceRemovals::of(std::string_view instanceText, std::size_t attributeIndex) {
    Value list;
    std::vector<Value> elements;
    if (!splitList(instanceText, attributeIndex, list, elements)) return std::nullopt;
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
    removed_.push_back(member);
    marked_[find(members_, member)] = true;
}

std::string ReferenceRemovals::applyTo(std::string_view instanceText, std::size_t count) const {
    Value list;
    std::vector<Value> elements;
    splitList(instanceText, attributeIndex_, list, elements);
    std::vector<InstanceId> removed(removed_.begin(), removed_.begin() + static_cast<std::ptrdiff_t>(count));
    std::sort(removed.begin(), removed.end());
    std::vector<bool> gone(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        gone[i] = std::binary_search(removed.begin(), removed.end(), referenceId(elements[i]));
    }
    return withoutMarked(instanceText, elements, gone);
}

// --- Additions ---

std::optional<ReferenceAdditions> ReferenceAdditions::of(std::string_view instanceText, std::size_t attributeIndex) {
    Value list;
    std::vector<Value> elements;
    if (!splitList(instanceText, attributeIndex, list, elements)) return std::nullopt;
    ReferenceAdditions additions;
    additions.attributeIndex_ = attributeIndex;
    additions.first_ = elements.empty();
    additions.separator_ = separatorIn(elements);
    // Behind the last element, or before the parenthesis that closes an empty list.
    const char* place = elements.empty() ? list.text.data() + list.text.size() - 1
                                         : elements.back().text.data() + elements.back().text.size();
    additions.place_ = static_cast<std::size_t>(place - instanceText.data());
    return additions;
}

std::string ReferenceAdditions::applyTo(std::string_view instanceText, std::size_t count) const {
    std::string result(instanceText.substr(0, place_));
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 || !first_) result += separator_;
        result.append("#").append(std::to_string(added_[i]));
    }
    return result.append(instanceText.substr(place_));
}

// --- Both ---

void EditedList::own(std::string&& base) noexcept {
    ownBase_ = std::move(base);
    base_ = ownBase_;
}

std::size_t EditedList::count() const {
    return std::visit([](const auto& each) { return each.count(); }, edits);
}

std::string_view EditedList::text(std::size_t count) {
    if (count == 0) return base_;
    if (count != shownEdits_) {
        shown_ = std::visit([&](const auto& each) { return each.applyTo(base_, count); }, edits);
        shownEdits_ = count;
    }
    return shown_;
}

}  // namespace model::step
