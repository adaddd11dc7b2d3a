#pragma once

#include "model/ifc/index/Workspace.hpp"
#include "model/ifc/values/InstanceBuilder.hpp"

namespace model::ifc {

/// The means to change what one element sees without changing what others see: who shares what, copies, and the moving
/// of the element from one relation to another.
class ElementEdit {
public:
    ElementEdit(Workspace& workspace, Element element);

    step::Slot slot() const { return own_; }
    step::InstanceId id() const { return ownId_; }

    /// Whether the instance can be read and changed: well formed, and the only one of its id.
    Status check(step::Slot slot) const;
    /// The same of a relation that names the element, and whether the element can leave it.
    Status checkRelation(step::Slot relation) const;
    /// Whether so many instances can be added.
    Status checkRoom(std::size_t count) { return work_.file.checkRoom(count); }

    /// Whether the relation names this element and nothing else on its many side.
    bool isAlone(step::Slot relation) const;
    /// Whether nothing but `user` refers to the instance.
    bool isUsedOnlyBy(step::Slot instance, step::Slot user) const { return work_.isUsedOnlyBy(instance, user); }
    /// Whether nothing refers to the instance.
    bool isUnused(step::Slot instance) const { return isUsedOnlyBy(instance, step::NoSlot); }
    /// Whether only relations of this element alone refer to the instance, on their one side.
    bool isOwn(step::Slot instance) const;

    /// Adds an instance to the data section of another.
    Result<step::Slot> add(const InstanceBuilder& draft, step::Slot neighbour);
    /// A draft of a new root, or of a copy of one (of a relation without its many side), with a GlobalId of its own and
    /// an owner history where the schema wants one.
    InstanceBuilder newRoot(std::string_view entity, const std::string& purpose);
    InstanceBuilder copyOfRoot(step::Slot original, const std::string& purpose);
    /// A draft of a copy of any instance. The original must be readable.
    InstanceBuilder copyOf(step::Slot original) const;

    /// Puts another reference in the place of one in an argument, which may be a list.
    Status replaceReference(step::Slot instance, Field field, step::Slot from, step::Slot to);
    /// The same in a list of references that does not have `to` yet.
    Status replaceInList(step::Slot holder, Field field, step::Slot from, step::Slot to);
    /// Lets the element see `to` where it saw `from` in an argument of the relation: there, if the relation is the
    /// element's alone; otherwise in a copy of the relation, which the element leaves the old one for.
    Status relink(step::Slot relation, Field field, step::Slot from, step::Slot to, const std::string& purpose);
    /// Takes the element out of a relation, which others stay in, and puts the copy, which is for the element alone,
    /// right behind it: what the element sees keeps its order, now and when the file is reopened.
    Status moveInto(InstanceBuilder& draft, step::Slot relation);
    /// Takes the element out of a relation, which others stay in.
    Status leave(step::Slot relation);

    std::string reference(step::Slot slot) const { return referenceText(work_.file.id(slot)); }
    /// The name of the attribute that a class has for a field.
    std::string_view attributeName(step::Slot slot, Field field) const;

private:
    bool isReadable(step::Slot slot) const;
    bool hasPlainList(step::Slot relation) const;
    void setRoot(InstanceBuilder& draft, const Entity& entity, const std::string& purpose);
    std::string_view argumentText(step::Slot slot, Field field) const;

    Workspace& work_;
    Element element_;
    step::Slot own_;
    step::InstanceId ownId_;
};

}  // namespace model::ifc
