#pragma once

#include "model/step/index/Slot.hpp"
#include "model/step/syntax/Value.hpp"

#include <cstddef>
#include <span>

namespace model::step {

/// Told of every change of an instance as it is made, by a command, an undo or a redo: for indexes that follow the file
/// instead of being made anew. It must not fail, since rolling back must not: an index that lacks the memory to follow
/// forgets what it knows and is made anew when it is next asked.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    virtual void beforeChange(Slot slot) noexcept = 0;  ///< The instance still has its old text.
    virtual void afterChange(Slot slot) noexcept = 0;   ///< It has the new one, or is absent.
    /// In place of both where all that a rollback, an undo or a redo does to the instance is to put references back
    /// into an argument that removeReferences() took out of it, or to take them out again. It has its new text.
    /// @param gone  Whether it names these no more; otherwise it names them again.
    virtual void afterRemovals(Slot slot, std::size_t attributeIndex, std::span<const InstanceId> members,
                               bool gone) noexcept = 0;
    /// Instances changed that it cannot be told of one by one.
    virtual void afterManyChanges() noexcept = 0;
};

}  // namespace model::step
