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

void Workspace::beforeChange(step::Slot slot) {
    if (!observing) return;
    propertySets.forget(slot, references);
    links.forget(slot);
    references.beforeChange(slot);
    newRoots.beforeChange(slot);
}

void Workspace::afterChange(step::Slot slot) {
    if (!observing) return;
    references.afterChange(slot);
    newRoots.afterChange(slot);
    propertySets.forget(slot, references);
    links.forget(slot);
}

}  // namespace model::ifc
