#pragma once
// Lists of references that are edited one reference at a time. Rewriting a list of thousands for each of them would
// take time with the square of their number, and memory for a copy in each undo step: the edits are kept in their
// order, and the text is made when it is asked for.

#include "model/step/syntax/Value.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace model::step {

/// What is taken out of one argument of an instance, an aggregate of references.
class ReferenceRemovals {
public:
    /// Nothing where the argument of that number is no well-formed list.
    static std::optional<ReferenceRemovals> of(std::string_view instanceText, std::size_t attributeIndex);

    std::size_t attributeIndex() const { return attributeIndex_; }
    std::size_t count() const { return removed_.size(); }
    /// Whether the list names it, still.
    bool names(InstanceId member) const;
    /// All references to it. The list must name it.
    void remove(InstanceId member);
    /// Those from one number of removals to another.
    std::span<const InstanceId> removed(std::size_t from, std::size_t to) const {
        return std::span(removed_).subspan(from, to - from);
    }
    /// How many different instances the list still names.
    std::size_t left() const { return members_.size() - removed_.size(); }
    /// @param instanceText  The one that this was made of.
    /// @param count  How many of the removals, from the first on.
    std::string applyTo(std::string_view instanceText, std::size_t count) const;

private:
    std::size_t attributeIndex_ = 0;
    std::vector<InstanceId> members_;  ///< Sorted, each once.
    std::vector<bool> marked_;         ///< Of each member, whether it is gone.
    std::vector<InstanceId> removed_;  ///< In the order of the removals.
};

/// What is added at the end of one argument of an instance, an aggregate, spaced as the elements before.
class ReferenceAdditions {
public:
    static std::optional<ReferenceAdditions> of(std::string_view instanceText, std::size_t attributeIndex);

    std::size_t attributeIndex() const { return attributeIndex_; }
    std::size_t count() const { return added_.size(); }
    void add(InstanceId member) { added_.push_back(member); }
    std::string applyTo(std::string_view instanceText, std::size_t count) const;

private:
    std::size_t attributeIndex_ = 0;
    std::size_t place_ = 0;  ///< Of the first one, in the text.
    bool first_ = false;     ///< Whether the list has no elements before it.
    std::string separator_;  ///< Before each of the others.
    std::vector<InstanceId> added_;
};

/// The text of an instance and what became of it by edits of one kind in one argument. Edits are only ever added, so
/// that a state of the instance is told by how many of them it has: undo steps refer to such states.
class EditedList {
public:
    using Edits = std::variant<ReferenceRemovals, ReferenceAdditions>;

    /// @param base  The text that the edits were made of. Not owned until own() is called.
    EditedList(std::string_view base, Edits listEdits) : edits(std::move(listEdits)), base_(base) {}
    EditedList(const EditedList&) = delete;
    EditedList& operator=(const EditedList&) = delete;

    void own(std::string&& base) noexcept;
    std::string_view base() const { return base_; }
    std::size_t count() const;
    /// The text with the first edits. Valid until it is asked for with another number of them.
    std::string_view text(std::size_t count);

    Edits edits;

private:
    std::string ownBase_;
    std::string_view base_;
    std::string shown_;           ///< The text last asked for,
    std::size_t shownEdits_ = 0;  ///< and how many edits it has; 0 for none.
};

}  // namespace model::step
