#include "model/ifc/data/PropertyData.hpp"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace model::ifc {

namespace {

using step::Slot;

/// A relation that replaces properties of a set, for one element.
struct Override {
    Slot relation;
    std::vector<Slot> properties;
};

/// By the set that they are for, in file order.
using Overrides = std::map<Slot, std::vector<Override>>;

Overrides overridesOf(Workspace& work, const std::vector<AssignedSet>& assigned) {
    Overrides overrides;
    for (const AssignedSet& assignment : assigned) {
        if (!assignment.overriding) continue;
        overrides[assignment.set].push_back(
            {assignment.relation, work.forwardReferences.of(assignment.relation, Field::Overriding)});
    }
    return overrides;
}

bool visitSet(const DecodedSet& decoded, Slot set, const PropertyVisit& visit) {
    for (std::size_t i = 0; i < decoded.size(); ++i) {
        if (!visit(decoded.property(i), {decoded.slot(i), set, step::NoSlot})) return false;
    }
    return true;
}

/// Lists a set as the element sees it: overridden properties in the place of the set's own, further ones behind. Of
/// several relations that override one property the first counts.
class OverriddenSet {
public:
    OverriddenSet(Workspace& work, Slot setSlot, const std::vector<Override>& overrides)
        : set_(setSlot), base_(work.propertySets.of(setSlot)) {
        for (const Override& candidate : overrides) {
            for (const Slot slot : candidate.properties) {
                const DecodedSet& decoded = work.propertySets.overriding(slot);
                if (decoded.size() == 0) continue;
                PropertyView property = decoded.property(0);
                property.set = base_.name();
                if (byName_.emplace(property.name, replacements_.size()).second) {
                    replacements_.push_back({property, {slot, set_, candidate.relation}, false});
                }
            }
        }
    }

    bool visitAll(const PropertyVisit& visit) {
        for (std::size_t i = 0; i < base_.size(); ++i) {
            const auto replacement = byName_.find(base_.property(i).name);
            const bool goOn = replacement == byName_.end()
                                  ? visit(base_.property(i), {base_.slot(i), set_, step::NoSlot})
                                  : visitOnce(replacements_[replacement->second], visit);
            if (!goOn) return false;
        }
        return std::all_of(replacements_.begin(), replacements_.end(),
                           [&](Replacement& replacement) { return visitOnce(replacement, visit); });
    }

private:
    struct Replacement {
        PropertyView property;
        PropertyPlace place;
        bool visited;
    };

    static bool visitOnce(Replacement& replacement, const PropertyVisit& visit) {
        if (std::exchange(replacement.visited, true)) return true;
        return visit(replacement.property, replacement.place);
    }

    Slot set_;
    const DecodedSet& base_;
    std::vector<Replacement> replacements_;
    std::map<std::u16string_view, std::size_t> byName_;
};

/// Properties by set and name. Sorted, not hashed: a file can be made so that all its names have one hash. A set's name
/// is compared once and not for each of its properties, since it may be long.
class PropertyNames {
public:
    void add(const PropertyView& property) { names_.emplace_back(numberOf(property.set), property.name); }
    void finish() { std::sort(names_.begin(), names_.end()); }
    bool contains(const PropertyView& property) {
        return std::binary_search(names_.begin(), names_.end(), std::pair(numberOf(property.set), property.name));
    }

private:
    std::size_t numberOf(std::u16string_view set) {
        // By its place in memory: all properties of a set point to one text as their set's name.
        if (set.data() != lastSet_.data() || set.size() != lastSet_.size()) {
            lastNumber_ = sets_.emplace(set, sets_.size()).first->second;
            lastSet_ = set;
        }
        return lastNumber_;
    }

    std::map<std::u16string_view, std::size_t> sets_;
    std::u16string_view lastSet_;
    std::size_t lastNumber_ = sets_.emplace(std::u16string_view(), 0).first->second;
    std::vector<std::pair<std::size_t, std::u16string_view>> names_;
};

/// Which of the type's properties the element has itself.
void findHidden(SetsOfElement& sets) {
    std::vector<std::u16string_view> setNames;
    for (const DecodedSet* set : sets.type) setNames.push_back(set->name());
    std::sort(setNames.begin(), setNames.end());
    PropertyNames own;
    for (const DecodedSet* set : sets.own) {
        // Only sets of one name can hide each other's properties; the others are not looked into.
        if (!std::binary_search(setNames.begin(), setNames.end(), set->name())) continue;
        for (std::size_t i = 0; i < set->size(); ++i) own.add(set->property(i));
    }
    own.finish();
    for (std::size_t place = 0; place < sets.type.size(); ++place) {
        const DecodedSet& set = *sets.type[place];
        for (std::size_t i = 0; i < set.size(); ++i) {
            if (own.contains(set.property(i))) sets.hidden.emplace_back(place, i);
        }
    }
}

const SetsOfElement& setsOf(Workspace& work, Slot element) {
    if (const SetsOfElement* known = work.elementSets.find(element)) return *known;
    SetsOfElement sets;
    for (const AssignedSet& assignment : assignedSets(work, element)) {
        sets.overridden = sets.overridden || assignment.overriding;
        if (!assignment.repeated) sets.own.push_back(&work.propertySets.of(assignment.set));
    }
    for (const Slot set : setsOfType(work, element)) sets.type.push_back(&work.propertySets.of(set));
    if (!sets.overridden) findHidden(sets);
    return work.elementSets.keep(element, std::move(sets));
}

void visitInherited(const PropertyView& property, const std::function<void(const PropertyView&)>& visit) {
    PropertyView inherited = property;
    inherited.inherited = true;
    visit(inherited);
}

/// All properties of an element with overriding relations.
void visitOverridden(Workspace& work, Slot element, const SetsOfElement& sets,
                     const std::function<void(const PropertyView&)>& visit) {
    PropertyNames own;
    forEachOwnProperty(work, assignedSets(work, element), [&](const PropertyView& property, const PropertyPlace&) {
        own.add(property);
        visit(property);
        return true;
    });
    own.finish();
    for (const DecodedSet* set : sets.type) {
        for (std::size_t i = 0; i < set->size(); ++i) {
            if (!own.contains(set->property(i))) visitInherited(set->property(i), visit);
        }
    }
}

}  // namespace

