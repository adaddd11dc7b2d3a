#include "model/ifc/data/PropertyEditor.hpp"

#include "model/ifc/data/NewValue.hpp"
#include "model/ifc/data/PropertyData.hpp"
#include "model/ifc/values/InQuotes.hpp"
#include "model/ifc/values/PropertyValues.hpp"
#include "model/ifc/values/ValueText.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

/// A property of the wanted name, and whether there is nothing to do about it: it is no single value, or has the value.
struct FoundProperty {
    PropertyPlace place;
    bool settled;
};

/// Changes what one element sees and nobody else does. Where something on the way from the element to the value is
/// shared (the property, its set, the relation that gives the set), it is copied from there on up, and each copy takes
/// the place of its original. All that may be in the way - texts, lists, other instances of an id, ids for the copies -
/// is looked at before the first change, so that a refusal leaves no byte.
class PropertyEditor {
public:
    /// @param set, name  UTF-16, as the file's strings read.
    PropertyEditor(Workspace& workspace, Element element, std::u16string_view set, std::u16string_view name,
                   const NewValue& value, std::vector<std::string>& notes)
        : work_(workspace),
          edit_(workspace, element),
          wantedSet_(set),
          wantedName_(name),
          value_(value),
          notes_(notes),
          assigned_(assignedSets(work_, edit_.slot())) {}

    Status run() {
        work_.propertySets.trim();
        if (Status named = checkNames(); !named) return named;
        const std::uint64_t before = work_.file.revision();
        Status done = set();
        // Not where nothing had to be changed: the note would tell of a change.
        if (done && work_.file.revision() != before) noteNamesakes();
        return done;
    }

private:
    Status set();
    Status checkNames() const;
    std::optional<FoundProperty> findOwn() const;
    std::optional<FoundProperty> findOverridden() const;
    std::optional<FoundProperty> findInherited() const;
    std::optional<FoundProperty> findIn(Slot set) const;

    Status changeOwn(const FoundProperty& found);
    Status overrideInherited(Slot inherited);
    Status create();

    Result<Replacement> newValueOf(Slot property, const step::Instance& instance) const;
    Result<InstanceBuilder> copyWithValue(Slot property);
    Status changeInPlace(Slot property);
    Status putCopyInPlaceOf(const PropertyPlace& place);
    Status checkRoomForCopy(const PropertyPlace& place);
    Status addToOverride(Slot overriding, Slot property);
    Status addProperty(const InstanceBuilder& property);
    Status addToSet(const InstanceBuilder& property, Slot set);
    Status addWithNewSet(const InstanceBuilder& property);
    Status relinkSet(Slot from, Slot to);
    Status checkSetAndRelations(Slot set) const;
    Status checkRoomForSetCopy(Slot set);
    bool hasPropertyList(Slot set) const;
    Status checkNoComplexNamesake(Slot set) const;
    Slot complexNamesake(Slot set) const;

    /// A relation that overrides properties of the set for the element and can override the wanted one; NoSlot where
    /// there is none. In a set that has the name twice it cannot: it would replace both by one.
    Slot relationToOverrideIn(Slot set);
    Slot ownSetOfName();
    void noteNamesakes();

    std::string setPurpose() const { return "property set " + text::toUtf8(wantedSet_); }
    std::string relationPurpose() const { return "property relation " + text::toUtf8(wantedSet_); }

    Workspace& work_;
    ElementEdit edit_;
    std::u16string_view wantedSet_, wantedName_;
    const NewValue& value_;
    std::vector<std::string>& notes_;
    std::vector<AssignedSet> assigned_;
};

Status PropertyEditor::set() {
    if (const auto own = findOwn()) return changeOwn(*own);
    const auto inherited = findInherited();
    if (inherited && inherited->settled) return {};
    return inherited ? overrideInherited(inherited->place.property) : create();
}

Status PropertyEditor::checkNames() const {
    if (wantedSet_.empty()) return Error{ErrorKind::BadName, text::message("the property set has no name")};
    if (wantedName_.empty()) return Error{ErrorKind::BadName, text::message("the property has no name")};
    return {};
}

std::optional<FoundProperty> PropertyEditor::findOwn() const {
    for (const AssignedSet& assignment : assigned_) {
        if (assignment.overriding) return findOverridden();
    }
    for (const AssignedSet& assignment : assigned_) {
        if (assignment.repeated) continue;
        if (auto found = findIn(assignment.set)) return found;
    }
    return std::nullopt;
}

