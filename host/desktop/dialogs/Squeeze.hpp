#pragma once

#include <QRect>
#include <QSize>
#include <vector>

namespace desktop {

/// An item of an add-on's dialog, where the add-on has put it.
struct SqueezedItem {
    QRect place;
    bool gives = false;  ///< A list or a line to type in, which can be smaller; a button has the size of its text.
};

/// Where the items of a dialog are shown in a place that is smaller than the dialog ever gets: lists give way in both
/// directions, what lies below or beside them moves, buttons of one line come nearer to one another. The add-on knows
/// nothing of it: its dialog, its items and what it is told of clicks stay as they are.
/// @return a place for each item, in their order; in a place that is as large as the dialog, the add-on's own.
std::vector<QRect> squeezed(const std::vector<SqueezedItem>& items, QSize dialog, QSize place);

/// The smallest place that all items can be shown in side by side.
QSize leastPlace(const std::vector<SqueezedItem>& items, QSize dialog);

}  // namespace desktop
