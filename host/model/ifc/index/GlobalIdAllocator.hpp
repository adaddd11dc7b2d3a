#pragma once

#include "model/ifc/schema/Classes.hpp"

#include <set>
#include <vector>

namespace model::ifc {

/// GlobalIds for new instances. They follow from what the instance is for, so that the same updates on the same file
/// give the same bytes.
class GlobalIdAllocator {
public:
    GlobalIdAllocator(const step::StepFile& file, Classes& classes);

    /// A GlobalId that no instance of the file has yet, as a STEP string.
    /// @param purpose  What the element has it for: "property set Pset_WallCommon".
    std::string globalId(const Guid& element, std::string_view purpose);

    /// To be told of every change of the file: a GlobalId undone is free again.
    void beforeChange(step::Slot slot);
    void afterChange(step::Slot slot);
    /// Drops all that is known: it is found anew when next asked for.
    void forgetAll() noexcept;

private:
    void build();
    bool isTaken(const Guid& guid) const;
    std::optional<Guid> addedGuid(step::Slot slot);

    const step::StepFile& file_;
    Classes& classes_;
    bool built_ = false;
    // Eight bytes of each GlobalId tell millions of them apart; where they do not, the next candidate is taken.
    std::vector<std::uint64_t> taken_;  // sorted
    std::set<std::uint64_t> takenByNew_;
};

}  // namespace model::ifc
