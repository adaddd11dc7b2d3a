#include "model/ifc/data/EqualRelations.hpp"

#include "model/ifc/values/InstanceBuilder.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>

namespace model::ifc {

namespace {

using step::Slot;

/// A relation that gives one element something that nothing else uses.
struct LoneRelation {
    Slot relation;
    Slot given;  ///< The classification reference or property set.
    Slot element;
    std::vector<Slot> members;  ///< The properties that only this set has.
    std::string content;        ///< All that it says but for the element and GlobalIds.
};

/// An element's relations as they would be, in their order.
struct Places {
    std::vector<Slot> relations;
    std::size_t next = 0;
};

class EqualRelations {
public:
    EqualRelations(Workspace& workspace, Slot firstNew, Role relations, Role given)
        : work_(workspace), firstNew_(firstNew), relationRole_(relations), givenRole_(given) {}

    Status join();

private:
    std::vector<LoneRelation> relationsMade();
    std::optional<LoneRelation> loneRelation(Slot relation);
    bool isMade(Slot slot) const { return slot >= firstNew_; }
    bool addMembers(LoneRelation& lone);

    void place(const LoneRelation& lone);
    Places& placesOf(Slot element);
    Slot leftRelationEqualTo(const LoneRelation& lone);
    bool addElements(Slot relation, const std::vector<const LoneRelation*>& joining);
    Status erase(const LoneRelation& lone);

