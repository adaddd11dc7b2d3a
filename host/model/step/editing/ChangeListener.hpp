#pragma once

#include "model/step/index/Slot.hpp"

namespace model::step {

/// Told of every change of an instance as it is made, by a command, an undo or a redo: for indexes that follow the file
/// instead of being made anew.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    virtual void beforeChange(Slot slot) = 0;  ///< The instance still has its old text.
    virtual void afterChange(Slot slot) = 0;   ///< It has the new one, or is absent.
};

}  // namespace model::step
