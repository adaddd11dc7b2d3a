#pragma once

#include "model/step/index/Slot.hpp"

namespace model::step {

/// Told of every change of an instance as it is made, by a command, an undo or a redo: for indexes that follow the file
/// instead of being made anew. It must not fail, since rolling back must not: an index that lacks the memory to follow
/// forgets what it knows and is made anew when it is next asked.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    virtual void beforeChange(Slot slot) noexcept = 0;  ///< The instance still has its old text.
    virtual void afterChange(Slot slot) noexcept = 0;   ///< It has the new one, or is absent.
    /// Instances changed that it cannot be told of one by one.
    virtual void afterManyChanges() noexcept = 0;
};

}  // namespace model::step
