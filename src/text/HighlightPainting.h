#pragma once

#include "records/Highlight.h"

#include <QColor>
#include <QList>
#include <QPair>
#include <QVector>

/// Which characters of a text are painted in which colour: values in, values out.
namespace painting {

/// The background of stretches on which highlights overlap.
QColor overlapColor();

/// Sets `overlapping` of each highlight and gives the stretches to paint in the overlap colour. The list is
/// sorted by `highlightLessThan`. A run of overlapping highlights gives one stretch per step of its growth,
/// all from the run's start, in no particular order.
QList<QPair<int, int>> markOverlaps(QList<Highlight>& highlights);

/// What there is to paint, in an order in which what concerns a block is found at once.
struct Layers {
    QList<Highlight> alone;             ///< which overlap no other
    QVector<QPair<int, int>> overlaps;  ///< none of which meets another
};

/// Takes highlights whose `overlapping` is set, and the stretches of their overlaps.
Layers layersOf(const QList<Highlight>& highlights, const QList<QPair<int, int>>& overlaps);

/// Characters [first, second) of a text.
struct Stretch {
    QPair<int, int> range;
    QRgb background = 0;
};

/// All that is painted.
QVector<Stretch> stretchesOf(const Layers& layers);

/// What only one of the two has, in any order: where the text looks different.
QVector<QPair<int, int>> differences(QVector<Stretch> before, QVector<Stretch> after);

/// Characters [start, start + count) of a block, counted from the block's start.
struct Stroke {
    int start = 0;
    int count = 0;
    QColor background;
};

/// What to paint in the block [blockStart, blockEnd), in the order of painting: the highlights that stand
/// alone, then the overlaps, then the pointed-at highlight on top when it is valid.
QVector<Stroke> strokesForBlock(const Layers& layers, const Highlight& current, int blockStart, int blockEnd);

}  // namespace painting
