#pragma once

#include "model/ifc/schema/Classes.hpp"
#include "model/ifc/values/InstanceScan.hpp"

#include <unordered_map>
#include <vector>

namespace model::ifc {

/// One mention of an instance in an argument of another.
struct Use {
    step::Slot user;
    std::uint8_t argument;
    bool live;
};

/// Who refers to whom: of the instances that describe elements (relations, property sets, properties, classification
/// references, and whatever else the schema lets refer to these), never of geometry. Made in one pass over the file
/// when first asked, then kept up to date change by change, at a cost that does not depend on the size of the model.
class InverseReferences {
public:
    InverseReferences(const step::StepFile& file, Classes& classes, const Schema& schema);

    /// Calls visit(const Use&) for the uses of `target` in file order until it returns false.
    template <class Visit>
    void forEachUse(step::Slot target, Visit&& visit) {
        if (!built_) build();
        if (std::size_t{target} + 1 < offsets_.size()) {
            for (std::uint32_t i = offsets_[target]; i < offsets_[target + 1]; ++i) {
                if (uses_[i].live && !visit(uses_[i])) return;
            }
        }
        if (added_.empty()) return;
        if (const auto found = added_.find(file_.id(target)); found != added_.end()) {
            for (const Use& use : found->second) {
                if (use.live && !visit(use)) return;
            }
        }
    }

    /// To be told of every change of the file, but those that forget() and remember() tell of.
    void beforeChange(step::Slot slot);
    void afterChange(step::Slot slot);

    /// Forgets every use of `target` in that argument of `user`.
    void forget(step::Slot target, step::Slot user, int argument);
    /// One more use of `target` in that argument of `user`.
    void remember(step::Slot target, step::Slot user, int argument);

private:
    // By id, since an instance that is undone and made anew has another slot, and within an undo step the instances
    // come and go in any order.
    struct Mention {
        step::InstanceId target;
        std::uint8_t argument;
        bool operator<(const Mention& other) const {
            return target != other.target ? target < other.target : argument < other.argument;
        }
    };

    void build();
    std::uint64_t keptArguments(step::KeywordCode keyword);
    std::uint64_t keptArgumentsOf(const Class& cls) const;
    void mentions(step::Slot user, std::vector<Mention>& out);
    void add(const Mention& mention, step::Slot user);
    void remove(const Mention& mention, step::Slot user);
    Use* find(const Mention& mention, step::Slot user, bool live);

    const step::StepFile& file_;
    Classes& classes_;
    const Schema& schema_;
    bool built_ = false;
    std::vector<std::uint64_t> kept_;  // by keyword code: a bit for each argument worth keeping; Unknown until asked
    // The file as it was when the index was made: uses[offsets[t]] to uses[offsets[t + 1]] are those of slot t, in file
    // order. A use that ends is marked, one that comes back is revived.
    std::vector<std::uint32_t> offsets_;
    std::vector<Use> uses_;
    std::unordered_map<step::InstanceId, std::vector<Use>> added_;  // what came later, by the target's id
    std::vector<Mention> before_, after_;                           // kept to save allocations
};

}  // namespace model::ifc
