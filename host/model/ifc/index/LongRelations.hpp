#pragma once

#include "model/ifc/schema/Classes.hpp"
#include "model/ifc/values/InstanceBuilder.hpp"

#include <optional>
#include <unordered_map>

namespace model::ifc {

/// What stays true of a relation while one element after the other leaves it.
struct LongRelation {
    std::optional<InstanceBuilder> frame;  ///< A copy without its many side; nothing where the text is not well formed.
    std::string name;                      ///< As a STEP string; empty where it has none.
    bool namesSeveral = false;             ///< Several elements for certain.
    bool plainList = false;                ///< Its many side is a list that an element can be taken out of.
};

/// Whether a value is a list of references and nothing else, so that any of them can be taken out.
bool isPlainList(step::Value list);

/// Relations that name many elements. Reading the text of one of these for each element that leaves would take time
/// with the square of their number.
class LongRelations {
public:
    LongRelations(const step::StepFile& file, Classes& classes);

    /// Null where the instance is short, or no relation.
    LongRelation* of(step::Slot slot);
    /// Null also where nobody asked of() before.
    LongRelation* find(step::Slot slot);

    /// Of any change but an element's leaving.
    void forget(step::Slot slot) { known_.erase(slot); }
    void forgetAll() noexcept { known_.clear(); }

private:
    LongRelation read(step::Slot slot);

    const step::StepFile& file_;
    Classes& classes_;
    std::unordered_map<step::Slot, LongRelation> known_;
};

}  // namespace model::ifc
