#pragma once

#include "model/base/Records.hpp"
#include "model/ifc/index/ForwardReferences.hpp"
#include "model/ifc/index/InverseReferences.hpp"
#include "model/ifc/index/LongRelations.hpp"

#include <unordered_map>
#include <unordered_set>

namespace model::ifc {

/// One classification of an element or of its type object.
struct AssignedClassification {
    step::Slot relation = step::NoSlot;
    step::Slot reference = step::NoSlot;  ///< An IfcClassificationReference, or an IfcClassification given directly.
    step::Slot classification = step::NoSlot;  ///< At the end of the chain of referenced sources; NoSlot without one.
    ClassificationReference data;
};

/// What relations say of classifications, decoded once: an element may have thousands, and each line of an update file
/// that concerns it asks for all of them.
class AssignedClassifications {
public:
    AssignedClassifications(const step::StepFile& file, Classes& classes, ForwardReferences& forwardReferences,
                            LongRelations& longRelations);

    /// Of an IfcRelAssociatesClassification; null where it gives a notation (IFC2X3), or nothing. Valid until a change
    /// of what it is made of, or trim().
    const AssignedClassification* of(step::Slot relation);
    /// Keeps the memory within bounds, but what the object needs that was asked for last. To be called where nothing of
    /// the above is held.
    void trim(step::Slot object);
    void forgetAll() noexcept;

    /// The classification at the end of a chain of referenced sources; NoSlot where there is none. Each link is
    /// followed once, since many references may hang on one long chain.
    step::Slot endOf(step::Slot reference);

    /// To be told of every change of the file before it is made.
    void beforeChange(step::Slot slot, InverseReferences& inverseReferences);

private:
    AssignedClassification decode(step::Slot relation);
    void readReference(AssignedClassification& assigned);
    std::u16string labelOf(step::Slot relation) const;
    step::Slot sourceOf(step::Slot reference) const;
    void drop(step::Slot relation);

    const step::StepFile& file_;
    Classes& classes_;
    ForwardReferences& forwardReferences_;
    LongRelations& longRelations_;
    std::size_t byteLimit_;
    std::size_t knownBytes_ = 0;
    step::Slot lastObject_ = step::NoSlot;
    std::unordered_map<step::Slot, AssignedClassification> known_;  // by relation
    std::unordered_map<step::Slot, step::Slot> ends_;               // of chains, by reference; NoSlot without one
    std::unordered_set<step::Slot> sources_;                        // that more than a single relation may rest on
};

}  // namespace model::ifc
