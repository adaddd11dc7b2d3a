#include "model/ifc/data/PropertyData.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

/// What replaces properties of a set, for one element.
struct Override {
    Slot relation;
    Slot set;
    std::vector<Slot> properties;
};

std::vector<Override> overridesOf(Workspace& work, const std::vector<AssignedSet>& assigned) {
    std::vector<Override> overrides;
    for (const AssignedSet& assignment : assigned) {
        if (!assignment.overriding) continue;
        overrides.push_back(
            {assignment.relation, assignment.set, work.forwardReferences.of(assignment.relation, Field::Overriding)});
    }
    return overrides;
}

bool visitSet(const DecodedSet& decoded, Slot set, const PropertyVisit& visit) {
    for (std::size_t i = 0; i < decoded.size(); ++i) {
        if (!visit(decoded.property(i), {decoded.slot(i), set, step::NoSlot})) return false;
    }
    return true;
}

/// Lists a set as the element sees it: overridden properties in the place of the set's own, further ones behind.
class OverriddenSet {
public:
    OverriddenSet(Workspace& work, Slot setSlot, const std::vector<Override>& overrides)
        : set_(setSlot), base_(work.propertySets.of(setSlot)) {
        for (const Override& candidate : overrides) {
            if (candidate.set != set_) continue;
            for (const Slot slot : candidate.properties) {
                const DecodedSet& decoded = work.propertySets.overriding(slot, set_);
                if (decoded.size() == 0 || find(decoded.property(0).name) != nullptr) continue;
                replacements_.push_back({decoded.property(0), {slot, set_, candidate.relation}, false});
            }
        }
    }

    bool visitAll(const PropertyVisit& visit) {
        for (std::size_t i = 0; i < base_.size(); ++i) {
            Replacement* replacement = find(base_.property(i).name);
            const bool goOn = replacement == nullptr ? visit(base_.property(i), {base_.slot(i), set_, step::NoSlot})
                                                     : visitOnce(*replacement, visit);
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

    Replacement* find(std::u16string_view name) {
        const auto found = std::find_if(replacements_.begin(), replacements_.end(),
                                        [&](const Replacement& candidate) { return candidate.property.name == name; });
        return found == replacements_.end() ? nullptr : &*found;
    }

    static bool visitOnce(Replacement& replacement, const PropertyVisit& visit) {
        if (std::exchange(replacement.visited, true)) return true;
        return visit(replacement.property, replacement.place);
    }

    Slot set_;
    const DecodedSet& base_;
    std::vector<Replacement> replacements_;
};

/// The sets in the order of the properties; each once.
template <class Visit>
void forEachDistinctSet(const std::vector<AssignedSet>& assigned, Visit&& visit) {
    for (auto current = assigned.begin(); current != assigned.end(); ++current) {
        const bool seen = std::any_of(assigned.begin(), current,
                                      [&](const AssignedSet& earlier) { return earlier.set == current->set; });
        if (!seen && !visit(current->set)) return;
    }
}

std::vector<Slot> setsOfType(Workspace& work, Slot element) {
    const Slot type = work.typeObject(element);
    if (type == step::NoSlot) return {};
    std::vector<Slot> sets = work.forwardReferences.of(type, Field::HasPropertySets);
    std::erase_if(sets, [&](Slot set) { return work.classes.of(set).role != Role::PropertySet; });
    return sets;
}

const SetsOfElement& setsOf(Workspace& work, Slot element) {
    if (const SetsOfElement* known = work.elementSets.find(element)) return *known;
    SetsOfElement sets;
    const auto assigned = assignedSets(work, element);
    forEachDistinctSet(assigned, [&](Slot set) {
        sets.own.push_back(&work.propertySets.of(set));
        return true;
    });
    for (const Slot set : setsOfType(work, element)) sets.type.push_back(&work.propertySets.of(set));
    sets.overridden = std::any_of(assigned.begin(), assigned.end(),
                                  [](const AssignedSet& assignment) { return assignment.overriding; });
    return work.elementSets.keep(element, std::move(sets));
}

bool has(const std::vector<const DecodedSet*>& sets, const PropertyView& sought) {
    return std::any_of(sets.begin(), sets.end(), [&](const DecodedSet* set) {
        return set->name() == sought.set && set->find(sought.name) < set->size();
    });
}

/// Own properties of an element with overriding relations. @return what was visited.
std::vector<PropertyView> visitOverridden(Workspace& work, Slot element,
                                          const std::function<void(const PropertyView&)>& visit) {
    std::vector<PropertyView> own;
    forEachOwnProperty(work, assignedSets(work, element), [&](const PropertyView& property, const PropertyPlace&) {
        own.push_back(property);
        visit(property);
        return true;
    });
    return own;
}

bool isAmong(const std::vector<PropertyView>& own, const PropertyView& sought) {
    return std::any_of(own.begin(), own.end(), [&](const PropertyView& property) {
        return property.name == sought.name && property.set == sought.set;
    });
}

}  // namespace

std::vector<AssignedSet> assignedSets(Workspace& work, Slot element) {
    std::vector<AssignedSet> assigned;
    work.inverseReferences.forEachUse(element, [&](const Use& use) {
        const Class& cls = work.classes.of(use.user);
        const bool overriding = cls.role == Role::OverridesProperties;
        if (!overriding && cls.role != Role::DefinesByProperties) return true;
        if (cls.place(Field::Related) != use.argument) return true;
        for (const Slot set : work.forwardReferences.of(use.user, Field::Relating)) {
            if (work.classes.of(set).role == Role::PropertySet) assigned.push_back({use.user, set, overriding});
        }
        return true;
    });
    return assigned;
}

void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned, const PropertyVisit& visit) {
    const std::vector<Override> overrides = overridesOf(work, assigned);
    forEachDistinctSet(assigned, [&](Slot set) {
        return overrides.empty() ? visitSet(work.propertySets.of(set), set, visit)
                                 : OverriddenSet(work, set, overrides).visitAll(visit);
    });
}

void forEachTypeProperty(Workspace& work, Slot element, const PropertyVisit& visit) {
    for (const Slot set : setsOfType(work, element)) {
        if (!visitSet(work.propertySets.of(set), set, visit)) return;
    }
}

Slot findProperty(Workspace& work, Slot element, std::u16string_view set, std::u16string_view name) {
    Slot found = step::NoSlot;
    const PropertyVisit visit = [&](const PropertyView& property, const PropertyPlace& place) {
        if (property.set == set && property.name == name) found = place.property;
        return found == step::NoSlot;
    };
    forEachOwnProperty(work, assignedSets(work, element), visit);
    if (found == step::NoSlot) forEachTypeProperty(work, element, visit);
    return found;
}

void forEachProperty(Workspace& work, Slot element, const std::function<void(const PropertyView&)>& visit) {
    work.propertySets.trim();
    const SetsOfElement& sets = setsOf(work, element);
    std::vector<PropertyView> overridden;
    if (sets.overridden) {
        overridden = visitOverridden(work, element, visit);
    } else {
        for (const DecodedSet* set : sets.own) {
            for (std::size_t i = 0; i < set->size(); ++i) visit(set->property(i));
        }
    }
    for (const DecodedSet* set : sets.type) {
        for (std::size_t i = 0; i < set->size(); ++i) {
            PropertyView inherited = set->property(i);
            if (sets.overridden ? isAmong(overridden, inherited) : has(sets.own, inherited)) continue;
            inherited.inherited = true;
            visit(inherited);
        }
    }
}

}  // namespace model::ifc
