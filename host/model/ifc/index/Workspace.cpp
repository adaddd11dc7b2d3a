#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

Workspace::Workspace(step::StepFile& stepFile, SchemaVersion schemaVersion)
    : file(stepFile),
      version(schemaVersion),
      schema(Schema::of(schemaVersion)),
      classes(file, schema),
      elements(file, classes),
      inverseReferences(file, classes, schema),
      forwardReferences(file, classes),
      longRelations(file, classes),
      propertySets(file, classes, schema),
      elementSets(file, propertySets),
      globalIds(file, classes),
      classificationIndex(file, classes) {
    file.setListener(this);
}

Workspace::~Workspace() {
    file.setListener(nullptr);
}

step::Slot Workspace::typeObject(step::Slot object) {
    step::Slot type = step::NoSlot;
    forEachRelation(object, Role::DefinesByType, [&](step::Slot relation) {
        type = forwardReferences.first(relation, Field::Relating);
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
    inverseReferences.remember(member, holder, cls.place(field));
    forwardReferences.append(holder, field, member);
    longRelations.forget(holder);
    propertySets.append(holder, member);
    return {};
}

void Workspace::beforeChange(step::Slot slot) {
    if (!observing_) return;
    propertySets.beforeChange(slot);
    forwardReferences.forget(slot);
    longRelations.forget(slot);
    inverseReferences.beforeChange(slot);
    globalIds.beforeChange(slot);
}

void Workspace::afterChange(step::Slot slot) {
    if (!observing_) return;
    inverseReferences.afterChange(slot);
    globalIds.afterChange(slot);
    propertySets.afterChange(slot, inverseReferences);
    forwardReferences.forget(slot);
    longRelations.forget(slot);
}

}  // namespace model::ifc
