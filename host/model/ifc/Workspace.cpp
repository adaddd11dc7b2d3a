#include "model/ifc/Workspace.hpp"

namespace model::ifc {

Workspace::Workspace(step::StepFile& stepFile, SchemaVersion schemaVersion)
    : file(stepFile),
      version(schemaVersion),
      schema(Schema::of(schemaVersion)),
      classes(file, schema),
      elements(file, classes),
      references(file, classes, schema),
      links(file, classes),
      longRelations(file, classes),
      propertySets(file, classes, schema),
      elementSets(file, propertySets),
      newRoots(file, classes),
      classificationIndex(file, classes) {
    file.setListener(this);
}

Workspace::~Workspace() {
    file.setListener(nullptr);
}

step::Slot Workspace::typeObject(step::Slot object) {
    step::Slot type = step::NoSlot;
    forEachRelation(object, Role::DefinesByType, [&](step::Slot relation) {
        type = links.first(relation, Field::Relating);
        return type == step::NoSlot;
    });
    return type;
}

Status Workspace::addToList(step::Slot holder, Field field, step::Slot member) {
    const Class& cls = classes.of(holder);
    step::Instance instance;
    file.read(holder, instance);
    observing_ = false;
    Status added = file.addToAggregate(holder, argument(instance, cls, field), referenceText(file.id(member)));
    observing_ = true;
    if (!added) return added;
    references.remember(member, holder, cls.place(field));
    links.append(holder, field, member);
    longRelations.forget(holder);
    propertySets.append(holder, member);
    return {};
}

void Workspace::beforeChange(step::Slot slot) {
    if (!observing_) return;
    propertySets.beforeChange(slot);
    links.forget(slot);
    longRelations.forget(slot);
    references.beforeChange(slot);
    newRoots.beforeChange(slot);
}

void Workspace::afterChange(step::Slot slot) {
    if (!observing_) return;
    references.afterChange(slot);
    newRoots.afterChange(slot);
    propertySets.afterChange(slot, references);
    links.forget(slot);
    longRelations.forget(slot);
}

}  // namespace model::ifc
