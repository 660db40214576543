#pragma once

#include <QVector>

/// The rows of pixels that a stripe covers: [y1, y2).
struct StripeExtent {
    int y1 = 0;
    int y2 = 0;
};

struct StripeColumns {
    QVector<int> columns;  ///< for each stripe, in the order given
    int count = 1;         ///< at least 1
};

/// Puts each stripe into the first column whose last stripe ends above it, or into a new one. So stripes that
/// touch the same line of text never share a column.
StripeColumns stripeColumns(const QVector<StripeExtent>& stripes);
