#include "model/ifc/data/ElementEdit.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "text/Message.hpp"

#include <algorithm>

namespace model::ifc {

using step::Slot;

ElementEdit::ElementEdit(Workspace& workspace, Element edited)
    : work_(workspace), element_(edited), own_(work_.elements.slot(edited)), ownId_(work_.file.id(own_)) {}

Status ElementEdit::check(Slot slot) const {
    const step::InstanceId id = work_.file.id(slot);
    const std::string name = referenceText(id);
    if (!isReadable(slot)) return Error{ErrorKind::Refused, text::message("instance {} is not well formed", name)};
    if (work_.file.find(id) != slot) {
        return Error{ErrorKind::Refused,
                     text::message("the file has several instances {}, so none of them can be changed", name)};
    }
    return {};
}

Status ElementEdit::checkRelation(Slot relation) const {
    if (Status editable = check(relation); !editable) return editable;
    if (isAlone(relation) || hasPlainList(relation)) return {};
    return Error{ErrorKind::Refused,
                 text::message("what relation {} names is no well-formed list", reference(relation))};
}

bool ElementEdit::hasPlainList(Slot relation) const {
    if (const LongRelation* known = work_.longRelations.of(relation)) return known->plainList;
    step::Instance instance;
    return work_.file.read(relation, instance) &&
           isPlainList(argument(instance, work_.classes.of(relation), Field::Related));
}

bool ElementEdit::isReadable(Slot slot) const {
    if (const LongRelation* relation = work_.longRelations.of(slot)) return relation->frame.has_value();
    if (const LongSet* set = work_.longSets.of(slot)) return set->wellFormed;
    step::Instance instance;
    return work_.file.read(slot, instance) && isWellFormed(instance);
}

/// Files name an element twice in one relation; it is alone in it all the same.
bool ElementEdit::isAlone(Slot relation) const {
    const LongRelation* longRelation = work_.longRelations.find(relation);
    if (longRelation != nullptr && longRelation->namesSeveral) return false;
    bool named = false, others = false;
    const auto arguments = argumentBit(work_.classes.of(relation).attributeIndex(Field::Related));
    forEachReference(work_.file.text(relation), arguments, [&](unsigned, std::string_view token) {
        (tokenId(token) == ownId_ ? named : others) = true;
        return !others;
    });
    return named && !others;
}

/// Whether nobody but the element is given it: each use is a relation that names this element alone. A set in a type
/// object's list is used by no relation, and is not the element's.
bool ElementEdit::isOwn(Slot instance) const {
    bool ownOnly = true;
    work_.inverseReferences.forEachUse(instance, [&](const Use& use) {
        const Class& cls = work_.classes.of(use.user);
        ownOnly = cls.attributeIndex(Field::Related) >= 0 &&
                  cls.attributeIndex(Field::Relating) == use.attributeIndex && isAlone(use.user);
        return ownOnly;
    });
    return ownOnly;
}

Result<Slot> ElementEdit::add(const InstanceBuilder& draft, Slot neighbour) {
    return work_.file.append(draft.body(), neighbour);
}

InstanceBuilder ElementEdit::newRoot(std::string_view entityName, const std::string& purpose) {
    const Entity& entity = *work_.schema.entity(entityName);
    InstanceBuilder draft(entity);
    setRoot(draft, entity, purpose);
    return draft;
}

/// Without the names of all its elements where these are many: the copy is to name one.
InstanceBuilder ElementEdit::copyOfRoot(Slot original, const std::string& purpose) {
    const LongRelation* relation = work_.longRelations.of(original);
    InstanceBuilder draft = relation != nullptr && relation->frame ? *relation->frame : copyOf(original);
    setRoot(draft, *work_.classes.of(original).entity, purpose);
    return draft;
}

InstanceBuilder ElementEdit::copyOf(Slot original) const {
    step::Instance instance;
    work_.file.read(original, instance);
    return {*work_.classes.of(original).entity, instance};
}

void ElementEdit::setRoot(InstanceBuilder& draft, const Entity& entity, const std::string& purpose) {
    draft.set("GlobalId", work_.globalIds.globalId(work_.elements.guid(element_), purpose));
    // Mandatory in IFC2X3, optional since IFC4.
    const int index = entity.attributeIndex("OwnerHistory");
    if (index < 0 || entity.attributes()[static_cast<std::size_t>(index)].optional) return;
    // The element's own: who is responsible for the element is responsible for what describes it.
    const std::string_view history = argumentText(own_, Field::OwnerHistory);
    if (step::referenceId({step::ValueKind::Reference, history}) != 0) draft.set("OwnerHistory", std::string(history));
}

std::string_view ElementEdit::argumentText(Slot slot, Field field) const {
    step::Instance instance;
    if (!work_.file.read(slot, instance)) return {};
    return argument(instance, work_.classes.of(slot), field).text;
}

std::string_view ElementEdit::attributeName(Slot slot, Field field) const {
    const Class& cls = work_.classes.of(slot);
    return cls.entity->attributes()[static_cast<std::size_t>(cls.attributeIndex(field))].name;
}

Status ElementEdit::replaceReference(Slot instance, Field field, Slot from, Slot to) {
    step::Instance parts;
    if (!work_.file.read(instance, parts)) return {};
    const step::Value held = argument(parts, work_.classes.of(instance), field);
    const std::string text = withReference(held.text, work_.file.id(from), work_.file.id(to));
    return text == held.text ? Status{} : work_.file.replaceValue(instance, held, text);
}

Status ElementEdit::replaceInList(Slot holder, Field field, Slot from, Slot to) {
    const std::string list = withReference(argumentText(holder, field), work_.file.id(from), work_.file.id(to));
    return work_.replaceInList(holder, field, from, to, list);
}

Status ElementEdit::relink(Slot relation, Field field, Slot from, Slot to, const std::string& purpose) {
    if (isAlone(relation)) return replaceReference(relation, field, from, to);
    InstanceBuilder draft = copyOfRoot(relation, purpose);
    draft.replaceReference(attributeName(relation, field), work_.file.id(from), work_.file.id(to));
    return moveInto(draft, relation);
}

Status ElementEdit::moveInto(InstanceBuilder& draft, Slot relation) {
    draft.set(attributeName(relation, Field::Related), '(' + referenceText(ownId_) + ')');
    if (Status left = leave(relation); !left) return left;
    // What an element has is listed in file order: right behind its original the copy keeps the place in it.
    const Result<Slot> added = work_.file.insertBehind(draft.body(), relation);
    if (!added) return added.error();
    work_.relationCopies.emplace(*added, relation);
    return {};
}

/// The relation's text is not read: it may name thousands, and as many may leave it in one command.
Status ElementEdit::leave(Slot relation) {
    const int index = work_.classes.of(relation).attributeIndex(Field::Related);
    const Result<std::size_t> left = work_.file.removeReferences(relation, static_cast<std::size_t>(index), ownId_);
    if (!left) return left.error();
    work_.inverseReferences.forget(own_, relation, index);
    work_.forwardReferences.forget(relation, Field::Related);
    if (LongRelation* longRelation = work_.longRelations.find(relation)) longRelation->namesSeveral = *left > 1;
    return {};
}

}  // namespace model::ifc
