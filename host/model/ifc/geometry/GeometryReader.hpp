#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <string_view>

namespace model::ifc {

/// The file as one element's geometry is read from it. A short file can name a long list again and again, so what is
/// read counts by its length, each time, and corners that are made by their number: one budget for all of an element.
/// Once it is spent nothing is read any more, and what was read so far says nothing of what is missing.
class GeometryReader {
public:
    explicit GeometryReader(Workspace& workspace) : work_(workspace) {}

    /// @return false where there is no such instance, where it is not well formed, or the budget does not suffice.
    bool read(step::Slot slot, step::Instance& out);
    /// Empty where the budget does not suffice.
    std::string_view text(step::Slot slot);
    step::Slot find(step::InstanceId id) const { return work_.file.find(id); }
    const Class& classOf(step::Slot slot) { return work_.classes.of(slot); }
    Workspace& work() { return work_; }

    /// @return whether so many corners can still be made.
    bool makeCorners(std::size_t count);
    bool spent() const { return spent_; }

    /// Several times what a sound element needs that is not too large for its outline anyway.
    static constexpr std::size_t Budget = std::size_t{16} << 20U;
    static constexpr std::size_t InstanceCost = 32;  ///< Beside its bytes.
    static constexpr std::size_t CornerCost = 16;

private:
    bool spend(std::size_t cost);

    Workspace& work_;
    std::size_t left_ = Budget;
    bool spent_ = false;
};

}  // namespace model::ifc
