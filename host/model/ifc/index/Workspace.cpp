#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

namespace {

/// Keeps the listener quiet about a change that is followed by hand.
class Unobserved {
public:
    explicit Unobserved(bool& observing) : observing_(observing) { observing_ = false; }
    ~Unobserved() { observing_ = true; }
    Unobserved(const Unobserved&) = delete;
    Unobserved& operator=(const Unobserved&) = delete;

private:
    bool& observing_;
};

}  // namespace

Workspace::Workspace(step::StepFile& stepFile, SchemaVersion schemaVersion)
    : file(stepFile),
      version(schemaVersion),
      schema(Schema::of(schemaVersion)),
      classes(file, schema),
      elements(file, classes),
      inverseReferences(file, classes, schema),
      forwardReferences(file, classes),
      longRelations(file, classes),
      longSets(file, classes),
      classifications(file, classes, forwardReferences, longRelations),
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

bool Workspace::isUsedOnlyBy(step::Slot instance, step::Slot user) {
    bool only = true;
    inverseReferences.forEachUse(instance, [&](const Use& use) {
        only = use.user == user;
        return only;
    });
    return only;
}

/// An edit whose effect on the indexes is known. A list may grow by thousands of these, and the listener would read all
/// of it before and after each.
template <class Edit, class Follow>
Status Workspace::editList(Edit edit, Follow follow) {
    {
        const Unobserved unobserved(observing_);
        Status done = edit();
        if (!done) return done;
    }
    try {
        follow();
    } catch (...) {
        afterManyChanges();
        throw;
    }
    return {};
}

Status Workspace::addToList(step::Slot holder, Field field, step::Slot member) {
    const int index = classes.of(holder).attributeIndex(field);
    const auto add = [&] { return file.addReference(holder, static_cast<std::size_t>(index), file.id(member)); };
    return editList(add, [&] {
        inverseReferences.remember(member, holder, index);
        forwardReferences.append(holder, field, member);
        longRelations.forget(holder);
        longSets.append(holder, member);
        propertySets.append(holder, member);
    });
}

Status Workspace::replaceInList(step::Slot holder, Field field, step::Slot from, step::Slot to,
                                const std::string& list) {
    const Class& cls = classes.of(holder);
    step::Instance instance;
    file.read(holder, instance);
    const auto replace = [&] { return file.replaceValue(holder, argument(instance, cls, field), list); };
    return editList(replace, [&] {
        inverseReferences.forget(from, holder, cls.attributeIndex(field));
        inverseReferences.remember(to, holder, cls.attributeIndex(field));
        forwardReferences.replace(holder, field, from, to);
        longRelations.forget(holder);
        longSets.replace(holder, from, to);
        propertySets.replace(holder, from, to);
    });
}

// What cannot follow a change, for want of memory, is found anew. A cache may be empty at any time; it may never be
// wrong.

void Workspace::beforeChange(step::Slot slot) noexcept try {
    if (!observing_) return;
    if (!axes.byCurve.empty()) axes = {};
    propertySets.beforeChange(slot);
    classifications.beforeChange(slot, inverseReferences);
    forwardReferences.forget(slot);
    longRelations.forget(slot);
    longSets.forget(slot);
    inverseReferences.beforeChange(slot);
    globalIds.beforeChange(slot);
} catch (...) {
    afterManyChanges();
}

void Workspace::afterChange(step::Slot slot) noexcept try {
    if (!observing_) return;
    // First, since what follows asks it who uses the instance.
    inverseReferences.afterChange(slot);
    globalIds.afterChange(slot);
    propertySets.afterChange(slot, inverseReferences);
    forwardReferences.forget(slot);
    longRelations.forget(slot);
    longSets.forget(slot);
} catch (...) {
    afterManyChanges();
}

/// Elements come back to a relation of thousands, or leave it again: nothing is read of that.
void Workspace::afterRemovals(step::Slot slot, std::size_t attributeIndex, std::span<const step::InstanceId> members,
                              bool gone) noexcept try {
    inverseReferences.afterRemovals(slot, attributeIndex, members, gone);
    propertySets.beforeChange(slot);
    forwardReferences.forget(slot);
    longRelations.forget(slot);
    longSets.forget(slot);
} catch (...) {
    afterManyChanges();
}

void Workspace::afterManyChanges() noexcept {
    axes = {};
    inverseReferences.forgetAll();
    globalIds.forgetAll();
    propertySets.forgetAll();
    classifications.forgetAll();
    forwardReferences.forgetAll();
    longRelations.forgetAll();
    longSets.forgetAll();
}

}  // namespace model::ifc
