#pragma once
// What is written on a plan: rooms' names and areas, the tags of a grid's axes.

#include "model/base/PlanRecords.hpp"

#include <QPointF>
#include <QPolygonF>
#include <QSizeF>
#include <QStringList>

namespace desktop {

/// What is written on one footprint.
struct PlanLabel {
    // Of a room.
    QPointF middle;  ///< Inside of it, where there is most room to write, in the model's coordinates.
    QSizeF room;     ///< So much there is around the middle.
    QString number, name, area;
    // Of a grid, one for each of its lines.
    QStringList tags;
};

/// The texts of a room's label. @param outlineArea  In square metres, where the file gives no quantity; nothing where
/// that is not known, either.
void setRoomTexts(PlanLabel& label, const model::RoomFacts& facts, std::optional<double> outlineArea);

/// The place inside of an outline that has most room around it for a text, which is wider than it is high. Time grows
/// with the corners alone.
void placeLabel(PlanLabel& label, const QList<QPolygonF>& rings);

/// What of a label has room in so many pixels, line by line: the fullest that fits. Empty where nothing does.
/// @param measure  The width and height of a line.
template <class Measure>
QStringList fittingLines(const PlanLabel& label, const QSizeF& space, const Measure& measure) {
    const QString both =
        label.number.isEmpty() || label.name.isEmpty() ? label.number + label.name : label.number + u' ' + label.name;
    const QStringList choices[] = {{both, label.area},
                                   {label.number, label.name, label.area},
                                   {label.number, label.area},
                                   {both},
                                   {label.number.isEmpty() ? label.name : label.number}};
    for (const QStringList& choice : choices) {
        QStringList lines;
        QSizeF size(0, 0);
        for (const QString& line : choice) {
            if (line.isEmpty()) continue;
            const QSizeF needed = measure(line);
            size = {std::max(size.width(), needed.width()), size.height() + needed.height()};
            lines += line;
        }
        if (!lines.isEmpty() && size.width() <= space.width() && size.height() <= space.height()) return lines;
    }
    return {};
}

}  // namespace desktop
