#include "model/ifc/PropertyEditor.hpp"

#include "model/ifc/PropertyData.hpp"
#include "model/ifc/PropertyValues.hpp"
#include "model/ifc/Text.hpp"
#include "model/ifc/ValueText.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

/// A property of the wanted name, and whether there is nothing to do about it: it is no single value, or has the value.
struct FoundProperty {
    PropertyPlace place;
    bool settled;
};

class PropertyEditor {
public:
    PropertyEditor(Workspace& workspace, Element element, const Property& target, std::vector<std::string>& toTell)
        : work(workspace),
          edit(workspace, element),
          wanted(target),
          notes(toTell),
          assigned(assignedSets(work, edit.slot())) {}

    Status run() {
        work.propertySets.trim();
        if (Status named = checkNames(); !named) return named;
        const std::uint64_t before = work.file.revision();
        Status done = set();
        if (done && work.file.revision() != before) noteNamesakes();
        return done;
    }

private:
    Status set();
    Status checkNames() const;
    std::optional<FoundProperty> findOwn() const;
    std::optional<FoundProperty> findInherited() const;
    bool matches(const PropertyView& property) const {
        return property.set == wanted.set && property.name == wanted.name;
    }
    bool isSettled(const PropertyView& held) const {
        return held.kind != PropertyKind::Single || wanted.kind != PropertyKind::Single ||
               sameContent(held, wanted.value);
    }

    Status changeOwn(const FoundProperty& found);
    Status overrideInherited(Slot inherited);
    Status create();

    Result<Draft> copyWithValue(Slot property);
    Status changeInPlace(Slot property);
    Status putCopyInPlaceOf(const PropertyPlace& place);
    Status addToOverride(Slot overriding, Slot property);
    Status addProperty(const Draft& property);
    Status addToSet(const Draft& property, Slot set);
    Status addWithNewSet(const Draft& property);
    Status relinkSet(Slot from, Slot to);
    Status checkSetAndRelations(Slot set) const;
    Status checkOverrides(Slot set) const;
    Status checkNoComplexNamesake(Slot set) const;

    /// A relation that overrides properties of the set for the element; NoSlot where there is none.
    Slot overridingRelation(Slot set) const;
    Slot ownSetOfName();
    void noteNamesakes();

    std::string setPurpose() const { return "property set " + toUtf8(wanted.set); }
    std::string relationPurpose() const { return "property relation " + toUtf8(wanted.set); }

    Workspace& work;
    ElementEdit edit;
    const Property& wanted;
    std::vector<std::string>& notes;
    std::vector<AssignedSet> assigned;
};

Status PropertyEditor::set() {
    if (const auto own = findOwn()) return changeOwn(*own);
    const auto inherited = findInherited();
    if (wanted.kind != PropertyKind::Single || (inherited && inherited->settled)) return {};
    return inherited ? overrideInherited(inherited->place.property) : create();
}

Status PropertyEditor::checkNames() const {
    if (wanted.set.empty()) return Error{ErrorKind::BadName, "the property set has no name"};
    if (wanted.name.empty()) return Error{ErrorKind::BadName, "the property has no name"};
    return {};
}

std::optional<FoundProperty> PropertyEditor::findOwn() const {
    std::optional<FoundProperty> found;
    forEachOwnProperty(work, assigned, [&](const PropertyView& property, const PropertyPlace& place) {
        if (matches(property)) found = FoundProperty{place, isSettled(property)};
        return !found;
    });
    return found;
}

std::optional<FoundProperty> PropertyEditor::findInherited() const {
    std::optional<FoundProperty> found;
    forEachTypeProperty(work, edit.slot(), [&](const PropertyView& property, const PropertyPlace& place) {
        if (matches(property)) found = FoundProperty{place, isSettled(property)};
        return !found;
    });
    return found;
}

Status PropertyEditor::changeOwn(const FoundProperty& found) {
    if (found.settled) return {};
    const PropertyPlace& place = found.place;
    if (Status editable = edit.check(place.property); !editable) return editable;
    if (Status editable = checkSetAndRelations(place.set); !editable) return editable;
    const bool overridden = place.overriding != step::NoSlot;
    const Slot holder = overridden ? place.overriding : place.set;
    const bool holderIsOwn = overridden ? edit.isAlone(holder) : edit.isOwn(holder);
    if (holderIsOwn && edit.isUsedOnlyBy(place.property, holder)) return changeInPlace(place.property);
    return putCopyInPlaceOf(place);
}

Status PropertyEditor::changeInPlace(Slot property) {
    step::Instance instance;
    work.file.read(property, instance);
    const auto nominal = argument(instance, work.classes.of(property), Field::NominalValue);
    if (nominal.text.empty()) return Error{ErrorKind::Refused, "the file gives the property no place for a value"};
    const Result<Replacement> change = replaceNominalValue(nominal, wanted.value, work.schema);
    if (!change) return change.error();
    return work.file.replaceValue(property, change->part, change->text);
}

