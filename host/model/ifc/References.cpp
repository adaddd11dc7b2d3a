#include "model/ifc/References.hpp"

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

References::References(const step::StepFile& stepFile, Classes& knownClasses, const Schema& facts)
    : file(stepFile), classes(knownClasses), schema(facts) {}

std::uint64_t References::keptArgumentsOf(const Class& cls) const {
    if (cls.entity == nullptr) return AllArguments & ~Unknown;  // Of an unknown class anything may be said.
    std::uint64_t bits = isRelation(cls.role) ? argumentBit(cls.place(Field::Related)) : 0;
    const auto attributes = cls.entity->attributes();
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        for (const auto name : Watched) {
            const Entity* target = schema.entity(name);
            if (target != nullptr && schema.canReferTo(attributes[i].typeName, *target)) {
                bits |= argumentBit(static_cast<int>(i));
            }
        }
    }
    return bits;
}

std::uint64_t References::keptArguments(step::KeywordCode keyword) {
    // Nothing is read of a complex instance, but it may use what others read.
    if (keyword == step::NoKeyword) return AllArguments & ~Unknown;
    if (kept.size() <= keyword) kept.resize(keyword + 1U, Unknown);
    if (kept[keyword] == Unknown) kept[keyword] = keptArgumentsOf(classes.ofKeyword(keyword));
    return kept[keyword];
}

void References::mentions(step::Slot user, std::vector<Mention>& out) {
    out.clear();
    if (!file.present(user)) return;
    const std::uint64_t arguments = keptArguments(file.keyword(user));
    if (arguments == 0) return;
    forEachReference(file.text(user), arguments, [&](unsigned argument, std::string_view token) {
        out.push_back({tokenId(token), static_cast<std::uint8_t>(argument)});
        return true;
    });
}

void References::build() {
    built = true;
    struct Edge {
        step::Slot target;
        Use use;
    };
    std::vector<Edge> edges;
    const std::size_t slots = file.instanceCount();
    offsets.assign(slots + 1, 0);
    std::vector<Mention> found;
    for (step::Slot user = 0; user < slots; ++user) {
        mentions(user, found);
        for (const Mention& mention : found) {
            const step::Slot target = file.find(mention.target);
            if (target == step::NoSlot) continue;
            edges.push_back({target, {user, mention.argument, true}});
            ++offsets[target + 1U];
        }
    }
    for (std::size_t i = 1; i <= slots; ++i) offsets[i] += offsets[i - 1];
    // A counting sort keeps the file order among the uses of each target.
    std::vector<std::uint32_t> next(offsets.begin(), offsets.end() - 1);
    uses.resize(edges.size());
    for (const Edge& edge : edges) uses[next[edge.target]++] = edge.use;
}

void References::beforeChange(step::Slot slot) {
    if (built) mentions(slot, before);
}

void References::afterChange(step::Slot slot) {
    if (!built) return;
    mentions(slot, after);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    std::vector<Mention> changed;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) remove(mention, slot);
    changed.clear();
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) add(mention, slot);
}

Use* References::find(const Mention& mention, step::Slot user, bool live) {
    const auto matches = [&](const Use& use) {
        return use.user == user && use.argument == mention.argument && use.live == live;
    };
    const auto beforeUser = [](const Use& use, step::Slot slot) { return use.user < slot; };
    // NoSlot is no place in the index, so an instance that is absent just now is looked up by its id alone.
    const step::Slot target = file.find(mention.target);
    if (std::size_t{target} + 1 < offsets.size()) {
        const auto begin = uses.begin() + offsets[target];
        const auto end = uses.begin() + offsets[target + 1U];
        for (auto use = std::lower_bound(begin, end, user, beforeUser); use != end && use->user == user; ++use) {
            if (matches(*use)) return &*use;
        }
    }
    const auto list = added.find(mention.target);
    if (list == added.end()) return nullptr;
    auto use = std::lower_bound(list->second.begin(), list->second.end(), user, beforeUser);
    while (use != list->second.end() && use->user == user && !matches(*use)) ++use;
    return use == list->second.end() || use->user != user ? nullptr : &*use;
}

void References::add(const Mention& mention, step::Slot user) {
    if (Use* use = find(mention, user, false)) {
        use->live = true;
        return;
    }
    auto& list = added[mention.target];
    const auto at = std::upper_bound(list.begin(), list.end(), user,
                                     [](step::Slot slot, const Use& use) { return slot < use.user; });
    list.insert(at, {user, mention.argument, true});
}

void References::remove(const Mention& mention, step::Slot user) {
    if (Use* use = find(mention, user, true)) use->live = false;
}

void References::forget(step::Slot target, step::Slot user, int argument) {
    const Mention mention{file.id(target), static_cast<std::uint8_t>(argument)};
    while (Use* use = find(mention, user, true)) use->live = false;
}

void References::remember(step::Slot target, step::Slot user, int argument) {
    if (built) add({file.id(target), static_cast<std::uint8_t>(argument)}, user);
}

}  // namespace model::ifc