/// Among what an element sees whose sets are not all.
std::optional<FoundProperty> PropertyEditor::findOverridden() const {
    std::optional<FoundProperty> found;
    forEachOwnProperty(work_, assigned_, [&](const PropertyView& property, const PropertyPlace& place) {
        // The name first: a set's name may be long, and is that of all its properties.
        const bool matches = property.name == wantedName_ && property.set == wantedSet_;
        if (matches) found = FoundProperty{place, value_.settles(property)};
        return !found;
    });
    return found;
}

std::optional<FoundProperty> PropertyEditor::findInherited() const {
    for (const Slot set : setsOfType(work_, edit_.slot())) {
        if (auto found = findIn(set)) return found;
    }
    return std::nullopt;
}

std::optional<FoundProperty> PropertyEditor::findIn(Slot set) const {
    const DecodedSet& decoded = work_.propertySets.of(set);
    if (decoded.name() != wantedSet_) return std::nullopt;
    const auto index = work_.propertySets.find(set, wantedName_);
    if (!index) return std::nullopt;
    return FoundProperty{{decoded.slot(*index), set, step::NoSlot}, value_.settles(decoded.property(*index))};
}

Status PropertyEditor::changeOwn(const FoundProperty& found) {
    if (found.settled) return {};
    const PropertyPlace& place = found.place;
    if (Status editable = edit_.check(place.property); !editable) return editable;
    if (Status editable = checkSetAndRelations(place.set); !editable) return editable;
    const bool overridden = place.overriding != step::NoSlot;
    const Slot holder = overridden ? place.overriding : place.set;
    const bool holderIsOwn = overridden ? edit_.isAlone(holder) : edit_.isOwn(holder);
    if (holderIsOwn && edit_.isUsedOnlyBy(place.property, holder)) return changeInPlace(place.property);
    return putCopyInPlaceOf(place);
}

Status PropertyEditor::changeInPlace(Slot property) {
    step::Instance instance;
    work_.file.read(property, instance);
    const Result<Replacement> change = newValueOf(property, instance);
    if (!change) return change.error();
    return work_.file.replaceValue(property, change->part, change->text);
}

/// What changes in the argument that holds the property's value.
Result<Replacement> PropertyEditor::newValueOf(Slot property, const step::Instance& instance) const {
    const int index = value_.attributeIndex(work_.classes.of(property));
    if (index < 0) return Error{ErrorKind::Refused, text::message("the property holds no single value")};
    if (static_cast<std::size_t>(index) >= instance.arguments.size())
        return Error{ErrorKind::Refused, text::message("the file gives the property no place for a value")};
    return value_.replacementIn(instance.arguments[static_cast<std::size_t>(index)], instance);
}

/// A copy of a property with the new value.
Result<InstanceBuilder> PropertyEditor::copyWithValue(Slot property) {
    step::Instance instance;
    work_.file.read(property, instance);
    const Result<Replacement> change = newValueOf(property, instance);
    if (!change) return change.error();
    const Class& cls = work_.classes.of(property);
    const auto index = static_cast<std::size_t>(value_.attributeIndex(cls));
    const std::string_view held = instance.arguments[index].text;
    std::string text(held);
    text.replace(static_cast<std::size_t>(change->part.text.data() - held.data()), change->part.text.size(),
                 change->text);
    InstanceBuilder draft = edit_.copyOf(property);
    draft.set(cls.entity->attributes()[index].name, std::move(text));
    return draft;
}

Status PropertyEditor::putCopyInPlaceOf(const PropertyPlace& place) {
    const Result<InstanceBuilder> draft = copyWithValue(place.property);
    if (!draft) return draft.error();
    if (Status room = checkRoomForCopy(place); !room) return room;
    const Result<Slot> copy = edit_.add(*draft, place.property);
    if (!copy) return copy.error();
    if (place.overriding != step::NoSlot) {
        return edit_.relink(place.overriding, Field::Overriding, place.property, *copy, relationPurpose());
    }
    // The lowest level that is the element's own takes the copy; above it nothing is touched.
    if (edit_.isOwn(place.set)) return edit_.replaceInList(place.set, Field::HasProperties, place.property, *copy);
    if (const Slot overriding = relationToOverrideIn(place.set); overriding != step::NoSlot) {
        return addToOverride(overriding, *copy);
    }
    InstanceBuilder set = edit_.copyOfRoot(place.set, setPurpose());
    set.replaceReference("HasProperties", work_.file.id(place.property), work_.file.id(*copy));
    const Result<Slot> newSet = edit_.add(set, place.set);
    return newSet ? relinkSet(place.set, *newSet) : Status{newSet.error()};
}

