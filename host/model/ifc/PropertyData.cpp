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

/// Lists a set as the element sees it: overridden properties in the place of the set's own, further ones behind.
class OverriddenSet {
public:
    OverriddenSet(Workspace& work, Slot setSlot, const std::vector<Override>& overrides)
        : set(setSlot), base(work.propertySets.of(setSlot)) {
        for (const Override& candidate : overrides) {
            if (candidate.set != set) continue;
            for (const Slot slot : candidate.properties) {
                auto property = work.propertySets.property(slot, base->name);
                if (property && find(property->name) == nullptr) {
                    replacements.push_back({std::move(*property), {slot, set, candidate.relation}, false});
                }
            }
        }
    }

    bool visitAll(const std::function<bool(const ListedProperty&)>& visit) {
        for (std::size_t i = 0; i < base->properties.size(); ++i) {
            Replacement* replacement = find(base->properties[i].name);
            if (replacement != nullptr && replacement->visited) continue;
            if (replacement != nullptr) replacement->visited = true;
            const bool goOn = replacement != nullptr
                                  ? visit({replacement->property, replacement->place})
                                  : visit({base->properties[i], {base->slots[i], set, step::NoSlot}});
            if (!goOn) return false;
        }
        return std::all_of(replacements.begin(), replacements.end(), [&](const Replacement& replacement) {
            return replacement.visited || visit({replacement.property, replacement.place});
        });
    }

private:
    struct Replacement {
        Property property;
        PropertyPlace place;
        bool visited;
    };

    Replacement* find(const std::u16string& name) {
        const auto found = std::find_if(replacements.begin(), replacements.end(),
                                        [&](const Replacement& candidate) { return candidate.property.name == name; });
        return found == replacements.end() ? nullptr : &*found;
    }

    Slot set;
    std::shared_ptr<const DecodedSet> base;
    std::vector<Replacement> replacements;
};

bool visitSet(const DecodedSet& decoded, Slot set, const std::function<bool(const ListedProperty&)>& visit) {
    for (std::size_t i = 0; i < decoded.properties.size(); ++i) {
        if (!visit({decoded.properties[i], {decoded.slots[i], set, step::NoSlot}})) return false;
    }
    return true;
}

/// Whether one of the listed properties has that set and name. Properties of one set stand together, so that a set of
/// another name is passed over quickly.
bool isAmong(const std::vector<Property>& own, const Property& sought) {
    return std::any_of(own.begin(), own.end(), [&](const Property& property) {
        return property.set == sought.set && property.name == sought.name;
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

void forEachOwnProperty(Workspace& work, const std::vector<AssignedSet>& assigned,
                        const std::function<bool(const ListedProperty&)>& visit) {
    const std::vector<Override> overrides = overridesOf(work, assigned);
    for (auto current = assigned.begin(); current != assigned.end(); ++current) {
        const bool seen = std::any_of(assigned.begin(), current,
                                      [&](const AssignedSet& earlier) { return earlier.set == current->set; });
        if (seen) continue;
        const bool goOn = overrides.empty() ? visitSet(*work.propertySets.of(current->set), current->set, visit)
                                            : OverriddenSet(work, current->set, overrides).visitAll(visit);
        if (!goOn) return;
    }
}

void forEachTypeProperty(Workspace& work, Slot element, const std::function<bool(const ListedProperty&)>& visit) {
    const Slot type = work.typeObject(element);
    if (type == step::NoSlot) return;
    for (const Slot set : work.links.of(type, Field::HasPropertySets)) {
        if (work.classes.of(set).role != Role::PropertySet) continue;
        if (!visitSet(*work.propertySets.of(set), set, visit)) return;
    }
}

std::vector<Property> readProperties(Workspace& work, Slot element) {
    work.links.trim();
    std::vector<Property> properties;
    forEachOwnProperty(work, assignedSets(work, element), [&](const ListedProperty& listed) {
        properties.push_back(listed.property);
        return true;
    });
    std::vector<Property> inherited;
    forEachTypeProperty(work, element, [&](const ListedProperty& listed) {
        if (!isAmong(properties, listed.property)) inherited.push_back(listed.property);
        return true;
    });
    for (Property& property : inherited) {
        property.inherited = true;
        properties.push_back(std::move(property));
    }
    return properties;
}

}  // namespace model::ifc