std::vector<AssignedSet> assignedSets(Workspace& work, Slot element) {
    std::vector<AssignedSet> assigned;
    DistinctSlots seen;
    work.inverseReferences.forEachUse(element, [&](const Use& use) {
        const Class& cls = work.classes.of(use.user);
        const bool overriding = cls.role == Role::OverridesProperties;
        if (!overriding && cls.role != Role::DefinesByProperties) return true;
        // Named by another argument of the relation the element is given nothing.
        if (cls.attributeIndex(Field::Related) != use.attributeIndex) return true;
        DistinctSlots ofRelation;
        for (const Slot set : work.forwardReferences.of(use.user, Field::Relating)) {
            if (work.classes.of(set).role != Role::PropertySet || !ofRelation.add(set)) continue;
            assigned.push_back({use.user, set, overriding, !seen.add(set)});
        }
        return true;
    });
    return assigned;
}

std::vector<Slot> setsOfType(Workspace& work, Slot element) {
    const Slot type = work.typeObject(element);
    if (type == step::NoSlot) return {};
    std::vector<Slot> sets = work.forwardReferences.of(type, Field::HasPropertySets);
    DistinctSlots seen;
    std::erase_if(sets, [&](Slot set) { return work.classes.of(set).role != Role::PropertySet || !seen.add(set); });
    return sets;
}

void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned, const PropertyVisit& visit) {
    const Overrides overrides = overridesOf(work, assigned);
    for (const AssignedSet& assignment : assigned) {
        // A set that two relations give counts once, but both have to follow when it is copied.
        if (assignment.repeated) continue;
        const auto held = overrides.find(assignment.set);
        const bool goOn = held == overrides.end()
                              ? visitSet(work.propertySets.of(assignment.set), assignment.set, visit)
                              : OverriddenSet(work, assignment.set, held->second).visitAll(visit);
        if (!goOn) return;
    }
}

void forEachTypeProperty(Workspace& work, Slot element, const PropertyVisit& visit) {
    for (const Slot set : setsOfType(work, element)) {
        if (!visitSet(work.propertySets.of(set), set, visit)) return;
    }
}

std::vector<Slot> findProperties(Workspace& work, Slot element, const std::vector<PropertyName>& names) {
    std::vector<Slot> found(names.size(), step::NoSlot);
    std::multimap<std::pair<std::u16string_view, std::u16string_view>, std::size_t> wanted;  // by name and set
    for (std::size_t i = 0; i < names.size(); ++i) wanted.emplace(std::pair(names[i].name, names[i].set), i);
    const PropertyVisit visit = [&](const PropertyView& property, const PropertyPlace& place) {
        const auto [begin, end] = wanted.equal_range(std::pair(property.name, property.set));
        for (auto it = begin; it != end; ++it) found[it->second] = place.property;
        wanted.erase(begin, end);
        return !wanted.empty();
    };
    forEachOwnProperty(work, assignedSets(work, element), visit);
    if (!wanted.empty()) forEachTypeProperty(work, element, visit);
    return found;
}

void forEachProperty(Workspace& work, Slot element, const std::function<void(const PropertyView&)>& visit) {
    work.propertySets.trim();
    const SetsOfElement& sets = setsOf(work, element);
    if (sets.overridden) return visitOverridden(work, element, sets, visit);
    for (const DecodedSet* set : sets.own) {
        for (std::size_t i = 0; i < set->size(); ++i) visit(set->property(i));
    }
    auto hidden = sets.hidden.begin();
    for (std::size_t place = 0; place < sets.type.size(); ++place) {
        const DecodedSet& set = *sets.type[place];
        for (std::size_t i = 0; i < set.size(); ++i) {
            if (hidden != sets.hidden.end() && *hidden == std::pair(std::uint32_t(place), std::uint32_t(i))) {
                ++hidden;
            } else {
                visitInherited(set.property(i), visit);
            }
        }
    }
}

}  // namespace model::ifc
