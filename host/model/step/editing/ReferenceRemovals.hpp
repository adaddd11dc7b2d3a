#pragma once
// References to be taken out of a list in one go.

#include "model/step/syntax/Value.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace model::step {

/// What is to be taken out of one argument of an instance, an aggregate of references. Rewriting a list of thousands
/// for each of them that leaves would take time with the square of their number.
class ReferenceRemovals {
public:
    /// Nothing where the argument of that number is no well-formed list.
    static std::optional<ReferenceRemovals> of(std::string_view instanceText, std::size_t attributeIndex);

    std::size_t attributeIndex() const { return attributeIndex_; }
    /// Whether the list names it, still.
    bool names(InstanceId member) const;
    void remove(InstanceId member);
    std::size_t removed() const { return removed_; }
    /// How many different instances the list still names.
    std::size_t left() const { return members_.size() - removed_; }
    /// @param instanceText  the one it was made of.
    std::string applyTo(std::string_view instanceText) const;

private:
    std::size_t attributeIndex_ = 0;
    std::vector<InstanceId> members_;  ///< Sorted, each once.
    std::vector<bool> marked_;         ///< Of each member, whether it is to go.
    std::size_t removed_ = 0;          ///< How many are marked.
};

}  // namespace model::step