/// A copy of a property with the new value.
Result<Draft> PropertyEditor::copyWithValue(Slot property) {
    step::Instance instance;
    work.file.read(property, instance);
    const auto nominal = argument(instance, work.classes.of(property), Field::NominalValue);
    if (nominal.text.empty()) return Error{ErrorKind::Refused, "the file gives the property no place for a value"};
    const Result<Replacement> change = replaceNominalValue(nominal, wanted.value, work.schema);
    if (!change) return change.error();
    std::string text(nominal.text);
    const auto at = static_cast<std::size_t>(change->part.text.data() - nominal.text.data());
    text.replace(at, change->part.text.size(), change->text);
    Draft draft = edit.copyOf(property);
    draft.set(edit.attributeName(property, Field::NominalValue), std::move(text));
    return draft;
}

Status PropertyEditor::putCopyInPlaceOf(const PropertyPlace& place) {
    const Result<Draft> draft = copyWithValue(place.property);
    if (!draft) return draft.error();
    const Result<Slot> copy = edit.add(*draft, place.property);
    if (!copy) return copy.error();
    if (place.overriding != step::NoSlot) {
        return edit.relink(place.overriding, Field::Overriding, place.property, *copy, relationPurpose());
    }
    if (edit.isOwn(place.set)) return edit.replaceReference(place.set, Field::HasProperties, place.property, *copy);
    if (const Slot overriding = overridingRelation(place.set); overriding != step::NoSlot) {
        return addToOverride(overriding, *copy);
    }
    Draft set = edit.copyOfRoot(place.set, setPurpose());
    set.replaceReference("HasProperties", work.file.id(place.property), work.file.id(*copy));
    const Result<Slot> newSet = edit.add(set, place.set);
    return newSet ? relinkSet(place.set, *newSet) : Status{newSet.error()};
}

/// IFC2X3: the relation that already overrides some of a set's properties takes one more.
Status PropertyEditor::addToOverride(Slot overriding, Slot property) {
    if (edit.isAlone(overriding)) return work.addToList(overriding, Field::Overriding, property);
    Draft draft = edit.copyOfRoot(overriding, relationPurpose());
    draft.addReference("OverridingProperties", work.file.id(property));
    return edit.moveInto(draft, overriding);
}

Status PropertyEditor::overrideInherited(Slot inherited) {
    if (Status editable = edit.check(inherited); !editable) return editable;
    const Result<Draft> draft = copyWithValue(inherited);
    return draft ? addProperty(*draft) : Status{draft.error()};
}

Status PropertyEditor::create() {
    for (const auto& [type, text] : {std::pair{"IfcLabel", &wanted.set}, std::pair{"IfcIdentifier", &wanted.name}}) {
        if (Status fits = checkText(*text, work.schema.type(type)); !fits) {
            return Error{ErrorKind::BadName, inQuotes(*text) + " " + fits.error().message};
        }
    }
    Result<std::string> value = encodeNominalValue(wanted.value, work.schema);
    if (!value) return value.error();
    Draft draft(*work.schema.entity("IfcPropertySingleValue"));
    draft.set("Name", step::encodeString(wanted.name)).set("NominalValue", std::move(*value));
    return addProperty(draft);
}

/// Puts a new property into the element's own set of the wanted name, or into a new one.
Status PropertyEditor::addProperty(const Draft& property) {
    if (Status editable = edit.check(edit.slot()); !editable) return editable;
    const Slot set = ownSetOfName();
    return set == step::NoSlot ? addWithNewSet(property) : addToSet(property, set);
}

Status PropertyEditor::addToSet(const Draft& property, Slot set) {
    if (Status editable = checkSetAndRelations(set); !editable) return editable;
    if (Status free = checkNoComplexNamesake(set); !free) return free;
    const Result<Slot> added = edit.add(property, set);
    if (!added) return added.error();
    if (edit.isOwn(set)) return work.addToList(set, Field::HasProperties, *added);
    Draft copy = edit.copyOfRoot(set, setPurpose());
    copy.addReference("HasProperties", work.file.id(*added));
    const Result<Slot> newSet = edit.add(copy, set);
    return newSet ? relinkSet(set, *newSet) : Status{newSet.error()};
}

Status PropertyEditor::addWithNewSet(const Draft& property) {
    const Result<Slot> added = edit.add(property, edit.slot());
    if (!added) return added.error();
    Draft set = edit.newRoot("IfcPropertySet", setPurpose());
    set.set("Name", step::encodeString(wanted.set)).set("HasProperties", '(' + edit.reference(*added) + ')');
    const Result<Slot> newSet = edit.add(set, edit.slot());
    if (!newSet) return newSet.error();
    Draft relation = edit.newRoot("IfcRelDefinesByProperties", relationPurpose());
    relation.set("RelatedObjects", '(' + referenceText(edit.id()) + ')')
        .set("RelatingPropertyDefinition", edit.reference(*newSet));
    const Result<Slot> related = edit.add(relation, edit.slot());
    return related ? Status{} : Status{related.error()};
}