    Workspace& work_;
    const Slot firstNew_;
    const Role relationRole_, givenRole_;
    /// By content, what equal ones join, in the order of the file. No hash: see InverseReferences.
    std::map<std::string, std::vector<Slot>> equal_;
    std::unordered_map<Slot, std::string> left_;  ///< The content of relations that were left by all but one.
    std::unordered_map<Slot, Places> places_;     ///< By element.
    std::map<Slot, std::vector<const LoneRelation*>> joining_;  ///< By the relation that they join.
};

/// The arguments of an instance, but for those in which equal things differ.
std::string contentOf(const step::Instance& instance, const Class& cls, std::initializer_list<Field> but) {
    std::string content(instance.keyword);
    for (std::size_t i = 0; i < instance.arguments.size(); ++i) {
        const bool differs = std::any_of(but.begin(), but.end(),
                                         [&](Field field) { return cls.attributeIndex(field) == static_cast<int>(i); });
        if (!differs) content.append("\n").append(instance.arguments[i].text);
    }
    return content + '\n';
}

Status EqualRelations::join() {
    const std::vector<LoneRelation> made = relationsMade();
    for (const LoneRelation& lone : made) place(lone);
    for (const auto& [relation, joining] : joining_) {
        if (!addElements(relation, joining)) continue;
        for (const LoneRelation* lone : joining) {
            if (Status erased = erase(*lone); !erased) return erased;
        }
    }
    return {};
}

/// In the order of the file.
std::vector<LoneRelation> EqualRelations::relationsMade() {
    std::vector<LoneRelation> made;
    for (Slot slot = firstNew_; slot < work_.file.slotCount(); ++slot) {
        if (work_.classes.of(slot).role != relationRole_ || !work_.file.present(slot)) continue;
        auto lone = loneRelation(slot);
        if (lone && isMade(lone->given)) made.push_back(std::move(*lone));
    }
    std::sort(made.begin(), made.end(),
              [&](const LoneRelation& a, const LoneRelation& b) { return work_.file.before(a.relation, b.relation); });
    return made;
}

/// Nothing where it names others, or something else uses it or what it gives.
std::optional<LoneRelation> EqualRelations::loneRelation(Slot relation) {
    // Without reading all of it: after each command it may be asked about a relation of thousands that one has left.
    const LongRelation* longRelation = work_.longRelations.find(relation);
    if (longRelation != nullptr && longRelation->namesSeveral) return {};
    const std::vector<Slot> elements = work_.forwardReferences.of(relation, Field::Related);
    const std::vector<Slot> given = work_.forwardReferences.of(relation, Field::Relating);
    if (elements.size() != 1 || given.size() != 1 || work_.classes.of(given.front()).role != givenRole_) return {};
    if (!work_.isUsedOnlyBy(relation, step::NoSlot) || !work_.isUsedOnlyBy(given.front(), relation)) return {};
    step::Instance instance;
    LoneRelation lone{relation, given.front(), elements.front(), {}, {}};
    if (!work_.file.read(relation, instance)) return {};
    lone.content = std::to_string(work_.file.section(relation)) + '\n' +
                   contentOf(instance, work_.classes.of(relation), {Field::GlobalId, Field::Related, Field::Relating});
    if (!work_.file.read(lone.given, instance)) return {};
    lone.content += contentOf(instance, work_.classes.of(lone.given), {Field::GlobalId, Field::HasProperties});
    if (givenRole_ == Role::PropertySet && !addMembers(lone)) return {};
    return lone;
}

/// Properties that only the set has are compared, others are the same or not. @return false where a property of the
/// file has come into a new set: to erase that would take it from the file.
bool EqualRelations::addMembers(LoneRelation& lone) {
    for (const Slot member : work_.forwardReferences.of(lone.given, Field::HasProperties)) {
        step::Instance instance;
        if (!work_.isUsedOnlyBy(member, lone.given)) {
            lone.content += referenceText(work_.file.id(member)) + '\n';
            continue;
        }
        if (isMade(lone.given) && !isMade(member)) return false;
        if (!work_.file.read(member, instance)) return false;
        lone.content += contentOf(instance, work_.classes.of(member), {});
        lone.members.push_back(member);
    }
    return true;
}

/// Notes what the relation is to join: the first that is equal and stands behind what its element lists before it.
/// Where there is none, others may join it.
void EqualRelations::place(const LoneRelation& lone) {
    Places& places = placesOf(lone.element);
    while (places.relations[places.next] != lone.relation) ++places.next;
    const Slot previous = places.next == 0 ? step::NoSlot : places.relations[places.next - 1];
    const auto isTooEarly = [&](Slot relation) {
        return previous != step::NoSlot && !work_.file.before(previous, relation);
    };
    Slot target = leftRelationEqualTo(lone);
    if (target == step::NoSlot || isTooEarly(target)) {
        std::vector<Slot>& equal = equal_[lone.content];
        const auto found = std::partition_point(equal.begin(), equal.end(), isTooEarly);
        if (found == equal.end()) return equal.push_back(lone.relation);
        target = *found;
    }
    joining_[target].push_back(&lone);
    places.relations[places.next] = target;
}

Places& EqualRelations::placesOf(Slot element) {
    const auto [known, isNew] = places_.try_emplace(element);
    Places& places = known->second;
    if (!isNew) return places;
    work_.inverseReferences.forEachUse(element, [&](const Use& use) {
        const Class& cls = work_.classes.of(use.user);
        const bool counts = cls.role == relationRole_ ||
                            (relationRole_ == Role::DefinesByProperties && cls.role == Role::OverridesProperties);
        if (counts && cls.attributeIndex(Field::Related) == use.attributeIndex) places.relations.push_back(use.user);
        return true;
    });
    return places;
}

/// The relation that the element has left in this command, where it has become equal for the one that is left.
Slot EqualRelations::leftRelationEqualTo(const LoneRelation& lone) {
    const auto copy = work_.relationCopies.find(lone.relation);
    if (copy == work_.relationCopies.end() || isMade(copy->second)) return step::NoSlot;
    const auto [known, isNew] = left_.try_emplace(copy->second);
    if (isNew) {
        if (auto left = loneRelation(copy->second)) known->second = std::move(left->content);
    }
    return known->second == lone.content ? copy->second : step::NoSlot;
}

/// @return false where the file's text does not allow it.
bool EqualRelations::addElements(Slot relation, const std::vector<const LoneRelation*>& joining) {
    step::Instance instance;
    if (!work_.file.read(relation, instance)) return false;
    const step::Value held = argument(instance, work_.classes.of(relation), Field::Related);
    std::string named(held.text.substr(0, held.text.rfind(')')));
    for (const LoneRelation* lone : joining) named += ',' + referenceText(work_.file.id(lone->element));
    return static_cast<bool>(work_.file.replaceValue(relation, held, named + ')'));
}

Status EqualRelations::erase(const LoneRelation& lone) {
    for (const Slot slot : {lone.relation, lone.given}) {
        if (Status erased = work_.file.erase(slot); !erased) return erased;
    }
    for (const Slot member : lone.members) {
        if (Status erased = work_.file.erase(member); !erased) return erased;
    }
    return {};
}

}  // namespace

Status joinEqualRelations(Workspace& work, Slot firstNew, bool sets) {
    if (Status joined =
            EqualRelations(work, firstNew, Role::AssociatesClassification, Role::ClassificationReference).join();
        !joined || !sets) {
        return joined;
    }
    return EqualRelations(work, firstNew, Role::DefinesByProperties, Role::PropertySet).join();
}

}  // namespace model::ifc
