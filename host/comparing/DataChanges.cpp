#include "comparing/DataChanges.hpp"

#include "comparing/Values.hpp"
#include "text/Unicode.hpp"

#include <map>

namespace comparing {

namespace {

using Key = std::tuple<ChangeKind, std::u16string, std::u16string, unsigned>;

/// What is clear before it is tried.
std::string obstacleOf(const Value* old, const Value* now) {
    if (now == nullptr) {
        const bool first = old->kind == ChangeKind::Classification && old->occurrence == 0;
        return first ? "" : "an update file takes no item away but a classification";
    }
    const Value& held = old == nullptr ? *now : *old;
    if (now->occurrence > 0)
        return "the element has several items of that name in one set, of which an update writes the first";
    if (!now->plain || !held.plain || now->propertyKind != held.propertyKind)
        return "a list, range, table or reference is no text that an update could ask for";
    if (old == nullptr && now->propertyKind != model::PropertyKind::Single)
        return "an update makes new properties as single values only";
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

}  // namespace

model::Result<std::vector<Change>> dataChanges(const model::Model& a, model::Element inA, const model::Model& b,
                                               model::Element inB) {
    const auto before = valuesOf(a, inA);
    if (!before) return before.error();
    const auto after = valuesOf(b, inB);
    if (!after) return after.error();
    std::map<Key, const Value*> unmatched;
    for (const Value& value : *after) unmatched.emplace(value.key(), &value);
    std::vector<Change> changes;
    for (const Value& old : *before) {
        const auto found = unmatched.find(old.key());
        addChange(&old, found == unmatched.end() ? nullptr : found->second, changes);
        if (found != unmatched.end()) unmatched.erase(found);
    }
    for (const Value& now : *after)
        if (unmatched.contains(now.key())) addChange(nullptr, &now, changes);
    std::stable_sort(changes.begin(), changes.end(), [](const Change& x, const Change& y) { return x.kind < y.kind; });
    return changes;
}

}  // namespace comparing
