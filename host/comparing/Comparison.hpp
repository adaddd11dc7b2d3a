#pragma once
// What is different between two models, element by element. Data is compared, not instances: whether two elements share
// a set or each has its own is no difference, nor is another order or another numbering of the file.

#include "model/Model.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace comparing {

enum class ChangeKind : std::uint8_t {
    Attribute,
    Property,
    Classification,
    Other,  ///< Told by its kind alone: class, placement, geometry, storey, type, material.
};

/// "attribute", "property", "classification", "other"
const char* nameOf(ChangeKind kind);

/// One item of an element that the two models do not agree on.
struct Change {
    ChangeKind kind = ChangeKind::Other;
    std::string item;  ///< As an update file names it, "FireRating[WallCommon]"; of Other the kind, "storey".
    std::string set;   ///< Of a property: the whole name of its set.
    /// As an export gives them, reals with more decimals where six do not tell the value; nothing where the item is not
    /// there. Of Other: the names of what differs, nothing for placement and geometry.
    std::optional<std::string> old, now;
    /// What an update asks for to make the old value the new one. Only where `obstacle` is empty.
    std::string asked;
    std::string obstacle;  ///< Why no update can make it so: a clause without period.

    bool writable() const { return obstacle.empty(); }
};

struct ChangedElement {
    model::Element a = 0, b = 0;
    std::vector<Change> changes;  ///< Attributes, properties, classifications, other; never empty.
    /// Of elements with one number the properties and classifications come from the same relations and type objects in
    /// both models, and so do their changes. Counts only where data differ.
    std::size_t sources = 0;
};

struct Comparison {
    std::vector<model::Element> added;    ///< Of the second model, in its order.
    std::vector<model::Element> removed;  ///< Of the first.
    std::vector<ChangedElement> changed;  ///< In the order of the first.
    std::uint64_t same = 0;
    std::uint64_t notWritable = 0;  ///< Changes that no update can make.
};

/// Which elements it is about, by element of each model; an element that either model chooses is compared. All where a
/// list is empty.
struct Chosen {
    std::vector<bool> a, b;
};

/// Compares by GlobalId. What stands alike in both files is not decoded, and what elements share is compared once for
/// all that have it in common with the same others. Needs time in proportion to both files and to what is different.
/// @param a  Is not changed; but what updates could write is tried out on it and taken back, so that it may not be
/// inside a command. @return an Error where an element's data cannot be read.
model::Result<Comparison> compare(model::Model& a, const model::Model& b, const Chosen& chosen = {});

}  // namespace comparing
