#pragma once

#include "model/ifc/schema/Classes.hpp"
#include "model/ifc/values/InstanceScan.hpp"

#include <compare>
#include <set>
#include <span>
#include <tuple>
#include <vector>

namespace model::ifc {

/// That an instance refers to another in one of its arguments, however often.
struct Use {
    step::Slot user;
    std::uint8_t attributeIndex;
};

/// Who refers to whom: of the instances that describe elements (relations, property sets, properties, classification
/// references, and whatever else the schema lets refer to these), never of geometry. Made in one pass over the file
/// when first asked, then kept up to date change by change, at a cost that does not depend on the size of the model.
class InverseReferences {
public:
    InverseReferences(const step::StepFile& file, Classes& classes, const Schema& schema);

    /// Calls visit(const Use&) for the uses of `target` until it returns false, in the order of the file that would be
    /// saved: what the host lists of an element follows from it, and is to be the same when the file is reopened.
    template <class Visit>
    void forEachUse(step::Slot target, Visit&& visit) {
        if (!built_) build();
        auto next = added_.end(), last = added_.end();
        if (!added_.empty()) std::tie(next, last) = added_.equal_range(file_.id(target));
        if (std::size_t{target} + 1 < offsets_.size()) {
            for (std::uint32_t i = offsets_[target]; i < offsets_[target + 1]; ++i) {
                const FileUse& use = uses_[i];
                if (!use.live) continue;
                for (; next != last && file_.before(next->use.user, use.user); ++next) {
                    if (!visit(next->use)) return;
                }
                if (!visit(Use{use.user, use.attributeIndex})) return;
            }
        }
        for (; next != last; ++next) {
            if (!visit(next->use)) return;
        }
    }

    /// To be told of every change of the file, but those that forget() and remember() tell of.
    void beforeChange(step::Slot slot);
    void afterChange(step::Slot slot);
    void afterRemovals(step::Slot user, std::size_t attributeIndex, std::span<const step::InstanceId> members,
                       bool gone);
    /// Drops all that is known: it is found anew when next asked for.
    void forgetAll() noexcept;

    /// Forgets the use of `target` in that argument of `user`.
    void forget(step::Slot target, step::Slot user, int attributeIndex);
    /// One more use of `target` in that argument of `user`.
    void remember(step::Slot target, step::Slot user, int attributeIndex);

private:
    // By id, since an instance that is undone and made anew has another slot, and within an undo step the instances
    // come and go in any order.
    struct Mention {
        step::InstanceId target;
        std::uint8_t attributeIndex;
        auto operator<=>(const Mention&) const = default;
    };
    struct FileUse {
        step::Slot user;
        std::uint8_t attributeIndex;
        bool live;
    };
    struct AddedUse {
        step::InstanceId target;
        Use use;
    };
    /// By target, and there in the order of the file. No hash: a file can be made so that its ids all have one.
    struct Order {
        using is_transparent = void;
        const step::StepFile* file;

        bool operator()(const AddedUse& a, const AddedUse& b) const {
            if (a.target != b.target) return a.target < b.target;
            if (a.use.user != b.use.user) return file->before(a.use.user, b.use.user);
            return a.use.attributeIndex < b.use.attributeIndex;
        }
        bool operator()(const AddedUse& a, step::InstanceId target) const { return a.target < target; }
        bool operator()(step::InstanceId target, const AddedUse& b) const { return target < b.target; }
    };
    using AddedUses = std::set<AddedUse, Order>;

    void build();
    std::uint64_t keptArguments(step::KeywordCode keyword);
    std::uint64_t keptArgumentsOf(const Class& cls) const;
    void mentions(step::Slot user, std::vector<Mention>& out);
    void add(const Mention& mention, step::Slot user);
    void remove(const Mention& mention, step::Slot user);
    FileUse* findInFile(const Mention& mention, step::Slot user);

    const step::StepFile& file_;
    Classes& classes_;
    const Schema& schema_;
    bool built_ = false;
    std::vector<std::uint64_t> kept_;  // by keyword code: a bit for each argument worth keeping; Unknown until asked
    // Among the instances of the file, as it was when the index was made: uses[offsets[t]] to uses[offsets[t + 1]] are
    // those of slot t, by user. A use that ends is marked, one that comes back is revived.
    std::vector<std::uint32_t> offsets_;
    std::vector<FileUse> uses_;
    AddedUses added_;                      // what came later
    std::vector<Mention> before_, after_;  // kept to save allocations
};

}  // namespace model::ifc