/// For all that putCopyInPlaceOf adds.
Status PropertyEditor::checkRoomForCopy(const PropertyPlace& place) {
    const auto withRelation = [&](Slot relation) { return edit_.checkRoom(edit_.isAlone(relation) ? 1 : 2); };
    if (place.overriding != step::NoSlot) return withRelation(place.overriding);
    if (edit_.isOwn(place.set)) return edit_.checkRoom(1);
    const Slot overriding = relationToOverrideIn(place.set);
    return overriding != step::NoSlot ? withRelation(overriding) : checkRoomForSetCopy(place.set);
}

/// For a property, a copy of its set, and one of each relation that gives the set to others, too.
Status PropertyEditor::checkRoomForSetCopy(Slot set) {
    const auto shared = std::count_if(assigned_.begin(), assigned_.end(), [&](const AssignedSet& assignment) {
        return assignment.set == set && !edit_.isAlone(assignment.relation);
    });
    return edit_.checkRoom(2 + static_cast<std::size_t>(shared));
}

/// IFC2X3: the relation that already overrides some of a set's properties takes one more.
Status PropertyEditor::addToOverride(Slot overriding, Slot property) {
    if (edit_.isAlone(overriding)) return work_.addToList(overriding, Field::Overriding, property);
    InstanceBuilder draft = edit_.copyOfRoot(overriding, relationPurpose());
    draft.addReference("OverridingProperties", work_.file.id(property));
    return edit_.moveInto(draft, overriding);
}

/// The type's property is others' as well and stays: a copy in a set of the element's own hides it.
Status PropertyEditor::overrideInherited(Slot inherited) {
    if (Status editable = edit_.check(inherited); !editable) return editable;
    const Result<InstanceBuilder> draft = copyWithValue(inherited);
    return draft ? addProperty(*draft) : Status{draft.error()};
}

Status PropertyEditor::create() {
    for (const auto& [type, text] : {std::pair{"IfcLabel", wantedSet_}, std::pair{"IfcIdentifier", wantedName_}}) {
        if (Status fits = checkText(text, work_.schema.type(type)); !fits) {
            return Error{ErrorKind::BadName, inQuotes(text) + " " + fits.error().message};
        }
    }
    Result<std::string> value = value_.nominalValue();
    if (!value) return value.error();
    InstanceBuilder draft(*work_.schema.entity("IfcPropertySingleValue"));
    draft.set("Name", step::encodeString(wantedName_)).set("NominalValue", std::move(*value));
    return addProperty(draft);
}

/// Puts a new property into the element's own set of the wanted name, or into a new one.
Status PropertyEditor::addProperty(const InstanceBuilder& property) {
    if (Status editable = edit_.check(edit_.slot()); !editable) return editable;
    const Slot set = ownSetOfName();
    return set == step::NoSlot ? addWithNewSet(property) : addToSet(property, set);
}

Status PropertyEditor::addToSet(const InstanceBuilder& property, Slot set) {
    if (Status editable = checkSetAndRelations(set); !editable) return editable;
    if (Status free = checkNoComplexNamesake(set); !free) return free;
    if (Status room = edit_.isOwn(set) ? edit_.checkRoom(1) : checkRoomForSetCopy(set); !room) return room;
    const Result<Slot> added = edit_.add(property, set);
    if (!added) return added.error();
    if (edit_.isOwn(set)) return work_.addToList(set, Field::HasProperties, *added);
    InstanceBuilder copy = edit_.copyOfRoot(set, setPurpose());
    copy.addReference("HasProperties", work_.file.id(*added));
    const Result<Slot> newSet = edit_.add(copy, set);
    return newSet ? relinkSet(set, *newSet) : Status{newSet.error()};
}

Status PropertyEditor::addWithNewSet(const InstanceBuilder& property) {
    if (Status room = edit_.checkRoom(3); !room) return room;
    const Result<Slot> added = edit_.add(property, edit_.slot());
    if (!added) return added.error();
    InstanceBuilder set = edit_.newRoot("IfcPropertySet", setPurpose());
    set.set("Name", step::encodeString(wantedSet_)).set("HasProperties", '(' + edit_.reference(*added) + ')');
    const Result<Slot> newSet = edit_.add(set, edit_.slot());
    if (!newSet) return newSet.error();
    InstanceBuilder relation = edit_.newRoot("IfcRelDefinesByProperties", relationPurpose());
    relation.set("RelatedObjects", '(' + referenceText(edit_.id()) + ')')
        .set("RelatingPropertyDefinition", edit_.reference(*newSet));
    const Result<Slot> related = edit_.add(relation, edit_.slot());
    return related ? Status{} : Status{related.error()};
}

/// Lets every relation that gives the element one set give it the other.
Status PropertyEditor::relinkSet(Slot from, Slot to) {
    for (const AssignedSet& assignment : assigned_) {
        if (assignment.set != from) continue;
        if (Status linked = edit_.relink(assignment.relation, Field::Relating, from, to, relationPurpose()); !linked) {
            return linked;
        }
    }
    return {};
}

