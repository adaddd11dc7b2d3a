#include "comparing/DataChanges.hpp"

#include "comparing/Values.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <map>

namespace comparing {

namespace {

using Key = std::tuple<ChangeKind, std::u16string, std::u16string, unsigned>;

/// What is clear before it is tried.
std::string obstacleOf(const Value* old, const Value* now) {
    if (now == nullptr) {
        const bool first = old->kind == ChangeKind::Classification && old->occurrence == 0;
        return first ? "" : text::message("an update file takes no item away but a classification");
    }
    const Value& held = old == nullptr ? *now : *old;
    if (now->occurrence > 0) {
        return text::message(
            "the element has several items of that name in one set, of which an update writes the first");
    }
    if (!now->plain || !held.plain || now->propertyKind != held.propertyKind)
        return text::message("a list, range, table or reference is no text that an update could ask for");
    if (old == nullptr && now->propertyKind != model::PropertyKind::Single)
        return text::message("an update makes new properties as single values only");
    return {};
}

/// Of a class that does not have the attribute, nothing is nothing.
bool isNothing(const Value& value) {
    return value.kind == ChangeKind::Attribute && value.shown.empty();
}

void addChange(const Value* old, const Value* now, std::vector<Change>& changes) {
    const Value& either = now == nullptr ? *old : *now;
    if (old != nullptr && now != nullptr ? old->same(*now) : isNothing(either)) return;
    Change change;
    change.kind = either.kind;
    change.item = itemOf(either);
    change.set = text::toUtf8(either.set);
    if (old != nullptr) change.old = old->text();
    if (now != nullptr) {
        change.now = now->text();
        change.asked = now->exact;
    }
    change.obstacle = obstacleOf(old, now);
    changes.push_back(std::move(change));
}

/// The items of the first in its order, then those that only the second has.
std::vector<Change> changesBetween(const std::vector<Value>& before, const std::vector<Value>& after) {
    std::map<Key, const Value*> unmatched;
    for (const Value& value : after) unmatched.emplace(value.key(), &value);
    std::vector<Change> changes;
    for (const Value& old : before) {
        const auto found = unmatched.find(old.key());
        addChange(&old, found == unmatched.end() ? nullptr : found->second, changes);
        if (found != unmatched.end()) unmatched.erase(found);
    }
    // By the list and not by the map, which has another order.
    for (const Value& now : after)
        if (unmatched.contains(now.key())) addChange(nullptr, &now, changes);
    return changes;
}

}  // namespace

DataChanges::DataChanges(const model::Model& a, const model::Model& b)
    : a_(a), b_(b), sharedA_(a.workspace()), sharedB_(b.workspace()) {}

model::Status DataChanges::addTo(ChangedElement& element) {
    auto attributes = read(element, ChangeKind::Attribute);
    if (!attributes) return attributes.error();
    // Attributes, properties, classifications: what follows finds a kind among the changes by bisection.
    element.changes = std::move(*attributes);
    const Sources properties{ChangeKind::Property, sharedA_.properties(element.a), sharedB_.properties(element.b)};
    if (model::Status added = addShared(properties, element); !added) return added;
    const Sources classifications{ChangeKind::Classification, sharedA_.classifications(element.a),
                                  sharedB_.classifications(element.b)};
    if (model::Status added = addShared(classifications, element); !added) return added;
    // Elements of one number had the same and have the same now: what is tried out on one of them holds for all.
    element.sources = numbers_.try_emplace({properties, classifications}, numbers_.size()).first->second;
    return {};
}

model::Status DataChanges::addShared(const Sources& sources, ChangedElement& element) {
    auto known = known_.find(sources);
    if (known == known_.end()) {
        auto changes = read(element, std::get<ChangeKind>(sources));
        if (!changes) return changes.error();
        known = known_.emplace(sources, std::move(*changes)).first;
    }
    element.changes.insert(element.changes.end(), known->second.begin(), known->second.end());
    return {};
}

model::Result<std::vector<Change>> DataChanges::read(const ChangedElement& element, ChangeKind kind) const {
    if (kind == ChangeKind::Property) return readProperties(element);
    const auto valuesOf = kind == ChangeKind::Attribute ? attributesOf : classificationsOf;
    const auto before = valuesOf(a_, element.a);
    if (!before) return before.error();
    const auto after = valuesOf(b_, element.b);
    if (!after) return after.error();
    return changesBetween(*before, *after);
}

std::vector<Change> DataChanges::readProperties(const ChangedElement& element) const {
    // Only these are read as values: of thousands of properties it is often one that changed.
    const Names names = namesThatDiffer(a_, element.a, b_, element.b);
    if (names.empty()) return {};
    return changesBetween(propertiesNamed(a_, element.a, names), propertiesNamed(b_, element.b, names));
}

}  // namespace comparing
