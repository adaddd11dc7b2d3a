#include "model/ifc/index/InverseReferences.hpp"

#include <algorithm>
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
    : file_(stepFile), classes_(knownClasses), schema_(facts), added_(Order{&stepFile}) {}

std::uint64_t InverseReferences::keptArgumentsOf(const Class& cls) const {
    if (cls.entity == nullptr) return AllArguments & ~Unknown;  // Of an unknown class anything may be said.
    std::uint64_t bits = isRelation(cls.role) ? argumentBit(cls.attributeIndex(Field::Related)) : 0;
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

/// Each once, sorted: a list may name an instance many thousand times.
void InverseReferences::mentions(step::Slot user, std::vector<Mention>& out) {
    out.clear();
    if (!file_.present(user)) return;
    const std::uint64_t arguments = keptArguments(file_.keyword(user));
    if (arguments == 0) return;
    bool sorted = true;
    forEachReference(file_.text(user), arguments, [&](unsigned attributeIndex, std::string_view token) {
        const Mention mention{tokenId(token), static_cast<std::uint8_t>(attributeIndex)};
        sorted = sorted && (out.empty() || out.back() < mention);
        out.push_back(mention);
        return true;
    });
    if (sorted) return;
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
}

/// All of it is made aside and put in place at the end: where memory runs out on the way, nothing was built.
void InverseReferences::build() {
    struct Edge {
        step::Slot target;
        FileUse use;
    };
    std::vector<Edge> edges;
    const std::size_t slots = file_.slotCount();
    std::vector<std::uint32_t> offsets(slots + 1, 0);
    AddedUses added(Order{&file_});
    std::vector<Mention> found;
    for (step::Slot user = 0; user < slots; ++user) {
        mentions(user, found);
        for (const Mention& mention : found) {
            const step::Slot target = file_.find(mention.target);
            if (target == step::NoSlot) continue;
            if (file_.isNew(user) || file_.isNew(target)) {
                added.insert({mention.target, {user, mention.attributeIndex}});
            } else {
                edges.push_back({target, {user, mention.attributeIndex, true}});
                ++offsets[target + 1U];
            }
        }
    }
    for (std::size_t i = 1; i <= slots; ++i) offsets[i] += offsets[i - 1];
    // A counting sort keeps the file order among the uses of each target.
    std::vector<std::uint32_t> next(offsets.begin(), offsets.end() - 1);
    std::vector<FileUse> uses(edges.size());
    for (const Edge& edge : edges) uses[next[edge.target]++] = edge.use;
    offsets_ = std::move(offsets);
    uses_ = std::move(uses);
    added_.swap(added);
    built_ = true;
}

void InverseReferences::forgetAll() noexcept {
    built_ = false;
    added_.clear();
}

void InverseReferences::beforeChange(step::Slot slot) {
    if (built_) mentions(slot, before_);
}

void InverseReferences::afterChange(step::Slot slot) {
    if (!built_) return;
    mentions(slot, after_);
    std::vector<Mention> changed;
    std::set_difference(before_.begin(), before_.end(), after_.begin(), after_.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) remove(mention, slot);
    changed.clear();
    std::set_difference(after_.begin(), after_.end(), before_.begin(), before_.end(), std::back_inserter(changed));
    for (const Mention& mention : changed) add(mention, slot);
}

void InverseReferences::afterRemovals(step::Slot user, std::size_t attributeIndex,
                                      std::span<const step::InstanceId> members, bool gone) {
    // The last arguments count as one: others of them may name the members, too.
    if (attributeIndex >= LastArgument) forgetAll();
    if (!built_ || (keptArguments(file_.keyword(user)) >> attributeIndex & 1U) == 0) return;
    for (const step::InstanceId member : members) {
        const Mention mention{member, static_cast<std::uint8_t>(attributeIndex)};
        gone ? remove(mention, user) : add(mention, user);
    }
}

InverseReferences::FileUse* InverseReferences::findInFile(const Mention& mention, step::Slot user) {
    // NoSlot, for an instance that is absent just now, is no place in the index.
    const step::Slot target = file_.find(mention.target);
    if (std::size_t{target} + 1 >= offsets_.size()) return nullptr;
    const auto end = uses_.begin() + offsets_[target + 1U];
    const auto use = std::lower_bound(
        uses_.begin() + offsets_[target], end, Use{user, mention.attributeIndex}, [](const FileUse& a, const Use& b) {
            return a.user != b.user ? a.user < b.user : a.attributeIndex < b.attributeIndex;
        });
    return use == end || use->user != user || use->attributeIndex != mention.attributeIndex ? nullptr : &*use;
}

void InverseReferences::add(const Mention& mention, step::Slot user) {
    if (FileUse* use = findInFile(mention, user)) {
        // Marked as gone it kept its place: after an undo the uses stand in file order again.
        use->live = true;
    } else {
        added_.insert({mention.target, {user, mention.attributeIndex}});
    }
}

void InverseReferences::remove(const Mention& mention, step::Slot user) {
    if (FileUse* use = findInFile(mention, user)) {
        use->live = false;
    } else {
        added_.erase({mention.target, {user, mention.attributeIndex}});
    }
}

void InverseReferences::forget(step::Slot target, step::Slot user, int attributeIndex) {
    if (built_) remove({file_.id(target), static_cast<std::uint8_t>(attributeIndex)}, user);
}

void InverseReferences::remember(step::Slot target, step::Slot user, int attributeIndex) {
    if (built_) add({file_.id(target), static_cast<std::uint8_t>(attributeIndex)}, user);
}

}  // namespace model::ifc
