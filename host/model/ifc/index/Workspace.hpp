#pragma once

#include "model/ifc/index/AssignedClassifications.hpp"
#include "model/ifc/index/ClassificationIndex.hpp"
#include "model/ifc/index/ElementSets.hpp"
#include "model/ifc/index/Elements.hpp"
#include "model/ifc/index/ForwardReferences.hpp"
#include "model/ifc/index/GlobalIdAllocator.hpp"
#include "model/ifc/index/InverseReferences.hpp"
#include "model/ifc/index/LongRelations.hpp"
#include "model/ifc/index/LongSets.hpp"

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_map>

namespace model::ifc {

struct Axis;

/// The curves that things stand along, each read once for all of them; see geometry/AlongCurve.hpp.
struct KnownAxes {
    std::unordered_map<step::Slot, std::shared_ptr<const Axis>> byCurve;
    std::size_t pieces = 0;  ///< Of all of them.
};

/// An open file with everything kept about it. Each index is made when first needed and follows every change.
class Workspace final : private step::ChangeListener {
public:
    Workspace(step::StepFile& file, SchemaVersion version);
    ~Workspace() override;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// Slots of `object`'s relations of a role that name it on their many side, in file order.
    template <class Visit>
    void forEachRelation(step::Slot object, Role role, Visit&& visit) {
        inverseReferences.forEachUse(object, [&](const Use& use) {
            const Class& cls = classes.of(use.user);
            return cls.role != role || cls.attributeIndex(Field::Related) != use.attributeIndex || visit(use.user);
        });
    }

    /// The type object of an element: of several, the first in the file. NoSlot where it has none.
    step::Slot typeObject(step::Slot object);

    /// Whether nothing but `user` refers to the instance; nothing at all where that is NoSlot.
    bool isUsedOnlyBy(step::Slot instance, step::Slot user);

    /// Adds a reference to the end of a list. What is kept about the list is added to, not made anew: a set may be
    /// given one property after the other.
    Status addToList(step::Slot holder, Field field, step::Slot member);
    /// Puts a member that the list does not have yet in the place of another, in the same way: one property of a set
    /// after the other may get a copy.
    /// @param list  The text of the list, which stands in that field, with the new member.
    Status replaceInList(step::Slot holder, Field field, step::Slot from, step::Slot to, const std::string& list);

    step::StepFile& file;
    const SchemaVersion version;
    const Schema& schema;
    Classes classes;
    Elements elements;
    InverseReferences inverseReferences;
    ForwardReferences forwardReferences;
    LongRelations longRelations;
    LongSets longSets;
    AssignedClassifications classifications;
    PropertySets propertySets;
    ElementSets elementSets;
    GlobalIdAllocator globalIds;
    ClassificationIndex classificationIndex;
    KnownAxes axes;
    /// The relations that elements got in the open command for others that they left, and these.
    std::unordered_map<step::Slot, step::Slot> relationCopies;

private:
    /// Makes the one change of a list that `edit` makes, and has it followed by `follow`.
    template <class Edit, class Follow>
    Status editList(Edit edit, Follow follow);
    void beforeChange(step::Slot slot) noexcept override;
    void afterChange(step::Slot slot) noexcept override;
    void afterRemovals(step::Slot slot, std::size_t attributeIndex, std::span<const step::InstanceId> members,
                       bool gone) noexcept override;
    void afterManyChanges() noexcept override;

    bool observing_ = true;
};

}  // namespace model::ifc
