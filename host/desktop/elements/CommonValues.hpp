#pragma once

#include "desktop/elements/ItemValues.hpp"

#include <QString>
#include <cstddef>
#include <vector>

namespace desktop {

/// An item that some of several elements have.
struct CommonValue {
    Item item;
    QString value;             ///< Where it is not the same for all, that of the first.
    std::size_t elements = 0;  ///< How many have the item.
    bool various = false;      ///< They hold different values.
    bool changeable = true;    ///< An update can change it on each of them.
};

struct CommonValues {
    std::vector<CommonValue> values;  ///< In the order in which they are met: attributes, properties, classifications.
    std::size_t unreadable = 0;       ///< Elements of which not everything can be read.
};

/// Of up to this many elements: reading them may take as long as the user waits for a row to be selected.
inline constexpr std::size_t MostCompared = 1000;

/// What the elements have in common and where they differ. The time is linear in what they hold.
CommonValues commonValues(const model::Model& model, const std::vector<model::Element>& elements);

}  // namespace desktop
