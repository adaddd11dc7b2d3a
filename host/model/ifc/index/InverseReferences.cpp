#include "model/ifc/index/InverseReferences.hpp"

#include <algorithm>
#include <bit>
#include <iterator>

namespace model::ifc {

namespace {

constexpr std::uint64_t Unknown = std::uint64_t{1} << 63U;  // No class has so many attributes.

/// What an edit may have to split or move: everything that can refer to one of these is watched.
constexpr std::array<std::string_view, 3> Watched = {"IfcProperty", "IfcPropertySetDefinition",
                                                     "IfcClassificationReference"};

bool isRelation(Role role) {
    switch (role) {
        case Role::DefinesByProperties:
        case Role::OverridesProperties:
        case Role::DefinesByType:
        case Role::AssociatesClassification:
        case Role::Contains:
        case Role::Decomposes:
        case Role::Voids:
        case Role::Fills:
            return true;
        default:
            return false;
    }
}

}  // namespace

InverseReferences::InverseReferences(const step::StepFile& stepFile, Classes& knownClasses, const Schema& facts)
    : file_(stepFile), classes_(knownClasses), schema_(facts) {}

std::uint64_t InverseReferences::keptArgumentsOf(const Class& cls) const {
    if (cls.entity == nullptr) return AllArguments & ~Unknown;  // Of an unknown class anything may be said.
    std::uint64_t bits = isRelation(cls.role) ? argumentBit(cls.place(Field::Related)) : 0;
    const auto attributes = cls.entity->attributes();
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        for (const auto name : Watched) {
            const Entity* target = schema_.entity(name);
            if (target != nullptr && schema_.canReferTo(attributes[i].typeName, *target)) {
                bits |= argumentBit(static_cast<int>(i));
            }
        }
    }
    return bits;
}

std::uint64_t InverseReferences::keptArguments(step::KeywordCode keyword) {
    // Nothing is read of a complex instance, but it may use what others read.
    if (keyword == step::NoKeyword) return AllArguments & ~Unknown;
    if (kept_.size() <= keyword) kept_.resize(keyword + 1U, Unknown);
    if (kept_[keyword] == Unknown) kept_[keyword] = keptArgumentsOf(classes_.ofKeyword(keyword));
    return kept_[keyword];
}

void InverseReferences::mentions(step::Slot user, std::vector<Mention>& out) {
    out.clear();
    if (!file_.present(user)) return;
    const std::uint64_t arguments = keptArguments(file_.keyword(user));
    if (arguments == 0) return;
    forEachReference(file_.text(user), arguments, [&](unsigned argument, std::string_view token) {
        out.push_back({tokenId(token), static_cast<std::uint8_t>(argument)});
        return true;
    });
}

void InverseReferences::build() {
    built_ = true;
    struct Edge {
        step::Slot target;
        Use use;
    };
    std::vector<Edge> edges;
    const std::size_t slots = file_.slotCount();
    offsets_.assign(slots + 1, 0);
    std::vector<Mention> found;
    for (step::Slot user = 0; user < slots; ++user) {
        mentions(user, found);
        for (const Mention& mention : found) {
            const step::Slot target = file_.find(mention.target);
            if (target == step::NoSlot) continue;
            edges.push_back({target, {user, mention.argument, true}});
            ++offsets_[target + 1U];
        }
    }
    for (std::size_t i = 1; i <= slots; ++i) offsets_[i] += offsets_[i - 1];
    // A counting sort keeps the file order among the uses of each target.
    std::vector<std::uint32_t> next(offsets_.begin(), offsets_.end() - 1);
    uses_.resize(edges.size());
    for (const Edge& edge : edges) uses_[next[edge.target]++] = edge.use;
}

void InverseReferences::beforeChange(step::Slot slot) {
    if (built_) mentions(slot, before_);
}

void InverseReferences::afterChange(step::Slot slot) {
    if (!built_) return;
    mentions(slot, after_);
    std::sort(before_.begin(), before_.end());
    std::sort(after_.begin(), after_.end());
    std::vector<Mention> changed;
    std::set_difference(before_.begin(), before_.end(), after_.begin(), after_.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) remove(mention, slot);
    changed.clear();
    std::set_difference(after_.begin(), after_.end(), before_.begin(), before_.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) add(mention, slot);
}

Use* InverseReferences::find(const Mention& mention, step::Slot user, bool live) {
    const auto matches = [&](const Use& use) {
        return use.user == user && use.argument == mention.argument && use.live == live;
    };
    const auto beforeUser = [](const Use& use, step::Slot slot) { return use.user < slot; };
    // NoSlot is no place in the index, so an instance that is absent just now is looked up by its id alone.
    const step::Slot target = file_.find(mention.target);
    if (std::size_t{target} + 1 < offsets_.size()) {
        const auto begin = uses_.begin() + offsets_[target];
        const auto end = uses_.begin() + offsets_[target + 1U];
        for (auto use = std::lower_bound(begin, end, user, beforeUser); use != end && use->user == user; ++use) {
            if (matches(*use)) return &*use;
        }
    }
    const auto list = added_.find(mention.target);
    if (list == added_.end()) return nullptr;
    auto use = std::lower_bound(list->second.begin(), list->second.end(), user, beforeUser);
    while (use != list->second.end() && use->user == user && !matches(*use)) ++use;
    return use == list->second.end() || use->user != user ? nullptr : &*use;
}

void InverseReferences::add(const Mention& mention, step::Slot user) {
    if (Use* use = find(mention, user, false)) {
        use->live = true;
        return;
    }
    auto& list = added_[mention.target];
    const auto at = std::upper_bound(list.begin(), list.end(), user,
                                     [](step::Slot slot, const Use& use) { return slot < use.user; });
    list.insert(at, {user, mention.argument, true});
}

void InverseReferences::remove(const Mention& mention, step::Slot user) {
    if (Use* use = find(mention, user, true)) use->live = false;
}

void InverseReferences::forget(step::Slot target, step::Slot user, int argument) {
    const Mention mention{file_.id(target), static_cast<std::uint8_t>(argument)};
    while (Use* use = find(mention, user, true)) use->live = false;
}

void InverseReferences::remember(step::Slot target, step::Slot user, int argument) {
    if (built_) add({file_.id(target), static_cast<std::uint8_t>(argument)}, user);
}

}  // namespace model::ifc
