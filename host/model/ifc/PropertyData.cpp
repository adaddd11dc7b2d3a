#include "model/ifc/PropertyData.hpp"

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
            {assignment.relation, assignment.set, work.links.of(assignment.relation, Field::Overriding)});
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
        : set(setSlot), base(work.propertySets.of(setSlot)) {
        for (const Override& candidate : overrides) {
            if (candidate.set != set) continue;
            for (const Slot slot : candidate.properties) {
                const DecodedSet& decoded = work.propertySets.single(slot, base.name());
                if (decoded.size() == 0 || find(decoded.property(0).name) != nullptr) continue;
                replacements.push_back({decoded.property(0), {slot, set, candidate.relation}, false});
            }
        }
    }

    bool visitAll(const PropertyVisit& visit) {
        for (std::size_t i = 0; i < base.size(); ++i) {
            Replacement* replacement = find(base.property(i).name);
            const bool goOn = replacement == nullptr ? visit(base.property(i), {base.slot(i), set, step::NoSlot})
                                                     : visitOnce(*replacement, visit);
            if (!goOn) return false;
        }
        return std::all_of(replacements.begin(), replacements.end(),
                           [&](Replacement& replacement) { return visitOnce(replacement, visit); });
    }

private:
    struct Replacement {
        PropertyView property;
        PropertyPlace place;
        bool visited;
    };

    Replacement* find(std::u16string_view name) {
        const auto found = std::find_if(replacements.begin(), replacements.end(),
                                        [&](const Replacement& candidate) { return candidate.property.name == name; });
        return found == replacements.end() ? nullptr : &*found;
    }

    static bool visitOnce(Replacement& replacement, const PropertyVisit& visit) {
        if (std::exchange(replacement.visited, true)) return true;
        return visit(replacement.property, replacement.place);
    }

    Slot set;
    const DecodedSet& base;
    std::vector<Replacement> replacements;
};

bool isAmong(const std::vector<PropertyView>& own, const PropertyView& sought) {
    return std::any_of(own.begin(), own.end(), [&](const PropertyView& property) {
        return property.name == sought.name && property.set == sought.set;
    });
}

}  // namespace

std::vector<AssignedSet> assignedSets(Workspace& work, Slot element) {
    std::vector<AssignedSet> assigned;
    work.references.forEachUse(element, [&](const Use& use) {
        const Class& cls = work.classes.of(use.user);
        const bool overriding = cls.role == Role::OverridesProperties;
        if (!overriding && cls.role != Role::DefinesByProperties) return true;
        if (cls.place(Field::Related) != use.argument) return true;
        for (const Slot set : work.links.of(use.user, Field::Relating)) {
            if (work.classes.of(set).role == Role::PropertySet) assigned.push_back({use.user, set, overriding});
        }
        return true;
    });
    return assigned;
}

void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned, const PropertyVisit& visit) {
    const std::vector<Override> overrides = overridesOf(work, assigned);
    for (auto current = assigned.begin(); current != assigned.end(); ++current) {
        const bool seen = std::any_of(assigned.begin(), current,
                                      [&](const AssignedSet& earlier) { return earlier.set == current->set; });
        if (seen) continue;
        const bool goOn = overrides.empty() ? visitSet(work.propertySets.of(current->set), current->set, visit)
                                            : OverriddenSet(work, current->set, overrides).visitAll(visit);
        if (!goOn) return;
    }
}

void forEachTypeProperty(Workspace& work, Slot element, const PropertyVisit& visit) {
    const Slot type = work.typeObject(element);
    if (type == step::NoSlot) return;
    for (const Slot set : work.links.of(type, Field::HasPropertySets)) {
        if (work.classes.of(set).role != Role::PropertySet) continue;
        if (!visitSet(work.propertySets.of(set), set, visit)) return;
    }
}

void forEachProperty(Workspace& work, Slot element, const std::function<void(const PropertyView&)>& visit) {
    work.propertySets.trim();
    std::vector<PropertyView> own;
    const bool hasType = work.typeObject(element) != step::NoSlot;
    forEachOwnProperty(work, assignedSets(work, element), [&](const PropertyView& property, const PropertyPlace&) {
        if (hasType) own.push_back(property);
        visit(property);
        return true;
    });
    if (!hasType) return;
    forEachTypeProperty(work, element, [&](const PropertyView& property, const PropertyPlace&) {
        if (isAmong(own, property)) return true;
        PropertyView inherited = property;
        inherited.inherited = true;
        visit(inherited);
        return true;
    });
}

}  // namespace model::ifc