/// Lets every relation that gives the element one set give it the other.
Status PropertyEditor::relinkSet(Slot from, Slot to) {
    std::vector<Slot> done;
    for (const AssignedSet& assignment : assigned) {
        const bool again = std::find(done.begin(), done.end(), assignment.relation) != done.end();
        if (assignment.set != from || again) continue;
        done.push_back(assignment.relation);
        if (Status linked = edit.relink(assignment.relation, Field::Relating, from, to, relationPurpose()); !linked) {
            return linked;
        }
    }
    return {};
}

/// Everything that a change of the set may touch can be changed. Asked before the first change is made, so that a
/// refusal leaves nothing half done.
Status PropertyEditor::checkSetAndRelations(Slot set) const {
    if (Status editable = edit.check(edit.slot()); !editable) return editable;
    if (Status editable = edit.check(set); !editable) return editable;
    step::Instance instance;
    std::vector<step::Value> members;
    work.file.read(set, instance);
    if (!step::splitAggregate(argument(instance, work.classes.of(set), Field::HasProperties), members)) {
        return Error{ErrorKind::Refused, "the properties of set " + edit.reference(set) + " are no well-formed list"};
    }
    for (const AssignedSet& assignment : assigned) {
        if (assignment.set != set) continue;
        if (Status editable = edit.check(assignment.relation); !editable) return editable;
        if (!assignment.overriding || !work.file.read(assignment.relation, instance)) continue;
        if (!step::splitAggregate(argument(instance, work.classes.of(assignment.relation), Field::Overriding),
                                  members)) {
            return Error{ErrorKind::Refused, "the properties of relation " + edit.reference(assignment.relation) +
                                                 " are no well-formed list"};
        }
    }
    return checkOverrides(set);
}

/// The first of several overriding relations counts. Splitting a shared one moves it behind the others, and another
/// value would come to light.
Status PropertyEditor::checkOverrides(Slot set) const {
    std::size_t count = 0;
    bool shared = false;
    for (const AssignedSet& assignment : assigned) {
        if (assignment.set != set || !assignment.overriding) continue;
        ++count;
        shared = shared || !edit.isAlone(assignment.relation);
    }
    if (count < 2 || !shared) return {};
    return Error{ErrorKind::Refused, std::to_string(count) + " relations override properties of set " +
                                         edit.reference(set) + " for the element, and other elements share them"};
}

/// Property names are unique in a set, also among the complex ones, which are not listed.
Status PropertyEditor::checkNoComplexNamesake(Slot set) const {
    for (const Slot member : work.links.of(set, Field::HasProperties)) {
        step::Instance instance;
        const Class& cls = work.classes.of(member);
        if (cls.role != Role::ComplexProperty || !work.file.read(member, instance)) continue;
        if (stringArgument(instance, cls, Field::Name) == wanted.name) {
            return Error{ErrorKind::Refused, "the set has a complex property of that name, " + edit.reference(member)};
        }
    }
    return {};
}

Slot PropertyEditor::overridingRelation(Slot set) const {
    const auto found = std::find_if(assigned.begin(), assigned.end(), [&](const AssignedSet& assignment) {
        return assignment.set == set && assignment.overriding;
    });
    return found == assigned.end() ? step::NoSlot : found->relation;
}

Slot PropertyEditor::ownSetOfName() {
    const auto found = std::find_if(assigned.begin(), assigned.end(), [&](const AssignedSet& assignment) {
        return work.propertySets.of(assignment.set).name() == wanted.set;
    });
    return found == assigned.end() ? step::NoSlot : found->set;
}

/// Which of two sets of one name is meant nobody can tell; the first in the file is taken, and it is said.
void PropertyEditor::noteNamesakes() {
    std::vector<Slot> namesakes;
    for (const AssignedSet& assignment : assigned) {
        const bool known = std::find(namesakes.begin(), namesakes.end(), assignment.set) != namesakes.end();
        if (!known && work.propertySets.of(assignment.set).name() == wanted.set) namesakes.push_back(assignment.set);
    }
    if (namesakes.size() < 2) return;
    notes.push_back("the element has " + std::to_string(namesakes.size()) + " property sets " + inQuotes(wanted.set) +
                    "; the first one that fits was changed");
}

}  // namespace

Status setProperty(Workspace& work, Element element, const Property& property, std::vector<std::string>& notes) {
    return PropertyEditor(work, element, property, notes).run();
}

}  // namespace model::ifc