/// Everything that a change of the set may touch can be changed. Asked before the first change is made, so that a
/// refusal leaves nothing half done.
Status PropertyEditor::checkSetAndRelations(Slot set) const {
    if (Status editable = edit_.check(edit_.slot()); !editable) return editable;
    if (Status editable = edit_.check(set); !editable) return editable;
    if (!hasPropertyList(set)) {
        return Error{ErrorKind::Refused,
                     text::message("the properties of set {} are no well-formed list", edit_.reference(set))};
    }
    step::Instance instance;
    std::vector<step::Value> members;
    for (const AssignedSet& assignment : assigned_) {
        if (assignment.set != set) continue;
        if (Status editable = edit_.checkRelation(assignment.relation); !editable) return editable;
        if (!assignment.overriding || !work_.file.read(assignment.relation, instance)) continue;
        if (!step::splitAggregate(argument(instance, work_.classes.of(assignment.relation), Field::Overriding),
                                  members)) {
            return Error{ErrorKind::Refused, text::message("the properties of relation {} are no well-formed list",
                                                           edit_.reference(assignment.relation))};
        }
    }
    return {};
}

bool PropertyEditor::hasPropertyList(Slot set) const {
    if (const LongSet* known = work_.longSets.of(set)) return known->listed;
    step::Instance instance;
    std::vector<step::Value> members;
    return work_.file.read(set, instance) &&
           step::splitAggregate(argument(instance, work_.classes.of(set), Field::HasProperties), members);
}

/// Property names are unique in a set, also among the complex ones, which are not listed.
Status PropertyEditor::checkNoComplexNamesake(Slot set) const {
    const Slot namesake = complexNamesake(set);
    if (namesake == step::NoSlot) return {};
    return Error{ErrorKind::Refused,
                 text::message("the set has a complex property of that name, {}", edit_.reference(namesake))};
}

Slot PropertyEditor::complexNamesake(Slot set) const {
    if (const LongSet* known = work_.longSets.of(set)) {
        const auto found = known->complexProperties.find(wantedName_);
        return found == known->complexProperties.end() ? step::NoSlot : found->second;
    }
    DistinctSlots seen;
    for (const Slot member : work_.forwardReferences.of(set, Field::HasProperties)) {
        step::Instance instance;
        const Class& cls = work_.classes.of(member);
        if (cls.role != Role::ComplexProperty || !seen.add(member) || !work_.file.read(member, instance)) continue;
        if (stringArgument(instance, cls, Field::Name) == wantedName_) return member;
    }
    return step::NoSlot;
}

Slot PropertyEditor::relationToOverrideIn(Slot set) {
    const auto found = std::find_if(assigned_.begin(), assigned_.end(), [&](const AssignedSet& assignment) {
        return assignment.set == set && assignment.overriding;
    });
    if (found == assigned_.end()) return step::NoSlot;
    const DecodedSet& decoded = work_.propertySets.of(set);
    std::size_t namesakes = 0;
    for (std::size_t i = 0; i < decoded.size(); ++i) namesakes += decoded.property(i).name == wantedName_ ? 1U : 0U;
    // The caller copies the whole set then.
    return namesakes > 1 ? step::NoSlot : found->relation;
}

Slot PropertyEditor::ownSetOfName() {
    const auto found = std::find_if(assigned_.begin(), assigned_.end(), [&](const AssignedSet& assignment) {
        return work_.propertySets.of(assignment.set).name() == wantedSet_;
    });
    return found == assigned_.end() ? step::NoSlot : found->set;
}

/// Which of two sets of one name is meant nobody can tell; the first in the file is taken, and it is said.
void PropertyEditor::noteNamesakes() {
    const auto count = std::count_if(assigned_.begin(), assigned_.end(), [&](const AssignedSet& assignment) {
        return !assignment.repeated && work_.propertySets.of(assignment.set).name() == wantedSet_;
    });
    if (count < 2) return;
    notes_.push_back(text::message("the element has {} property sets {}; the first one that fits was changed", count,
                                   inQuotes(wantedSet_)));
}

}  // namespace

Status setProperty(Workspace& work, Element element, const Property& property, std::vector<std::string>& notes) {
    if (property.kind != PropertyKind::Single && !property.set.empty() && !property.name.empty()) return {};
    return PropertyEditor(work, element, property.set, property.name, RecordedValue(property, work.schema), notes)
        .run();
}

Status setPropertyText(Workspace& work, Element element, const PropertyText& property,
                       std::vector<std::string>& notes) {
    return PropertyEditor(work, element, property.set, property.name, WrittenValue(work, property), notes).run();
}

}  // namespace model::ifc
